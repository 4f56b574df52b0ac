#include "app/edit/edit_grid.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "app/edit/orientation_parameters.h"
#include "base/fault.h"
#include "base/rounding.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr auto Fixed = EditKind::Fixed;
constexpr auto Angle = EditKind::Angle;
constexpr auto Code = EditKind::Code;
constexpr auto Parameter = EditKind::Parameter;

// clang-format off
constexpr EditColumn Columns[] = {
    {"#",                      "#",        Fixed},
    {"Specimen",               "Specimen", Fixed},
    {"Orientation",            "Dec",      Angle, &AzimuthRange},
    {"Orientation",            "Inc",      Angle, &PlungeRange},
    {"Foliation1",             "Code",     Code},
    {"Foliation1",             "Dec",      Angle, &AzimuthRange},
    {"Foliation1",             "Inc",      Angle, &DipRange},
    {"Lineation1",             "Code",     Code},
    {"Lineation1",             "Dec",      Angle, &AzimuthRange},
    {"Lineation1",             "Inc",      Angle, &PlungeRange},
    {"Foliation2",             "Code",     Code},
    {"Foliation2",             "Dec",      Angle, &AzimuthRange},
    {"Foliation2",             "Inc",      Angle, &DipRange},
    {"Lineation2",             "Code",     Code},
    {"Lineation2",             "Dec",      Angle, &AzimuthRange},
    {"Lineation2",             "Inc",      Angle, &PlungeRange},
    {"Orientation Parameters", "OP1",      Parameter},
    {"Orientation Parameters", "OP2",      Parameter},
    {"Orientation Parameters", "OP3",      Parameter},
    {"Orientation Parameters", "OP4",      Parameter},
};
// clang-format on
static_assert(std::size(Columns) == EditColumns);

/// Cells that all steps together may hold: some hundred megabytes.
constexpr std::size_t CellsKept = 2'000'000;

std::string StoreCode(const std::string& code) { return code; }

void PutPair(EditRow& row, int column, const std::string& code, float dec, float inc) {
  row[column] = code;
  if (code.empty() && dec == 0 && inc == 0) return;
  row[column + 1] = PlainText(dec);
  row[column + 2] = PlainText(inc);
}

EditRow RowOf(const SpecimenRecord& record, int number, bool oriented,
              std::string (*codeOf)(const std::string&)) {
  EditRow row;
  row[1] = PlainText(number);
  row[2] = record.Name;
  if (oriented) {
    row[OrientationColumn] = PlainText(record.OrientAz);
    row[OrientationColumn + 1] = PlainText(record.OrientInc);
  }
  for (int slot = 1; slot <= 2; ++slot) {
    PutPair(row, FoliationColumn(slot), codeOf(record.FoliName[slot]), record.FoliAz[slot],
            record.FoliDip[slot]);
    PutPair(row, LineationColumn(slot), codeOf(record.LineName[slot]), record.LineTrend[slot],
            record.LinePlunge[slot]);
  }
  for (int p = 1; p <= 4; ++p) row[ParameterColumn(p)] = PlainText(record.OP[p]);
  return row;
}

/// Exchanges the text of a cell with the one in the step.
void Exchange(EditGrid& grid, CellText& cell) {
  std::swap(grid.Cell(cell.Row, cell.Column), cell.Text);
}

/// Forgets the oldest steps beyond what is kept; the last one stays.
void LimitSteps(EditGrid& grid) {
  std::size_t cells = 0;
  std::size_t first = grid.Steps.size();
  while (first > 0 && (cells += grid.Steps[first - 1].size()) <= CellsKept) --first;
  first = std::min(first, grid.Steps.size() - 1);
  grid.Steps.erase(grid.Steps.begin(), grid.Steps.begin() + static_cast<std::ptrdiff_t>(first));
  grid.Done = grid.Steps.size();
}

std::string CellName(const EditGrid& grid, int row, int column) {
  const EditColumn& c = Columns[column - 1];
  return "Row " + grid.Cell(row, 1) + ", " + c.Group + " " + c.Header;
}

bool HasRoom(EditKind kind, const std::string& text) {
  if (kind == Angle) return std::isfinite(AngleIn(text));
  const double value = RoundHalfEven(NumberOf(text));
  return kind != Parameter || (value >= -32768 && value <= 32767);
}

/// Fails for the first cell whose number has no room in its field.
void CheckRanges(const EditGrid& grid, int rows) {
  for (int row = 1; row <= rows; ++row)
    for (int column = OrientationColumn; column <= EditColumns; ++column)
      if (!HasRoom(Columns[column - 1].Kind, grid.Cell(row, column)))
        throw Fault(6, "Overflow", CellName(grid, row, column));
}

/// Whether the pair that an angle's column belongs to has a code: foliation and lineation of a slot
/// stand and fall together.
bool SlotHasCode(const EditRow& row, int column) {
  const int slot = column < FoliationColumn(2) ? 1 : 2;
  return !row[FoliationColumn(slot)].empty() || !row[LineationColumn(slot)].empty();
}

bool IsOnOffer(int column, const std::string& text) {
  const auto values = OrientationValues(column - ParameterColumn(0));
  return std::any_of(values.begin(), values.end(),
                     [&text](std::int16_t value) { return text == PlainText(value); });
}

std::string ParameterDoubt(const std::string& text, int column) {
  if (IsOnOffer(column, text)) return {};
  if (!HasRoom(Parameter, text)) return TooLarge;
  if (std::string doubt = NumberDoubt(text); !doubt.empty()) return doubt;
  std::string offer;
  for (const std::int16_t v : OrientationValues(column - ParameterColumn(0)))
    offer += (offer.empty() ? "" : ", ") + PlainText(v);
  return "The values on offer are " + offer + ".";
}

/// Calls `visit(code, isLineation)` for each code of a row.
template <class Visit>
void ForEachCode(const EditRow& row, Visit visit) {
  for (int slot = 1; slot <= 2; ++slot) {
    visit(row[FoliationColumn(slot)], false);
    visit(row[LineationColumn(slot)], true);
  }
}

bool IsLineation(int column) {
  return column == LineationColumn(1) || column == LineationColumn(2);
}

void CommitSlot(const EditRow& row, int slot, SpecimenRecord& record) {
  const int foli = FoliationColumn(slot), line = LineationColumn(slot);
  const bool has = SlotHasCode(row, foli);
  // Kept for agreement with published results: without codes the second slot leaves the flags as
  // the first one put them.
  if (has || slot == 1) SetUpperSystems(record.HasCoor, has);
  const auto angle = [&](int column) { return has ? AngleIn(row[column]) : 0.0f; };
  record.FoliName[slot] = row[foli];
  record.LineName[slot] = row[line];
  record.FoliAz[slot] = angle(foli + 1);
  record.FoliDip[slot] = angle(foli + 2);
  record.LineTrend[slot] = angle(line + 1);
  record.LinePlunge[slot] = angle(line + 2);
}

void CommitRow(const EditRow& row, SpecimenRecord& record) {
  const std::string &dec = row[OrientationColumn], &inc = row[OrientationColumn + 1];
  record.HasCoor[2] = !dec.empty() || !inc.empty();
  record.OrientAz = AngleIn(dec);
  record.OrientInc = AngleIn(inc);
  CommitSlot(row, 1, record);
  CommitSlot(row, 2, record);
  for (int p = 1; p <= 4; ++p) record.OP[p] = ToShort(NumberOf(row[ParameterColumn(p)]));
  // The display leaves a record alone that lacks the system in view: it must not go on standing
  // where an earlier display put it.
  if (record.CoorLevel != CoordinateSystem::None &&
      !record.HasCoor[static_cast<int>(record.CoorLevel)])
    record.CoorLevel = CoordinateSystem::None;
}

}  // namespace

const EditColumn& EditColumnAt(int column) {
  assert(column >= 1 && column <= EditColumns);
  return Columns[column - 1];
}

std::vector<EditRow> RowsOf(const RecordArray& records) {
  std::vector<EditRow> rows;
  rows.reserve(static_cast<std::size_t>(records.Count()));
  for (const SpecimenRecord& r : records)
    rows.push_back(RowOf(r, r.RecordNo, r.HasCoor[2], StoreCode));
  return rows;
}

std::string SampleCode(const std::string& code) { return code == "0" ? "" : code; }

EditRow RowOfSample(const SpecimenRecord& sample, int number) {
  return RowOf(sample, number, true, SampleCode);
}

std::vector<EditRow> RowsOfSamples(const RecordArray& samples) {
  std::vector<EditRow> rows;
  rows.reserve(static_cast<std::size_t>(samples.Count()));
  for (int i = 1; i <= samples.Count(); ++i) rows.push_back(RowOfSample(samples[i], i));
  return rows;
}

void FillGrid(EditGrid& grid, std::vector<EditRow> rows) {
  grid.Rows = std::move(rows);
  grid.Steps.clear();
  grid.Done = 0;
}

bool ChangeCells(EditGrid& grid, std::vector<CellText> texts) {
  for (CellText& cell : texts) cell.Text = StripBlanks(StripControls(cell.Text));
  std::erase_if(texts, [&grid](const CellText& cell) {
    return cell.Row < 1 || cell.Row > grid.RowCount() || cell.Column < 1 ||
           cell.Column > EditColumns || Columns[cell.Column - 1].Kind == Fixed ||
           grid.Cell(cell.Row, cell.Column) == cell.Text;
  });
  if (texts.empty()) return false;
  for (CellText& cell : texts) Exchange(grid, cell);
  grid.Steps.resize(grid.Done);
  grid.Steps.push_back(std::move(texts));
  LimitSteps(grid);
  return true;
}

bool Undo(EditGrid& grid) {
  if (grid.Done == 0) return false;
  auto& step = grid.Steps[--grid.Done];
  // Backwards, for a cell that the step changed twice.
  std::for_each(step.rbegin(), step.rend(), [&grid](CellText& cell) { Exchange(grid, cell); });
  return true;
}

bool Redo(EditGrid& grid) {
  if (grid.Done == grid.Steps.size()) return false;
  for (CellText& cell : grid.Steps[grid.Done++]) Exchange(grid, cell);
  return true;
}

std::string CopyBlock(const EditGrid& grid, const CellBlock& block) {
  std::string lines;
  for (int row = block.Row; row < block.Row + block.Rows; ++row)
    for (int i = 0; i < block.Columns; ++i) {
      lines += grid.Cell(row, block.Column + i);
      lines += i + 1 < block.Columns ? '\t' : '\n';
    }
  return lines;
}

std::vector<CellText> PasteBlock(std::string_view lines, const CellBlock& block) {
  // Spreadsheets end each line, the last one too.
  if (lines.ends_with('\n')) lines.remove_suffix(1);
  std::vector<CellText> texts;
  if (lines.find_first_of("\t\n") == lines.npos) {
    for (int row = 0; row < block.Rows; ++row)
      for (int column = 0; column < block.Columns; ++column)
        texts.push_back({block.Row + row, block.Column + column, std::string(lines)});
    return texts;
  }
  CellText cell{block.Row, block.Column, {}};
  for (;;) {
    const std::size_t end = std::min(lines.find_first_of("\t\n"), lines.size());
    cell.Text = lines.substr(0, end);
    texts.push_back(cell);
    if (end == lines.size()) return texts;
    if (lines[end] == '\t') {
      ++cell.Column;
    } else {
      ++cell.Row;
      cell.Column = block.Column;
    }
    lines.remove_prefix(end + 1);
  }
}

SheetCodes CodesOf(const EditGrid& grid, int room) {
  SheetCodes codes;
  codes.Room = room;
  for (const EditRow& row : grid.Rows)
    ForEachCode(row, [&codes](const std::string& code, bool isLineation) {
      (isLineation ? codes.Lineations : codes.Foliations).Add(code);
    });
  return codes;
}

std::string CellDoubt(const EditGrid& grid, int row, int column, const SheetCodes& codes) {
  const EditRow& cells = grid.Rows[static_cast<std::size_t>(row - 1)];
  const std::string& text = cells[column];
  const EditColumn& rule = Columns[column - 1];
  switch (rule.Kind) {
    case Parameter:
      return ParameterDoubt(text, column);
    case Angle: {
      const bool dropped =
          !text.empty() && column >= FoliationColumn(1) && !SlotHasCode(cells, column);
      const std::string doubt = AngleDoubt(text, *rule.Range);
      return doubt.empty() && dropped ? "Without a code these angles are not saved." : doubt;
    }
    case Code:
      return CodeDoubt(text, codes, IsLineation(column) ? codes.Lineations : codes.Foliations);
    default:
      return {};
  }
}

SheetDoubts FindDoubts(const EditGrid& grid, const SheetCodes& codes) {
  SheetDoubts doubts;
  for (int row = 1; row <= grid.RowCount(); ++row)
    for (int column = OrientationColumn; column <= EditColumns; ++column)
      if (const std::string doubt = CellDoubt(grid, row, column, codes); !doubt.empty())
        doubts.Add(row, column, CellName(grid, row, column), grid.Cell(row, column), doubt);
  return doubts;
}

void CommitGrid(const EditGrid& grid, RecordArray& records) {
  const int rows = std::min(grid.RowCount(), records.Count());
  CheckRanges(grid, rows);
  for (int row = 1; row <= rows; ++row)
    CommitRow(grid.Rows[static_cast<std::size_t>(row - 1)], records[row]);
}

}  // namespace velorix
