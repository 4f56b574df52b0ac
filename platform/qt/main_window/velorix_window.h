#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "app/commands/velorix.h"
#include "platform/qt/main_window/command_bars.h"
#include "platform/qt/main_window/status_labels.h"

class QSplitter;
class QPushButton;

namespace velorix {

class Autosaver;
class ColumnPlots;
class frmContour;
class frmDataTable;
class frmFoliLine;
class frmGEDEditor;
class frmGroupStatistics;
class frmGroups;
class frmManual;
class GridPanel;
class StereoPanel;
class ViewLists;

/// The main window. It decides nothing: controls call the commands, and the commands say what to
/// show.
class frmVelorix : public QMainWindow, public Views, public WindowOpener {
 public:
  frmVelorix();
  ~frmVelorix() override;

  /// Makes all controls and puts the session of `velorix` into its first state.
  void Load(Velorix& velorix);
  /// Keeps unsaved data from now on, and offers those that a run which ended has left.
  void StartAutosave();
  /// The time of the start-up in the status panel `picStat(2)`.
  void ShowStartTime(float seconds);

  void SetCaption(const std::string& caption) override;
  int CaptionRoom() override;
  void ShowChoices() override;
  void ShowCodeLists() override;
  void ShowGridHeader() override;
  void FillGrid() override;
  void Redraw(PlotKind plot) override;
  void FillDataTable() override;
  void ShowSelection() override;
  void RefreshGroupStatistics() override;
  void RefreshContour() override;
  void ShowStatus(const std::string& text) override;

  void ShowWindows() override;
  void ShowAbout() override;
  void ShowManual() override;
  void ShowOrientationEditor() override;
  void ShowOrientationParameters() override;
  void ShowFactorChoice() override;
  void ShowFigureOptions() override;
  void ShowAxes() override;
  void ShowGedEditor() override;
  void Exit() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddPanelButtons();
  QWidget* MakeViews();
  int LeftWidth() const;
  void FollowGridWidth();
  void PlaceGrid();
  template <class Window>
  void ShowWindow(bool OpenWindows::*isOpen, Window*& window);

  Velorix* velorix_ = nullptr;  // whose Views this window is
  CommandBars bars_;
  StatusLabels status_;
  ViewLists* lists_ = nullptr;
  GridPanel* grid_ = nullptr;
  StereoPanel* stereo_ = nullptr;
  frmGroupStatistics* group_ = nullptr;  // these only while they are open
  frmDataTable* table_ = nullptr;
  frmContour* contour_ = nullptr;
  frmFoliLine* foliLine_ = nullptr;
  frmGroups* groups_ = nullptr;
  QPointer<frmGEDEditor> gedEditor_;
  QPointer<frmManual> manual_;
  std::unique_ptr<ColumnPlots> plots_;
  std::unique_ptr<Autosaver> autosaver_;  // null until it is started
  QSplitter *whole_ = nullptr, *main_ = nullptr, *column_ = nullptr, *pairs_ = nullptr;
  QPushButton* columnButton_ = nullptr;
  bool columnChosen_ = true;  // by the user; a wide grid may leave no room for it
  bool optionsGone_ = false;  // of the net, for a wide grid
  QList<int> besideNarrow_;   // widths at both sides of `whole_` before the grid was widened
};

}  // namespace velorix
