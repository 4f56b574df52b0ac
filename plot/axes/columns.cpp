#include "plot/axes/columns.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <iterator>

namespace velorix {
namespace {

using R = const SpecimenRecord&;
using C = Column;
using enum Bounds;

std::string_view NameText(R r) { return r.Name; }
std::string_view ModeText(R r) {
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
Number Principal(R r, bool) {
  return r.K[Axis];
}
// Kept for agreement with published results: of the in-phase tensor in both blocks.
template <int Axis>
Number PrincipalError(R r, bool) {
  return r.KSD[Axis];
}
template <int Slot>
Number FactorInSlot(R r, bool) {
  return Number(r.Fac[Slot].Shown());
}
template <int Axis>
Number Dec(R r, bool) {
  return r.Dec[Axis];
}
template <int Axis>
Number Inc(R r, bool) {
  return r.Inc[Axis];
}
template <int Slot>
Number FTest(R r, bool im) {
  return (im ? r.FTestIm : r.FTest)[Slot];
}
template <int Slot>
Number Angle(R r, bool im) {
  return (im ? r.EIm : r.E)[Slot];
}

constexpr std::string_view Plain;
constexpr Colour Cyan = 0xFFFF00, Magenta = 0xFF00FF, Grey = 0x808080;

// Kept for agreement with published results: the second and third of the data table's lower headers
// stand one column to the left of what they name, and the last column has no letter on the
// stereonet's scale.
// clang-format off
constexpr ColumnInfo Table[] = {
    // key          name         data table's headers    slot unit  bounds        picture     colour   widths  value, text, title of scale
    {C::ID,        "ID",        "ID",       "ID",        0, "",    Free,         Plain,      Yellow,   5,  5, [](R r, bool) { return Number(static_cast<float>(r.RecordNo)); }},
    {C::Specimen,  "Specimen",  "Specimen", "Specimen",  0, "",    Free,         Plain,      Yellow,  13, 13, nullptr, NameText},
    {C::Mode,      "",          "Mode",     "H",         0, "",    Free,         Plain,      Yellow,   0, 10, nullptr, ModeText},
    {C::Number,    "#",         "",         "",          0, "",    FromZero,     Plain,      Yellow,   0,  0, nullptr},
    {C::Field,     "Field",     "Field",    "FreqName",  0, "A/m", FromZero,     Plain,      Yellow,   9, 10, [](R r, bool) { return Number(r.Field); }},
    {C::Frequency, "Frequency", "Freq",     "f",         0, "Hz",  FromZero,     Plain,      Yellow,   9, 10, [](R r, bool) { return Number(r.Frequency); }},
    {C::Km,        "Kmean",     "Km",       "Km",        0, "SI",  Free,         FourDigits, Magenta, 22, 10, [](R r, bool im) { return Number(im ? r.KmIm : r.Km); }},
    {C::KmSD,      "",          "KmSD",     "Km_Err",    0, "",    Free,         FourDigits, Magenta,  0, 10, [](R r, bool im) { return Number(im ? r.KmSDIm : r.KmSD); }},
    {C::Kmax,      "",          "K1",       "Kmax",      0, "",    Free,         "0.0000",   Red,      0, 10, Principal<1>},
    {C::KmaxSD,    "",          "K1SD",     "Kmax_Err",  0, "",    Free,         "0.0000",   Red,      0, 10, PrincipalError<1>},
    {C::Kint,      "",          "K2",       "Kint",      0, "",    Free,         "0.0000",   Green,    0, 10, Principal<2>},
    {C::KintSD,    "",          "K2SD",     "Kint_Err",  0, "",    Free,         "0.0000",   Green,    0, 10, PrincipalError<2>},
    {C::Kmin,      "",          "K3",       "Kmin",      0, "",    Free,         "0.0000",   Blue,     0, 10, Principal<3>},
    {C::KminSD,    "",          "K3SD",     "Kmin_Err",  0, "",    Free,         "0.0000",   Blue,     0, 10, PrincipalError<3>},
    {C::Fac1,      "",          "",         "",          1, "",    FromOne,      "0.000",    Cyan,    12, 10, FactorInSlot<1>},
    {C::Fac2,      "",          "",         "",          2, "",    FromOne,      "0.000",    Cyan,    12, 10, FactorInSlot<2>},
    {C::Fac3,      "",          "",         "",          3, "",    FromOne,      "0.000",    Cyan,    12, 10, FactorInSlot<3>},
    {C::Fac4,      "",          "",         "",          4, "",    FromOne,      "0.000",    Cyan,    12, 10, FactorInSlot<4>},
    {C::Fac5,      "",          "",         "",          5, "",    PlusMinusOne, "0.000",    Cyan,    12, 10, FactorInSlot<5>},
    {C::Fac6,      "",          "",         "",          6, "",    PlusMinusOne, "0.000",    Cyan,    12, 10, FactorInSlot<6>},
    {C::Fac7,      "",          "",         "",          7, "",    Free,         "0.000",    Cyan,    12, 10, FactorInSlot<7>},
    {C::Fac8,      "",          "",         "",          8, "",    Free,         "0.000",    Cyan,    12, 10, FactorInSlot<8>},
    {C::KmaxDec,   "Kmax_Dec",  "Kmax",     "Kmax_Dec",  0, "deg", Declination,  "0.0",      Red,     18, 10, Dec<1>},
    {C::KmaxInc,   "Kmax_Inc",  "Kmax",     "Kmax_Inc",  0, "deg", Inclination,  "0.0",      Red,     18, 10, Inc<1>},
    {C::KintDec,   "Kint_Dec",  "Kint",     "Kint_Dec",  0, "deg", Declination,  "0.0",      Green,   18, 10, Dec<2>},
    {C::KintInc,   "Kint_Inc",  "Kint",     "Kint_Inc",  0, "deg", Inclination,  "0.0",      Green,   18, 10, Inc<2>},
    {C::KminDec,   "Kmin_Dec",  "Kmin",     "Kmin_Dec",  0, "deg", Declination,  "0.0",      Blue,    18, 10, Dec<3>},
    {C::KminInc,   "Kmin_Inc",  "Kmin",     "Kmin_Inc",  0, "deg", Inclination,  "0.0",      Blue,    18, 10, Inc<3>},
    {C::F,         "FTest_F",   "F",        "F",         0, "",    Free,         "0.0",      Grey,    12, 10, FTest<0>},
    {C::F12,       "FTest_F12", "F12",      "F12",       0, "",    Free,         "0.0",      Grey,    12, 10, FTest<1>},
    {C::F23,       "FTest_F23", "F23",      "F23",       0, "",    Free,         "0.0",      Grey,    12, 10, FTest<2>},
    {C::E12,       "E12",       "E12",      "E12",       0, "deg", Free,         "0.000",    Grey,    12, 10, Angle<2>},
    {C::E23,       "E23",       "E23",      "E23",       0, "deg", Free,         "0.000",    Grey,    12, 10, Angle<3>},
    {C::E13,       "E13",       "E13",      "E13",       0, "deg", Free,         "0.000",    Grey,    12, 10, Angle<1>, nullptr, "13"},
};
// clang-format on

constexpr const ColumnInfo& At(Column column) { return Table[static_cast<std::size_t>(column)]; }

// A row's place is its key's, and each slot has a row.
static_assert(std::all_of(std::begin(Table), std::end(Table),
                          [](const ColumnInfo& c) { return &At(c.key) == &c; }));
static_assert(At(FactorColumn(FactorSlots)).slot == FactorSlots &&
              At(FactorColumn(FactorSlots + 1)).slot == 0);

constexpr bool InGrid(const ColumnInfo& c) { return c.gridWidth > 0; }
constexpr bool InDataTable(const ColumnInfo& c) { return c.tableWidth > 0; }
constexpr bool OnAxes(const ColumnInfo& c) {
  return c.key == C::Number || (c.key >= C::Field && InGrid(c));
}

template <bool (*Holds)(const ColumnInfo&)>
constexpr auto KeysOf() {
  std::array<Column, std::count_if(std::begin(Table), std::end(Table), Holds)> keys = {};
  auto key = keys.begin();
  for (const ColumnInfo& c : Table)
    if (Holds(c)) *key++ = c.key;
  return keys;
}

constexpr auto GridKeys = KeysOf<InGrid>();
constexpr auto PlotKeys = KeysOf<OnAxes>();
constexpr auto DataTableKeys = [] {
  auto keys = KeysOf<InDataTable>();
  const auto place = [&](Column column) { return std::find(keys.begin(), keys.end(), column); };
  std::rotate(place(C::Fac1), place(C::KmaxDec), place(C::F));
  return keys;
}();

}  // namespace

constexpr std::span<const Column> GridColumns = GridKeys, DataTableColumns = DataTableKeys,
                                  PlotColumns = PlotKeys;

const ColumnInfo& InfoOf(Column column) { return At(column); }

std::span<const Column> PlotColumnsFrom(Column first) {
  return {std::find(PlotColumns.begin(), PlotColumns.end(), first), PlotColumns.end()};
}

std::string ColumnName(Column column, const Settings& settings) {
  const ColumnInfo& c = At(column);
  return c.slot == 0 ? c.name : settings.FacName[c.slot];
}

std::string ScaleTitle(Column column, const Settings& settings) {
  const char* title = At(column).scaleTitle;
  return title ? title : ColumnName(column, settings);
}

Colour TintOf(Column column) { return 0xC0C0C0 + (At(column).colour >> 2 & 0x3F3F3F); }

double ColumnValue(Column column, const SpecimenRecord& record, TensorBlock reImMode, int number) {
  if (column == C::Number) return number;
  assert(At(column).value);
  return At(column).value(record, reImMode == OutOfPhase);
}

}  // namespace velorix
