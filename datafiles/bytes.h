#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "base/fault.h"
#include "base/number.h"

namespace velorix {

// Little-endian numbers at any place of a file's bytes.

template <class T>
T LoadLittle(const std::byte* at) {
  T value;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&value, at, sizeof value);
  } else {
    std::byte turned[sizeof value];
    for (std::size_t i = 0; i < sizeof value; ++i) turned[i] = at[sizeof value - 1 - i];
    std::memcpy(&value, turned, sizeof value);
  }
  return value;
}

template <class T>
void StoreLittle(std::byte* at, T value) {
  std::byte bytes[sizeof value];
  std::memcpy(bytes, &value, sizeof value);
  for (std::size_t i = 0; i < sizeof value; ++i)
    at[i] = bytes[std::endian::native == std::endian::little ? i : sizeof value - 1 - i];
}

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
