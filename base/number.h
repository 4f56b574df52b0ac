#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace velorix {

/// A value that remembers its width: unset, a 32-bit or a 64-bit float, in 8 bytes.
///
/// A 32-bit 12.3 read from a file must show as 12.3 and go back to a file bit for bit, so the width
/// travels with the value. It is hidden in the bits: 0 is unset; a high word of SingleMark holds a
/// 32-bit float in the low word; anything else is a 64-bit float, exclusive-or Key. The patterns
/// given up are those of NaN payloads, so every 64-bit NaN becomes the one quiet NaN, while a
/// 32-bit NaN keeps its bits.
class Number {
 public:
  enum class Width { Unset, Single, Double };

  constexpr Number() = default;
  constexpr explicit Number(float x) { *this = x; }
  constexpr explicit Number(double x) { *this = x; }

  constexpr Number& operator=(float x) {
    bits_ = SingleMark | std::bit_cast<std::uint32_t>(x);
    return *this;
  }
  constexpr Number& operator=(double x) {
    bits_ = (x != x ? QuietNan : std::bit_cast<std::uint64_t>(x)) ^ Key;
    return *this;
  }

  constexpr Width width() const {
    if (bits_ == 0) return Width::Unset;
    return IsSingle() ? Width::Single : Width::Double;
  }

  /// The value in 64 bits; an unset slot reads as 0.
  constexpr operator double() const {
    if (IsSingle()) return std::bit_cast<float>(static_cast<std::uint32_t>(bits_));
    return bits_ == 0 ? 0.0 : std::bit_cast<double>(bits_ ^ Key);
  }
  /// The value in 32 bits: exact for a 32-bit float, NaN payload included, else rounded.
  constexpr float Single() const {
    if (IsSingle()) return std::bit_cast<float>(static_cast<std::uint32_t>(bits_));
    return static_cast<float>(static_cast<double>(*this));
  }

  /// Same width and same bits, so that a NaN equals its copy.
  constexpr bool operator==(const Number&) const = default;

 private:
  static constexpr std::uint64_t Key = 0x7FF4'0000'0000'0000;
  static constexpr std::uint64_t SingleMark = 0x0001'0000'0000'0000;
  static constexpr std::uint64_t QuietNan = 0x7FF8'0000'0000'0000;

  constexpr bool IsSingle() const { return (bits_ >> 32) == (SingleMark >> 32); }

  std::uint64_t bits_ = 0;
};

static_assert(sizeof(Number) == 8);

}  // namespace velorix
