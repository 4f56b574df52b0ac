#pragma once

#include <cstdint>

#include "base/slots.h"
#include "plot/drawing/target.h"

namespace velorix {

// Numbers become colours. Fractions are 32-bit and channels are rounded to whole numbers, halves to
// even.

/// Fourteen colours that are easy to distinguish; the first three are those of Kmax, Kint and Kmin,
/// 6, 7 and 9 their darker pair for bootstrap contours.
inline constexpr Slots<Colour, 0, 13> ColorTable = {255,      65280,    0xFF0000, 33023,   0xFF00FF,
                                                    0xFFFF00, 128,      32768,    32896,   0x800000,
                                                    0x800080, 0x808000, 0x808080, 0xC0C0C0};

/// The linear mix of two colours: `b` at t = 0, `a` at t = 1. `t` is held within 0 to 1, in the
/// caller's variable too; NaN counts as 0.
Colour BlendColor(Colour a, Colour b, float& t);

/// Blue, cyan, green, yellow, red as x goes from 0 to 1; beyond, the ends.
Colour ColorScale(float x);

/// Red, green, blue as x goes from 0 to 1, the reverse of `ColorScale`; a channel that would fall
/// below 0 is 0. "Overflow" where one leaves the 16-bit range.
Colour RainbowColor(float x);

/// The grey with all channels 256 - i, held at 255: 0 and 1 are white, 255 nearly black.
Colour GrayLevel(std::int16_t i);

struct Channels {
  std::int16_t Red = 0, Green = 0, Blue = 0;
  bool operator==(const Channels&) const = default;
};
Channels SplitColor(Colour colour);

}  // namespace velorix
