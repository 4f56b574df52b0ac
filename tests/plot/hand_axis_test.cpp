// Axes set by hand. Ends, ticks and classes are worked out by hand.

#include "plot/axes/hand_axis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "plot/axes/column_axis.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "tests/plot/calls.h"
#include "text/numbers.h"

namespace velorix {
namespace {

const std::string FTest = ColumnName(Column::F, Settings());

Extent ExtentOf(const std::vector<double>& values) {
  Extent extent;
  for (const double value : values) extent.Add(value);
  return extent;
}

/// The axis of a column with `text` for its hand axis.
Axis AxisOf(Column column, const char* text, const std::vector<double>& values) {
  const HandAxes axes = {{ColumnName(column, Settings()), HandAxisOfText(text).value()}};
  return ColumnAxis(column, ExtentOf(values), Settings(), &axes);
}

/// The numbers along an axis with room for `labels` of them.
std::string Numbers(const Axis& axis, double labels = 20) {
  std::string text;
  for (const double position : AxisTicks(axis, 1 / labels).major)
    text += std::string(StripBlanks(TickText(axis, position))) + " ";
  return text;
}

TEST(HandAxis, ItsWordsLeadBackToItAndOthersAreRefused) {
  for (const char* text : {"auto auto auto", "-1.5 auto 0.25", "1E-06 0.01 auto log",
                           "0 1 0.01 reversed", "auto auto 2 log reversed"})
    EXPECT_EQ(HandAxisText(HandAxisOfText(text).value()), text);
  EXPECT_EQ(HandAxisOfText("1e-3  5 auto reversed log"),
            HandAxisOfText("0.001 5 auto log reversed"));
  for (const char* text :
       {"", "1 2", "1 2 x", "1,5 2 auto", "1 1 auto", "2 1 auto", "0 1 0", "0 1 -1", "0 1 0.0099",
        "0 1 auto log", "-1 auto auto log", "auto 0 auto log", "1 2 auto loud", "1 2 auto log log",
        "nan 1 auto", "0 inf auto", "0 1e999 auto", "1 2 3 4"})
    EXPECT_FALSE(HandAxisOfText(text)) << text;
}

TEST(HandAxis, TakesTheEndsAndStepsGivenAndChoosesTheRest) {
  struct Case {
    Column column;
    const char* hand;
    std::vector<double> values;
    double lower, upper;
    const char *numbers, *title;
  };
  const Case cases[] = {
      // clang-format off
      {Column::F,    "0 10 2.5",       {1, 4},        0, 10,       "0.0 2.5 5.0 7.5 10.0 ", "FTest_F "},
      {Column::F,    "0.05 auto 0.1",  {0.1, 0.32},   0.05, 0.4,   "0.05 0.15 0.25 0.35 ", "FTest_F "},
      {Column::F,    "auto auto 0.25", {0.3, 1.1},    0.25, 1.25,  "0.25 0.50 0.75 1.00 1.25 ", "FTest_F "},
      {Column::F,    "4 6 0.5",        {5, 5, 5},     4, 6,        "4.0 4.5 5.0 5.5 6.0 ", "FTest_F "},   // constant
      {Column::F,    "auto 2 auto",    {5, 9},        1.5, 2,      "1.50 1.55 1.60 1.65 1.70 1.75 1.80 1.85 1.90 1.95 2.00 ", "FTest_F "},
      {Column::Fac2, "auto auto 0.02", {1.013, 1.05}, 1, 1.06,     "1.00 1.02 1.04 1.06 ", "F "},   // a fixed end stays
      {Column::Km,   "0 auto 2e-4",    {1e-4, 7e-4},  0, 8e-4,     "0 2 4 6 8 ", "Kmean [10^-4 SI]"},
      {Column::Km,   "0 1e-3 5e-4",    {1e-4, 7e-4},  0, 1e-3,     "0.0 0.5 1.0 ", "Kmean [10^-3 SI]"},
      // clang-format on
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.hand);
    const Axis axis = AxisOf(c.column, c.hand, c.values);
    EXPECT_NEAR(axis.range.lower, c.lower, 1e-12);
    EXPECT_NEAR(axis.range.upper, c.upper, 1e-12);
    EXPECT_EQ(Numbers(axis), c.numbers);
    EXPECT_EQ(AxisTitle(axis), c.title);
  }
  // An automatic end that makes too many steps: the step is automatic, too.
  EXPECT_DOUBLE_EQ(AxisOf(Column::F, "0 auto 0.001", {0, 70}).range.step, 10);
  // Other columns stay as they are.
  const HandAxes others = {{"P", HandAxisOfText("0 auto auto").value()}};
  EXPECT_EQ(ColumnAxis(Column::F, ExtentOf({1, 4}), Settings(), &others).range,
            ColumnScale(Column::F, 1, 4));
}

TEST(HandAxis, ALogarithmicOneHasWholeDecadesAndNumbersThatHaveRoom) {
  const std::tuple<const char*, double, double, double, const char*> cases[] = {
      // ends in decades, labels that have room, numbers
      {"auto auto auto log", -5, -1, 12, "10^-5 10^-4 10^-3 10^-2 10^-1 "},
      {"auto auto auto log", -5, -1, 3, "10^-4 10^-2 "},
      {"auto auto 2 log", -5, -1, 20, "10^-4 10^-2 "},
      {"0.002 2 auto log", -2.69897, 0.30103, 12, "0.002 0.005 0.01 0.02 0.05 0.1 0.2 0.5 1 2 "},
      {"3 8 auto log", 0.477121, 0.90309, 12, "3 4 5 6 7 8 "},
      {"2e-5 5e-5 auto log", -4.69897, -4.30103, 12, "2 10^-5 3 10^-5 4 10^-5 5 10^-5 "}};
  for (const auto& [hand, lower, upper, labels, numbers] : cases) {
    SCOPED_TRACE(hand);
    const Axis axis = AxisOf(Column::Km, hand, {-3, 0, 2e-5, 0.09});
    EXPECT_NEAR(axis.range.lower, lower, 1e-6);
    EXPECT_NEAR(axis.range.upper, upper, 1e-6);
    EXPECT_EQ(Numbers(axis, labels), numbers);
    EXPECT_EQ(AxisTitle(axis), "Kmean [SI]");
  }
  const Axis axis = AxisOf(Column::Km, "1e-5 1e-1 auto log", {1});
  EXPECT_EQ(AxisTicks(axis, 0.1).minor.size(), 4u * 9 + 1);
  EXPECT_EQ(AxisReadOut(axis, -3), "Kmean = 1.000E-03");
  EXPECT_DOUBLE_EQ(axis.ShareOf(axis.PositionOf(1e-4)), 0.25);
  EXPECT_TRUE(std::isnan(axis.PositionOf(0)));
  EXPECT_TRUE(AxisOf(Column::Km, "auto auto auto log", {-1, 0}).IsEmpty());
}

TEST(HandAxis, AReversedOneRunsFromTheOtherSide) {
  const Axis axis = AxisOf(Column::F, "0 10 5 reversed", {1});
  EXPECT_DOUBLE_EQ(axis.ShareOf(2), 0.8);
  EXPECT_DOUBLE_EQ(axis.PositionAt(0.8), 2);
  EXPECT_EQ(Numbers(axis), "0 5 10 ");
}

TEST(HandAxis, PlacesPointsAndCountsClasses) {
  Session session;
  for (const double f : {1.0, 10.0, 1000.0, -5.0}) {
    SpecimenRecord record;
    record.Active = true;
    record.CoorLevel = Geographic;
    record.Field = 50;
    record.FTest[0] = f;
    session.Records.Add(record);
  }
  const HandAxes axes = {{FTest, HandAxisOfText("1 10000 1 log").value()},
                         {"Field", HandAxisOfText("0 100 20 reversed").value()}};
  PlotGeometry plot;
  plot.axes = &axes;
  std::optional<DrawnXYPlot> drawn;
  (void)Recorded([&](Target& t) {
    drawn = DrawXYPlot(session, t, plot, {.x = Column::Field, .y = Column::F});
  });
  ASSERT_TRUE(drawn);
  // 0, a quarter and three quarters of 205 units up from 245; in the middle of 285 from 60.
  for (const auto& [record, y] : {std::pair{0u, 245.0}, {1u, 193.75}, {2u, 91.25}}) {
    EXPECT_NEAR(drawn->symbols[record].x, 202.5, 1e-9);
    EXPECT_NEAR(drawn->symbols[record].y, y, 1e-9);
  }
  EXPECT_TRUE(std::isnan(drawn->symbols[3].y)) << "no logarithm";

  std::vector<HistoBar> bars;
  const auto draw = [&](const std::vector<double>& values, const char* hand) {
    const HandAxes one = {{FTest, HandAxisOfText(hand).value()}};
    plot.axes = &one;
    (void)Recorded([&](Target& t) { bars = DrawHisto(t, plot, values, Column::F, Settings()); });
    std::string text;
    for (const HistoBar& bar : bars)
      text += PlainText(bar.lower) + "-" + PlainText(bar.upper) + ":" +
              PlainText(static_cast<int>(bar.count)) + " ";
    return text;
  };
  // A value on a boundary counts on both sides.
  EXPECT_EQ(draw({2, 3, 10, 500, -5, 0}, "1 10000 1 log"), "1-10:3 10-100:1 100-1000:1 ");
  EXPECT_EQ(draw({0.1, 0.3, 0.35, 0.9}, "0 0.75 0.15"), "0-0.15:1 0.15-0.3:1 0.3-0.45:2 ");
  EXPECT_EQ(draw({0.5, 1.25, 1.5}, "0.25 2 0.5"), "0.25-0.75:1 0.75-1.25:1 1.25-1.75:2 ");
  EXPECT_EQ(draw({1, 2}, "0 10 5 reversed"), "0-5:2 ");
  EXPECT_GT(bars[0].foot.x, bars[0].top.x);
  EXPECT_EQ(draw({-1, -2}, "auto auto auto log"), "");
}

}  // namespace
}  // namespace velorix
