#pragma once

#include <string>
#include <vector>

#include "app/edit/assign_ged.h"
#include "app/edit/edit_grid.h"
#include "app/files/ask_file.h"
#include "app/state/code_lists.h"
#include "app/state/history.h"
#include "app/state/views.h"

namespace velorix {

// What the window of the orientation editor does. It works on texts; the store changes by "SAVE".

/// The editor while its window is open.
struct OrientationEditor {
  EditGrid Grid;     // the rows of the store
  EditGrid Samples;  // the rows of the geological file that was opened last
  bool ShowsSamples = false;
  int CodeRoom = 0;           // letters for a code in the file that "SAVE" writes; 0: no limit
  SheetCodes Codes;           // of the rows shown, as `CollectCodes` found them
  std::vector<char> Matched;  // rows that "AssignGED" matched, empty after the next change
  std::string Line;           // what there is to say under the grid

  const EditGrid& Shown() const { return ShowsSamples ? Samples : Grid; }
};

/// The store's contents go into the grid. A geological file that is open, as the editor of such
/// files read or saved it last, is there for "AssignGED".
void LoadEditor(OrientationEditor& editor, const Session& session);

/// "OpenGED": empties `GeoRecords`, asks for geological files with the file dialog of an action,
/// reads them there, lists the names in a box and shows the samples. They are shown to be looked
/// at: the rows of the store wait with all that was typed, also after a failed read. A file that
/// does not exist empties the store, if the user agrees, a step that can be undone.
void OpenGed(OrientationEditor& editor, Session& session, History& history, CodeLists& lists,
             Dialogs& dialogs, FileAction action);
/// "AssignGED" from `GeoRecords`, which shows the store's rows again.
void AssignGed(OrientationEditor& editor, const Session& session);
/// "Write": the grid shows the store again. Kept for agreement with published results: what was
/// typed is discarded, despite the caption. It can be undone.
void WriteGrid(OrientationEditor& editor, const Session& session);
/// "SAVE": commits the grid, a step that can be undone, fills the lists of codes again
/// (`RefillCodes`), and writes the open file when it is of a kind that can be written, with the
/// extension in lower case. While samples are shown it commits the rows of the store that wait
/// behind them. Where the save would lose something of the file the user is asked first: cancelled
/// it leaves everything as it was; a copy goes where the user says, and the open file stays. False
/// when the user cancelled or the writer refused, with its message shown, and a fault when the disk
/// did; with these two the records in memory are changed. An overflow changes nothing.
bool SaveGrid(OrientationEditor& editor, Session& session, History& history, CodeLists& lists,
              Dialogs& dialogs, Views& views);

/// Shows the rows of the store in place of samples.
void ShowStoreRows(OrientationEditor& editor);
/// Looks at the codes of the rows shown; due after each change of them.
void CollectCodes(OrientationEditor& editor);
/// The doubtful cells of the rows that "SAVE" commits.
SheetDoubts DoubtsToSave(const OrientationEditor& editor);
/// Whether the grid has anything typed, pasted or assigned that the store does not have.
bool HasUnsavedCells(const OrientationEditor& editor, const Session& session);

/// Changes of the user: typing, and pasting a block. Nothing happens while samples are shown.
void EditCells(OrientationEditor& editor, std::vector<CellText> texts);
void PasteCells(OrientationEditor& editor, std::string_view lines, const CellBlock& block);
/// The last change back, and again. While samples are shown the first leads back to the store's
/// rows.
void UndoEdit(OrientationEditor& editor);
void RedoEdit(OrientationEditor& editor);

}  // namespace velorix
