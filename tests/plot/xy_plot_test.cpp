#include "plot/xy_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "plot/parameters.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

const double NaN = std::nan("");
constexpr int Field = 1, FTest = 18;

/// A session of records whose Field is `x` and whose F test is `y`.
Session Records(const std::vector<Point>& values) {
  Session session;
  for (const Point& value : values) {
    SpecimenRecord record;
    record.Active = true;
    record.CoorLevel = Geographic;
    record.Field = static_cast<float>(value.x);
    record.FTest[0] = value.y;
    session.Records.Add(record);
  }
  Renumber(session.Records);
  return session;
}

TEST(XYPlot, PlacesPointsByTheirAxesAndKeepsThePlaces) {
  Session session = Records({{0, 0}, {6, 4}, {3.5, 1.8}});
  Recorder recorder;
  const XYPlotOptions options = {.x = Field, .y = FTest};
  const auto axes = DrawXYPlot(session, recorder, PlotGeometry(), options, 3);
  ASSERT_TRUE(axes);
  EXPECT_EQ(axes->x.range, (AxisRange{0, 7, 0, 1, 0.2}));
  EXPECT_EQ(axes->y.range, (AxisRange{0, 4.5, 0, 0.5, 0.1}));
  EXPECT_EQ(AxisTitle(axes->x), "Field [A/m]");
  // Half of 285 units from 60; 1.8 of 4.5 up 205 units from 245.
  EXPECT_DOUBLE_EQ(session.Records[3].PlotX[3], 202.5);
  EXPECT_DOUBLE_EQ(session.Records[3].PlotY[3], 163);
  EXPECT_EQ(session.Records[3].PlotX[4].width(), Number::Width::Unset);
  EXPECT_EQ(CallsOf<EllipseCall>(recorder.calls).size(), 3u);
}

TEST(XYPlot, LeavesOutWhatIsNoNumberOrOutsideAnImposedRange) {
  Session session = Records({{0, 1}, {NaN, 2}, {4, INFINITY}, {8, 3}});
  session.Records[1].PlotX[3] = 7.0;  // of an earlier picture
  session.Records[1].Field = -5;      // the field's axis begins at 0
  Recorder recorder;
  const auto axes = DrawXYPlot(session, recorder, PlotGeometry(), {.x = Field, .y = FTest}, 3);
  ASSERT_TRUE(axes);
  EXPECT_EQ(axes->y.range.upper, 3.5);
  EXPECT_EQ(CallsOf<EllipseCall>(recorder.calls).size(), 1u);
  for (int i : {1, 2, 3}) EXPECT_TRUE(std::isnan(session.Records[i].PlotX[3])) << i;
  EXPECT_FALSE(std::isnan(session.Records[4].PlotX[3]));
}

TEST(XYPlot, LinesGoInStoreOrderAndEndAtTheFrame) {
  const std::vector<XYPoint> points = {{1, 1}, {3, 3}, {1, 3}};
  Axis axis;
  axis.range = {0, 2, 0, 1, 0.5};
  XYPlotLook look;
  look.frame = false;
  look.lines = true;
  const PlotGeometry plot = {.left = 0, .bottom = 100, .width = 100, .height = 100};
  Recorder recorder;
  PaintXYPlot(recorder, plot, points, axis, axis, std::nullopt, look);
  const auto lines = CallsOf<PolylineCall>(recorder.calls);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].points, (std::vector<LogicalPoint>{{50, 50}, {100, 0}}));
}

TEST(XYPlot, StaysBlankWhereAnAxisHasNoExtent) {
  const auto calls = [](Session session, int y) {
    Recorder recorder;
    EXPECT_FALSE(DrawXYPlot(session, recorder, PlotGeometry(), {.x = Field, .y = y}, 3));
    return recorder.calls.size();
  };
  EXPECT_EQ(calls(Records({}), FTest), 1u);  // paper only, and it is transparent
  EXPECT_EQ(calls(Records({{1, NaN}}), FTest), 1u);
  EXPECT_EQ(calls(Records({{1, 1}}), 4), 1u);  // a factor of 0: its axis begins at 1, above
}

TEST(XYPlot, BearsTheWidestRanges) {
  const XYPlotOptions options = {.x = Field, .y = FTest, .lines = true};
  Recorder wide, widest;
  EXPECT_TRUE(DrawXYPlot(Records({{0, 1e-300}, {1, 1e300}}), wide, PlotGeometry(), options));
  EXPECT_EQ(CallsOf<EllipseCall>(wide.calls).size(), 2u);
  EXPECT_LT(wide.calls.size(), 1000u);
  // The scale itself leaves the numbers.
  EXPECT_FALSE(DrawXYPlot(Records({{0, -1.7e308}, {1, 1.7e308}}), widest, PlotGeometry(), options));
}

TEST(PlotAxis, LabelsDontRunIntoEachOther) {
  Axis axis;
  const PlotGeometry plot;
  for (const double step : {0.2, 0.1, 0.05, 0.02, 0.01}) {
    axis.range = {-1, 1, -1, step, step / 2};  // passes 0
    Recorder recorder;
    DrawXAxis(recorder, plot, axis);
    int last = -1000;
    for (const TextCall& text : CallsOf<TextCall>(recorder.calls)) {
      if (text.style.weight != 400) continue;  // the title
      EXPECT_GT(text.point.x - last, 24) << step;
      last = text.point.x;
      EXPECT_TRUE(text.text[0] == '-' || text.point.x >= 202) << text.text;  // 0 has no sign
    }
    EXPECT_GT(last, step > 0.01 ? 300 : 200);  // 101 ticks of 0.01 don't reach the end
  }
}

TEST(PlotAxis, WordsOfPowersAndUnits) {
  Axis axis;
  axis.label = "Kmean";
  axis.unit = "SI";
  axis.range = {4.9e-2, 5.8e-2, 4.9e-2, 1e-3, 5e-4};
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
