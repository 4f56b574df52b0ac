#include "app/commands/commands.h"

#include <algorithm>
#include <cassert>
#include <exception>

#include "app/commands/display.h"
#include "app/commands/file_commands.h"
#include "app/commands/picture_commands.h"
#include "app/display/view_values.h"
#include "app/files/content_check.h"
#include "app/files/export_grid.h"
#include "app/files/open_flow.h"
#include "app/files/save.h"
#include "app/state/program.h"
#include "datafiles/settings/preferences_file.h"
#include "datafiles/settings/settings_file.h"
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

/// Says when a file that was read looks like one of another kind.
void SayContentDoubt(Velorix& v) {
  const std::string doubt = ContentDoubt(v.Session);
  if (doubt.empty()) return;
  v.Log.DebugPrint(doubt);
  v.Views.ShowStatus(doubt);
}

template <FileAction What>
void OpenFiles(Velorix& v) {
  if (!OpenDataFiles(v.Session, v.History, v.Dialogs, v.Host, What)) return;
  ShowStore(v);
  SayContentDoubt(v);
}
/// A change of the store from files on the disk: the next file, the previous one, the same again.
template <void (*Read)(Session&, History&, Dialogs&)>
void Reread(Velorix& v) {
  Read(v.Session, v.History, v.Dialogs);
  ShowStore(v);
}
template <bool (*Write)(Session&, Dialogs&, Views&)>
void Save(Velorix& v) {
  Write(v.Session, v.Dialogs, v.Views);
  v.Views.ShowChoices();
}
void Export(Velorix& v) { ExportData(v.Session, v.Dialogs, v.Views, v.Log); }

template <void (WindowOpener::*Window)()>
void OpenWindow(Velorix& v) {
  (v.Opener.*Window)();
}

template <auto Choice, auto Value>
void Choose(Velorix& v) {
  v.Session.*Choice = Value;
}
/// "Disregard 3 records", of the records for which `isOne` holds.
std::string CountedText(const Session& session, const char* what,
                        bool (*isOne)(const SpecimenRecord&)) {
  const auto count = std::count_if(session.Records.begin(), session.Records.end(), isOne);
  return std::string(what) + " " + std::to_string(count) + (count == 1 ? " record" : " records");
}
std::string InvertText(const Session&) { return "Invert selection"; }
std::string DisregardText(const Session& session) {
  return CountedText(session, "Disregard", [](const SpecimenRecord& r) { return r.Selected; });
}
std::string RestoreText(const Session& session) {
  return CountedText(session, "Restore", [](const SpecimenRecord& r) { return !r.Active; });
}
std::string ClearText(const Session&) { return "Clear selection"; }

template <void (*Change)(RecordArray&), std::string (*Text)(const Session&)>
void Select(Velorix& v) {
  HeldFlags former = FlagsOf(v.Session);
  Step step{Text(v.Session), {}};
  Change(v.Session.Records);
  if (HasChanged(v.Session, former)) {
    step.Values.emplace_back(std::move(former));
    v.History.Add(v.Session, std::move(step));
  }
  DisplayData(v, false);
}

/// Shows what an undone or repeated step has changed. The settings' file follows the session.
void ShowStep(Velorix& v, const Step& step) {
  if (step.Holds<HeldParameters>()) SettingsWrite(v.Session.Settings, v.Session.SettingsFile);
  if (step.Holds<HeldOrientations>())
    RefillCodes(v.Lists, v.Session.Records, v.Session.FoliCode, v.Session.LineCode);
  DisplayData(v, step.Holds<HeldStore>());
  DisplayFormCaption(v);
}
void UndoStep(Velorix& v) {
  if (v.History.NextUndo()) ShowStep(v, v.History.Undo(v.Session));
}
void RedoStep(Velorix& v) {
  if (v.History.NextRedo()) ShowStep(v, v.History.Redo(v.Session));
}
/// A menu caption with what a step did; empty without a step.
std::string StepCaption(const char* verb, const Step* step) {
  if (!step) return {};
  std::string caption = verb;
  for (const char c : step->Text) caption += c == '&' ? "&&" : std::string(1, c);
  return caption;
}
std::string UndoCaption(const Velorix& v) { return StepCaption("Undo ", v.History.NextUndo()); }
std::string RedoCaption(const Velorix& v) { return StepCaption("Redo ", v.History.NextRedo()); }

void ToggleFormerFile(Velorix& v) {
  v.Session.Preferences.KeepFormerFile = !v.Session.Preferences.KeepFormerFile;
  PreferencesWrite(v.Session.Preferences, PreferencesFile(v.Host.AppFolder));
  v.Views.ShowChoices();
}
bool KeepsFormerFile(const Velorix& v) { return v.Session.Preferences.KeepFormerFile; }

void ToggleLasso(Velorix& v) { v.Plots.Lasso = !v.Plots.Lasso; }
bool HasLasso(const Velorix& v) { return v.Plots.Lasso; }

template <auto Choice, auto Value>
bool IsChosen(const Velorix& v) {
  return v.Session.*Choice == Value;
}

template <bool OpenWindows::*Window>
void Toggle(Velorix& v) {
  v.Windows.*Window = !(v.Windows.*Window);
  v.Opener.ShowWindows();
  v.Views.ShowChoices();
}
template <bool OpenWindows::*Window>
bool IsOpen(const Velorix& v) {
  return v.Windows.*Window;
}

/// The lists of codes stay as they are, or as the editor's "SAVE" filled them.
void EditOrientations(Velorix& v) {
  v.Opener.ShowOrientationEditor();
  DisplayData(v, false);
  DisplayFormCaption(v);
}

/// The values in the records stay as they are until the next display.
void ChooseFactors(Velorix& v) {
  v.Opener.ShowFactorChoice();
  v.Views.ShowGridHeader();
}

void Rotate(Velorix& v) {
  v.Dialogs.Ask(ProgramTitle, "Rotate", {"&OK"});
  if (v.Session.Records.Empty()) return;
  Step step{CountedText(v.Session, "Rotate", [](const SpecimenRecord&) { return true; }),
            {TensorsOf(v.Session), ChangeVersion(v.Session)}};
  RotateAllNinety(v.Session.Records);
  v.History.Add(v.Session, std::move(step));
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

// Kept for agreement with published results: the tips spell the key "Crtl". Selection item 4 is a separator.
constexpr Command CommandTable[] = {
    // name, menu, caption, key, button, tip, icon, look, hidden, run, checked, separator before
    {"mnuNew", "mnuFile", "New", "", 0, "", "", Action, false, OpenFiles<FileAction::New>, nullptr, false},
    {"mnuOpen", "mnuFile", "Open", "Ctrl+O", 1, "Open Data File(s) [Crtl+O]", "open", Action, false, OpenFiles<FileAction::Open>, nullptr, false},
    {"mnuOpenPrevious", "mnuFile", "Open Previous", "Ctrl+P", 2, "Open Previous Data File [Crtl+P]", "previous", Action, false, Reread<OpenPrevious>, nullptr, false},
    {"mnuOpenNext", "mnuFile", "Open Next", "Ctrl+N", 3, "Open Next Data File [Crtl+N]", "next", Action, false, Reread<OpenNext>, nullptr, false},
    {"mnuReload", "mnuFile", "Reload", "Ctrl+R", 4, "Reload Current Data File [Crtl+R]", "reload", Action, false, Reread<ReloadFile>, nullptr, false},
    {"mnuSave", "mnuFile", "Save", "", 0, "", "", Action, true, Save<SaveFile>, nullptr, false},
    {"mnuSaveAs", "mnuFile", "Save As", "Ctrl+S", 5, "Save Current Data File As [Crtl+S]", "save", Action, false, Save<SaveAs>, nullptr, true},
    {"mnuSaveSelectedAs", "mnuFile", "Save Select Record(s) As", "Ctrl+A", 6, "Save Selected Record(s) As [Crtl+A]", "save-selected", Action, false, Save<SaveSelectedAs>, nullptr, false},
    {"mnuExport", "mnuFile", "Export", "Ctrl+E", 7, "Export Data [Crtl+E]", "export", Action, false, Export, nullptr, false},
    {"mnuClose", "mnuFile", "Close", "Ctrl+X", 0, "", "", Action, false, CloseFile, nullptr, true},
    {"mnuExit", "mnuFile", "Exit Program", "Ctrl+Q", 0, "", "", Action, false, OpenWindow<&WindowOpener::Exit>, nullptr, true},

    {"mnuGraphicsCopy", "mnuGraphics", "Copy To Clipboard", "Ctrl+C", 9, "Copy Graphics To Clipboard [Crtl+C]", "copy-picture", Action, false, CopyGraphics, nullptr, false},
    {"mnuGraphicsSave", "mnuGraphics", "Save To File", "Ctrl+F", 10, "Save Graphics To File [Crtl+F]", "save-picture", Action, false, SaveGraphics, nullptr, false},
    {"mnuGraphicRedraw", "mnuGraphics", "Redraw", "", 0, "", "", Action, true, AnisoView_DisplayAllPlots, nullptr, false},
    {"mnuGraphicsPrint", "mnuGraphics", "Print", "Ctrl+Shift+P", 0, "", "", Action, false, PrintGraphics, nullptr, true},
    {"mnuFigure", "mnuGraphics", "Figure Options", "Ctrl+Shift+F", 0, "", "", Action, false, OpenWindow<&WindowOpener::ShowFigureOptions>, nullptr, true},
    {"mnuAxes", "mnuGraphics", "Axes", "", 0, "", "", Action, false, OpenWindow<&WindowOpener::ShowAxes>, nullptr, false},
    {"mnuLasso", "mnuGraphics", "Lasso", "", 0, "", "", Check, false, ToggleLasso, HasLasso, true},

    {"mnuEdit(1)", "mnuEditt", "Edit Orientation Data", "F2", 12, "Edit Orientation Data [F2]", "edit-orientation", Check, false, EditOrientations, nullptr, false},
    {"mnuEdit(2)", "mnuEditt", "Rotate Data", "", 0, "", "", Action, true, nullptr, nullptr, false},
    {"mnuGedEditor", "mnuEditt", "Geological File Editor", "", 0, "", "", Action, false, OpenWindow<&WindowOpener::ShowGedEditor>, nullptr, false},
    {"mnuUndo", "mnuEditt", "Undo", "Ctrl+Z", 0, "", "", Action, false, UndoStep, nullptr, true, UndoCaption},
    {"mnuRedo", "mnuEditt", "Redo", "Ctrl+Shift+Z|Ctrl+Y", 0, "", "", Action, false, RedoStep, nullptr, false, RedoCaption},

    {"mnuAnalysis(1)", "mnuStatistics", "Group Statistics", "F9", 14, "Group Statistics [F9]", "statistics", Check, false, Toggle<&OpenWindows::GroupStatistics>, IsOpen<&OpenWindows::GroupStatistics>, false},
    {"mnuAnalysis(2)", "mnuStatistics", "Bootstrap Statistics", "F11", 0, "", "", Action, true, nullptr, nullptr, false},
    {"mnuAnalysis(3)", "mnuStatistics", "Contour Plot", "F12", 15, "Contour Plot [F12]", "contour", Check, false, Toggle<&OpenWindows::Contour>, IsOpen<&OpenWindows::Contour>, false},
    {"mnuAnalysis(4)", "mnuStatistics", "Calculate Field Independent Tensor", "Ctrl+I", 0, "", "", Action, true, nullptr, nullptr, false},
    {"mnuFoliLine", "mnuStatistics", "Plane from Lineations", "", 0, "", "", Check, false, Toggle<&OpenWindows::FoliLine>, IsOpen<&OpenWindows::FoliLine>, true},
    {"mnuGroups", "mnuStatistics", "Groups", "Ctrl+G", 0, "", "", Check, false, Toggle<&OpenWindows::Groups>, IsOpen<&OpenWindows::Groups>, false},

    {"mnuDataTable", "mnuViewMain", "Data Table", "F1", 17, "View Data Table [F1]", "table", Check, false, Toggle<&OpenWindows::DataTable>, IsOpen<&OpenWindows::DataTable>, false},
    {"mnuAnisoReIm(1)", "mnuViewMain", "Kre", "F3", 19, "Show In-Phase AMS [F3]", "kre", Radio, false, Choose<Block, InPhase>, IsChosen<Block, InPhase>, true},
    {"mnuAnisoReIm(2)", "mnuViewMain", "Kim", "F4", 20, "Show Out-Of-Phase AMS [F4]", "kim", Radio, false, Choose<Block, OutOfPhase>, IsChosen<Block, OutOfPhase>, false},
    {"mnuView(1)", "mnuViewMain", "Specimen", "F5", 22, "Specimen Coordinate System [F5]", "specimen", Radio, false, Choose<System, Specimen>, IsChosen<System, Specimen>, true},
    {"mnuView(2)", "mnuViewMain", "Geographic", "F6", 23, "Geographic Coordinate System [F6]", "geographic", Radio, false, Choose<System, Geographic>, IsChosen<System, Geographic>, false},
    {"mnuView(3)", "mnuViewMain", "Paleogeographic", "F7", 24, "Paleogeographic Coordinate System [F7]", "paleogeographic", Radio, false, Choose<System, Paleogeographic>, IsChosen<System, Paleogeographic>, false},
    {"mnuView(4)", "mnuViewMain", "Tectonic", "F8", 25, "Tectonic Coordinate System [F8]", "tectonic", Radio, false, Choose<System, Tectonic>, IsChosen<System, Tectonic>, false},
    {"tecto(1)", "", "", "", 27, "Paleohorizontal", "paleohorizontal", Radio, false, Choose<Plane, PaleoPlane::Horizontal>, IsChosen<Plane, PaleoPlane::Horizontal>, false},
    {"tecto(2)", "", "", "", 28, "Paleovertical", "paleovertical", Radio, false, Choose<Plane, PaleoPlane::Vertical>, IsChosen<Plane, PaleoPlane::Vertical>, false},

    {"mnuSelection(1)", "mnuViewMain", "Invert Selection", "Ctrl+Ins", 30, "Invert Selection [Ctrl + Ins]", "invert", Action, false, Select<InvertSelection, InvertText>, nullptr, true},
    {"mnuSelection(2)", "mnuViewMain", "Disregard Selected Record(s)", "Del", 31, "Disregard Selected Record(s) [Del]", "disregard", Action, false, Select<DisregardSelected, DisregardText>, nullptr, false},
    {"mnuSelection(3)", "mnuViewMain", "Restore All Records", "Alt+Backspace", 32, "Restore All Records  [Alt + Bksp]", "restore", Action, false, Select<RestoreAll, RestoreText>, nullptr, false},
    {"mnuSelection(5)", "mnuViewMain", "Clear Selection", "Shift+Ctrl+F12", 33, "Clear Selection [Shift + Ctrl +F12]", "clear", Action, false, Select<ClearSelection, ClearText>, nullptr, true},
    {"rotate", "", "Rotate the tensors of all records by 90 degrees about the vertical axis", "", 35, "", "rotate", Action, false, Rotate, nullptr, false},

    {"mnuOPAR", "mnuSetting", "Orientation Parameters", "", 0, "", "", Action, false, OpenWindow<&WindowOpener::ShowOrientationParameters>, nullptr, false},
    {"mnuAnisoFac", "mnuSetting", "Anisotropy Quantitative Factors", "", 0, "", "", Action, false, ChooseFactors, nullptr, false},
    {"mnuKeepFormer", "mnuSetting", "Keep Former File as NAME~", "", 0, "", "", Check, false, ToggleFormerFile, KeepsFormerFile, true},
    {"mnuAbout", "mnuHelp", "About", "", 0, "", "", Action, false, OpenWindow<&WindowOpener::ShowAbout>, nullptr, false},
    {"mnuManual", "mnuHelp", "Manual", "Shift+F1", 0, "", "", Action, false, OpenWindow<&WindowOpener::ShowManual>, nullptr, false},
};
// clang-format on

std::string UnsavedText(const Session& session) {
  const std::string file = FileNameOf(session.CurrentFile);
  const int count = session.RecordCount();
  const std::string records = std::to_string(count) + (count == 1 ? " record" : " records");
  return "Changes of " + (file.empty() ? "the " + records : file + " (" + records + ")") +
         " are not saved.";
}

/// What went wrong, in the host's words.
std::string FailureText(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Fault& fault) {
    return FaultText(fault);
  } catch (const std::bad_alloc&) {
    return "Out of memory";
  } catch (const std::system_error& error) {
    return error.code().message();
  } catch (const std::exception& error) {
    return error.what();
  }
}

/// Puts a failure into log and status line, and lets the views follow the store. Where a file was
/// read since the data had the version `before`, a file of another kind is the most likely reason.
void ReportFailure(Velorix& velorix, const std::string& text, std::int64_t before) {
  const Session& session = velorix.Session;
  const bool wasRead = session.DataVersion != before && !session.IsUnsaved();
  const std::string doubt = wasRead ? ContentDoubt(session) : "",
                    line = doubt.empty() ? text : doubt + ". " + text;
  velorix.Log.DebugPrint("Error: " + line);
  try {  // so that no view goes on showing what is no longer so
    RefreshViews(velorix);
    DisplayFormCaption(velorix);
  } catch (const std::exception& error) {
    velorix.Log.DebugPrint(std::string("Error while refreshing: ") + error.what());
  }
  velorix.Views.ShowStatus(line);
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
  const std::int64_t before = velorix.Session.DataVersion;
  try {
    work();
    return true;
  } catch (const StatisticsFault& fault) {
    ReportFailure(velorix, fault.what(), before);
    return false;
  } catch (...) {
    const std::string text = FailureText(std::current_exception());
    ReportFailure(velorix, text, before);
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

void RotateAllNinety(RecordArray& records) {
  const Matrix<3, 3> rotation = VerticalRotation(90);
  for (SpecimenRecord& record : records) {
    TurnTensor(rotation, record.Tensor);
    TurnTensor(rotation, record.TensorIm);
  }
}

bool ConfirmExit(Dialogs& dialogs, const Session& session, const History& history) {
  std::string unsaved = session.IsUnsaved() ? UnsavedText(session) : "";
  for (const std::string& path : history.UnsavedStores())
    unsaved += (unsaved.empty() ? "" : "\n") + ("Changes of " + FileNameOf(path)) +
               ", which is closed, are not saved; Undo brings them back.";
  return dialogs.AskWith(ProgramTitle, "EXIT PROGRAM?", unsaved, {"&Yes", "&No"}) == 0;
}

}  // namespace velorix
