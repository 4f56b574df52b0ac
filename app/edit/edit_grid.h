#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/edit/cell_doubts.h"
#include "base/slots.h"
#include "store/record_array.h"

namespace velorix {

// The grid of the orientation editor: texts of the orientation data, one row a record. Rows and
// columns count from 1. What is typed stays text until `CommitGrid`.

/// What a column holds, and so what its cells may be.
enum class EditKind { Fixed, Angle, Code, Parameter };

struct EditColumn {
  const char* Group;  // the caption over the column and its neighbours of the same group
  const char* Header;
  EditKind Kind;
  const AngleRange* Range = nullptr;  // of an angle
};
inline constexpr int EditColumns = 20;
const EditColumn& EditColumnAt(int column);

/// First columns of the groups; that of a pair is its code, followed by the two angles.
inline constexpr int OrientationColumn = 3;
constexpr int FoliationColumn(int slot) { return 6 * slot - 1; }
constexpr int LineationColumn(int slot) { return 6 * slot + 2; }
constexpr int ParameterColumn(int parameter) { return 16 + parameter; }

using EditRow = Array1<std::string, EditColumns>;

/// A cell and the text that it gets.
struct CellText {
  int Row = 0, Column = 0;
  std::string Text;
};

/// The rows, and the steps that lead back and forth. A step holds the texts that its cells do not
/// show now.
struct EditGrid {
  std::vector<EditRow> Rows;
  std::vector<std::vector<CellText>> Steps;
  std::size_t Done = 0;  // steps that are done; those behind them are undone

  int RowCount() const { return static_cast<int>(Rows.size()); }
  std::string& Cell(int row, int column) { return Rows[static_cast<std::size_t>(row - 1)][column]; }
  const std::string& Cell(int row, int column) const {
    return Rows[static_cast<std::size_t>(row - 1)][column];
  }
};

/// The rows of an array of records. The cells of an orientation are empty without `HasCoor[2]`,
/// those of a code without one; two angles of 0 beside an empty code are empty too. Numbers are in
/// their shortest form.
std::vector<EditRow> RowsOf(const RecordArray& records);
/// A code of a geological file's sample; "0" is none there.
std::string SampleCode(const std::string& code);
/// The row of a geological file's sample, which always has an orientation.
EditRow RowOfSample(const SpecimenRecord& sample, int number);
/// The rows of all samples, counted in the first column.
std::vector<EditRow> RowsOfSamples(const RecordArray& samples);

/// Fills the grid, which has no step to undo then.
void FillGrid(EditGrid& grid, std::vector<EditRow> rows);

/// Puts texts into cells as one step, without blanks at their ends and control characters. Cells
/// outside the grid and of its first two columns stay. False when nothing has changed.
bool ChangeCells(EditGrid& grid, std::vector<CellText> texts);
/// Takes the last step back, does it again. False when there is none.
bool Undo(EditGrid& grid);
bool Redo(EditGrid& grid);

/// A block of cells.
struct CellBlock {
  int Row = 1, Column = 1, Rows = 1, Columns = 1;
};
/// The cells as lines of tab-separated texts, as spreadsheets exchange them.
std::string CopyBlock(const EditGrid& grid, const CellBlock& block);
/// The texts of such lines as changes for the cells from the block's first one on; a single text
/// goes to each cell of the block.
std::vector<CellText> PasteBlock(std::string_view lines, const CellBlock& block);

/// The codes in the grid, to be saved in a file that has room for so many letters.
SheetCodes CodesOf(const EditGrid& grid, int room);
/// What the user should know of a cell before it is saved, or nothing: it is not read as it stands
/// ("12,5" is 12), is outside the range of its angle, is no value on offer, is dropped since the
/// pair has no code, or is a code to look at (`CodeDoubt`).
std::string CellDoubt(const EditGrid& grid, int row, int column, const SheetCodes& codes = {});
SheetDoubts FindDoubts(const EditGrid& grid, const SheetCodes& codes = {});

/// Writes the rows into the records, the first row into the first record and so on: orientation,
/// foliations, lineations, parameters and the flags that say what a record has. A record without
/// any orientation cell loses its orientation; a slot without a code loses its angles. Texts are
/// read by their numeric prefix. A record is in no view until the next display when it has lost the
/// system that it was last turned to. "Overflow", which names the cell, for an angle beyond 32 bits
/// or a parameter beyond 16; no record has changed then.
void CommitGrid(const EditGrid& grid, RecordArray& records);

}  // namespace velorix
