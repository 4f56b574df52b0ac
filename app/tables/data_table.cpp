#include "app/tables/data_table.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <optional>
#include <utility>

#include "plot/axes/parameters.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr float NotComputed = 1e9f;  // a factor that failed

struct DataTableColumn {
  const char *Upper, *Lower;  // headers
  int Factor;                 // the slot that names it, or 0
  std::string (*Cell)(const SpecimenRecord& record, bool im);
};

using R = const SpecimenRecord&;

std::string ModeText(R r, bool) {
  switch (r.MeasMode) {
    case -1:
      return "AMS(H)";
    case 0:
      return "3D";
    case 1:
      return "1A";
    case 2:
      return "MAN";
    default:
      return "";
  }
}
template <int Axis>
std::string Principal(R r, bool) {
  return FormatNumber(r.K[Axis], "0.0000");
}
template <int Axis>
std::string PrincipalError(R r, bool) {  // of the in-phase tensor in both blocks: wanted
  return FormatNumber(r.KSD[Axis], "0.0000");
}
template <int Axis>
std::string Dec(R r, bool) {
  return FormatNumber(r.Dec[Axis], "0.0");
}
template <int Axis>
std::string Inc(R r, bool) {
  return FormatNumber(r.Inc[Axis], "0.0");
}
template <int Slot>
std::string Factor(R r, bool) {
  return r.Fac[Slot] == NotComputed ? "" : FormatNumber(r.Fac[Slot], "0.000");
}
template <int Slot>
std::string FTest(R r, bool im) {
  return FormatNumber((im ? r.FTestIm : r.FTest)[Slot], "0.0");
}
template <int Slot>
std::string Angle(R r, bool im) {
  return FormatNumber((im ? r.EIm : r.E)[Slot], "0.000");
}

// The second and third of the lower headers stand one column to the left of what they name, and
// this is wanted.
// clang-format off
constexpr DataTableColumn Columns[] = {
    {"ID",       "ID",       0, [](R r, bool) { return PlainText(r.RecordNo); }},
    {"Specimen", "Specimen", 0, [](R r, bool) { return r.Name; }},
    {"Mode",     "H",        0, ModeText},
    {"Field",    "FreqName", 0, [](R r, bool) { return PlainText(r.Field); }},
    {"Freq",     "f",        0, [](R r, bool) { return PlainText(r.Frequency); }},
    {"Km",       "Km",       0, [](R r, bool im) { return SignificantText(im ? r.KmIm : r.Km, 4); }},
    {"KmSD",     "Km_Err",   0, [](R r, bool im) { return SignificantText(im ? r.KmSDIm : r.KmSD, 4); }},
    {"K1",       "Kmax",     0, Principal<1>}, {"K1SD", "Kmax_Err", 0, PrincipalError<1>},
    {"K2",       "Kint",     0, Principal<2>}, {"K2SD", "Kint_Err", 0, PrincipalError<2>},
    {"K3",       "Kmin",     0, Principal<3>}, {"K3SD", "Kmin_Err", 0, PrincipalError<3>},
    {"Kmax",     "Kmax_Dec", 0, Dec<1>},       {"Kmax", "Kmax_Inc", 0, Inc<1>},
    {"Kint",     "Kint_Dec", 0, Dec<2>},       {"Kint", "Kint_Inc", 0, Inc<2>},
    {"Kmin",     "Kmin_Dec", 0, Dec<3>},       {"Kmin", "Kmin_Inc", 0, Inc<3>},
    {"", "", 1, Factor<1>}, {"", "", 2, Factor<2>}, {"", "", 3, Factor<3>}, {"", "", 4, Factor<4>},
    {"", "", 5, Factor<5>}, {"", "", 6, Factor<6>}, {"", "", 7, Factor<7>}, {"", "", 8, Factor<8>},
    {"F",        "F",        0, FTest<0>},
    {"F12",      "F12",      0, FTest<1>},
    {"F23",      "F23",      0, FTest<2>},
    {"E12",      "E12",      0, Angle<2>},
    {"E23",      "E23",      0, Angle<3>},
    {"E13",      "E13",      0, Angle<1>},
};
// clang-format on
static_assert(std::size(Columns) == DataTableColumns + 1);

const DataTableColumn& Column(int column) {
  assert(column >= -1 && column < DataTableColumns);
  return Columns[column + 1];
}

/// The column that holds a parameter, counted as in plot/axes/parameters.h.
int ColumnOf(int parameter) {
  constexpr int Km = 4, Factors = 18, Directions = 12, FTests = 26;
  if (parameter == KmeanParameter) return Km;
  if (parameter <= 11) return Factors + parameter - 4;
  if (parameter <= 17) return Directions + parameter - 12;
  return FTests + parameter - 18;
}

/// Sorts by keys that are made once a row; a row without one comes last.
template <class MakeKey>
void SortByKey(std::vector<int>& rows, bool downward, MakeKey makeKey) {
  std::vector<std::pair<decltype(makeKey(0)), int>> keyed;
  keyed.reserve(rows.size());
  for (const int id : rows) keyed.emplace_back(makeKey(id), id);
  std::stable_sort(keyed.begin(), keyed.end(), [downward](const auto& a, const auto& b) {
    if (!a.first || !b.first) return a.first && !b.first;
    return downward ? *b.first < *a.first : *a.first < *b.first;
  });
  std::transform(keyed.begin(), keyed.end(), rows.begin(),
                 [](const auto& row) { return row.second; });
}

void AppendCells(std::string& text, const char* lineEnd, auto cell) {
  for (int column = -1; column < DataTableColumns; ++column) {
    if (column >= 0) text += '\t';
    text += cell(column);
  }
  text += lineEnd;
}

}  // namespace

std::string DataTableHeader(int row, int column, const Settings& settings) {
  const DataTableColumn& c = Column(column);
  if (c.Factor != 0) return settings.FacName[c.Factor];
  return row == -2 ? c.Upper : c.Lower;
}

std::string DataTableCell(int column, const SpecimenRecord& record, TensorBlock reImMode) {
  return Column(column).Cell(record, reImMode == OutOfPhase);
}

std::vector<int> DataTableRows(const Session& session) {
  std::vector<int> rows;
  ForEachActive(session, [&](const SpecimenRecord& record) { rows.push_back(record.RecordNo); });
  return rows;
}

void SortDataTable(std::vector<int>& rows, int column, bool downward, const Session& session) {
  const auto cell = [&](int id) {
    return DataTableCell(column, session.Records[id], session.ReImMode);
  };
  if (column == 0)
    SortByKey(rows, downward, [&](int id) { return std::optional(cell(id)); });
  else
    SortByKey(rows, downward, [&](int id) {
      const std::string text = cell(id);
      return text.empty() ? std::nullopt : std::optional(NumberOf(text));
    });
}

std::string DataTableText(const std::vector<int>& rows, const Session& session,
                          const char* lineEnd) {
  std::string text;
  for (const int id : rows)
    AppendCells(text, lineEnd, [&](int column) {
      return DataTableCell(column, session.Records[id], session.ReImMode);
    });
  return text;
}

std::string DataTableText(const Session& session, const char* lineEnd) {
  std::string text;
  for (const int row : {-2, -1})
    AppendCells(text, lineEnd,
                [&](int column) { return DataTableHeader(row, column, session.Settings); });
  return text + DataTableText(DataTableRows(session), session, lineEnd);
}

std::vector<double> DataTableValues(int parameter, const Session& session) {
  const int column = ColumnOf(parameter);
  std::vector<double> values;
  ForEachActive(session, [&](const SpecimenRecord& record) {
    values.push_back(NumberOf(DataTableCell(column, record, session.ReImMode)));
  });
  return values;
}

}  // namespace velorix
