#pragma once

#include <string>
#include <vector>

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

/// The decimals that distinguish ticks `step` apart: none from 1 up, at most three.
const char* TickPicture(double step);
/// The same for ticks divided by the power of ten of `lower`, up to five decimals.
const char* PowerTickPicture(double lower, double step);

/// The picture of a number with so many decimals; and the decimals of `value`, at most ten
/// significant digits and twelve decimals.
std::string DecimalPicture(int decimals);
int DecimalsOf(double value);

/// Where the ticks of an axis stand, in its values. Minor ticks stand on the major ones too.
struct Ticks {
  std::vector<double> major, minor;
};

/// The ticks of an axis whose labels take `room`, a share of its length. Where each step has that
/// room they are the axis's own, at most `MaxTicks` major ones. Otherwise the major ones are the
/// multiples of the smallest of 2, 5, 10, 20, 50, ... steps that has it, and the minor ones divide
/// them by 10, 5 or 2, the most that leaves a seventieth of the axis between two.
Ticks TicksOf(const AxisRange& axis, double room);

/// The same of a logarithmic axis, whose range is in decimal logarithms.
Ticks LogTicksOf(const AxisRange& axis, double room);

/// The edges of the classes of a histogram, a step apart from the first tick on: the last class
/// begins at the upper end, or there are `MaxTicks` classes. Each edge is the 64-bit number that is
/// nearest to its decimal value, so it equals a value that was read from the same digits.
std::vector<double> ClassEdges(const AxisRange& axis);

}  // namespace velorix
