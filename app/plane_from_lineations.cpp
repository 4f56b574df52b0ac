#include "app/plane_from_lineations.h"

#include <algorithm>

#include "datafiles/text_file.h"
#include "tensor/directions.h"
#include "text/numbers.h"

namespace velorix {
namespace {

std::string Degrees(double angle) { return std::string(StripBlanks(FormatNumber(angle, "0.0"))); }

}  // namespace

CalculatorLabels LabelsOf(CalculatorMode mode) {
  if (mode == CalculatorMode::Lineations) return {"Lineation 1", "Lineation 2", "Foliation"};
  return {"Foliation 1", "Foliation 2", "Lineation"};
}

CalculatorResult PlaneFromLineations(CalculatorMode mode, const CalculatorInput& input) {
  const Direction first{SingleOf(input.Dec1), SingleOf(input.Inc1)};
  const Direction second{SingleOf(input.Dec2), SingleOf(input.Inc2)};
  NormalAndAngle found;
  Direction d;
  if (mode == CalculatorMode::Lineations) {
    found = AngleAndNormal(first, second);
    d = PoleOfPlane(LowerHemisphere(found.Normal));
  } else {
    found = AngleAndNormal(PoleOfPlane(first), PoleOfPlane(second));
    d = LowerHemisphere(found.Normal);
  }
  const auto [smaller, larger] = std::minmax({found.Angle, 180 - found.Angle});
  return {Degrees(d.Dec), Degrees(d.Inc), Degrees(smaller) + " (" + Degrees(larger) + ")"};
}

}  // namespace velorix
