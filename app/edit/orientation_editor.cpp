#include "app/edit/orientation_editor.h"

#include <algorithm>

#include "app/files/file_kinds.h"
#include "app/files/geo_files.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr std::size_t NamesInBox = 40;  // a box must fit a screen

void ShowSamples(OrientationEditor& editor, const RecordArray& samples, Dialogs& dialogs,
                 const std::string& title) {
  std::vector<std::string> names;
  for (const SpecimenRecord& sample : samples) names.push_back(sample.Name);
  if (!names.empty()) dialogs.Ask(title, ListedNames(names, NamesInBox, "\n"), {"&OK"});
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

void RefillLists(CodeLists& lists, Session& session) {
  RefillCodes(lists, session.Records, session.FoliCode, session.LineCode);
}

Outcome WriteCurrentFile(const Session& session) {
  // Writers take the old file away when they get nothing to write.
  if (session.Records.Empty()) return {};
  // Kept for agreement with published results: "AMS" in upper case matches nothing, other files are
  // not written at all, and of several open files the first one gets the records of all.
  const FileWriter write = WriterOf(session.CurrentExt);
  return write ? write(session.CurrentFile, session.Records, true) : Outcome();
}

}  // namespace

void LoadEditor(OrientationEditor& editor, const Session& session) {
  editor = {};
  FillGrid(editor.Grid, RowsOf(session.Records));
  editor.CodeRoom = CodeRoom(session.CurrentExt);
  editor.Line =
      "Type in a cell, or paste a block of cells from a spreadsheet with Ctrl+V. Ctrl+Z takes the "
      "last change back.";
  if (!session.GeoRecords.Empty())
    editor.Line += " A geological file of " + PlainText(session.GeoRecords.Count()) +
                   " sample(s) is open for AssignGED.";
}

void ShowStoreRows(OrientationEditor& editor) {
  editor.ShowsSamples = false;
  NoteChange(editor);
}

void CollectCodes(OrientationEditor& editor) {
  editor.Codes = CodesOf(editor.Shown(), editor.CodeRoom);
}

SheetDoubts DoubtsToSave(const OrientationEditor& editor) {
  return FindDoubts(editor.Grid, CodesOf(editor.Grid, editor.CodeRoom));
}

bool HasUnsavedCells(const OrientationEditor& editor, const Session& session) {
  return editor.Grid.Done > 0 && editor.Grid.Rows != RowsOf(session.Records);
}

void OpenGed(OrientationEditor& editor, Session& session, CodeLists& lists, Dialogs& dialogs,
             FileAction action) {
  ForgetGeoFile(session);
  if (editor.ShowsSamples) ShowStoreRows(editor);
  FileQuestion question = DataFileQuestion(session, action);
  question.Filter = GedFilter() + OpenFilters();
  const auto takesMissing = [&](const std::string& name) {
    return AskYesNo(dialogs, question.Title,
                    name + "\nThis file does not exist.\nCreate new file?");
  };
  const auto chosen = AskForDataFiles(dialogs, action, question, takesMissing);
  if (!chosen) return;
  if (chosen->Exists) {
    if (chosen->Filter != 1) return;  // the other types read nothing
    if (!ReadGeoFiles(session, dialogs, chosen->List)) return;
  } else {  // kept for agreement with published results: the new file starts from an empty store
    ClearStore(session);
    RefillLists(lists, session);
    FillGrid(editor.Grid, {});
  }
  ShowSamples(editor, session.GeoRecords, dialogs, question.Title);
}

void AssignGed(OrientationEditor& editor, const Session& session) {
  ShowStoreRows(editor);
  if (session.GeoRecords.Empty()) {
    editor.Line = "No geological file is open: OpenGED reads one.";
    return;
  }
  const GedMatches matches = AssignGed(editor.Grid, session.Records, session.GeoRecords);
  editor.Matched = matches.Rows;
  editor.Line = MatchLine(matches);
}

void WriteGrid(OrientationEditor& editor, const Session& session) {
  ShowStoreRows(editor);
  const std::vector<EditRow> rows = RowsOf(session.Records);
  std::vector<CellText> texts;
  for (int row = 1; row <= editor.Grid.RowCount(); ++row)
    for (int column = 1; column <= EditColumns; ++column)
      texts.push_back({row, column, rows[static_cast<std::size_t>(row - 1)][column]});
  const bool changed = ChangeCells(editor.Grid, std::move(texts));
  NoteChange(editor, changed ? "What was typed is discarded; Ctrl+Z brings it back." : "");
}

bool SaveGrid(OrientationEditor& editor, Session& session, CodeLists& lists, Dialogs& dialogs) {
  CommitGrid(editor.Grid, session.Records);
  RefillLists(lists, session);
  const Outcome outcome = WriteCurrentFile(session);
  Show(dialogs, outcome);
  return outcome || outcome.Text.empty();
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
