#include "plot/drawing/colour_scales.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace velorix {
namespace {

TEST(BlendColor, MixesHoldsItsFractionAndRoundsToEven) {
  const struct {
    Colour a, b;
    float t, held;
    Colour wanted;
  } cases[] = {
      // clang-format off
      {255, 0xFFFFFF, 2, 1, 255},                  {255, 0xFFFFFF, -1, 0, 0xFFFFFF},
      {255, 0xFFFFFF, 0.5f, 0.5f, 0x8080FF},       // 127.5 goes to 128
      {0x010000, 0x020000, 0.5f, 0.5f, 0x020000},  // 1.5 goes to 2
      {0x030000, 0x020000, 0.5f, 0.5f, 0x020000},  // 2.5 goes to 2
      {0xFF0000, 0, 0.25f, 0.25f, 0x400000},
      // clang-format on
  };
  for (const auto& c : cases) {
    float t = c.t;
    EXPECT_EQ(BlendColor(c.a, c.b, t), c.wanted) << c.t;
    EXPECT_EQ(t, c.held);
  }
  float nan = std::nanf("");
  EXPECT_EQ(BlendColor(Red, White, nan), White);
}

TEST(ColorScale, RunsFromColdToHotAndTheRainbowTheOtherWayInThreeStops) {
  const std::pair<float, Colour> scale[] = {
      {0, Blue},  {0.25f, 0xFFFF00}, {0.5f, Green},      {0.75f, Yellow},   {1, Red},
      {-3, Blue}, {7, Red},          {0.875f, 0x0080FF}, {0.125f, 0xFF8000}};
  for (const auto& [x, wanted] : scale) EXPECT_EQ(ColorScale(x), wanted) << x;
  const std::pair<float, Colour> rainbow[] = {
      {0, Red}, {0.5f, Green}, {1, Blue}, {0.25f, 0x008080}, {0.75f, 0x808000}};
  for (const auto& [x, wanted] : rainbow) EXPECT_EQ(RainbowColor(x), wanted) << x;
  EXPECT_THROW(RainbowColor(1e6f), Fault);
}

TEST(GrayLevel, FallsFromWhiteAndNeverOverflows) {
  const std::pair<std::int16_t, Colour> cases[] = {
      {0, White}, {1, White}, {2, 0xFEFEFE}, {255, 0x010101}, {32767, Black}, {-32768, White}};
  for (const auto& [level, wanted] : cases) EXPECT_EQ(GrayLevel(level), wanted) << level;
}

TEST(SplitColor, GivesRedFromTheLowByte) { EXPECT_EQ(SplitColor(0x030201), (Channels{1, 2, 3})); }

}  // namespace
}  // namespace velorix
