#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/fault.h"
#include "plot/drawing/clip.h"
#include "plot/drawing/colour_scales.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/recorder.h"
#include "plot/drawing/symbols.h"
#include "tests/datafiles/golden_file.h"

namespace velorix {
namespace {

const Pen RedPen = {.style = Dashed, .colour = Red, .width = 3};

std::vector<DrawCall> SymbolAt100(int type, std::int16_t size = 10) {
  Recorder recorder;
  Pen pen = RedPen;
  DrawSymbol(recorder, static_cast<std::int16_t>(type), 100, 100, size, Green, pen);
  return recorder.calls;
}

// Each symbol of the catalogue, and that the numbers between draw nothing.
TEST(DrawSymbol, DrawsTheShapesOfTheCatalogue) {
  std::string symbols;
  for (const int type : {-1, 1000, 1045, 1090, 1180, 1360})
    symbols += "# " + std::to_string(type) + "\n" + ToText(SymbolAt100(type));
  for (int type = 0; type <= 100; ++type)
    if (const auto calls = SymbolAt100(type); !calls.empty())
      symbols += "# " + std::to_string(type) + "\n" + ToText(calls);
  for (const int type : {-32768, -2, 999}) EXPECT_TRUE(SymbolAt100(type).empty()) << type;
  ExpectGolden("plot", "symbols.txt", symbols);
}

TEST(DrawSymbol, LettersStandOnAWhiteTileInAFixedHeightAndDigitsAloneInTheirOwn) {
  EXPECT_EQ(ToText(SymbolAt100(94, 20)),
            "polygon (90,90) (90,110) (110,110) (110,90) pen 0 FFFFFF 1 brush FFFFFF\n"
            "text \"N\" (100,110) height 14 FF align 30\n");
  EXPECT_EQ(ToText(SymbolAt100(98, 20)), "text \"2\" (100,110) height 20 FF align 30\n");
}

TEST(DrawSymbol, Symbol13IsOffAtItsFirstCornerAndSymbol33IsNot) {
  EXPECT_EQ(ToText(SymbolAt100(13, 1000)[1]), "polyline (-245,-254) (454,454) pen 1 FF 3");
  EXPECT_EQ(ToText(SymbolAt100(33, 1000)[1]), "polyline (-254,-254) (454,454) pen 1 FF 3");
}

TEST(Drawing, FillsWith0OnlySymbolsRoundsHalvesToEvenAndIsReplayed) {
  Recorder recorder, again;
  const Pen pen = {.width = 1};
  const LogicalPoint points[] = {{1, 2}, {3, 4}, {5, 6}};
  recorder.SetTransparent();
  DrawSymbol(recorder, -1, 7, 8, 20, Green, pen);
  DrawSymbol(recorder, 3, 50, 50, 20, 0, pen);
  DrawCircle(recorder, 50, 50, 10, pen, 0);
  DrawRectangle(recorder, 40, 40, 60, 60, pen, 0);
  DrawCircle(recorder, 50, 50, 10, pen, 1);
  DrawBox(recorder, 1, 2, 11, 22, RedPen);
  DrawPolyline(recorder, {}, RedPen);  // nothing, and so from a single point
  DrawPolyline(recorder, std::span(points, 1), RedPen);
  DrawPolyline(recorder, points, RedPen);
  DrawLine(recorder, 10.5, 11.5, -10.5, -11.5, RedPen);
  DrawText(recorder, "t", 0.5, 1.5, {.height = 14});
  EXPECT_EQ(ToText(recorder.calls),
            "transparent\npixel (7,8) FF00\nellipse (40,40) (60,60) pen 0 0 1 brush 0\n"
            "ellipse (40,40) (60,60) pen 0 0 1 brush none\n"
            "polygon (40,40) (60,40) (60,60) (40,60) pen 0 0 1 brush none\n"
            "ellipse (40,40) (60,60) pen 0 0 1 brush 1\n"
            "polyline (1,2) (11,2) pen 1 FF 3\npolyline (11,2) (11,22) pen 1 FF 3\n"
            "polyline (11,22) (1,22) pen 1 FF 3\npolyline (1,22) (1,2) pen 1 FF 3\n"
            "polyline (1,2) (3,4) (5,6) pen 1 FF 3\npolyline (10,12) (-10,-12) pen 1 FF 3\n"
            "text \"t\" (0,2) height 14 0 align 24\n");
  Replay(recorder.calls, again);
  EXPECT_EQ(again.calls, recorder.calls);
}

TEST(Geometry, SortRectangleOrdersEachAxisByItself) {
  float x1 = 9, y1 = 2, x2 = 3, y2 = 7;
  SortRectangle(x1, y1, x2, y2);
  EXPECT_EQ(std::vector({x1, y1, x2, y2}), std::vector({3.f, 2.f, 9.f, 7.f}));
}

TEST(BlendColor, MixesHoldsItsFractionAndRoundsToEven) {
  const std::tuple<Colour, Colour, float, float, Colour> cases[] = {
      // clang-format off
      {255, 0xFFFFFF, 2, 1, 255},                  {255, 0xFFFFFF, -1, 0, 0xFFFFFF},
      {255, 0xFFFFFF, 0.5f, 0.5f, 0x8080FF},       // 127.5 goes to 128
      {0x010000, 0x020000, 0.5f, 0.5f, 0x020000},  // 1.5 goes to 2
      {0x030000, 0x020000, 0.5f, 0.5f, 0x020000},  // 2.5 goes to 2
      {0xFF0000, 0, 0.25f, 0.25f, 0x400000},
      // clang-format on
  };
  for (const auto& [a, b, share, held, expected] : cases) {
    float t = share;
    EXPECT_EQ(BlendColor(a, b, t), expected) << share;
    EXPECT_EQ(t, held);
  }
  float nan = std::nanf("");
  EXPECT_EQ(BlendColor(Red, White, nan), White);
}

TEST(ColorScale, RunsFromColdToHotAndTheRainbowTheOtherWayInThreeStops) {
  const std::pair<float, Colour> scale[] = {
      {0, Blue},  {0.25f, 0xFFFF00}, {0.5f, Green},      {0.75f, Yellow},   {1, Red},
      {-3, Blue}, {7, Red},          {0.875f, 0x0080FF}, {0.125f, 0xFF8000}};
  for (const auto& [x, expected] : scale) EXPECT_EQ(ColorScale(x), expected) << x;
  const std::pair<float, Colour> rainbow[] = {
      {0, Red}, {0.5f, Green}, {1, Blue}, {0.25f, 0x008080}, {0.75f, 0x808000}};
  for (const auto& [x, expected] : rainbow) EXPECT_EQ(RainbowColor(x), expected) << x;
  EXPECT_THROW(RainbowColor(1e6f), Fault);
}

TEST(GrayLevel, FallsFromWhiteAndNeverOverflows) {
  const std::pair<std::int16_t, Colour> cases[] = {
      {0, White}, {1, White}, {2, 0xFEFEFE}, {255, 0x010101}, {32767, Black}, {-32768, White}};
  for (const auto& [level, expected] : cases) EXPECT_EQ(GrayLevel(level), expected) << level;
}

TEST(SplitColor, GivesRedFromTheLowByte) { EXPECT_EQ(SplitColor(0x030201), (Channels{1, 2, 3})); }

TEST(Between, EndsBelongToItUnlessItIsOpen) {
  EXPECT_TRUE(Between(1, 1, 3) && Between(3, 1, 3) && Between(3, 3, 1) && Between(2, 3, 1, true));
  EXPECT_FALSE(Between(1, 1, 3, true) || Between(3, 3, 1, true) || Between(0.9, 1, 3));
  EXPECT_TRUE(InBox(1, 5, 3, 5, 1, 2));  // a corner, given in any order
  EXPECT_FALSE(InBox(0.99, 5, 3, 5, 1, 2) || InBox(std::nan(""), 3, 1, 2, 3, 5));
}

TEST(SegmentsIntersect, GivesTheSharedPointEndsIncluded) {
  EXPECT_EQ(SegmentsIntersect({0, 0}, {4, 4}, {0, 4}, {4, 0}), (Point{2, 2}));
  EXPECT_EQ(SegmentsIntersect({0, 0}, {2, 2}, {2, 0}, {2, 9}), (Point{2, 2}));
  EXPECT_FALSE(SegmentsIntersect({0, 0}, {1.9, 1.9}, {2, 0}, {2, 9}));
  EXPECT_FALSE(SegmentsIntersect({0, 0}, {4, 0}, {1, 0}, {3, 0}));  // one line: no single point
}

TEST(ClipPolylineToBox, KeepsWhatLiesInTheBox) {
  const double NaN = std::nan(""), Far = std::numeric_limits<double>::infinity();
  const std::tuple<const char*, std::vector<Point>, std::vector<std::vector<Point>>> cases[] = {
      // clang-format off
      {"inside", {{1, 1}, {2, 2}, {3, 1}}, {{{1, 1}, {2, 2}, {3, 1}}}},
      {"through", {{-5, 5}, {15, 5}}, {{{0, 5}, {10, 5}}}},
      {"out, in again", {{5, 5}, {15, 5}, {15, 6}, {5, 6}}, {{{5, 5}, {10, 5}}, {{10, 6}, {5, 6}}}},
      {"over a corner", {{-1, 9}, {1, 11}}, {}},  // touches it in one point
      {"along a side", {{-5, 10}, {5, 10}}, {{{0, 10}, {5, 10}}}},
      {"outside", {{-5, -5}, {-5, 20}, {20, 20}}, {}},
      {"from the edge outward", {{5, 5}, {10, 5}, {20, 5}}, {{{5, 5}, {10, 5}}}},
      {"one point", {{5, 5}}, {}},
      {"no number", {{1, 1}, {2, 2}, {NaN, 3}, {4, 4}, {5, 5}, {5, Far}},
       {{{1, 1}, {2, 2}}, {{4, 4}, {5, 5}}}},
      {"standing still", {{5, 5}, {5, 5}, {6, 6}}, {{{5, 5}, {6, 6}}}},
      // clang-format on
  };
  for (const auto& [what, line, expected] : cases) {
    EXPECT_EQ(ClipPolylineToBox(line, {0, 0}, {10, 10}), expected) << what;
    EXPECT_EQ(ClipPolylineToBox(line, {10, 10}, {0, 0}), expected) << what;
  }
}

}  // namespace
}  // namespace velorix
