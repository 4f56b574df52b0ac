// Framed plots: their scales, histograms and XY plots.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/fault.h"
#include "plot/axes/axis_scale.h"
#include "plot/axes/column_axis.h"
#include "plot/drawing/colour_scales.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

void ExpectNear(const AxisRange& axis, const AxisRange& expected) {
  using R = AxisRange;
  for (const auto part : {&R::lower, &R::upper, &R::first, &R::step, &R::minor})
    EXPECT_NEAR(axis.*part, expected.*part, 1e-9 * expected.step);
}

TEST(AxisScale, RoundsTheDataOutToWholeSteps) {
  const std::tuple<double, double, AxisRange> cases[] = {
      // clang-format off
      {0, 1, {0, 1.2, 0, 0.2, 0.1}},   {0, 100, {0, 120, 0, 20, 10}},  // mantissa 1
      {0, 19, {0, 20, 0, 2, 1}},       {0, 20, {0, 25, 0, 5, 1}},      // exactly 2: middle step
      {0, 51, {0, 60, 0, 10, 2}},      {0, 50, {0, 55, 0, 5, 1}},      // exactly 5 too
      {5, 5, {5, 5.5, 5, 0.5, 0.1}},   {-5, -5, {-5, -4.5, -5, 0.5, 0.1}},
      {0, 0, {0, 0.2, 0, 0.2, 0.1}},   {-0.37, 0.41, {-0.4, 0.5, -0.4, 0.1, 0.02}},
      {-8, -2, {-8, -1, -8, 1, 0.2}},  {1.013, 1.047, {1.01, 1.05, 1.01, 0.005, 0.001}},
      {3, 7, {3, 7.5, 3, 0.5, 0.1}},     // an end on a step gets one step more
      {3, 7.2, {3, 7.5, 3, 0.5, 0.1}},   {3, 7.3, {3, 8, 3, 0.5, 0.1}},  // 14.4 and 14.6 steps
      {3, 7.25, {3, 7.5, 3, 0.5, 0.1}},  {3.25, 7.75, {3, 8.5, 3, 0.5, 0.1}},  // halves to even
      // The power of ten comes from an exponential, a hair off: so an end on a step may go one
      // step down.
      {-0.3, 0.3, {-0.4, 0.4, -0.4, 0.1, 0.02}},
      {2.5e-4, 3.1e-4, {2.5e-4, 3.2e-4, 2.5e-4, 1e-5, 2e-6}},
      // clang-format on
  };
  for (const auto& [lower, upper, expected] : cases) {
    SCOPED_TRACE(std::to_string(lower) + " to " + std::to_string(upper));
    ExpectNear(AxisScale(lower, upper), expected);
  }
  EXPECT_THROW(AxisScale(0, INFINITY), Fault);
  EXPECT_THROW(AxisScale(NAN, 1), Fault);
}

TEST(Ticks, AreTheStepsOrWhereLabelsLackRoomTheFewestMultiplesOverTheWholeAxis) {
  struct Series {
    std::size_t count;
    double first, spacing;
  };
  const std::tuple<AxisRange, double, Series, Series> cases[] = {
      // clang-format off
      {{0, 120, 0, 20, 10},          0.16, {7, 0, 20},     {13, 0, 10}},
      {{0, 120, 0, 20, 10},          0.17, {4, 0, 40},     {31, 0, 4}},
      {{0, 350, 0, 10, 2},           0.1,  {8, 0, 50},     {71, 0, 5}},       // a seventieth exactly
      {{-1, 1, -1, 0.01, 0.002},     0.04, {21, -1, 0.1},  {41, -1, 0.05}},
      {{-1, 1, -1, 0.01, 0.002},     0.12, {5, -1, 0.5},   {41, -1, 0.05}},
      {{1, 1.5055, 1, 5e-4, 1e-4},   0.12, {6, 1, 0.1},    {51, 1, 0.01}},
      {{1, 1020, 1, 2, 1},           0.1,  {5, 200, 200},  {51, 20, 20}},     // 0 is beyond its end
      {{0, 120, 0, 20, 10},          7,    {1, 0, 200},    {7, 0, 20}},
      {{0, 120, 0, 0, 10},           0,    {101, 0, 0},    {13, 0, 10}},      // no step, and no end
      // clang-format on
  };
  for (const auto& [axis, room, major, minor] : cases) {
    SCOPED_TRACE(std::to_string(axis.lower) + " to " + std::to_string(axis.upper) + ", room " +
                 std::to_string(room));
    const Ticks ticks = TicksOf(axis, room);
    for (const auto& [values, expected] : {std::pair{ticks.major, major}, {ticks.minor, minor}}) {
      ASSERT_EQ(values.size(), expected.count);
      for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_NEAR(values[i], expected.first + static_cast<double>(i) * expected.spacing, 1e-9);
    }
  }
}

TEST(ClassEdges, AreTheNumbersThatTheirDigitsSay) {
  const std::tuple<AxisRange, std::vector<double>> cases[] = {
      {AxisScale(1e-4, 5.5e-4),
       {1e-4, 1.5e-4, 2e-4, 2.5e-4, 3e-4, 3.5e-4, 4e-4, 4.5e-4, 5e-4, 5.5e-4, 6e-4, 6.5e-4}},
      {AxisScale(3.4, 4.9), {3.4, 3.6, 3.8, 4.0, 4.2, 4.4, 4.6, 4.8, 5.0, 5.2}},
      {AxisScale(-0.31, -0.12),
       {-0.32, -0.3, -0.28, -0.26, -0.24, -0.22, -0.2, -0.18, -0.16, -0.14, -0.12, -0.1, -0.08}},
      {AxisScale(7.1e-30, 8.92e-30),
       {7e-30, 7.2e-30, 7.4e-30, 7.6e-30, 7.8e-30, 8e-30, 8.2e-30, 8.4e-30, 8.6e-30, 8.8e-30, 9e-30,
        9.2e-30, 9.4e-30}},
      {AxisScale(3.1e25, 7.6e25),
       {3e25, 3.5e25, 4e25, 4.5e25, 5e25, 5.5e25, 6e25, 6.5e25, 7e25, 7.5e25, 8e25, 8.5e25}},
      {ColumnScale(Column::Fac1, 1, 18.4),
       {1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21}},  // from a fixed end
      {ColumnScale(Column::KmaxInc, 3, 5), {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100}},
  };
  for (const auto& [axis, expected] : cases) EXPECT_EQ(ClassEdges(axis), expected);
}

TEST(TickPicture, FollowsTheStepOrThePowerOfTen) {
  const std::tuple<double, double, const char*, const char*> cases[] = {
      {1, 20, "0", "0"},          {1, 1, "0", "0"},
      {1, 0.5, "0.0", "0.0"},     {1, 0.02, "0.00", "0.00"},
      {2e-3, 1e-3, "0.000", "0"}, {2e-3, 5e-4, "0.000", "0.0"},
      {1e-5, 1e-3, "0.000", "0"}, {1e-3, 2e-9, "0.000", "0.00000"}};
  for (const auto& [lower, step, plain, power] : cases) {
    EXPECT_STREQ(TickPicture(step), plain) << step;
    EXPECT_STREQ(PowerTickPicture(lower, step), power) << step;
  }
}

TEST(Columns, HaveTheirFixedEndsUnitsAndWordsAndTakeTheBlockInView) {
  Settings settings;
  settings.FacName[1] = "Lambda";
  SpecimenRecord r;
  r.Km = 1;
  r.KmIm = 2;
  r.E[1] = 13.0;
  r.EIm[1] = 14.0;
  r.Fac[5] = 8;
  r.Inc[3] = 30.0;
  // The axis for values from 2 to 7; the value of each block.
  const std::tuple<Column, const char*, const char*, AxisRange, double, double> cases[] = {
      // clang-format off
      {Column::Number,  "#",        "",    {0, 7, 0, 0.5, 0.1},    5,  5},
      {Column::Field,   "Field",    "A/m", {0, 7.5, 0, 0.5, 0.1},  0,  0},
      {Column::Km,      "Kmean",    "SI",  {2, 7.5, 2, 0.5, 0.1},  1,  2},
      {Column::Fac1,    "Lambda",   "",    {1, 7.5, 1, 0.5, 0.1},  0,  0},
      {Column::Fac5,    "T",        "",    {-1, 1, -1, 0.5, 0.1},  8,  8},
      {Column::Fac7,    "Q",        "",    {2, 7.5, 2, 0.5, 0.1},  0,  0},
      {Column::KmaxDec, "Kmax_Dec", "deg", {0, 360, 0, 30, 10},    0,  0},
      {Column::KminInc, "Kmin_Inc", "deg", {0, 90, 0, 10, 2},      30, 30},
      {Column::E13,     "13",       "deg", {2, 7.5, 2, 0.5, 0.1},  13, 14},
      // clang-format on
  };
  for (const auto& [column, title, unit, range, kre, kim] : cases) {
    SCOPED_TRACE(title);
    EXPECT_EQ(ScaleTitle(column, settings), title);
    EXPECT_STREQ(InfoOf(column).unit, unit);
    ExpectNear(ColumnScale(column, 2, 7), range);
    EXPECT_EQ(ColumnValue(column, r, InPhase, 5), kre);
    EXPECT_EQ(ColumnValue(column, r, OutOfPhase, 5), kim);
  }
}

constexpr XYPlotOptions FieldAndFTest = {.x = Column::Field, .y = Column::F};

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
  return session;
}

struct Plot {
  explicit Plot(const Session& session, const XYPlotOptions& options = FieldAndFTest) {
    calls = Recorded([&](Target& t) { drawn = DrawXYPlot(session, t, PlotGeometry(), options); });
  }
  std::size_t Symbols() const { return CallsOf<EllipseCall>(calls).size(); }

  std::vector<DrawCall> calls;
  std::optional<DrawnXYPlot> drawn;
};

TEST(XYPlot, PlacesPointsByTheirAxesAndGivesThePlaces) {
  Session session = Records({{0, 0}, {6, 4}, {3.5, 1.8}});
  session.Records[1].Selected = true;
  Plot plot(session);
  ASSERT_TRUE(plot.drawn);
  EXPECT_EQ(plot.drawn->x.range, (AxisRange{0, 7, 0, 1, 0.2}));
  EXPECT_EQ(plot.drawn->y.range, (AxisRange{0, 4.5, 0, 0.5, 0.1}));
  // Half of 285 units from 60; 1.8 of 4.5 up 205 units from 245.
  EXPECT_DOUBLE_EQ(plot.drawn->symbols[2].x, 202.5);
  EXPECT_DOUBLE_EQ(plot.drawn->symbols[2].y, 163);
  EXPECT_EQ(plot.Symbols(), 3u);
  EXPECT_EQ(CallsOf<EllipseCall>(plot.calls).back().brush, Yellow);  // the selected one on top
  // A label left of the frame's upper end.
  EXPECT_NE(ToText(plot.calls).find("\" 4.5\" (54,43) "), std::string::npos);
}

/// What a plot without records shows: paper and the box round it.
const char* const EmptyPlot =
    "transparent\n"
    "polygon (60,245) (345,245) (345,40) (60,40) pen 5 0 1 brush FFFFFF\n"
    "polyline (60,245) (345,245) pen 0 0 1\n"
    "polyline (345,245) (345,40) pen 0 0 1\n"
    "polyline (345,40) (60,40) pen 0 0 1\n"
    "polyline (60,40) (60,245) pen 0 0 1\n";

TEST(XYPlot, StaysBlankWhereAnAxisHasNoExtentAndBearsTheWidestRanges) {
  Session outOfView = Records({{1, 1}});
  outOfView.Records[1].Active = false;
  for (const Session& session : {Records({}), outOfView}) {
    const Plot empty(session);
    EXPECT_FALSE(empty.drawn);
    EXPECT_EQ(ToText(empty.calls), EmptyPlot);
  }
  const auto blank = [](const Plot& plot) { return !plot.drawn && plot.calls.size() == 1; };
  EXPECT_TRUE(blank(Plot(Records({{1, NAN}}))));
  // A factor of 0: its axis begins at 1, above.
  EXPECT_TRUE(blank(Plot(Records({{1, 1}}), {.x = Column::Field, .y = Column::Fac1})));
  // The scale itself leaves the numbers.
  EXPECT_TRUE(blank(Plot(Records({{0, -1.7e308}, {1, 1.7e308}}))));

  const Plot wide(Records({{0, 1e-300}, {1, 1e300}}),
                  {.x = Column::Field, .y = Column::F, .lines = true});
  EXPECT_EQ(wide.Symbols(), 2u);
  EXPECT_LT(wide.calls.size(), 1000u);
}

constexpr Column Kmean = Column::Km, Factor1 = Column::Fac1, F = Column::F;

std::vector<DrawCall> Histo(const std::vector<double>& values, Column column) {
  return Recorded([&](Target& t) { DrawHisto(t, PlotGeometry(), values, column, Settings()); });
}

/// The bars as their left ends and their heights in counts, where the axis ends at `highest`.
std::vector<std::pair<int, int>> Bars(const std::vector<double>& values, Column column,
                                      Colour colour, double highest) {
  std::vector<std::pair<int, int>> bars;
  for (const PolygonCall& p : CallsOf<PolygonCall>(Histo(values, column)))
    if (p.brush == colour && p.pen.style == Solid)
      bars.emplace_back(p.points[0].x, std::lround((245 - p.points[2].y) * highest / 205));
  return bars;
}

using Wanted = std::vector<std::pair<int, int>>;

TEST(Histogram, CountsAValueOnABoundaryInBothClasses) {
  // Classes of 1 from 0 to 7, 40.7 units wide. 1 and 6 count twice: 7 counts of 5 values.
  EXPECT_EQ(Bars({0, 1, 2.5, 3.5, 6}, F, GrayLevel(128), 2.5),
            (Wanted{{60, 2}, {101, 1}, {141, 1}, {182, 1}, {264, 1}, {304, 1}}));
  // The bars have this colour, the axis of counts this end.
  const std::tuple<std::vector<double>, Column, Colour, double, std::vector<int>> cases[] = {
      {{1e-4, 2e-4, 3e-4, 4e-4, 5e-4, 6e-4, 7e-4}, Kmean, 0xFF00FF, 2.5, {2, 2, 2, 2, 2, 2, 1}},
      {{1.005, 1.01, 1.015, 1.02}, Factor1, 0xFFFF00, 2.5, {1, 2, 2, 2, 1}},
      {{3.4, 3.5, 4.1, 4.9}, F, GrayLevel(128), 2.5, {2, 1, 1}},
      {{-0.2, 0.3, 0.8}, F, GrayLevel(128), 1.2, {1, 1, 1, 1}},
  };
  for (const auto& [values, column, colour, highest, expected] : cases) {
    std::vector<int> counts;
    for (const auto& bar : Bars(values, column, colour, highest)) counts.push_back(bar.second);
    EXPECT_EQ(counts, expected) << values[0];
  }
}

TEST(Histogram, StaysBlankWithoutAScaleAndOutlivesAnyValue) {
  EXPECT_EQ(ToText(Histo({}, F)), EmptyPlot);
  EXPECT_EQ(Histo({NAN, INFINITY}, F).size(), 1u);
  EXPECT_EQ(Histo({0.5, 0.7}, Factor1).size(), 1u);     // below the range's fixed end
  EXPECT_EQ(Histo({-1.7e308, 1.7e308}, F).size(), 1u);  // a scale beyond all numbers
  EXPECT_GT(Histo({NAN, 3}, F).size(), 10u);
  EXPECT_GT(Histo({0, 0, 0}, F).size(), 10u);
  EXPECT_LT(Histo({1e-300, 1e300}, F).size(), 2000u);
}

}  // namespace
}  // namespace velorix
