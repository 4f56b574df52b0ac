#include "plot/drawing/clip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace velorix {
namespace {

TEST(Between, EndsBelongToItUnlessItIsOpen) {
  EXPECT_TRUE(Between(1, 1, 3) && Between(3, 1, 3) && Between(3, 3, 1) && Between(2, 3, 1, true));
  EXPECT_FALSE(Between(1, 1, 3, true) || Between(3, 3, 1, true) || Between(0.9, 1, 3));
  EXPECT_TRUE(InBox(1, 5, 3, 5, 1, 2));  // a corner, given in any order
  EXPECT_FALSE(InBox(0.99, 5, 3, 5, 1, 2) || InBox(std::nan(""), 3, 1, 2, 3, 5));
}

TEST(SegmentsIntersect, GivesTheSharedPointEndsIncluded) {
  EXPECT_EQ(SegmentsIntersect({0, 0}, {4, 4}, {0, 4}, {4, 0}), (Point{2, 2}));
  EXPECT_EQ(SegmentsIntersect({0, 0}, {2, 2}, {2, 0}, {2, 9}), (Point{2, 2}));
  EXPECT_FALSE(SegmentsIntersect({0, 0}, {1.9, 1.9}, {2, 0}, {2, 9}));
  EXPECT_FALSE(SegmentsIntersect({0, 0}, {4, 0}, {1, 0}, {3, 0}));  // one line: no single point
}

TEST(ClipPolylineToBox, KeepsWhatLiesInTheBox) {
  const double NaN = std::nan(""), Far = std::numeric_limits<double>::infinity();
  const struct {
    const char* what;
    std::vector<Point> line;
    std::vector<std::vector<Point>> wanted;
  } cases[] = {
      // clang-format off
      {"inside", {{1, 1}, {2, 2}, {3, 1}}, {{{1, 1}, {2, 2}, {3, 1}}}},
      {"through", {{-5, 5}, {15, 5}}, {{{0, 5}, {10, 5}}}},
      {"out, in again", {{5, 5}, {15, 5}, {15, 6}, {5, 6}}, {{{5, 5}, {10, 5}}, {{10, 6}, {5, 6}}}},
      {"over a corner", {{-1, 9}, {1, 11}}, {}},  // touches it in one point
      {"along a side", {{-5, 10}, {5, 10}}, {{{0, 10}, {5, 10}}}},
      {"outside", {{-5, -5}, {-5, 20}, {20, 20}}, {}},
      {"from the edge outward", {{5, 5}, {10, 5}, {20, 5}}, {{{5, 5}, {10, 5}}}},
      {"one point", {{5, 5}}, {}},
      {"no number", {{1, 1}, {2, 2}, {NaN, 3}, {4, 4}, {5, 5}, {5, Far}},
       {{{1, 1}, {2, 2}}, {{4, 4}, {5, 5}}}},
      {"standing still", {{5, 5}, {5, 5}, {6, 6}}, {{{5, 5}, {6, 6}}}},
      // clang-format on
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ClipPolylineToBox(c.line, {0, 0}, {10, 10}), c.wanted) << c.what;
    EXPECT_EQ(ClipPolylineToBox(c.line, {10, 10}, {0, 0}), c.wanted) << c.what;
  }
}

TEST(ClipPolylineToBox, LosesNothingOfALongLine) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(-10, 20);
  constexpr int Steps = 2000;
  std::vector<Point> line;
  double clipped = 0, sampled = 0;
  for (int i = 0; i < 500; ++i) {
    line.push_back({place(random), place(random)});
    const Point a = line[i > 0 ? i - 1 : 0], b = line.back();
    for (double t = 0.5 / Steps; t < 1; t += 1.0 / Steps)
      if (InBox(std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t), 0, 0, 10, 10))
        sampled += PointDistance(a, b) / Steps;
  }
  for (const auto& run : ClipPolylineToBox(line, {0, 0}, {10, 10}))
    for (std::size_t i = 1; i < run.size(); ++i) {
      clipped += PointDistance(run[i - 1], run[i]);
      EXPECT_TRUE(InBox(run[i].x, run[i].y, -1e-9, -1e-9, 10 + 1e-9, 10 + 1e-9));
    }
  EXPECT_NEAR(clipped, sampled, 0.002 * sampled);
}

}  // namespace
}  // namespace velorix
