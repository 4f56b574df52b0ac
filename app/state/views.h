#pragma once

#include <string>

#include "plot/figure/plot_kind.h"

namespace velorix {

/// What shows the session. The program calls it after each change; `platform/` implements it. No
/// view decides anything: each reads what it was made with.
struct Views {
  virtual ~Views() = default;
  /// The main window's caption, and how many characters of a path have room in it.
  virtual void SetCaption(const std::string& caption) = 0;
  virtual int CaptionRoom() = 0;
  /// Check marks of menu and tool bar and the positions of the coordinate lists follow the session.
  virtual void ShowChoices() = 0;
  /// The foliation and lineation lists have changed.
  virtual void ShowCodeLists() = 0;
  /// The header of the record grid has changed.
  virtual void ShowGridHeader() = 0;
  /// The record grid is filled from the store again, selected rows with it.
  virtual void FillGrid() = 0;
  /// The data table is filled from the store again, in its order.
  virtual void FillDataTable() = 0;
  /// The rows of grid and data table that are selected follow the store.
  virtual void ShowSelection() = 0;
  /// A picture is drawn again.
  virtual void Redraw(PlotKind plot) = 0;
  /// The group statistics have changed.
  virtual void RefreshGroupStatistics() = 0;
  /// The data in the contour window have changed.
  virtual void RefreshContour() = 0;
  /// A line of the status bar, for a short time.
  virtual void ShowStatus(const std::string& text) = 0;
};

/// Which of the windows beside the main one stand open.
struct OpenWindows {
  bool DataTable = false;
  bool GroupStatistics = false;
  bool FoliLine = false;
  bool Groups = false;
  bool Contour = false;
};

/// What opens and shuts windows; `platform/` implements it.
struct WindowOpener {
  virtual ~WindowOpener() = default;
  /// The windows beside the main one open and shut as the program's `OpenWindows` says.
  virtual void ShowWindows() = 0;
  virtual void ShowAbout() = 0;
  /// Opens the window of the manual, or raises it.
  virtual void ShowManual() = 0;
  /// Modal dialogs; they return when the user has closed them.
  virtual void ShowOrientationEditor() = 0;
  virtual void ShowOrientationParameters() = 0;
  virtual void ShowFactorChoice() = 0;
  virtual void ShowFigureOptions() = 0;
  virtual void ShowAxes() = 0;
  /// Opens the editor of geological files, or raises the one that is open.
  virtual void ShowGedEditor() = 0;
  /// Asks the main window to close, which asks the exit question.
  virtual void Exit() = 0;
};

}  // namespace velorix
