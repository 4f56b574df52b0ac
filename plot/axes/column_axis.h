#pragma once

#include <algorithm>
#include <cmath>

#include "plot/axes/columns.h"
#include "plot/axes/plot_axis.h"

namespace velorix {

/// The smallest and the largest of the finite values that were added, and the smallest positive
/// one.
struct Extent {
  double lower = INFINITY, upper = -INFINITY, leastPositive = INFINITY;

  bool IsEmpty() const { return lower > upper; }
  void Add(double value) {
    if (!std::isfinite(value)) return;
    lower = std::min(lower, value);
    upper = std::max(upper, value);
    if (value > 0) leastPositive = std::min(leastPositive, value);
  }
};

/// `values` with the fixed ends that the column has.
Extent ImposeBounds(Column column, const Extent& values);

/// The automatic scale with the fixed ends and steps that the column has.
AxisRange ColumnScale(Column column, double lower, double upper);

/// The axis of the column for values from `lower` to `upper`: its `ColumnScale` and its words. Only
/// Kmean is divided by a power of ten.
Axis ColumnAxis(Column column, double lower, double upper, const Settings& settings);

/// The axis of the column as set by hand among `axes`, which may be null; the automatic parts come
/// from the values. A logarithmic axis without a positive value is empty.
Axis ColumnAxis(Column column, const Extent& values, const Settings& settings,
                const HandAxes* axes);

}  // namespace velorix
