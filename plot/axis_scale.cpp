#include "plot/axis_scale.h"

#include <algorithm>
#include <cmath>

#include "base/fault.h"
#include "base/rounding.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr double Ln10 = 2.302585092994046;

double RawStep(double lower, double upper) {
  if (upper != lower) {
    const double width = upper - lower;
    return std::isfinite(width) ? width / 10 : upper / 10 - lower / 10;
  }
  return upper == 0 ? 0.1 : std::fabs(upper) / 10;
}

}  // namespace

AxisRange AxisScale(double lower, double upper) {
  if (!std::isfinite(lower) || !std::isfinite(upper)) FailOverflow();
  const ExponentParts raw = SplitExponent(RawStep(lower, upper));
  const double p = std::exp((raw.Exponent + 1) * Ln10);
  double step = p;
  int divisions = 5;
  if (raw.Mantissa < 2) {
    step = p / 5;
    divisions = 2;
  } else if (raw.Mantissa <= 5) {
    step = p / 2;
  }
  AxisRange axis;
  axis.first = axis.lower = step * std::floor(lower / step);
  axis.upper = step * (RoundHalfEven(upper / step) + 1);
  axis.step = step;
  axis.minor = step / divisions;
  return axis;
}

const char* TickPicture(double step) {
  switch (const int exponent = SplitExponent(step).Exponent; std::min(exponent, 0)) {
    case 0:
      return "0";
    case -1:
      return "0.0";
    case -2:
      return "0.00";
    default:
      return "0.000";
  }
}

const char* PowerTickPicture(double lower, double step) {
  static constexpr const char* Pictures[] = {"0", "0.0", "0.00", "0.000", "0.0000", "0.00000"};
  const int decimals = SplitExponent(lower).Exponent - SplitExponent(step).Exponent;
  return Pictures[std::clamp(decimals, 0, 5)];
}

}  // namespace velorix
