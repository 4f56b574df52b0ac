#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "app/state/dialogs.h"
#include "app/state/views.h"

namespace velorix {

/// Dialogs that the arguments answer. A box is a complaint on standard error. But questions with a
/// yes are answered by it, since without `--force` no output is begun that overwrites, and what a
/// save loses is said there while the save goes on.
struct BatchDialogs : Dialogs {
  std::deque<FileAnswer> Answers;
  bool Complained = false;

  std::optional<FileAnswer> ShowOpen(const FileQuestion&) override { return Next(); }
  std::optional<FileAnswer> ShowSave(const FileQuestion&) override { return Next(); }
  int Ask(const std::string& title, const std::string& text,
          const std::vector<std::string>& buttons, int defaultButton) override;
  bool AskYesNo(const std::string&, const std::string&) override { return true; }
  int AskToSave(const std::string& title, const std::string& text,
                const std::vector<std::string>& buttons, int defaultButton) override;

 private:
  std::optional<FileAnswer> Next();
};

/// Views that show nothing but a failure of the statistics, on standard error.
struct BatchViews : Views, WindowOpener {
  std::string Status;

  void SetCaption(const std::string&) override {}
  int CaptionRoom() override { return 80; }
  void ShowChoices() override {}
  void ShowCodeLists() override {}
  void ShowGridHeader() override {}
  void FillGrid() override {}
  void FillDataTable() override {}
  void ShowSelection() override {}
  void Redraw(PlotKind) override {}
  void ShowWindows() override {}
  void RefreshGroupStatistics() override {}
  void RefreshContour() override {}
  void ShowAbout() override {}
  void ShowManual() override {}
  void ShowOrientationEditor() override {}
  void ShowGedEditor() override {}
  void ShowOrientationParameters() override {}
  void ShowFactorChoice() override {}
  void ShowFigureOptions() override {}
  void ShowAxes() override {}
  void Exit() override {}
  void ShowStatus(const std::string& text) override { Status = text; }
};

}  // namespace velorix
