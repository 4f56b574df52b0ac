#pragma once

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

/// Calls `visit(value)` for the major ticks of the axis, at most `MaxTicks` of them.
template <class Visit>
void ForEachTick(const AxisRange& axis, Visit visit) {
  double value = axis.first;
  for (int i = 0; i < MaxTicks && value <= axis.upper + 0.001 * axis.step; ++i, value += axis.step)
    if (value >= axis.lower - 0.001 * axis.step) visit(value);
}

}  // namespace velorix
