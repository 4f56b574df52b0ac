#pragma once

#include <algorithm>
#include <cmath>

#include "plot/axes/columns.h"
#include "plot/axes/plot_axis.h"

namespace velorix {

/// The smallest and the largest of the finite values that were added.
struct Extent {
  double lower = INFINITY, upper = -INFINITY;

  bool IsEmpty() const { return lower > upper; }
  void Add(double value) {
    if (!std::isfinite(value)) return;
    lower = std::min(lower, value);
    upper = std::max(upper, value);
  }
};

/// `values` with the fixed ends that the column has.
Extent ImposeBounds(Column column, const Extent& values);

/// The automatic scale with the fixed ends and steps that the column has.
AxisRange ColumnScale(Column column, double lower, double upper);

/// The axis of the column for values from `lower` to `upper`: its `ColumnScale` and its words. Only
/// Kmean is divided by a power of ten.
Axis ColumnAxis(Column column, double lower, double upper, const Settings& settings);

}  // namespace velorix
