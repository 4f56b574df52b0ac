#include "plot/axes/axis_scale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
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

/// A whole number times a power of ten.
struct Decimal {
  std::int64_t count = 0;
  int exponent = 0;
};

/// The number of ten significant digits, without zeros at their end, that is nearest to `value`.
Decimal DecimalOf(double value) {
  constexpr int Digits = 10;
  const ExponentParts parts = SplitExponent(NumberOf(SignificantText(value, Digits)));
  Decimal decimal = {std::llround(parts.Mantissa * 1e9), parts.Exponent - (Digits - 1)};
  if (decimal.count == 0) return {};
  while (decimal.count % 10 == 0) {
    decimal.count /= 10;
    ++decimal.exponent;
  }
  return decimal;
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

std::string DecimalPicture(int decimals) {
  return decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
}

int DecimalsOf(double value) {
  constexpr int Most = 12;
  return std::clamp(-DecimalOf(value).exponent, 0, Most);
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

Ticks LogTicksOf(const AxisRange& axis, double room) {
  constexpr int Leading[] = {1, 2, 5};
  const double length = axis.upper - axis.lower, slack = 1e-9;
  const auto first = static_cast<int>(std::floor(axis.lower + slack));
  const auto add = [&](std::vector<double>& ticks, double position) {
    if (position >= axis.lower - slack && position <= axis.upper + slack) ticks.push_back(position);
  };
  Ticks ticks;
  if (!(length < MaxMinorTicks)) return ticks;  // NaN too
  // Decades between two labels.
  const double every =
      std::max(StepsPerLabel(1 / length, room), std::max(std::round(axis.step), 1.0));
  const auto fits = [&](double apart) { return every == 1 && !(apart / length < room); };
  const bool all = fits(1 - std::log10(9)), some = fits(1 - std::log10(5));
  for (int decade = first; decade <= axis.upper + slack; ++decade)
    for (int n = 1; n <= 9; ++n) {
      const double position = decade + std::log10(n);
      const bool labelled = n == 1
                                ? std::fmod(decade, every) == 0
                                : all || (some && std::find(std::begin(Leading), std::end(Leading),
                                                            n) != std::end(Leading));
      if (labelled) add(ticks.major, position);
      if (n == 1 || every == 1) add(ticks.minor, position);
    }
  return ticks;
}

std::vector<double> ClassEdges(const AxisRange& axis) {
  // First edge and step may be a hair off their decimal values, and so is each sum of steps.
  Decimal first = DecimalOf(axis.first), step = DecimalOf(axis.step);
  const int exponent = first.count == 0 ? step.exponent : std::min(first.exponent, step.exponent);
  constexpr int MostDigits = 8;  // beyond those of the two numbers
  std::vector<double> edges;
  const bool exact =
      first.exponent - exponent <= MostDigits && step.exponent - exponent <= MostDigits;
  const auto scaled = [exponent](Decimal d) {
    for (; d.exponent > exponent; --d.exponent) d.count *= 10;
    return d.count;
  };
  do {
    const auto i = static_cast<std::int64_t>(edges.size());
    edges.push_back(exact ? FromDecimal(scaled(first) + i * scaled(step), exponent)
                          : axis.first + static_cast<double>(i) * axis.step);
  } while (edges.size() <= MaxTicks && edges.back() <= axis.upper + 0.001 * axis.step);
  return edges;
}

}  // namespace velorix
