#include "plot/axes/plot_axis.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "plot/plots/xy_plot.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

/// The width of a label in Arial, whose digits, point, minus and blank are 556, 278, 333 and 278
/// thousandths of an em; a cell's height is 1.117 of it.
double WidthOf(const TextCall& text) {
  double width = 0;
  for (const char c : text.text) width += c == '-' ? 333 : c == '.' || c == ' ' ? 278 : 556;
  return width / 1117 * text.style.height;
}

TEST(PlotAxis, LabelsDontRunIntoEachOtherAndReachOverTheWholeAxis) {
  const AxisRange ranges[] = {
      // clang-format off
      {-1, 1, -1, 0.2, 0.1},   {-1, 1, -1, 0.1, 0.02},   {-1, 1, -1, 0.05, 0.01},
      {-1, 1, -1, 0.02, 0.01}, {-1, 1, -1, 0.01, 0.002}, {1, 1.5055, 1, 5e-4, 1e-4},
      {1, 2001, 1, 0.2, 0.1},  {0, 360, 0, 30, 10},      {0, 1.2, 0, 0.1, 0.02},
      // clang-format on
  };
  for (const AxisRange& range : ranges) {
    Axis axis;
    axis.range = range;
    SCOPED_TRACE(std::to_string(range.upper) + " by " + std::to_string(range.step));
    double last = -100;
    for (const TextCall& text :
         CallsOf<TextCall>(Recorded([&](Target& t) { DrawXAxis(t, PlotGeometry(), axis, ""); }))) {
      if (text.style.weight != 400) continue;  // the title
      EXPECT_GT(text.point.x - WidthOf(text) / 2, last) << text.text;
      last = text.point.x + WidthOf(text) / 2;
      EXPECT_TRUE(range.lower >= 0 || text.text[0] == '-' || text.point.x >= 202)
          << text.text << ": 0 has no sign";
    }
    EXPECT_GT(last, 60 + 0.75 * 285);
  }
  Axis declination;  // each step has room
  declination.range = {0, 360, 0, 30, 10};
  EXPECT_EQ(WordsOf(Recorded([&](Target& t) { DrawXAxis(t, PlotGeometry(), declination, ""); })),
            " 0| 30| 60| 90| 120| 150| 180| 210| 240| 270| 300| 330| 360||");
}

/// The strokes that `draw` draws, as their signed extents.
template <class Draw>
std::set<std::pair<int, int>> StrokesOf(Draw draw) {
  std::set<std::pair<int, int>> strokes;
  for (const PolylineCall& line : CallsOf<PolylineCall>(Recorded(draw)))
    strokes.emplace(line.points[1].x - line.points[0].x, line.points[1].y - line.points[0].y);
  return strokes;
}

TEST(PlotAxis, TicksAreHalfAThirtiethAndHalfASixtiethOfTheWidth) {
  using Strokes = std::set<std::pair<int, int>>;
  Axis axis;
  axis.range = {0, 120, 0, 20, 10};
  PlotGeometry plot = {.left = 0, .bottom = 900, .width = 1800, .height = 900};
  const auto xAxis = [&](Target& t) { DrawXAxis(t, plot, axis, ""); };
  const auto yAxis = [&](Target& t) { DrawYAxis(t, plot, axis, ""); };
  EXPECT_EQ(StrokesOf(xAxis), (Strokes{{0, -30}, {0, -15}}));
  EXPECT_EQ(StrokesOf(yAxis), (Strokes{{30, 0}, {15, 0}}));
  plot.scale = 2;
  EXPECT_EQ(StrokesOf(yAxis), (Strokes{{60, 0}, {30, 0}}));
  plot.scale = 1;
  const auto coloured = [&](Target& t) { PaintXYPlot(t, plot, {}, axis, axis, axis, {}); };
  EXPECT_TRUE(StrokesOf(coloured).contains({60, 0}));  // half a fifteenth, at the colour scale
  plot = {.left = 0, .bottom = 0, .width = 1800, .height = -900};  // upside down
  EXPECT_EQ(StrokesOf(xAxis), (Strokes{{0, 30}, {0, 15}}));
}

TEST(PlotAxis, WordsOfPowersAndUnits) {
  Axis axis = {.range = {4.9e-2, 5.8e-2, 4.9e-2, 1e-3, 5e-4}, .label = "Kmean", .unit = "SI"};
  EXPECT_EQ(AxisTitle(axis), "Kmean [SI]");
  axis.power = true;
  EXPECT_EQ(AxisTitle(axis), "Kmean [10^-2 SI]");
  EXPECT_EQ(TickText(axis, 5.3e-2), " 5.3");
  EXPECT_EQ(AxisReadOut(axis, 5.25e-2), "Kmean =  5.250 10^-2");
  axis.power = false;
  axis.log = true;
  EXPECT_EQ(TickText(axis, -3), "0.001");
}

}  // namespace
}  // namespace velorix
