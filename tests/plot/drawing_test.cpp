#include "plot/drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/fault.h"
#include "plot/recorder.h"

namespace velorix {
namespace {

const Pen RedPen = {.style = Dashed, .colour = Red, .width = 3};

/// The calls as text with pens, brushes and letters' looks left out, parted by " | ".
std::string ShapesOf(const Recorder& recorder) {
  std::string text;
  for (const DrawCall& call : recorder.calls) {
    const std::string line = ToText(call);
    text += (text.empty() ? "" : " | ") + line.substr(0, line.rfind(')') + 1);
  }
  return text;
}

Recorder SymbolAt100(std::int16_t type, std::int16_t size = 10) {
  Recorder recorder;
  Pen pen = RedPen;
  DrawSymbol(recorder, type, 100, 100, size, Green, pen);
  return recorder;
}

TEST(DrawSymbol, DrawsTheShapesOfTheCatalogue) {
  const std::string diamond = "polygon (100,95) (105,100) (100,105) (95,100)";
  const std::string square = "polygon (95,95) (95,105) (105,105) (105,95)";
  const std::string triangle = "polygon (95,103) (100,93) (105,103)";
  const std::string circle = "ellipse (95,95) (105,105)";
  const std::string dot = " | ellipse (99,99) (101,101)";
  const std::string vertical = "polyline (100,95) (100,105)";
  const std::string horizontal = "polyline (95,100) (105,100)";
  const std::string rising = "polyline (96,104) (104,96)";

  const struct {
    int type;
    std::string shapes;
  } rows[] = {
      // clang-format off
      {-1, "pixel (100,100)"}, {0, diamond}, {1, square}, {2, triangle}, {3, circle},
      {11, square + dot}, {21, triangle + dot}, {31, circle + dot},
      {12, square + " | " + vertical + " | " + horizontal},
      {13, square + " | polyline (97,96) (104,104) | " + rising},
      {14, square + " | " + vertical}, {15, square + " | " + horizontal},
      {32, circle + " | " + vertical + " | " + horizontal},
      {33, circle + " | polyline (96,96) (104,104) | " + rising},
      {34, circle + " | " + vertical}, {35, circle + " | " + horizontal},
      {4, horizontal}, {41, "polyline (100,100) (95,100)"}, {42, "polyline (100,100) (105,100)"},
      {6, vertical}, {61, "polyline (100,100) (100,105)"}, {62, "polyline (100,100) (100,95)"},
      {7, vertical + " | " + horizontal},
      {8, "polyline (95,95) (105,105) | polyline (95,105) (105,95)"},
      {91, square + " | text \"X\" (100,105)"}, {92, square + " | text \"Y\" (100,105)"},
      {93, square + " | text \"Z\" (100,105)"}, {94, square + " | text \"N\" (100,105)"},
      {95, square + " | text \"E\" (100,105)"}, {96, square + " | text \"D\" (100,105)"},
      {97, "text \"1\" (100,105)"}, {98, "text \"2\" (100,105)"}, {99, "text \"3\" (100,105)"},
      {1000, "polyline (100,100) (100,90)"}, {1045, "polyline (100,100) (107,93)"},
      {1090, "polyline (100,100) (110,100)"}, {1180, "polyline (100,100) (100,110)"},
      {1360, "polyline (100,100) (100,90)"},
      {-2, ""}, {5, ""}, {10, ""}, {16, ""}, {22, ""}, {30, ""}, {36, ""}, {90, ""}, {100, ""},
      {999, ""}, {-32768, ""},
      // clang-format on
  };
  for (const auto& row : rows)
    EXPECT_EQ(ShapesOf(SymbolAt100(static_cast<std::int16_t>(row.type))), row.shapes)
        << "type " << row.type;
}

TEST(DrawSymbol, DrawsBodyDotAndMarksWithThePenAndFillsBodyAndDot) {
  for (const int type : {0, 11, 12, 13, 21, 31, 33, 42, 8, 1030})
    for (const DrawCall& call : SymbolAt100(static_cast<std::int16_t>(type)).calls) {
      const std::string text = ToText(call);
      EXPECT_NE(text.find(" pen 1 FF 3"), std::string::npos) << type << ": " << text;
      EXPECT_EQ(text.find(" brush FF00") == std::string::npos, text.starts_with("polyline"))
          << type << ": " << text;
    }
}

TEST(DrawSymbol, LettersStandOnAWhiteTileInAFixedHeightAndDigitsAloneInTheirOwn) {
  const std::vector<DrawCall> tile = SymbolAt100(94, 20).calls;
  ASSERT_EQ(tile.size(), 2u);
  EXPECT_EQ(ToText(tile[0]),
            "polygon (90,90) (90,110) (110,110) (110,90) pen 0 FFFFFF 1 brush FFFFFF");
  EXPECT_EQ(ToText(tile[1]), "text \"N\" (100,110) height 14 FF align 30");
  EXPECT_EQ(ToText(SymbolAt100(98, 20).calls), "text \"2\" (100,110) height 20 FF align 30\n");
}

TEST(DrawSymbol, Symbol13IsOffAtItsFirstCornerAndSymbol33IsNot) {
  const auto firstStroke = [](std::int16_t type) {
    return ToText(SymbolAt100(type, 1000).calls[1]);
  };
  EXPECT_EQ(firstStroke(13), "polyline (-245,-254) (454,454) pen 1 FF 3");
  EXPECT_EQ(firstStroke(33), "polyline (-254,-254) (454,454) pen 1 FF 3");
}

TEST(DrawSymbol, PenOfWidth0IsMadeWidth1InTheCallersVariableToo) {
  for (const std::int16_t type : {std::int16_t{-1}, std::int16_t{1}, std::int16_t{5}}) {
    Recorder recorder;
    Pen pen = {.style = Dotted, .colour = Red, .width = 0};
    DrawSymbol(recorder, type, 0, 0, 10, Green, pen);
    EXPECT_EQ(pen, (Pen{.style = Dotted, .colour = Red, .width = 1}));
    if (type == 1) {
      EXPECT_EQ(std::get<PolygonCall>(recorder.calls.at(0)).pen.width, 1);
    }
  }
}

TEST(Fill0, IsBlackInASymbolAndHollowInCircleAndRectangle) {
  Recorder recorder;
  Pen pen;
  DrawSymbol(recorder, 3, 50, 50, 20, 0, pen);
  DrawCircle(recorder, 50, 50, 10, pen, 0);
  DrawRectangle(recorder, 40, 40, 60, 60, pen, 0);
  DrawCircle(recorder, 50, 50, 10, pen, 1);
  EXPECT_EQ(ToText(recorder.calls),
            "ellipse (40,40) (60,60) pen 0 0 1 brush 0\n"
            "ellipse (40,40) (60,60) pen 0 0 1 brush none\n"
            "polygon (40,40) (60,40) (60,60) (40,60) pen 0 0 1 brush none\n"
            "ellipse (40,40) (60,60) pen 0 0 1 brush 1\n");
}

TEST(DrawBox, IsFourLinesTopRightBottomLeft) {
  Recorder recorder;
  DrawBox(recorder, 1, 2, 11, 22, RedPen);
  EXPECT_EQ(ShapesOf(recorder),
            "polyline (1,2) (11,2) | polyline (11,2) (11,22) | polyline (11,22) (1,22) | "
            "polyline (1,22) (1,2)");
}

TEST(DrawPolyline, DrawsNothingThroughFewerThanTwoPoints) {
  Recorder recorder;
  const LogicalPoint points[] = {{1, 2}, {3, 4}, {5, 6}};
  DrawPolyline(recorder, {}, RedPen);
  DrawPolyline(recorder, std::span(points, 1), RedPen);
  EXPECT_TRUE(recorder.calls.empty());
  DrawPolyline(recorder, points, RedPen);
  EXPECT_EQ(ToText(recorder.calls), "polyline (1,2) (3,4) (5,6) pen 1 FF 3\n");
}

TEST(Coordinates, RoundHalvesToEven) {
  Recorder recorder;
  DrawLine(recorder, 10.5, 11.5, -10.5, -11.5, RedPen);
  DrawText(recorder, "t", 0.5, 1.5, {});
  EXPECT_EQ(ShapesOf(recorder), "polyline (10,12) (-10,-12) | text \"t\" (0,2)");
}

TEST(Coordinates, OutsideTheIntegersOverflow) {
  Recorder recorder;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double x : {3e9, -3e9, nan, static_cast<double>(INFINITY)}) {
    EXPECT_THROW(DrawLine(recorder, 0, 0, x, 0, RedPen), Fault) << x;
    EXPECT_THROW(DrawCircle(recorder, 0, x, 5, RedPen, 0), Fault) << x;
    EXPECT_THROW(DrawText(recorder, "t", x, 0, {}), Fault) << x;
  }
  EXPECT_TRUE(recorder.calls.empty());
}

TEST(Geometry, SortRectangleOrdersEachAxisByItselfAndDistanceIsEuclidean) {
  float x1 = 9, y1 = 2, x2 = 3, y2 = 7;
  SortRectangle(x1, y1, x2, y2);
  EXPECT_EQ(std::vector({x1, y1, x2, y2}), std::vector({3.f, 2.f, 9.f, 7.f}));
  EXPECT_EQ(Distance(1, 2, 3, 3, 5, 9), 7.f);
}

TEST(Recorder, ReplayMakesTheSameCalls) {
  Recorder first, second;
  first.SetTransparent();
  for (const int type : {-1, 1, 12, 31, 94}) {
    Pen pen = RedPen;
    DrawSymbol(first, static_cast<std::int16_t>(type), 10, 20, 9, Blue, pen);
  }
  Replay(first.calls, second);
  EXPECT_EQ(second.calls, first.calls);
  EXPECT_EQ(first.calls.size(), 1u + 1 + 1 + 3 + 2 + 2);
  second.calls.pop_back();
  EXPECT_NE(second.calls, first.calls);
}

}  // namespace
}  // namespace velorix
