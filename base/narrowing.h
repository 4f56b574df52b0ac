#pragma once

#include <cmath>
#include <limits>

#include "base/fault.h"
#include "base/number.h"

namespace velorix {

/// `value` in the 32 bits of a file's float; "Overflow" when it is finite and too large for them.
inline float ToSingle(double value) {
  if (std::isfinite(value) && std::fabs(value) > std::numeric_limits<float>::max()) FailOverflow();
  return static_cast<float>(value);
}
/// A number of 32 bits as it stands, NaN payload included.
inline float ToSingle(float value) { return value; }
inline float ToSingle(const Number& value) {
  return value.width() == Number::Width::Single ? value.Single()
                                                : ToSingle(static_cast<double>(value));
}

}  // namespace velorix
