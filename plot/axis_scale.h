#pragma once

#include <cmath>

namespace velorix {

/// An axis: its ends, the first major tick, the spacing of major and minor ticks.
struct AxisRange {
  double lower = 0, upper = 0, first = 0, step = 0, minor = 0;
  bool operator==(const AxisRange&) const = default;
};

inline constexpr int MaxTicks = 101;

/// The automatic scale for data from `lower` to `upper`: a step of 2, 5 or 10 times a power of ten,
/// ends at whole steps, the upper one at least half a step beyond the data. Data of one value get a
/// tenth of its magnitude for a raw step, or 0.1 when it is 0. "Overflow" for data that aren't
/// finite.
AxisRange AxisScale(double lower, double upper);

/// The decimals that tell ticks `step` apart: none from 1 up, at most three.
const char* TickPicture(double step);
/// The same for ticks divided by the power of ten of `lower`, up to five decimals.
const char* PowerTickPicture(double lower, double step);

/// Calls `visit(value)` for the ticks of the axis, `step` apart, at most `most` of them.
template <class Visit>
void ForEachTick(const AxisRange& axis, double step, int most, Visit visit) {
  for (int i = 0; i < most; ++i) {
    const double value = axis.first + i * step;
    if (!(value <= axis.upper + 0.001 * step)) break;
    if (value >= axis.lower - 0.001 * step)
      visit(std::fabs(value) < 1e-9 * step ? 0 : value);  // a rounding error of 0 has a sign
  }
}

/// The same for the major ticks, at most `MaxTicks`.
template <class Visit>
void ForEachTick(const AxisRange& axis, Visit visit) {
  ForEachTick(axis, axis.step, MaxTicks, visit);
}

}  // namespace velorix
