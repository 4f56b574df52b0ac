#pragma once

#include <bit>
#include <cstddef>
#include <cstring>

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

}  // namespace velorix
