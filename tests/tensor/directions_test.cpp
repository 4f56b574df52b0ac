#include "tensor/directions.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tensor/projection.h"

namespace velorix {
namespace {

constexpr double Close = 1e-4;  // degrees; the 32-bit constants reach no further

void ExpectDirection(const Direction& d, double dec, double inc, double tolerance = Close) {
  EXPECT_NEAR(d.Dec, dec, tolerance);
  EXPECT_NEAR(d.Inc, inc, tolerance);
}

TEST(Directions, AxesHaveTheirDirections) {
  struct {
    Vector<3> v;
    double Dec, Inc;
  } const cases[] = {{{1, 0, 0}, 0, 0},    {{0, 1, 0}, 90, 0},  {{-1, 0, 0}, 180, 0},
                     {{0, -1, 0}, 270, 0}, {{0, 0, 1}, 0, 90},  {{0, 0, -1}, 0, -90},
                     {{1, 1, 0}, 45, 0},   {{2, -2, 0}, 315, 0}};
  for (const auto& c : cases) {
    ExpectDirection(DirectionOfVector(c.v), c.Dec, c.Inc);
    const DirectionAndLength d = VectorToDirection(c.v);
    ExpectDirection({d.Dec, d.Inc}, c.Dec, c.Inc);
    EXPECT_DOUBLE_EQ(d.Length, std::sqrt(Vvmpy(c.v, c.v)));
  }
  EXPECT_EQ(DirectionOfVector({0, 0, 0}), (Direction{0, 0}));
  EXPECT_EQ(VectorToDirection({0, 0, 0}).Length, 0);
  // The constants take north a hair below 0, and it isn't wrapped.
  EXPECT_LT(VectorToDirection({1, 0, 0}).Dec, 0);
}

TEST(Directions, DirectionsSurviveTheWayToVectorsAndBack) {
  for (double dec = 5; dec < 360; dec += 10)
    for (double inc = -85; inc <= 85; inc += 10) {
      const DirectionAndLength d = VectorToDirection(DirectionToVector(7, {dec, inc}));
      ExpectDirection({d.Dec, d.Inc}, dec, inc);
      EXPECT_NEAR(d.Length, 7, 1e-12);
    }
}

TEST(Directions, PoleOfPlaneIsItsOwnInverseAndLowerHemisphereTurnsOnlyUpwardOnes) {
  EXPECT_EQ(PoleOfPlane({10, 30}), (Direction{190, 60}));
  EXPECT_EQ(PoleOfPlane({200, 30}), (Direction{20, 60}));
  EXPECT_EQ(PoleOfPlane({180, 90}), (Direction{0, 0}));
  EXPECT_EQ(PoleOfPlane({0, 0}), (Direction{180, 90}));
  EXPECT_EQ(LowerHemisphere({30, -20}), (Direction{210, 20}));
  EXPECT_EQ(LowerHemisphere({200, -20}), (Direction{20, 20}));
  EXPECT_EQ(LowerHemisphere({30, 0}), (Direction{30, 0}));
}

TEST(Directions, AnglesAreThoseOfTheSphereAndParallelDirectionsHaveTheZeroNormal) {
  EXPECT_NEAR(AngleBetween({0, 60}, {180, 60}), 60, Close);
  EXPECT_NEAR(AngleBetween({20, 10}, {200, -10}), 180, 0.01);
  EXPECT_NEAR(AngleAndNormal({0, 0}, {90, 0}).Angle, 90, Close);
  EXPECT_NEAR(AngleAndNormal({0, 0}, {90, 0}).Normal.Inc, 90, Close);
  const Direction a = {30, 20}, b = {100, 50}, normal = AngleAndNormal(a, b).Normal;
  for (const Direction& d : {a, b}) EXPECT_NEAR(AngleBetween(normal, d), 90, Close);
  const NormalAndAngle none = AngleAndNormal({0, 0}, {0, 0});
  EXPECT_EQ(none.Angle, 0);
  EXPECT_EQ(none.Normal, Direction());
}

TEST(Directions, AnAngleIsNotClampedAgainstRounding) {
  // Some direction's product with itself rounds beyond 1, and then the angle fails.
  int failures = 0;
  for (double dec = 0; dec < 360; dec += 0.5) {
    const Vector<3> v = DirectionToVector(1, {dec, 0});
    if (Vvmpy(v, v) <= 1) {
      EXPECT_NO_THROW(AngleBetween({dec, 0}, {dec, 0})) << dec;
    } else if (++failures) {
      EXPECT_THROW(AngleBetween({dec, 0}, {dec, 0}), Fault) << dec;
    }
  }
  EXPECT_GT(failures, 0);
}

TEST(Directions, NanGoesThroughWithoutAFailure) {
  const double nan = std::nan("");
  EXPECT_TRUE(std::isnan(VectorToDirection({nan, nan, nan}).Dec));
  EXPECT_TRUE(std::isnan(AngleBetween({nan, nan}, {0, 0})));
  EXPECT_TRUE(std::isnan(LowerHemisphere(PoleOfPlane({nan, nan})).Inc));
}

TEST(Projection, PlacesOnTheNet) {
  struct {
    Projection Kind;
    Direction d;
    double x, y;
  } const cases[] = {
      // clang-format off
      {EqualArea, {90, 0}, 1, 0},              {EqualArea, {0, 90}, 0, 0},
      {EqualArea, {0, 45}, 0, 0.5411961},      {EqualAngle, {0, 45}, 0, 0.4142136},
      {EqualAngle, {180, 0}, 0, -1},           {Plain, {180, -45}, 2, -0.5},
      {EqualArea, {90, -45}, 0.5411961, 0},    // an upward direction isn't turned over
      {static_cast<Projection>(3), {90, 0}, 0, 0},
      // clang-format on
  };
  for (const auto& c : cases) {
    const Point p = ProjectDirection(c.Kind, c.d);
    EXPECT_NEAR(p.x, c.x, 1e-6);
    EXPECT_NEAR(p.y, c.y, 1e-6);
  }
}

TEST(Projection, TheReadOutFindsTheDirectionAgain) {
  for (double dec = 0.5; dec < 360; dec += 10)
    for (double inc = 5; inc < 90; inc += 10) {
      const Direction d = InverseEqualArea(ProjectDirection(EqualArea, {dec, inc}));
      ExpectDirection(d, dec, inc, 0.05);  // near east and west the arc sine is blunt
    }
  EXPECT_EQ(InverseEqualArea({0, 0}), (Direction{0, 90}));
  EXPECT_LT(InverseEqualArea({0.8, 0.8}).Inc, 0);  // outside the circle
}

TEST(Projection, TheReadOutShows270AtRadiusRootTwoAndDividesByA32BitRadius) {
  EXPECT_NEAR(InverseEqualArea({std::sqrt(2.0), 0}).Inc, 270, Close);
  EXPECT_NEAR(InverseEqualArea({-0.5, 0}).Dec, 270, Close);
  // 0.3 in 32 bits is a little more than 0.3, and the arc sine makes a visible angle of it.
  EXPECT_NEAR(InverseEqualArea({0.3, 0}).Dec, 89.984, 1e-3);
  EXPECT_THROW(InverseEqualArea({1e-60, 0}), Fault);
}

TEST(Projection, TwoPointsFixTheMapUnlessTheyAreInLine) {
  const Point p = MapPoint({5, 5}, {0, 0}, {100, 200}, {10, 10}, {200, 100});
  EXPECT_EQ(p, (Point{150, 150}));
  EXPECT_EQ(NetToTarget({1, 1}, {200, 100}, 310), (Point{355, -55}));
  EXPECT_EQ(NetToTarget({0.3, -0.4}, {200, 100}, 0), (Point{200, 100}));
  EXPECT_THROW(MapPoint({0, 0}, {1, 0}, {0, 0}, {1, 5}, {9, 9}), Fault);
  EXPECT_THROW(MapPoint({0, 0}, {0, 3}, {0, 0}, {1, 3}, {9, 9}), Fault);
}

}  // namespace
}  // namespace velorix
