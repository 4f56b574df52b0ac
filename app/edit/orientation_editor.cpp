#include "app/edit/orientation_editor.h"

#include <algorithm>
#include <filesystem>

#include "app/files/geo_files.h"
#include "datafiles/ams_file.h"
#include "datafiles/ran_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

constexpr char GedFilter[] = "GED-file(s) (*.ged)|*.ged|";
constexpr std::size_t NamesInBox = 40;  // a box must fit a screen

std::string TitleOf(const std::string& action) {
  if (action == "New") return "New File";
  return action == "Save" ? "Save Data" : "Open File(s)";
}

std::string InFolder(const std::string& folder, const std::string& name) {
  return PathOf(name).is_absolute() ? name : folder + PathSeparator + name;
}

bool FileExists(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(PathOf(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

enum class Answer { Again, Read, NoFile };

/// What to do with the chosen name, going by whether its file exists and what the user says then.
Answer JudgeName(Velorix& velorix, const std::string& action, const FileList& list) {
  const std::string title = TitleOf(action);
  const bool exists = FileExists(InFolder(list.Folder, list.FirstName));
  if (exists && action == "Open") return Answer::Read;
  if (exists) {
    const int answer = velorix.Dialogs.Ask(
        title, list.FirstName + "\nThis file already exists.\nAppend to existing file?",
        {"&Yes", "&No"}, 1);
    return answer == 0 ? Answer::Read : Answer::Again;
  }
  const int answer = velorix.Dialogs.Ask(
      title, list.FirstName + "\nThis file does not exist.\nCreate new file?", {"&Yes", "&No"}, 1);
  return answer == 0 ? Answer::NoFile : Answer::Again;
}

void ShowSamples(OrientationEditor& editor, Velorix& velorix, const std::string& title) {
  const RecordArray& samples = velorix.Session.GeoRecords;
  std::vector<std::string> names;
  for (const SpecimenRecord& sample : samples) names.push_back(sample.Name);
  if (!names.empty()) velorix.Dialogs.Ask(title, ListedNames(names, NamesInBox, "\n"), {"&OK"});
  FillGrid(editor.Samples, RowsOfSamples(samples));
  editor.ShowsSamples = true;
  editor.Matched.clear();
  editor.Line = "The geological file has " + PlainText(samples.Count()) +
                " sample(s). AssignGED gives them to the records, Ctrl+Z shows the records again.";
}

/// After any change of the store's rows.
void NoteChange(OrientationEditor& editor, const std::string& line = {}) {
  editor.Matched.clear();
  editor.Line = line;
}

void ShowStoreRows(OrientationEditor& editor) {
  editor.ShowsSamples = false;
  NoteChange(editor);
}

void RefillLists(Velorix& velorix) {
  Session& session = velorix.Session;
  RefillCodes(velorix.Lists, session.Records, session.FoliCode, session.LineCode);
}

Outcome WriteCurrentFile(const Session& session) {
  // Writers take the old file away when they get nothing to write.
  if (session.Records.Empty()) return {};
  // Wanted: "AMS" in upper case matches nothing, other files are not written at all, and of several
  // open files the first one gets the records of all.
  return WithFileName(session.CurrentFile, [&]() -> Outcome {
    if (session.CurrentExt == "ams")
      return WriteAmsFile(session.CurrentFile, session.Records, false, true);
    if (session.CurrentExt == "ran")
      return WriteRanFile(session.CurrentFile, session.Records, false, true, "");
    return {};
  });
}

}  // namespace

void LoadEditor(OrientationEditor& editor, Velorix& velorix) {
  const Session& session = velorix.Session;
  editor = {};
  FillGrid(editor.Grid, RowsOf(session.Records));
  editor.Line =
      "Type in a cell, or paste a block of cells from a spreadsheet with Ctrl+V. Ctrl+Z takes the "
      "last change back.";
  if (!session.GeoRecords.Empty())
    editor.Line += " A geological file of " + PlainText(session.GeoRecords.Count()) +
                   " sample(s) is open for AssignGED.";
}

void OpenGed(OrientationEditor& editor, Velorix& velorix, const std::string& action) {
  Session& session = velorix.Session;
  ForgetGeoFile(session);
  if (editor.ShowsSamples) ShowStoreRows(editor);
  FileQuestion question;
  question.Title = TitleOf(action);
  question.Folder = session.DataFolder;
  question.Multi = action == "Open";
  question.MaxFileSize = question.Multi ? 32767 : 2048;
  question.Filter = GedFilter;
  for (const OpenFilter& filter : OpenFilters()) question.Filter += filter.Text;
  for (;;) {
    const auto answer =
        action == "Save" ? velorix.Dialogs.ShowSave(question) : velorix.Dialogs.ShowOpen(question);
    if (!answer) return;
    const FileList list = SplitFileList(answer->Filename);
    switch (JudgeName(velorix, action, list)) {
      case Answer::Again:
        question.Again = answer;
        continue;
      case Answer::NoFile:  // wanted: the new file starts from an empty store
        ClearStore(session);
        RefillLists(velorix);
        FillGrid(editor.Grid, {});
        break;
      case Answer::Read:
        if (answer->FilterIndex != 1) return;  // the other types read nothing
        if (!ReadGeoFiles(velorix, list)) return;
        break;
    }
    return ShowSamples(editor, velorix, question.Title);
  }
}

void AssignGed(OrientationEditor& editor, Velorix& velorix) {
  const Session& session = velorix.Session;
  ShowStoreRows(editor);
  if (session.GeoRecords.Empty()) {
    editor.Line = "No geological file is open: OpenGED reads one.";
    return;
  }
  const GedMatches matches = AssignGed(editor.Grid, session.Records, session.GeoRecords);
  editor.Matched = matches.Rows;
  editor.Line = MatchLine(matches);
}

void WriteGrid(OrientationEditor& editor, Velorix& velorix) {
  ShowStoreRows(editor);
  const std::vector<EditRow> rows = RowsOf(velorix.Session.Records);
  std::vector<CellText> texts;
  for (int row = 1; row <= editor.Grid.RowCount(); ++row)
    for (int column = 1; column <= EditColumns; ++column)
      texts.push_back({row, column, rows[static_cast<std::size_t>(row - 1)][column]});
  const bool changed = ChangeCells(editor.Grid, std::move(texts));
  NoteChange(editor, changed ? "What was typed is discarded; Ctrl+Z brings it back." : "");
}

bool SaveGrid(OrientationEditor& editor, Velorix& velorix) {
  CommitGrid(editor.Grid, velorix.Session.Records);
  RefillLists(velorix);
  const Outcome outcome = WriteCurrentFile(velorix.Session);
  if (outcome || outcome.Text.empty()) return true;
  velorix.Dialogs.Ask(outcome.Title, outcome.Text, {"&OK"});
  return false;
}

void EditCells(OrientationEditor& editor, std::vector<CellText> texts) {
  if (editor.ShowsSamples) return;
  if (ChangeCells(editor.Grid, std::move(texts))) NoteChange(editor);
}

void PasteCells(OrientationEditor& editor, std::string_view lines, const CellBlock& block) {
  if (editor.ShowsSamples) return;
  std::vector<CellText> texts = PasteBlock(lines, block);
  const auto outside = std::count_if(texts.begin(), texts.end(), [&editor](const CellText& cell) {
    return cell.Row > editor.Grid.RowCount() || cell.Column > EditColumns;
  });
  if (ChangeCells(editor.Grid, std::move(texts))) NoteChange(editor);
  if (outside > 0) editor.Line = std::to_string(outside) + " pasted cell(s) found no place.";
}

void UndoEdit(OrientationEditor& editor) {
  if (editor.ShowsSamples)
    ShowStoreRows(editor);
  else if (Undo(editor.Grid))
    NoteChange(editor);
}

void RedoEdit(OrientationEditor& editor) {
  if (!editor.ShowsSamples && Redo(editor.Grid)) NoteChange(editor);
}

}  // namespace velorix
