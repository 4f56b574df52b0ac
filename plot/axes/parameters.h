#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "plot/axes/plot_axis.h"
#include "store/session.h"

namespace velorix {

// The parameters that colours and axes can show, by their place in the lists: 0 the running number
// of a record among those shown, then the columns of the record grid from "Field" on.

inline constexpr int ParameterCount = 24;
inline constexpr int KmeanParameter = 3;  // its scale is divided by a power of ten

/// What names the parameter on a scale. The factors carry the names that the settings give them.
std::string ParameterTitle(int index, const Settings& settings);

/// The unit, "A/m", "Hz", "SI" or "deg", or empty.
const char* ParameterUnit(int index);

/// Value of the parameter; Km, F tests and angles are those of the block in view. `number` is the
/// record's running number.
double ParameterValue(int index, const SpecimenRecord& record, TensorBlock reImMode, int number);

/// The automatic scale with the fixed ends and steps that the parameter has.
AxisRange ParameterScale(int index, double lower, double upper);

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

/// `values` with the fixed ends that the parameter has.
Extent ImposeBounds(int index, const Extent& values);

/// The axis of the parameter for values from `lower` to `upper`: its `ParameterScale` and its
/// words.
Axis ParameterAxis(int index, double lower, double upper, const Settings& settings);

}  // namespace velorix
