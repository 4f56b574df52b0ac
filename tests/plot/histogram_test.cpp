#include "plot/histogram.h"

#include <gtest/gtest.h>

#include <cmath>

#include "plot/colour_scales.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

constexpr int Kmean = 3, Factor1 = 4, Declination = 12, F = 18;

/// Heights of the bars, in counts, from left to right with their left ends.
struct Bar {
  int left, count;
  bool operator==(const Bar&) const = default;
};

std::vector<Bar> Bars(const std::vector<DrawCall>& calls, Colour colour, double highest) {
  std::vector<Bar> bars;
  for (const PolygonCall& p : CallsOf<PolygonCall>(calls))
    if (p.brush == colour && p.pen.style == Solid)
      bars.push_back(
          {p.points[0].x, static_cast<int>(std::lround((245 - p.points[2].y) * highest / 205))});
  return bars;
}

std::vector<DrawCall> Histo(const std::vector<double>& values, int parameter) {
  Recorder recorder;
  DrawHisto(recorder, PlotGeometry(), values, parameter, Settings());
  return recorder.calls;
}

TEST(Histogram, CountsAValueOnABoundaryInBothClasses) {
  // Classes of 1 from 0 to 7, 40.7 units wide. 1 and 6 count twice: 7 counts of 5 values.
  const std::vector<Bar> wanted = {{60, 2}, {101, 1}, {141, 1}, {182, 1}, {264, 1}, {304, 1}};
  EXPECT_EQ(Bars(Histo({0, 1, 2.5, 3.5, 6}, F), GrayLevel(128), 2.5), wanted);
}

TEST(Histogram, FixedRangesMakeTheClasses) {
  // Declinations: twelve classes of 30 degrees, whatever the data.
  const std::vector<Bar> wanted = {{60, 1}, {321, 2}};
  EXPECT_EQ(Bars(Histo({12, 340, 350}, Declination), Red, 2.2), wanted);
  // A factor: from 1 on, with a step for 1 to 1.1 and not for the data's own 0.02.
  const auto factor = Bars(Histo({1.085, 1.0875}, Factor1), 0xFFFF00, 2.5);
  ASSERT_EQ(factor.size(), 1u);  // classes of 0.01
  EXPECT_EQ(factor[0].count, 2);
}

TEST(Histogram, KmeanIsDividedByItsPowerOfTen) {
  EXPECT_EQ(WordsOf(Histo({4.9e-4, 5.6e-4, 5.75e-4}, Kmean)),
            "Kmean| 5.00| 5.20| 5.40| 5.60| 5.80|Kmean [10^-4 SI]| 0.0| 0.2| 0.4| 0.6| 0.8| 1.0| "
            "1.2|Counts |");
}

TEST(Histogram, StaysBlankWithoutAScaleAndOutlivesAnyValue) {
  EXPECT_EQ(Histo({}, F).size(), 1u);
  EXPECT_EQ(Histo({NAN, INFINITY}, F).size(), 1u);
  EXPECT_EQ(Histo({0.5, 0.7}, Factor1).size(), 1u);  // below the range's fixed end
  EXPECT_GT(Histo({NAN, 3}, F).size(), 10u);
  EXPECT_LT(Histo({1e-300, 1e300}, F).size(), 2000u);
  EXPECT_EQ(Histo({-1.7e308, 1.7e308}, F).size(), 1u);  // a scale beyond all numbers
  EXPECT_GT(Histo({0, 0, 0}, F).size(), 10u);
}

}  // namespace
}  // namespace velorix
