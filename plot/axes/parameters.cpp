#include "plot/axes/parameters.h"

#include <cassert>
#include <iterator>

namespace velorix {
namespace {

/// Ends and steps that a parameter imposes on its scale.
enum class Bounds { Free, FromZero, FromOne, PlusMinusOne, Declination, Inclination };

struct Parameter {
  const char* Title;
  int Factor;  // the slot that names it, or 0
  const char* Unit;
  velorix::Bounds Bounds;
  double (*Value)(const SpecimenRecord& record, bool im);
};

using R = const SpecimenRecord&;

template <int Slot>
double Factor(R r, bool) {
  return r.Fac[Slot];
}
template <int Axis>
double Dec(R r, bool) {
  return r.Dec[Axis];
}
template <int Axis>
double Inc(R r, bool) {
  return r.Inc[Axis];
}
template <int Slot>
double FTest(R r, bool im) {
  return (im ? r.FTestIm : r.FTest)[Slot];
}
template <int Slot>
double Angle(R r, bool im) {
  return (im ? r.EIm : r.E)[Slot];
}

// clang-format off
constexpr Parameter Parameters[] = {
    {"#",         0, "",    Bounds::FromZero,     nullptr},
    {"Field",     0, "A/m", Bounds::FromZero,     [](R r, bool) -> double { return r.Field; }},
    {"Frequency", 0, "Hz",  Bounds::FromZero,     [](R r, bool) -> double { return r.Frequency; }},
    {"Kmean",     0, "SI",  Bounds::Free,         [](R r, bool im) { return im ? r.KmIm : r.Km; }},
    {"",          1, "",    Bounds::FromOne,      Factor<1>},
    {"",          2, "",    Bounds::FromOne,      Factor<2>},
    {"",          3, "",    Bounds::FromOne,      Factor<3>},
    {"",          4, "",    Bounds::FromOne,      Factor<4>},
    {"",          5, "",    Bounds::PlusMinusOne, Factor<5>},
    {"",          6, "",    Bounds::PlusMinusOne, Factor<6>},
    {"",          7, "",    Bounds::Free,         Factor<7>},
    {"",          8, "",    Bounds::Free,         Factor<8>},
    {"Kmax_Dec",  0, "deg", Bounds::Declination,  Dec<1>},
    {"Kmax_Inc",  0, "deg", Bounds::Inclination,  Inc<1>},
    {"Kint_Dec",  0, "deg", Bounds::Declination,  Dec<2>},
    {"Kint_Inc",  0, "deg", Bounds::Inclination,  Inc<2>},
    {"Kmin_Dec",  0, "deg", Bounds::Declination,  Dec<3>},
    {"Kmin_Inc",  0, "deg", Bounds::Inclination,  Inc<3>},
    {"FTest_F",   0, "",    Bounds::Free,         FTest<0>},
    {"FTest_F12", 0, "",    Bounds::Free,         FTest<1>},
    {"FTest_F23", 0, "",    Bounds::Free,         FTest<2>},
    {"E12",       0, "deg", Bounds::Free,         Angle<2>},
    {"E23",       0, "deg", Bounds::Free,         Angle<3>},
    {"13",        0, "deg", Bounds::Free,         Angle<1>},  // without its letter: wanted
};
// clang-format on
static_assert(std::size(Parameters) == ParameterCount);

const Parameter& At(int index) {
  assert(index >= 0 && index < ParameterCount);
  return Parameters[index];
}

}  // namespace

std::string ParameterTitle(int index, const Settings& settings) {
  const Parameter& p = At(index);
  return p.Factor == 0 ? p.Title : settings.FacName[p.Factor];
}

const char* ParameterUnit(int index) { return At(index).Unit; }

double ParameterValue(int index, const SpecimenRecord& record, TensorBlock reImMode, int number) {
  const Parameter& p = At(index);
  return p.Value ? p.Value(record, reImMode == OutOfPhase) : number;
}

Extent ImposeBounds(int index, const Extent& values) {
  switch (At(index).Bounds) {
    case Bounds::Free:
      return values;
    case Bounds::FromZero:
      return {0, values.upper};
    case Bounds::FromOne:
      return {1, values.upper};
    case Bounds::PlusMinusOne:
      return {-1, 1};
    case Bounds::Declination:
      return {0, 360};
    case Bounds::Inclination:
      return {0, 90};
  }
  return values;
}

AxisRange ParameterScale(int index, double lower, double upper) {
  if (At(index).Bounds == Bounds::Declination) return {0, 360, 0, 30, 10};
  if (At(index).Bounds == Bounds::Inclination) return {0, 90, 0, 10, 2};
  AxisRange axis = AxisScale(lower, upper);
  // The first tick can come to lie a rounding error above the smallest value.
  axis.lower = std::min(axis.lower, lower);
  const Extent imposed = ImposeBounds(index, {axis.lower, axis.upper});
  if (imposed.lower != axis.lower) axis.first = imposed.lower;
  axis.lower = imposed.lower;
  axis.upper = index == 0 ? upper : imposed.upper;  // of #, the largest running number
  return axis;
}

Axis ParameterAxis(int index, double lower, double upper, const Settings& settings) {
  Axis axis;
  axis.range = ParameterScale(index, lower, upper);
  axis.label = index == ParameterCount - 1 ? "E13" : ParameterTitle(index, settings);
  axis.unit = ParameterUnit(index);
  axis.power = index == KmeanParameter;
  return axis;
}

}  // namespace velorix
