#pragma once

#include <cmath>
#include <cstdint>

#include "base/fault.h"

namespace velorix {

/// Degrees in a radian and pi as 32-bit floats. The published digits of this program's results rest
/// on these roundings, so the 64-bit values must not take their place.
inline constexpr double DegPerRad = 57.29578f;
inline constexpr double Pi32 = 3.1415927f;

/// `x` rounded to a 32-bit float and widened again.
inline double Round32(double x) { return static_cast<float>(x); }

/// `x` rounded to a whole number, halves to even, whatever rounding mode the host is in.
inline double RoundHalfEven(double x) {
  const double floor = std::floor(x), rest = x - floor;
  if (rest != 0.5) return rest < 0.5 ? floor : floor + 1;
  return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

/// `x` as a 16-bit integer, halves to even; "Overflow" outside -32768 to 32767 or when not finite.
inline std::int16_t ToShort(double x) {
  const double r = RoundHalfEven(x);
  if (!(r >= -32768 && r <= 32767)) FailOverflow();
  return static_cast<std::int16_t>(r);
}

/// `x` as a 32-bit integer, halves to even; "Overflow" outside its range or when not finite.
inline std::int32_t ToLong(double x) {
  const double r = RoundHalfEven(x);
  if (!(r >= -2147483648.0 && r <= 2147483647.0)) FailOverflow();
  return static_cast<std::int32_t>(r);
}

}  // namespace velorix
