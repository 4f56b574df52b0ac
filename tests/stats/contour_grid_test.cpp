#include "stats/contour_grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "base/rounding.h"

namespace velorix {
namespace {

struct StandardGrid : ::testing::Test {
  StandardGrid() { BuildContourGrid(Grid, 0, 300, 3); }
  std::size_t At(int i, int j) const { return static_cast<std::size_t>(Grid.Index(i, j)); }

  ContourGrid Grid;
};

TEST_F(StandardGrid, CountsTheNodesOfTheCircleAndThoseAtTheSpacing) {
  // Gauss's circle problem: lattice points within radius 150 and 50, the rim included.
  EXPECT_EQ(Grid.Side(), 301);
  EXPECT_EQ(Grid.InsideCount, 70681);
  EXPECT_EQ(Grid.ComputedCount, 7845);
  for (const auto& [i, j, inside] :
       {std::tuple{150, 0, 1}, {0, 150, 1}, {300, 150, 1}, {0, 0, 0}, {60, 30, 1}, {59, 30, 0}})
    EXPECT_EQ(Grid.Inside[At(i, j)], inside) << i << " " << j;
}

TEST_F(StandardGrid, UpIsNorthRightIsEastAndTheRimIsHorizontal) {
  const double at45 = 90 - 2 * std::asin(0.7 / std::sqrt(2)) * DegPerRad;
  const struct {
    int i, j;
    double dec, inc;
  } cases[] = {{150, 150, 0, 90},  {150, 0, 0, 0},   {300, 150, 90, 0},
               {150, 300, 180, 0}, {0, 150, 270, 0}, {150, 45, 0, at45}};
  for (const auto& c : cases) {
    EXPECT_NEAR(Grid.Dec[At(c.i, c.j)], c.dec, 1e-4) << c.i << " " << c.j;
    EXPECT_NEAR(Grid.Inc[At(c.i, c.j)], c.inc, 1e-3) << c.i << " " << c.j;
  }
}

TEST_F(StandardGrid, VectorsAreThoseOfTheDirectionsAndNothingLiesOutside) {
  for (int j = 0; j <= 300; ++j)
    for (int i = 0; i <= 300; ++i) {
      const std::size_t n = At(i, j);
      if (!Grid.Inside[n]) {
        ASSERT_TRUE(Grid.X[n] == 0 && Grid.Y[n] == 0 && Grid.Z[n] == 0);
        continue;
      }
      const double dec = Grid.Dec[n] / DegPerRad, inc = Grid.Inc[n] / DegPerRad;
      ASSERT_TRUE(Grid.Dec[n] >= 0 && Grid.Dec[n] <= 360 && Grid.Inc[n] >= -1e-3);
      ASSERT_NEAR(Grid.X[n], std::cos(inc) * std::cos(dec), 1e-6);
      ASSERT_NEAR(Grid.Y[n], std::cos(inc) * std::sin(dec), 1e-6);
      ASSERT_NEAR(Grid.Z[n], std::sin(inc), 1e-6);
      // Equal area: the distance from the centre is the root of 1 - sin(inc).
      ASSERT_NEAR(std::hypot(i - 150, j - 150) / 150, std::sqrt(1 - Grid.Z[n]), 1e-3);
    }
}

TEST_F(StandardGrid, IsNotMadeOfOtherArguments) {
  EXPECT_THROW(BuildContourGrid(Grid, 1, 0, 1), Fault);
  EXPECT_THROW(BuildContourGrid(Grid, 0, 10, 0), Fault);
}

}  // namespace
}  // namespace velorix
