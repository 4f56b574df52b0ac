#include "plot/drawing/drawing.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "plot/drawing/recorder.h"
#include "plot/drawing/symbols.h"

namespace velorix {
namespace {

const Pen RedPen = {.style = Dashed, .colour = Red, .width = 3};

std::vector<DrawCall> SymbolAt100(int type, std::int16_t size = 10) {
  Recorder recorder;
  Pen pen = RedPen;
  DrawSymbol(recorder, static_cast<std::int16_t>(type), 100, 100, size, Green, pen);
  return recorder.calls;
}

TEST(DrawSymbol, DrawsTheShapesOfTheCatalogue) {
  const std::string diamond = "polygon (100,95) (105,100) (100,105) (95,100)";
  const std::string square = "polygon (95,95) (95,105) (105,105) (105,95)";
  const std::string triangle = "polygon (95,103) (100,93) (105,103)";
  const std::string circle = "ellipse (95,95) (105,105)", dot = " | ellipse (99,99) (101,101)";
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
  for (const auto& row : rows) {
    std::string shapes;
    for (const DrawCall& call : SymbolAt100(row.type)) {
      const std::string text = ToText(call);
      const std::size_t end = text.rfind(')') + 1;  // of the shape; its look follows
      shapes += (shapes.empty() ? "" : " | ") + text.substr(0, end);
      if (row.type < 0 || (row.type > 90 && row.type < 100)) continue;
      // Body, dot and marks are drawn with the pen; body and dot are filled.
      EXPECT_EQ(text.substr(end),
                text.starts_with("polyline") ? " pen 1 FF 3" : " pen 1 FF 3 brush FF00");
    }
    EXPECT_EQ(shapes, row.shapes) << "type " << row.type;
  }
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

TEST(DrawSymbol, PenOfWidth0IsMadeWidth1InTheCallersVariableToo) {
  for (const std::int16_t type : {std::int16_t{-1}, std::int16_t{4}, std::int16_t{5}}) {
    Recorder recorder;
    Pen pen = {.style = Dotted, .colour = Red, .width = 0};
    DrawSymbol(recorder, type, 0, 0, 10, Green, pen);
    EXPECT_EQ(pen, (Pen{.style = Dotted, .colour = Red, .width = 1}));
    if (type == 4) {
      EXPECT_EQ(ToText(recorder.calls), "polyline (-5,0) (5,0) pen 2 FF 1\n");
    }
  }
}

TEST(Drawing, FillsWith0OnlySymbolsRoundsHalvesToEvenAndIsReplayed) {
  Recorder recorder, again;
  Pen pen;
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

TEST(Drawing, OutsideTheIntegersOverflows) {
  Recorder recorder;
  for (const double x : {3e9, -3e9, double{NAN}, double{INFINITY}}) {
    EXPECT_THROW(DrawLine(recorder, 0, 0, x, 0, RedPen), Fault) << x;
    EXPECT_THROW(DrawCircle(recorder, 0, x, 5, RedPen, 0), Fault) << x;
    EXPECT_THROW(DrawText(recorder, "t", x, 0, {}), Fault) << x;
  }
  EXPECT_TRUE(recorder.calls.empty());
}

TEST(Geometry, SortRectangleOrdersEachAxisByItself) {
  float x1 = 9, y1 = 2, x2 = 3, y2 = 7;
  SortRectangle(x1, y1, x2, y2);
  EXPECT_EQ(std::vector({x1, y1, x2, y2}), std::vector({3.f, 2.f, 9.f, 7.f}));
}

}  // namespace
}  // namespace velorix
