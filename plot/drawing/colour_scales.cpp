#include "plot/drawing/colour_scales.h"

#include <algorithm>
#include <cmath>

#include "base/rounding.h"

namespace velorix {
namespace {

Colour ColourOf(int red, int green, int blue) {
  return static_cast<Colour>(red | green << 8 | blue << 16);
}

float HeldToOne(float x) { return x > 0 ? std::min(x, 1.0f) : 0.0f; }

}  // namespace

Colour BlendColor(Colour a, Colour b, float& t) {
  t = HeldToOne(t);
  const Channels ca = SplitColor(a), cb = SplitColor(b);
  const auto mix = [t](std::int16_t from, std::int16_t to) {
    const float rest = 1 - t, left = static_cast<float>(to) * rest,
                right = static_cast<float>(from) * t;
    return ToShort(left + right);
  };
  return ColourOf(mix(ca.Red, cb.Red), mix(ca.Green, cb.Green), mix(ca.Blue, cb.Blue));
}

Colour ColorScale(float x) {
  static constexpr Colour Stops[] = {Red, Yellow, Green, 0xFFFF00, Blue};
  const float y = 1 - HeldToOne(x);
  const int segment = std::min(static_cast<int>(y * 4), 3);
  float t = (y - 0.25f * static_cast<float>(segment)) * 4;
  return BlendColor(Stops[segment + 1], Stops[segment], t);
}

Colour RainbowColor(float x) {
  const bool low = x < 0.5f;
  const float shares[] = {low ? 1 - 2 * x : 0, low ? 2 * x : 2 - 2 * x, low ? 0 : 2 * x - 1};
  int channels[3];
  for (int i = 0; i < 3; ++i) channels[i] = ToShort(std::max(shares[i], 0.0f) * 255) & 0xFF;
  return ColourOf(channels[0], channels[1], channels[2]);
}

Colour GrayLevel(std::int16_t i) {
  const int level = std::clamp(256 - i, 0, 255);
  return ColourOf(level, level, level);
}

Channels SplitColor(Colour colour) {
  const auto channel = [colour](int shift) {
    return static_cast<std::int16_t>(colour >> shift & 0xFF);
  };
  return {channel(0), channel(8), channel(16)};
}

}  // namespace velorix
