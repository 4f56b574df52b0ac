#include "app/tables/record_grid.h"

#include <cassert>
#include <iterator>

#include "text/numbers.h"

namespace velorix {
namespace {

/// A column: its header, or the slot of `FacName` that names it, and its cell.
struct GridColumn {
  const char* Header;
  int Factor;
  void (*Append)(std::string& text, const SpecimenRecord& record, bool im);
};

template <int Slot>
void FactorCell(std::string& text, const SpecimenRecord& record, bool) {
  AppendPlainText(text, record.Fac[Slot]);
}
template <int Axis>
void DecCell(std::string& text, const SpecimenRecord& record, bool) {
  AppendPlainText(text, record.Dec[Axis]);
}
template <int Axis>
void IncCell(std::string& text, const SpecimenRecord& record, bool) {
  AppendPlainText(text, record.Inc[Axis]);
}
template <int Slot>
void FTestCell(std::string& text, const SpecimenRecord& record, bool im) {
  AppendPlainText(text, (im ? record.FTestIm : record.FTest)[Slot]);
}
template <int Slot>
void AngleCell(std::string& text, const SpecimenRecord& record, bool im) {
  AppendPlainText(text, (im ? record.EIm : record.E)[Slot]);
}

// clang-format off
constexpr GridColumn Columns[] = {
    {"ID",        0, [](std::string& t, const SpecimenRecord& r, bool) { AppendPlainText(t, r.RecordNo); }},
    {"Specimen",  0, [](std::string& t, const SpecimenRecord& r, bool) { t += r.Name; }},
    {"Field",     0, [](std::string& t, const SpecimenRecord& r, bool) { AppendPlainText(t, r.Field); }},
    {"Frequency", 0, [](std::string& t, const SpecimenRecord& r, bool) { AppendPlainText(t, r.Frequency); }},
    {"Kmean",     0, [](std::string& t, const SpecimenRecord& r, bool im) { AppendPlainText(t, im ? r.KmIm : r.Km); }},
    {"", 1, FactorCell<1>}, {"", 2, FactorCell<2>}, {"", 3, FactorCell<3>}, {"", 4, FactorCell<4>},
    {"", 5, FactorCell<5>}, {"", 6, FactorCell<6>}, {"", 7, FactorCell<7>}, {"", 8, FactorCell<8>},
    {"Kmax_Dec",  0, DecCell<1>},   {"Kmax_Inc",  0, IncCell<1>},
    {"Kint_Dec",  0, DecCell<2>},   {"Kint_Inc",  0, IncCell<2>},
    {"Kmin_Dec",  0, DecCell<3>},   {"Kmin_Inc",  0, IncCell<3>},
    {"FTest_F",   0, FTestCell<0>}, {"FTest_F12", 0, FTestCell<1>}, {"FTest_F23", 0, FTestCell<2>},
    {"E12",       0, AngleCell<2>}, {"E23",       0, AngleCell<3>}, {"E13",       0, AngleCell<1>},
};
// clang-format on
static_assert(std::size(Columns) == GridColumns);

const GridColumn& Column(int column) {
  assert(column >= 1 && column <= GridColumns);
  return Columns[column - 1];
}

}  // namespace

std::string GridHeader(int column, const Settings& settings) {
  const GridColumn& c = Column(column);
  return c.Factor == 0 ? c.Header : settings.FacName[c.Factor];
}

std::string GridCell(int column, const SpecimenRecord& record, TensorBlock reImMode) {
  std::string text;
  AppendGridCell(text, column, record, reImMode);
  return text;
}

void AppendGridCell(std::string& text, int column, const SpecimenRecord& record,
                    TensorBlock reImMode) {
  Column(column).Append(text, record, reImMode == OutOfPhase);
}

}  // namespace velorix
