#include "stats/density/density_curves.h"

#include <gtest/gtest.h>

#include <cmath>

#include "stats/density/density.h"

namespace velorix {
namespace {

struct Curves : testing::Test {
  void Count(const std::vector<std::pair<double, double>>& directions, int smooth) {
    BuildContourGrid(Grid);
    ContourData data;
    for (const auto& [dec, inc] : directions) data.Add(dec, inc);
    ASSERT_TRUE(CountDensity(Grid, data, static_cast<std::int16_t>(smooth), Result));
  }
  DensityCurves At(double level) const { return CurvesOf(Grid, std::array{level}).front(); }
  double DensityAbove(double level) const {
    double nodes = 0;
    for (std::size_t n = 0; n < Grid.Inside.size(); ++n)
      nodes += Grid.Inside[n] && Grid.Density[n] >= level;
    return nodes;
  }

  ContourGrid Grid;
  DensityCount Result;
};

/// Twice the sum of the triangles with the origin; borders round holes count the other way.
double AreaOf(const std::vector<DensityCurves::Curve>& borders) {
  double area = 0;
  for (const auto& border : borders)
    for (std::size_t i = 1; i < border.size(); ++i)
      area += border[i - 1].x * border[i].y - border[i].x * border[i - 1].y;
  return area / 2;
}

double FromCentre(const Point& p) { return std::hypot(p.x - 150, p.y - 150); }

// A single vertical direction: the density is exp(S c c) over the mean of it, c the sine of the
// inclination, so that a level is a circle round the centre. At r radii c is 1 - r r.
TEST_F(Curves, OfAVerticalDirectionAreCircles) {
  constexpr int Smooth = 20;
  Count({{0, 90}}, Smooth);
  for (const double level : {1.0, 3.0, 0.9 * double{Result.ContourMax}}) {
    const DensityCurves curves = At(level);
    ASSERT_EQ(curves.Lines.size(), 1u);
    ASSERT_EQ(curves.Borders.size(), 1u);
    const double c = std::sqrt(1 + std::log(level / double{Result.ContourMax}) / Smooth);
    const double radius = 150 * std::sqrt(1 - c);
    for (const Point& p : curves.Lines[0]) EXPECT_NEAR(FromCentre(p), radius, 0.35) << level;
    EXPECT_NEAR(AreaOf(curves.Borders), 3.14159265 * radius * radius, 8 * radius);
  }
  EXPECT_TRUE(At(2 * double{Result.ContourMax}).Borders.empty());
  const DensityCurves all = At(0);
  EXPECT_TRUE(all.Lines.empty());
  EXPECT_NEAR(AreaOf(all.Borders), 3.14159265 * 150 * 150, 5);
}

TEST_F(Curves, EndOnTheRimAtOppositePlacesAndEncloseWhatTheNodesHave) {
  const std::vector<std::pair<double, double>> sets[] = {
      {{70, 0}},                                                // two caps at the rim
      {{70, 4}, {200, 10}, {320, 30}, {0, 85}},                 // some at the rim, some within
      {{0, 1}, {30, 2}, {60, 1}, {90, 0}, {120, 3}, {150, 1}},  // a girdle round a hole
  };
  for (const auto& directions : sets) {
    Count(directions, 30);
    for (double level = 0.5; level < double{Result.ContourMax}; level += 0.5) {
      const DensityCurves curves = At(level);
      const double nodes = DensityAbove(level);
      EXPECT_NEAR(AreaOf(curves.Borders), nodes, 0.01 * nodes + 160)  // half a node along the lines
          << directions.size() << " directions, level " << level;
      std::vector<Point> ends;
      for (const auto& line : curves.Lines) {
        for (const Point& p : line) EXPECT_LE(FromCentre(p), 150 + 1e-9);
        if (std::fabs(FromCentre(line.front()) - 150) > 1e-6) continue;
        EXPECT_NEAR(FromCentre(line.back()), 150, 1e-6);
        ends.insert(ends.end(), {line.front(), line.back()});
      }
      // An axis that leaves the lower hemisphere comes in at the other side. Lines that only touch
      // the rim may do so at one side alone: the last nodes before it have no more than the density
      // of the nodes further in.
      if (directions.size() > 1) ends.clear();
      for (const Point& end : ends) {
        double nearest = 300;
        for (const Point& p : ends)
          nearest = std::min(nearest, std::hypot(300 - end.x - p.x, 300 - end.y - p.y));
        EXPECT_LT(nearest, 3) << level;
      }
      for (const auto& border : curves.Borders) {
        EXPECT_EQ(border.front().x, border.back().x);
        EXPECT_EQ(border.front().y, border.back().y);
      }
    }
  }
}

}  // namespace
}  // namespace velorix
