#include "app/tables/comparison_table.h"

#include "app/tables/table_lines.h"
#include "text/numbers.h"

namespace velorix {

const char ComparisonNote[] =
    "Angle: between the mean axes, 0 to 90 degrees. Overlap: whether the 95 % regions of Jelinek "
    "overlap, from 5 records in each group on; a description, no test. Axis differs, value "
    "differs: by the bootstrap, each at the 95 % level; the six tests of a pair are not corrected "
    "for their number. Difference: principal values of A minus those of B, of tensors divided by "
    "their trace.";

namespace {

/// A column of an axis: its words in the header and in files, and the picture of its numbers.
struct ValueNames {
  const char *Header, *InFile, *Picture;
};
constexpr ValueNames Values[ComparedValues] = {{"angle", "Angle", "0.0"},
                                               {"overlap", "Overlap", ""},
                                               {"axis\ndiffers", "AxisDiffers", ""},
                                               {"difference", "Difference", "0.0000"},
                                               {"from", "Lower", "0.0000"},
                                               {"to", "Upper", "0.0000"},
                                               {"value\ndiffers", "ValueDiffers", ""}};
constexpr Array1<const char*, 3> AxisNames = {"Kmax", "Kint", "Kmin"};

/// The name of group A or B.
const std::string& NameIn(const ComparedPair& pair, std::span<const std::string> names,
                          int column) {
  return names[column == 0 ? pair.A : pair.B];
}

int PlaceOf(int column) { return (column - 2) % ComparedValues; }

std::optional<double> ValueOf(const ComparedPair& pair, int column) {
  const GroupComparison& c = pair.Comparison;
  const int k = ComparedAxis(column);
  const auto of = [k](const auto& values) {
    return values ? std::optional<double>((*values)[k]) : std::nullopt;
  };
  const auto& limits = c.ValueDifference;
  switch (static_cast<ComparedValue>(PlaceOf(column))) {
    case ComparedValue::Angle:
      return of(c.Angle);
    case ComparedValue::Overlap:
      return of(c.Overlap);
    case ComparedValue::AxisDiffers:
      return c.AxisDiffers[k];
    case ComparedValue::Difference:
      return of(c.ValueGap);
    case ComparedValue::Lower:
      return limits ? std::optional(limits->Lower[k]) : std::nullopt;
    case ComparedValue::Upper:
      return limits ? std::optional(limits->Upper[k]) : std::nullopt;
    case ComparedValue::ValueDiffers:
      break;
  }
  return limits ? std::optional<double>(limits->Lower[k] > 0 || limits->Upper[k] < 0)
                : std::nullopt;
}

/// `number` makes the text of a number under a picture.
template <class TextOf>
std::string CellText(const ComparedPair& pair, int column, TextOf number) {
  const std::optional<double> value = ValueOf(pair, column);
  if (!value) return {};
  if (IsYesOrNo(column)) return *value != 0 ? "yes" : "no";
  return number(*value, Values[PlaceOf(column)].Picture);
}

}  // namespace

std::string TooManyCompared(std::size_t groups) {
  if (groups <= MostCompared) return {};
  return "No more than " + std::to_string(MostCompared) +
         " groups are compared at once; these are " + std::to_string(groups) + ".";
}

int ComparedAxis(int column) { return column < 2 ? 0 : 1 + (column - 2) / ComparedValues; }

bool IsYesOrNo(int column) { return ComparedAxis(column) > 0 && !*Values[PlaceOf(column)].Picture; }

std::string ComparisonHeader(int column) {
  if (column < 2) return column == 0 ? "A" : "B";
  return std::string(AxisNames[ComparedAxis(column)]) + "\n" + Values[PlaceOf(column)].Header;
}

StudyCell ComparisonCell(const ComparedPair& pair, std::span<const std::string> names, int column) {
  if (column < 2) return {NameIn(pair, names, column), {}};
  return {CellText(pair, column, [](double x, const char* p) { return TrimmedNumber(x, p); }),
          ValueOf(pair, column)};
}

bool IsFound(const ComparedPair& pair, int column) {
  return IsYesOrNo(column) &&
         static_cast<ComparedValue>(PlaceOf(column)) != ComparedValue::Overlap &&
         ValueOf(pair, column) == 1;
}

std::string ComparisonText(std::span<const ComparedPair* const> pairs,
                           std::span<const std::string> names, const std::string& heading) {
  std::vector<std::string> cells(ComparisonColumns);
  for (int column = 0; column < ComparisonColumns; ++column) {
    std::string& header = cells[static_cast<std::size_t>(column)] = ComparisonHeader(column);
    for (char& c : header)
      if (c == '\n') c = ' ';
  }
  std::string text = heading + "\n" + ComparisonNote + "\n" + TabbedLine(cells);
  for (const ComparedPair* pair : pairs) {
    for (int column = 0; column < ComparisonColumns; ++column)
      cells[static_cast<std::size_t>(column)] = ComparisonCell(*pair, names, column).Text;
    text += TabbedLine(cells);
  }
  return text;
}

std::string ComparisonCsvHeader() {
  std::vector<std::string> cells = {"A", "B"};
  for (const char* const axis : AxisNames)
    for (const ValueNames& value : Values) cells.push_back(std::string(axis) + "_" + value.InFile);
  for (const std::string& header : OriginHeader()) cells.push_back(header);
  return CsvLine(cells);
}

std::string ComparisonCsvRow(const ComparedPair& pair, std::span<const std::string> names,
                             const StudyOrigin& origin) {
  std::vector<std::string> cells = {NameIn(pair, names, 0), NameIn(pair, names, 1)};
  for (int column = 2; column < ComparisonColumns; ++column)
    cells.push_back(CellText(pair, column, [](double x, const char*) { return PlainText(x); }));
  for (const std::string& cell : OriginCells(origin)) cells.push_back(cell);
  return CsvLine(cells);
}

}  // namespace velorix
