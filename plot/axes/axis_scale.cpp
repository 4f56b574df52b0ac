#include "plot/axes/axis_scale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "base/fault.h"
#include "base/rounding.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr int MaxMinorTicks = 5 * MaxTicks;
constexpr double Ln10 = 2.302585092994046;

double RawStep(double lower, double upper) {
  if (upper != lower) {
    const double width = upper - lower;
    return std::isfinite(width) ? width / 10 : upper / 10 - lower / 10;
  }
  return upper == 0 ? 0.1 : std::fabs(upper) / 10;
}

/// The values from `first` on, `step` apart and at most `most`, that the axis has; `slack` beyond
/// its ends still counts.
std::vector<double> Series(const AxisRange& axis, double first, double step, double slack,
                           int most) {
  std::vector<double> values;
  for (int i = 0; i < most; ++i) {
    const double value = first + i * step;
    if (!(value <= axis.upper + slack)) break;
    if (value >= axis.lower - slack)
      values.push_back(std::fabs(value) < 1e-9 * step ? 0 : value);  // a rounding error has a sign
  }
  return values;
}

/// The smallest of 1, 2, 5, 10, 20, ... that is `room` or more when multiplied by `spacing`.
double StepsPerLabel(double spacing, double room) {
  for (double decade = 1;; decade *= 10)
    for (const int factor : {1, 2, 5})
      // One label on the whole axis has all the room there is.
      if (!(factor * decade * spacing < std::min(room, 1.0))) return factor * decade;
}

/// How many minor steps a major one that takes `share` of the axis has.
int MinorSteps(double share) {
  constexpr double Least = (1 - 1e-9) / 70;  // of the axis, a rounding error less
  for (const int steps : {10, 5, 2})
    if (share / steps >= Least) return steps;
  return 1;
}

/// The 64-bit number nearest to `count` times 10 to the `exponent`.
double FromDecimal(std::int64_t count, int exponent) {
  return NumberOf(std::to_string(count) + "e" + std::to_string(exponent));
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

Ticks TicksOf(const AxisRange& axis, double room) {
  const double spacing = axis.step / (axis.upper - axis.lower);
  const double every = StepsPerLabel(spacing, room);
  if (every == 1) {
    const auto own = [&](double step, int most) {
      return Series(axis, axis.first, step, 0.001 * step, most);
    };
    return {own(axis.step, MaxTicks), own(axis.minor, MaxMinorTicks)};
  }
  const double major = every * axis.step, minor = major / MinorSteps(every * spacing);
  const auto multiples = [&](double step) {
    return Series(axis, major * std::floor(axis.lower / major), step, 0.001 * axis.step,
                  MaxMinorTicks);
  };
  return {multiples(major), multiples(minor)};
}

std::vector<double> ClassEdges(const AxisRange& axis) {
  // The step is a hair off its decimal value, and so is each sum of steps.
  const ExponentParts step = SplitExponent(axis.step);
  const std::int64_t mantissa = std::llround(step.Mantissa);
  const std::int64_t first = std::llround(axis.first / axis.step);
  // A fixed end may lie between two multiples of the step: 1 where the steps are 2 or more.
  double rest = axis.first - static_cast<double>(first) * axis.step;
  if (std::fabs(rest) <= 1e-9 * std::fabs(axis.first)) rest = 0;
  std::vector<double> edges;
  do {
    const std::int64_t count = first + static_cast<std::int64_t>(edges.size());
    edges.push_back(rest + FromDecimal(count * mantissa, step.Exponent));
  } while (edges.size() <= MaxTicks && edges.back() <= axis.upper + 0.001 * axis.step);
  return edges;
}

}  // namespace velorix
