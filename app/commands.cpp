#include "app/commands.h"

#include <cassert>
#include <exception>
#include <filesystem>

#include "app/display/display.h"
#include "app/files/export_grid.h"
#include "app/files/graphics_page.h"
#include "app/files/open_flow.h"
#include "app/files/save.h"
#include "tensor/derivation.h"
#include "tensor/kernel.h"
#include "tensor/rotations.h"
#include "text/paths.h"

namespace velorix {
namespace {

void ShowStore(Velorix& v) {
  DisplayData(v, true);
  DisplayFormCaption(v);
}

void New(Velorix& v) {
  if (OpenDataFiles(v, "New", false)) ShowStore(v);
}
void Open(Velorix& v) {
  if (OpenDataFiles(v, "Open", true)) ShowStore(v);
}
void Previous(Velorix& v) {
  OpenPrevious(v);
  ShowStore(v);
}
void Next(Velorix& v) {
  OpenNext(v);
  ShowStore(v);
}
void Reload(Velorix& v) {
  ReloadFile(v);
  ShowStore(v);
}

template <auto Choice, auto Value>
void Choose(Velorix& v) {
  v.Session.*Choice = Value;
}
template <void (*Change)(RecordArray&)>
void Select(Velorix& v) {
  Change(v.Session.Records);
  DisplayData(v, false);
}

template <auto Choice, auto Value>
bool IsChosen(const Velorix& v) {
  return v.Session.*Choice == Value;
}

template <bool OpenWindows::*Window>
void Toggle(Velorix& v) {
  v.Windows.*Window = !(v.Windows.*Window);
  v.Views.ShowWindows();
  v.Views.ShowChoices();
}
template <bool OpenWindows::*Window>
bool IsOpen(const Velorix& v) {
  return v.Windows.*Window;
}

/// The lists of codes stay as they are, or as the editor's "SAVE" filled them.
void EditOrientations(Velorix& v) {
  v.Views.ShowOrientationEditor();
  DisplayData(v, false);
  DisplayFormCaption(v);
}

/// The values in the records stay as they are until the next display.
void ChooseFactors(Velorix& v) {
  v.Views.ShowFactorChoice();
  v.Views.ShowGridHeader();
}

void Rotate(Velorix& v) {
  v.Dialogs.Ask(ProgramTitle, "Rotate", {"&OK"});
  RotateAllNinety(v);
}

/// M = R M' R transposed for a tensor in its six numbers.
void TurnTensor(const Matrix<3, 3>& rotation, Array1<Number, 6>& tensor) {
  Vector<6> form;
  for (int i = 1; i <= 6; ++i) form[i] = tensor[i];
  Matrix<3, 3> matrix;
  TensorForm<ToMatrix>(matrix, form);
  Mxabat(rotation, matrix, matrix);
  TensorForm<ToForm>(matrix, form);
  for (int i = 1; i <= 6; ++i) tensor[i] = form[i];
}

constexpr auto Block = &Session::ReImMode;
constexpr auto System = &Session::CoorSys;
constexpr auto Plane = &Session::TectoPlane;

constexpr auto Action = Command::Action;
constexpr auto Check = Command::Check;
constexpr auto Radio = Command::Radio;

// clang-format off
constexpr Menu MenuTable[] = {
    {"mnuFile",       "&File"},
    {"mnuGraphics",   "&Graphics"},
    {"mnuEditt",      "&Edit"},
    {"mnuStatistics", "&Analysis"},
    {"mnuViewMain",   "&View"},
    {"mnuSetting",    "Se&ttings"},
    {"mnuHelp",       "A&bout"},
};

// Key spellings in the tips ("Crtl") are the program's own. Selection item 4 is a separator.
constexpr Command CommandTable[] = {
    // name, menu, caption, key, button, tip, icon, look, hidden, run, checked, separator before
    {"mnuNew", "mnuFile", "New", "", 0, "", "", Action, false, New, nullptr, false},
    {"mnuOpen", "mnuFile", "Open", "Ctrl+O", 1, "Open Data File(s) [Crtl+O]", "open", Action, false, Open, nullptr, false},
    {"mnuOpenPrevious", "mnuFile", "Open Previous", "Ctrl+P", 2, "Open Previous Data File [Crtl+P]", "previous", Action, false, Previous, nullptr, false},
    {"mnuOpenNext", "mnuFile", "Open Next", "Ctrl+N", 3, "Open Next Data File [Crtl+N]", "next", Action, false, Next, nullptr, false},
    {"mnuReload", "mnuFile", "Reload", "Ctrl+R", 4, "Reload Current Data File [Crtl+R]", "reload", Action, false, Reload, nullptr, false},
    {"mnuSave", "mnuFile", "Save", "", 0, "", "", Action, true, SaveFile, nullptr, false},
    {"mnuSaveAs", "mnuFile", "Save As", "Ctrl+S", 5, "Save Current Data File As [Crtl+S]", "save", Action, false, SaveAs, nullptr, true},
    {"mnuSaveSelectedAs", "mnuFile", "Save Select Record(s) As", "Ctrl+A", 6, "Save Selected Record(s) As [Crtl+A]", "save-selected", Action, false, SaveSelectedAs, nullptr, false},
    {"mnuExport", "mnuFile", "Export", "Ctrl+E", 7, "Export Data [Crtl+E]", "export", Action, false, ExportData, nullptr, false},
    {"mnuClose", "mnuFile", "Close", "Ctrl+X", 0, "", "", Action, false, CloseFile, nullptr, true},
    {"mnuExit", "mnuFile", "Exit Program", "Ctrl+Q", 0, "", "", Action, false, [](Velorix& v) { v.Views.Exit(); }, nullptr, true},

    {"mnuGraphicsCopy", "mnuGraphics", "Copy To Clipboard", "Ctrl+C", 9, "Copy Graphics To Clipboard [Crtl+C]", "copy-picture", Action, false, CopyGraphics, nullptr, false},
    {"mnuGraphicsSave", "mnuGraphics", "Save To File", "Ctrl+F", 10, "Save Graphics To File [Crtl+F]", "save-picture", Action, false, SaveGraphics, nullptr, false},
    {"mnuGraphicRedraw", "mnuGraphics", "Redraw", "", 0, "", "", Action, true, AnisoView_DisplayAllPlots, nullptr, false},
    {"mnuGraphicsPrint", "mnuGraphics", "Print", "Ctrl+Shift+P", 0, "", "", Action, false, PrintGraphics, nullptr, true},

    {"mnuEdit(1)", "mnuEditt", "Edit Orientation Data", "F2", 12, "Edit Orientation Data [F2]", "edit-orientation", Check, false, EditOrientations, nullptr, false},
    {"mnuEdit(2)", "mnuEditt", "Rotate Data", "", 0, "", "", Action, true, nullptr, nullptr, false},
    {"mnuGedEditor", "mnuEditt", "Geological File Editor", "", 0, "", "", Action, false, [](Velorix& v) { v.Views.ShowGedEditor(); }, nullptr, false},

    {"mnuAnalysis(1)", "mnuStatistics", "Group Statistics", "F9", 14, "Group Statistics [F9]", "statistics", Check, false, Toggle<&OpenWindows::GroupStatistics>, IsOpen<&OpenWindows::GroupStatistics>, false},
    {"mnuAnalysis(2)", "mnuStatistics", "Bootstrap Statistics", "F11", 0, "", "", Action, true, nullptr, nullptr, false},
    {"mnuAnalysis(3)", "mnuStatistics", "Contour Plot", "F12", 15, "Contour Plot [F12]", "contour", Check, false, Toggle<&OpenWindows::Contour>, IsOpen<&OpenWindows::Contour>, false},
    {"mnuAnalysis(4)", "mnuStatistics", "Calculate Field Independent Tensor", "Ctrl+I", 0, "", "", Action, true, nullptr, nullptr, false},
    {"mnuFoliLine", "mnuStatistics", "Plane from Lineations", "", 0, "", "", Check, false, Toggle<&OpenWindows::FoliLine>, IsOpen<&OpenWindows::FoliLine>, true},

    {"mnuDataTable", "mnuViewMain", "Data Table", "F1", 17, "View Data Table [F1]", "table", Check, false, Toggle<&OpenWindows::DataTable>, IsOpen<&OpenWindows::DataTable>, false},
    {"mnuAnisoReIm(1)", "mnuViewMain", "Kre", "F3", 19, "Show In-Phase AMS [F3]", "kre", Radio, false, Choose<Block, InPhase>, IsChosen<Block, InPhase>, true},
    {"mnuAnisoReIm(2)", "mnuViewMain", "Kim", "F4", 20, "Show Out-Of-Phase AMS [F4]", "kim", Radio, false, Choose<Block, OutOfPhase>, IsChosen<Block, OutOfPhase>, false},
    {"mnuView(1)", "mnuViewMain", "Specimen", "F5", 22, "Specimen Coordinate System [F5]", "specimen", Radio, false, Choose<System, Specimen>, IsChosen<System, Specimen>, true},
    {"mnuView(2)", "mnuViewMain", "Geographic", "F6", 23, "Geographic Coordinate System [F6]", "geographic", Radio, false, Choose<System, Geographic>, IsChosen<System, Geographic>, false},
    {"mnuView(3)", "mnuViewMain", "Paleogeographic", "F7", 24, "Paleogeographic Coordinate System [F7]", "paleogeographic", Radio, false, Choose<System, Paleogeographic>, IsChosen<System, Paleogeographic>, false},
    {"mnuView(4)", "mnuViewMain", "Tectonic", "F8", 25, "Tectonic Coordinate System [F8]", "tectonic", Radio, false, Choose<System, Tectonic>, IsChosen<System, Tectonic>, false},
    {"tecto(1)", "", "", "", 27, "Paleohorizontal", "paleohorizontal", Radio, false, Choose<Plane, PaleoPlane::Horizontal>, IsChosen<Plane, PaleoPlane::Horizontal>, false},
    {"tecto(2)", "", "", "", 28, "Paleovertical", "paleovertical", Radio, false, Choose<Plane, PaleoPlane::Vertical>, IsChosen<Plane, PaleoPlane::Vertical>, false},

    {"mnuSelection(1)", "mnuViewMain", "Invert Selection", "Ctrl+Ins", 30, "Invert Selection [Ctrl + Ins]", "invert", Action, false, Select<InvertSelection>, nullptr, true},
    {"mnuSelection(2)", "mnuViewMain", "Disregard Selected Record(s)", "Del", 31, "Disregard Selected Record(s) [Del]", "disregard", Action, false, Select<DisregardSelected>, nullptr, false},
    {"mnuSelection(3)", "mnuViewMain", "Restore All Records", "Alt+Backspace", 32, "Restore All Records  [Alt + Bksp]", "restore", Action, false, Select<RestoreAll>, nullptr, false},
    {"mnuSelection(5)", "mnuViewMain", "Clear Selection", "Shift+Ctrl+F12", 33, "Clear Selection [Shift + Ctrl +F12]", "clear", Action, false, Select<ClearSelection>, nullptr, true},
    {"rotate", "", "Rotate the tensors of all records by 90 degrees about the vertical axis", "", 35, "", "rotate", Action, false, Rotate, nullptr, false},

    {"mnuOPAR", "mnuSetting", "Orientation Parameters", "", 0, "", "", Action, false, [](Velorix& v) { v.Views.ShowOrientationParameters(); }, nullptr, false},
    {"mnuAnisoFac", "mnuSetting", "Anisotropy Quantitative Factors", "", 0, "", "", Action, false, ChooseFactors, nullptr, false},
    {"mnuAbout", "mnuHelp", "About", "", 0, "", "", Action, false, [](Velorix& v) { v.Views.ShowAbout(); }, nullptr, false},
    {"mnuManual", "mnuHelp", "Manual", "Shift+F1", 0, "", "", Action, false, [](Velorix& v) { v.Views.ShowManual(); }, nullptr, false},
};
// clang-format on

/// What went wrong, in the host's words.
std::string FailureText(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Fault& fault) {
    const std::string source = fault.Source.empty() ? "" : fault.Source + ": ";
    return source + fault.what();
  } catch (const std::bad_alloc&) {
    return "Out of memory";
  } catch (const std::filesystem::filesystem_error& error) {
    return Utf8Of(error.path1()) + "\n" + error.code().message();
  } catch (const std::system_error& error) {
    return error.code().message();
  } catch (const std::exception& error) {
    return error.what();
  }
}

/// Tells a failure in log and status line, and lets the views follow the store.
void ReportFailure(Velorix& velorix, const std::string& text) {
  velorix.Log.DebugPrint("Error: " + text);
  try {  // so that no view goes on showing what is no longer so
    RefreshViews(velorix);
    DisplayFormCaption(velorix);
  } catch (const std::exception& error) {
    velorix.Log.DebugPrint(std::string("Error while refreshing: ") + error.what());
  }
  velorix.Views.ShowStatus(text);
}

}  // namespace

std::span<const Menu> Menus() { return MenuTable; }
std::span<const Command> Commands() { return CommandTable; }

const Command& CommandNamed(const std::string& name) {
  for (const Command& command : CommandTable)
    if (name == command.Name) return command;
  assert(false && "no command of this name");
  FailSubscript();
}

bool Guarded(Velorix& velorix, const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const StatisticsFault& fault) {
    ReportFailure(velorix, fault.what());
    return false;
  } catch (...) {
    const std::string text = FailureText(std::current_exception());
    ReportFailure(velorix, text);
    velorix.Dialogs.Ask(ProgramTitle, text, {"&OK"});
    return false;
  }
}

void RunMenu(Velorix& velorix, const Command& command) {
  if (!command.Run) return;
  Guarded(velorix, [&] {
    command.Run(velorix);
    if (command.Look == Command::Radio) DisplayData(velorix, true);
  });
}

void RunButton(Velorix& velorix, const Command& command) {
  if (!command.Run) return;
  if (Guarded(velorix, [&] { command.Run(velorix); }))
    Guarded(velorix, [&] { DisplayData(velorix, true); });
}

void RotateAllNinety(Velorix& velorix) {
  const Matrix<3, 3> rotation = VerticalRotation(90);
  for (SpecimenRecord& record : velorix.Session.Records) {
    TurnTensor(rotation, record.Tensor);
    TurnTensor(rotation, record.TensorIm);
  }
}

bool ConfirmExit(Velorix& velorix) {
  return velorix.Dialogs.Ask(ProgramTitle, "EXIT PROGRAM?", {"&Yes", "&No"}) == 0;
}

}  // namespace velorix
