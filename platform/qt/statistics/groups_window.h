#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "app/commands/velorix.h"
#include "app/tables/study_origin.h"
#include "platform/qt/statistics/study_run.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace velorix {

class frmComparison;
class frmUntilting;
class GroupControls;

/// The window "Groups": the statistics of every group of the records in view, a row each and one
/// for all. A click on a row selects its records in all views. They are computed beside the
/// window, again when the view changes.
class frmGroups : public QWidget {
 public:
  frmGroups(Velorix& velorix, QWidget* owner);
  ~frmGroups() override;

  std::function<void()> OnClose;

  /// Computes the groups of the view shown.
  void Refresh();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QLayout* MakeChoices();
  QLayout* MakeCommands();
  const std::optional<GroupBy>& Chosen() const;
  std::vector<RecordGroup> Groups() const;
  void ChooseWay();
  void ChooseParting();
  void ShowParting();
  std::vector<std::size_t> SelectedRows() const;
  void Take(std::vector<GroupRow> rows);
  void Finish(bool stopped);
  void Say();
  void FillRow(int row, const GroupRow& group);
  void SelectRecordsOfRows();
  std::vector<const GroupRow*> ShownRows() const;
  void Copy();
  void Export();
  void WritePanels();
  void Compare();
  void Untilt();

  Velorix& velorix_;
  QComboBox* ways_ = nullptr;
  QLineEdit* detail_ = nullptr;
  QTableWidget* table_ = nullptr;
  QLabel *heading_ = nullptr, *progress_ = nullptr;
  QPushButton* cancel_ = nullptr;
  GroupControls* controls_ = nullptr;
  std::vector<std::string> names_;         // of the groups
  std::vector<std::vector<int>> records_;  // `RecordNo` of each group's records
  std::vector<GroupRow> rows_;
  std::optional<StudyOrigin> origin_;  // of the rows, for their file
  std::size_t expected_ = 0;           // rows, with that of all
  bool stopped_ = false;
  std::unique_ptr<StudyRun> run_;
  QPointer<frmComparison> comparison_;
  QPointer<frmUntilting> untilting_;
};

}  // namespace velorix
