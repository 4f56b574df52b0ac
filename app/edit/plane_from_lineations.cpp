#include "app/edit/plane_from_lineations.h"

#include <algorithm>
#include <cmath>

#include "datafiles/bytes/text_file.h"
#include "tensor/directions.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// An angle with one decimal. What rounds to -0.0 or to a full turn is 0.0.
std::string Degrees(double angle) {
  const std::string text = TrimmedNumber(angle, "0.0");
  return text == "-0.0" || text == "360.0" ? "0.0" : text;
}

/// The angle between two directions and their normal. Where rounding carries the cosine of parallel
/// ones beyond 1, which the arc cosine refuses, they have the normal of other parallel ones.
NormalAndAngle Span(const Direction& a, const Direction& b) {
  const double cosine = Vvmpy(DirectionToVector(1, a), DirectionToVector(1, b));
  if (std::fabs(cosine) > 1) return {{}, cosine > 0 ? 0.0 : 180.0};
  return AngleAndNormal(a, b);
}

/// The plane with this normal, its dip up to 90 degrees.
Direction PlaneOf(const Direction& normal) {
  const Direction plane = PoleOfPlane(normal);
  return plane.Inc > 90 ? Direction{PoleOfPlane(plane).Dec, 180 - plane.Inc} : plane;
}

}  // namespace

CalculatorLabels LabelsOf(CalculatorMode mode) {
  if (mode == CalculatorMode::Lineations)
    return {"Lineation 1", "Lineation 2", "Foliation", "The two lines are parallel."};
  return {"Foliation 1", "Foliation 2", "Lineation", "The two planes are parallel."};
}

CalculatorResult PlaneFromLineations(CalculatorMode mode, const CalculatorInput& input) {
  const Direction first{SingleOf(input.Dec1), SingleOf(input.Inc1)};
  const Direction second{SingleOf(input.Dec2), SingleOf(input.Inc2)};
  const bool lines = mode == CalculatorMode::Lineations;
  const NormalAndAngle found =
      lines ? Span(first, second) : Span(PoleOfPlane(first), PoleOfPlane(second));
  const Direction d = lines ? PlaneOf(found.Normal) : LowerHemisphere(found.Normal);
  const auto [smaller, larger] = std::minmax({found.Angle, 180 - found.Angle});
  // The 32-bit angles are rounded by some 1E-5 degrees; field measurements are not finer than 0.1.
  constexpr double Parallel = 1e-4;
  return {Degrees(d.Dec), Degrees(d.Inc), Degrees(smaller) + " (" + Degrees(larger) + ")",
          smaller < Parallel ? LabelsOf(mode).Parallel : ""};
}

}  // namespace velorix
