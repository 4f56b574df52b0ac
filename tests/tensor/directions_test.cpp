#include <gtest/gtest.h>

#include <cmath>

#include "tensor/directions.h"
#include "tensor/projection.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

constexpr double Close = 1e-4;  // degrees; the 32-bit constants reach no further

void ExpectDirection(const Direction& d, double dec, double inc, double tolerance = Close) {
  EXPECT_NEAR(std::remainder(d.Dec - dec, 360), 0, tolerance);
  EXPECT_NEAR(d.Inc, inc, tolerance);
}

TEST(Directions, AxesHaveTheirDirections) {
  const std::tuple<Vector<3>, double, double> cases[] = {
      {{1, 0, 0}, 0, 0},  {{0, 1, 0}, 90, 0},   {{-1, 0, 0}, 180, 0}, {{0, -1, 0}, 270, 0},
      {{0, 0, 1}, 0, 90}, {{0, 0, -1}, 0, -90}, {{1, 1, 0}, 45, 0},   {{2, -2, 0}, 315, 0}};
  for (const auto& [v, dec, inc] : cases) {
    ExpectDirection(DirectionOfVector(v), dec, inc);
    const DirectionAndLength d = VectorToDirection(v);
    ExpectDirection({d.Dec, d.Inc}, dec, inc);
    EXPECT_DOUBLE_EQ(d.Length, std::sqrt(Vvmpy(v, v)));
  }
  EXPECT_EQ(DirectionOfVector({0, 0, 0}), (Direction{0, 0}));
  EXPECT_EQ(VectorToDirection({0, 0, 0}).Length, 0);
  // The constants take north a hair below 0, and it isn't wrapped.
  EXPECT_LT(VectorToDirection({1, 0, 0}).Dec, 0);
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

TEST(Projection, PlacesOnTheNet) {
  const std::tuple<Projection, Direction, double, double> cases[] = {
      // clang-format off
      {Projection::EqualArea, {90, 0}, 1, 0},              {Projection::EqualArea, {0, 90}, 0, 0},
      {Projection::EqualArea, {0, 45}, 0, 0.5411961},      {Projection::EqualAngle, {0, 45}, 0, 0.4142136},
      {Projection::EqualAngle, {180, 0}, 0, -1},           {Projection::Plain, {180, -45}, 2, -0.5},
      {Projection::EqualArea, {90, -45}, 0.5411961, 0},    // an upward direction isn't turned over
      {static_cast<Projection>(3), {90, 0}, 0, 0},
      // clang-format on
  };
  for (const auto& [kind, d, x, y] : cases) {
    const Point p = ProjectDirection(kind, d);
    EXPECT_NEAR(p.x, x, 1e-6);
    EXPECT_NEAR(p.y, y, 1e-6);
  }
}

TEST(Projection, TheReadOutFindsTheDirectionAgain) {
  for (double dec = 0.5; dec < 360; dec += 10)
    for (double inc = 5; inc < 90; inc += 10) {
      const Direction d = InverseEqualArea(ProjectDirection(Projection::EqualArea, {dec, inc}));
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

using Matrix33 = Matrix<3, 3>;

Direction Turned(const Matrix33& M, const Direction& d) {
  Vector<3> v = DirectionToVector(1, d);
  Mvmpy(M, v, v);
  return DirectionOfVector(v);
}

TEST(AxisRotation, IsRightHandedSoThatAPositiveAngleAboutTheVerticalAddsToTheDeclination) {
  ExpectDirection(Turned(VerticalRotation(30), {100, 20}), 130, 20);
  ExpectDirection(Turned(VerticalRotation(-120), {100, 20}), 340, 20);
  ExpectDirection(Turned(AxisRotation({1, 0, 0}, 60), {90, 0}), 90, 60);  // east down about north
  ExpectDirection(Turned(AxisRotation({0, 1, 0}, 60), {0, 0}), 0, -60);   // north up about east
}

TEST(OrientationMatrix, ParametersSayWhatWasMeasured) {
  // Where the specimen's X points.
  const std::tuple<std::int16_t, std::int16_t, std::int16_t, double, double> cases[] = {
      {6, 0, 6, 70, 20},     // azimuth of X and dip of the frontal side
      {6, 90, 6, 70, 70},    // plunge of the cylinder axis: 90 - 20
      {6, 45, 6, 70, 0},     // any other P2: no inclination
      {6, 0, 9, 340, 20},    // azimuth read from another clock value
      {12, 0, 12, 70, -20},  // arrow at 12 instead of 6: X turned by half a turn in its plane
      {9, 0, 9, 70, 0},      // arrow at 9: X turned by a quarter
  };
  for (const auto& [p1, p2, p3, dec, inc] : cases)
    ExpectDirection(MatrixDirections(OrientationMatrix(70, 20, p1, p2, p3))[1], dec, inc);
  ExpectDirection(MatrixDirections(OrientationMatrix(70, 20, 6, 0, 6))[2], 160, 0);
}

TEST(OrientationMatrix, ClockProductsBeyond16BitsOverflow) {
  EXPECT_THROW(OrientationMatrix(0, 0, 1099, 0, 1099), Fault);
  EXPECT_NO_THROW(OrientationMatrix(0, 0, 1098, 0, 1098));
  EXPECT_THROW(OrientationMatrix(0, 0, 32767, 0, -32768), Fault);
  EXPECT_THROW(OrientationMatrix(0, 0, 6, 0, -32768), Fault);
}

TEST(FoliationMatrix, ThePlungingLineKeepsItsTrendAndAHorizontalOneDoesNot) {
  const auto trend = [](const Direction& line) {
    return Turned(FoliationMatrix({40, 30}, line), line).Dec;
  };
  EXPECT_NEAR(trend({75, 20}), 75, 1e-4);
  EXPECT_GT(std::fabs(trend({75, 0}) - 75), 1);  // expected
}

TEST(FoliationMatrix, AHorizontalPlaneTurnsNothingAndForm90TakesAStrike) {
  const Matrix33 M = FoliationMatrix({40, 0}, {75, 20});
  for (int n = 0; n < 9; ++n) EXPECT_NEAR(M.v[n], n % 4 == 0, 1e-7);
  EXPECT_EQ(FoliationMatrix({300, 30}, {75, 20}, 90), FoliationMatrix({30, 30}, {75, 20}));
}

}  // namespace
}  // namespace velorix
