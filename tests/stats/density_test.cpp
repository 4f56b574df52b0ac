#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "base/fault.h"
#include "base/rounding.h"
#include "stats/density/contour_grid.h"
#include "stats/density/density.h"
#include "stats/density/density_sums.h"
#include "tensor/directions.h"

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
  const std::tuple<int, int, double, double> cases[] = {{150, 150, 0, 90}, {150, 0, 0, 0},
                                                        {300, 150, 90, 0}, {150, 300, 180, 0},
                                                        {0, 150, 270, 0},  {150, 45, 0, at45}};
  for (const auto& [i, j, dec, inc] : cases) {
    EXPECT_NEAR(Grid.Dec[At(i, j)], dec, 1e-4) << i << " " << j;
    EXPECT_NEAR(Grid.Inc[At(i, j)], inc, 1e-3) << i << " " << j;
  }
}

TEST_F(StandardGrid, IsNotMadeOfOtherArguments) {
  EXPECT_THROW(BuildContourGrid(Grid, 1, 0, 1), Fault);
  EXPECT_THROW(BuildContourGrid(Grid, 0, 10, 0), Fault);
}

ContourData RandomData(int count, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> uniform(0, 1);
  ContourData data;
  for (int i = 0; i < count; ++i)
    data.Add(360 * uniform(random), std::asin(uniform(random)) * DegPerRad);
  return data;
}

/// Directions within a few degrees of one.
ContourData Cluster(int count, double dec, double inc) {
  std::mt19937 random(7);
  std::normal_distribution<double> noise(0, 3);
  ContourData data;
  for (int i = 0; i < count; ++i) data.Add(dec + noise(random), inc + noise(random));
  return data;
}

/// The sum at one node as it is defined, term by term.
float PlainSum(float x, float y, float z, const ContourData& data, float smooth) {
  float density = 0;
  for (std::size_t d = 0; d < data.X.size(); ++d) {
    const float c = std::abs(x * data.X[d] + y * data.Y[d] + z * data.Z[d]);
    density = static_cast<float>(density + std::exp(static_cast<double>(smooth * c * c)));
  }
  return density;
}

struct Density : StandardGrid {
  float Of(int i, int j) const { return Grid.Density[At(i, j)]; }
  /// The densities of a count that went on to its end.
  std::vector<float> Run(const ContourData& data, int smooth, int threads = 1) {
    EXPECT_TRUE(CountDensity(Grid, data, static_cast<std::int16_t>(smooth), Count, {}, threads));
    return Grid.Density;
  }
  template <class Visit>
  void ForComputed(Visit visit) const {
    for (int j = 0; j <= 300; j += 3)
      for (int i = 0; i <= 300; i += 3)
        if (Grid.Inside[At(i, j)]) visit(i, j);
  }

  DensityCount Count;
};

UnitVectors VectorsOf(const ContourData& data) {
  return {data.X.data(), data.Y.data(), data.Z.data(), data.X.size()};
}

/// Holds every way to sum on this machine to the plain loop, bit for bit.
void ExpectPlainSums(const ContourData& nodes, const ContourData& data, float smooth) {
  const std::size_t size = nodes.X.size();
  std::vector<float> plain(size);
  for (std::size_t n = 0; n < size; ++n)
    plain[n] = PlainSum(nodes.X[n], nodes.Y[n], nodes.Z[n], data, smooth);
  for (const SumWay way : {SumWay::Portable, SumWay::Lanes4, SumWay::Lanes8}) {
    if (!CanSum(way)) continue;
    std::vector<float> sums(size + 1, -1);
    SumDensity(VectorsOf(nodes), VectorsOf(data), smooth, sums.data(), way);
    for (std::size_t n = 0; n < size; ++n)
      ASSERT_EQ(std::bit_cast<std::uint32_t>(sums[n]), std::bit_cast<std::uint32_t>(plain[n]))
          << "way " << static_cast<int>(way) << ", smooth " << smooth << ", node " << n << " of "
          << size << ", " << data.Count() << " data";
    ASSERT_EQ(sums[size], -1) << "written beyond the nodes";
  }
}

// Counts of nodes and data on both sides of a block and a group, so that no tail is forgotten.
TEST(SumDensity, EqualsThePlainLoopBitForBit) {
  for (const float smooth : {0.0f, 1.0f, 20.0f, 50.0f, 88.0f, 100.0f, -30.0f, 1000.0f})
    for (const int nodeCount : {1, 2, 7, 8, 15, 16, 31, 33, 101})
      for (const int count : {0, 1, 3, 15, 16, 17, 64, 500})
        ExpectPlainSums(RandomData(nodeCount, 11), RandomData(count, 12), smooth);
}

// Among some millions of sums there are dozens too close to the middle of two 32-bit numbers for a
// fast exponential to tell; equal terms bring sums that lie in the middle by their nature.
TEST(SumDensity, EqualsThePlainLoopWhereRoundingIsCloseToCall) {
  for (const float smooth : {0.5f, 7.0f, 20.0f, 41.0f})
    ExpectPlainSums(RandomData(160, 21), RandomData(8000, 22), smooth);
  ContourData same;
  for (int i = 0; i < 20000; ++i) same.Add(35, 40);
  ExpectPlainSums(RandomData(16, 23), same, 0);
  ExpectPlainSums(Cluster(40, 35, 40), same, 60);
}

TEST(SumDensity, TakesAnyNumbersAsThePlainLoopDoes) {
  ContourData nodes = RandomData(20, 1), data = RandomData(40, 2);
  data.X[3] = 1e20f;  // beyond the range of the exponential
  ExpectPlainSums(nodes, data, 20);
  data.X[3] = 2;
  ExpectPlainSums(nodes, data, 20);
  data = RandomData(40, 2);
  nodes.Z[19] = -7;
  ExpectPlainSums(nodes, data, 20);
  data.Y[0] = std::numeric_limits<float>::quiet_NaN();
  std::vector<float> sums(20);
  SumDensity(VectorsOf(nodes), VectorsOf(data), 20, sums.data());
  for (const float sum : sums) EXPECT_TRUE(std::isnan(sum));
}

TEST_F(Density, IsThePlainSumInMultiplesOfItsMeanSoThatItsOwnMeanIsOne) {
  for (const int smooth : {1, 20, 80}) {
    const ContourData data = RandomData(137, 1);
    Run(data, smooth);
    std::vector<float> sums;
    double total = 0;
    ForComputed([&](int i, int j) {
      const std::size_t n = At(i, j);
      sums.push_back(PlainSum(Grid.X[n], Grid.Y[n], Grid.Z[n], data, static_cast<float>(smooth)));
      total += Of(i, j);
    });
    EXPECT_NEAR(total / 7845, 1, 1e-6) << smooth;
    const double mean = std::accumulate(sums.begin(), sums.end(), 0.0) / 7845;
    auto sum = sums.begin();
    ForComputed([&](int i, int j) { ASSERT_EQ(Of(i, j), static_cast<float>(*sum++ / mean)); });
  }
  EXPECT_EQ(Count.ContourNodeCount, 7845);
  EXPECT_EQ(Count.ContourDataCount, 137);
}

TEST_F(Density, OfOneDatumPeaksThereAndAtItsOppositeEnd) {
  ContourData data;
  data.Add(90, 0);  // the rim: right and left
  Run(data, 20);
  EXPECT_EQ(Of(300, 150), Count.ContourMax);
  const auto peak = std::max_element(Grid.Density.begin(), Grid.Density.end());
  EXPECT_EQ(Count.MaxNode, static_cast<std::size_t>(peak - Grid.Density.begin()));
  EXPECT_FLOAT_EQ(Of(0, 150), Count.ContourMax);
  // Right across the direction the weight is exp(0), the least.
  EXPECT_FLOAT_EQ(Of(150, 0), Count.ContourMin);
  EXPECT_NEAR(Count.ContourMax / Count.ContourMin, std::exp(20.0), std::exp(20.0) * 1e-5);
}

TEST_F(Density, LiesOnStraightLinesBetweenComputedNodes) {
  Run(RandomData(30, 5), 40);
  for (const int i : {60, 150, 219})
    for (const int j : {90, 150, 210})
      for (int step = 1; step <= 2; ++step) {
        const double share = step / 3.0, tolerance = 1e-6 * Count.ContourMax;
        EXPECT_NEAR(Of(i + step, j), Of(i, j) + (Of(i + 3, j) - Of(i, j)) * share, tolerance);
        EXPECT_NEAR(Of(i, j + step), Of(i, j) + (Of(i, j + 3) - Of(i, j)) * share, tolerance);
        // Within a square first along the rows, then along the columns.
        const double upper = Of(i, j) + (Of(i + 3, j) - Of(i, j)) * share;
        const double lower = Of(i, j + 3) + (Of(i + 3, j + 3) - Of(i, j + 3)) * share;
        EXPECT_NEAR(Of(i + step, j + step), upper + (lower - upper) * share, tolerance);
      }
}

TEST_F(Density, IsTheSameOnAnyNumberOfThreads) {
  const ContourData data = RandomData(2000, 6);
  const std::vector<float> density = Run(data, 20, 1);
  for (const int threads : {2, 3, 8, 0}) {
    std::fill(Grid.Density.begin(), Grid.Density.end(), 0.0f);
    ASSERT_EQ(Run(data, 20, threads), density) << threads;
  }
}

TEST_F(Density, ReportsTheCallersRowsAndTheEndAndIsLeftAloneWhenStoppedOrWithoutData) {
  for (const int threads : {1, 4}) {
    std::vector<double> shares;
    const auto report = [&shares](double share) {
      shares.push_back(share);
      return true;
    };
    ASSERT_TRUE(CountDensity(Grid, RandomData(200, 8), 30, Count, report, threads));
    // With others at work the caller may find no row left, but hears of the end.
    ASSERT_GE(shares.size(), threads == 1 ? 101u : 1u);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_EQ(shares.back(), 1);
  }
  const std::vector<float> finished = Grid.Density;
  const float maximum = Count.ContourMax;
  // Threads, and the answer that is no; several threads ask once at least.
  for (const auto& c : {std::pair{1, 1}, {1, 3}, {1, 101}, {4, 1}}) {
    int answers = 0;
    EXPECT_FALSE(CountDensity(
        Grid, RandomData(1000, 9), 60, Count, [&](double) { return ++answers < c.second; },
        c.first));
    EXPECT_EQ(answers, c.second) << c.first;
  }
  EXPECT_FALSE(CountDensity(Grid, {}, 20, Count));
  EXPECT_EQ(Grid.Density, finished);
  EXPECT_EQ(Count.ContourMax, maximum);
  EXPECT_EQ(Count.ContourDataCount, 200);
}

TEST_F(Density, BeyondThe32BitRangeIsRefusedAndChangesNothing) {
  const std::tuple<const char*, ContourData, std::int16_t, bool> cases[] = {
      {"exp(88) is 1.7e38", RandomData(1, 1), 88, true},
      {"exp(89) is 4.5e38", RandomData(1, 1), 89, false},
      {"one direction, a thousand times", Cluster(1000, 10, 50), 83, false},
      {"a thousand that are scattered", RandomData(1000, 1), 83, true},
      {"the greatest of all", RandomData(1, 1), 32767, false},
      {"no data", {}, 100, true},
  };
  const std::vector<float> density = Run(RandomData(5, 1), 20);
  for (const auto& [what, data, smooth, fits] : cases) {
    EXPECT_EQ(DensityFits(Grid, data, smooth), fits) << what;
    if (fits) continue;
    EXPECT_THROW(Run(data, smooth), Fault) << what;
    EXPECT_EQ(Grid.Density, density) << what;
  }
}

TEST(ContourData, HoldsAsManyAsTheStoreDoes) {
  ContourData data;
  for (int i = 0; i < 32767; ++i) data.Add(0, 90);
  EXPECT_EQ(data.Count(), 32767);
  EXPECT_THROW(data.Add(0, 90), Fault);
}

TEST(ContourLevels, StepByOneBelowTenAndAsFinelyAsFourteenAllowAbove) {
  const std::tuple<float, std::int16_t, std::int16_t> cases[] = {
      {0.5f, 1, 1},   {1, 1, 1},      {1.9f, 1, 1},   {2, 1, 2},    {9.9f, 1, 9},     {10, 1, 10},
      {11.5f, 1, 11}, {15.5f, 1, 15}, {25.3f, 2, 25}, {100, 7, 99}, {175.9f, 12, 169}};
  for (const auto& [maximum, step, top] : cases) {
    const ContourLevels levels = LevelsOf(maximum);
    std::vector<std::int16_t> values;
    for (int value = 1; value <= top; value += step)
      values.push_back(static_cast<std::int16_t>(value));
    EXPECT_EQ(levels.Step, step) << maximum;
    EXPECT_EQ(levels.Values, values) << maximum;
  }
  EXPECT_THROW(LevelsOf(32768), Fault);
  EXPECT_THROW(LevelsOf(std::nanf("")), Fault);
}

}  // namespace
}  // namespace velorix
