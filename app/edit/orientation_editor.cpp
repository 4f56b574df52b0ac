#include "app/edit/orientation_editor.h"

#include <algorithm>

#include "app/files/file_kinds.h"
#include "app/files/file_stamp.h"
#include "app/files/geo_files.h"
#include "app/files/losses.h"
#include "app/files/save.h"
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

/// The kind of the open file when "SAVE" writes it, null when it does not.
const FileKind* KindOfCurrentFile(const Session& session) {
  // Writers take the old file away when they get nothing to write.
  if (session.Records.Empty()) return nullptr;
  // Kept for agreement with published results: "AMS" in upper case matches nothing, other files are
  // not written at all, and of several open files the first one gets the records of all.
  return KindToWrite(session.CurrentExt);
}

LossAnswer AskBeforeWriting(const Session& session, Dialogs& dialogs, const FileKind& kind) {
  const Losses losses = FindLosses(session, session.CurrentFile, kind, session.Records, true);
  return AskAboutLosses(dialogs, "Edit Orientation Data", session.CurrentFile, losses);
}

bool WriteCurrentFile(Session& session, Dialogs& dialogs, Views& views, const FileKind* kind) {
  if (!kind) {
    if (session.IsUnsaved())
      views.ShowStatus("The records are changed in memory alone: Save As writes them to a file.");
    return true;
  }
  const Outcome outcome =
      kind->Write(session.CurrentFile, session.Records, true, FormerOf(session));
  if (outcome) {
    NoteWritten(session, session.CurrentFile);
    NoteSaved(session);
    ShowWritten(views, session.CurrentFile);
  }
  ShowRefusal(dialogs, outcome);
  return outcome || outcome.Text.empty();
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

void OpenGed(OrientationEditor& editor, Session& session, History& history, CodeLists& lists,
             Dialogs& dialogs, FileAction action) {
  ForgetGeoFile(session);
  if (editor.ShowsSamples) ShowStoreRows(editor);
  FileQuestion question = DataFileQuestion(session, action);
  question.Filter = GedFilter() + OpenFilters();
  const auto takesMissing = [&](const std::string& name) {
    return dialogs.AskYesNo(question.Title, name + "\nThis file does not exist.\nCreate new file?");
  };
  const auto chosen = AskForDataFiles(dialogs, action, question, takesMissing);
  if (!chosen) return;
  if (chosen->Exists) {
    if (chosen->Filter != 1) return;  // the other types read nothing
    if (!ReadGeoFiles(session, dialogs, chosen->List)) return;
  } else {  // kept for agreement with published results: the new file starts from an empty store
    Step step{"New " + chosen->List.FirstName, {}};
    step.Values.emplace_back(TakeStore(session));
    history.Add(session, std::move(step));
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

bool SaveGrid(OrientationEditor& editor, Session& session, History& history, CodeLists& lists,
              Dialogs& dialogs, Views& views) {
  const FileKind* const kind = KindOfCurrentFile(session);
  HeldOrientations former = OrientationsOf(session);
  CommitGrid(editor.Grid, session.Records);
  const bool changed = KeepChanged(session, former);
  // What would be lost depends on what was typed, so the question looks at the records with it.
  LossAnswer answer = LossAnswer::Cancel;
  try {
    answer = kind ? AskBeforeWriting(session, dialogs, *kind) : LossAnswer::Save;
    if (answer == LossAnswer::Copy && !SaveCopy(session, dialogs, views))
      answer = LossAnswer::Cancel;
  } catch (...) {
    former.Exchange(session);
    throw;
  }
  if (answer == LossAnswer::Cancel) {
    former.Exchange(session);
    return false;
  }
  if (changed) {
    Step step{"Edit orientation data", {ChangeVersion(session)}};
    step.Values.emplace_back(std::move(former));
    history.Add(session, std::move(step));
  }
  RefillLists(lists, session);
  if (answer == LossAnswer::Copy) {
    NoteSaved(session);
    return true;
  }
  return WriteCurrentFile(session, dialogs, views, kind);
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
