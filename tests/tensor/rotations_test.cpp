#include "tensor/rotations.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velorix {
namespace {

using Matrix33 = Matrix<3, 3>;

Direction Turned(const Matrix33& M, const Direction& d) {
  Vector<3> v = DirectionToVector(1, d);
  Mvmpy(M, v, v);
  return DirectionOfVector(v);
}

void ExpectDirection(const Direction& d, double dec, double inc) {
  EXPECT_NEAR(std::remainder(d.Dec - dec, 360), 0, 1e-4);
  EXPECT_NEAR(d.Inc, inc, 1e-4);
}

void ExpectProperRotation(const Matrix33& M) {
  Matrix33 Mt, identity;
  Transpose(M, Mt);
  Mxmpy(M, Mt, identity);
  for (int i = 1; i <= 3; ++i)
    for (int j = 1; j <= 3; ++j) EXPECT_NEAR(identity(i, j), i == j, 1e-13);
  EXPECT_NEAR(Determinant(M), 1, 1e-13);
}

TEST(Rotations, EveryMatrixIsAProperRotation) {
  for (int i = 0; i < 200; ++i) {
    const double x = 37.0 * i, y = 13.0 * i;
    const auto clock = static_cast<std::int16_t>(3 + i % 4 * 3);
    ExpectProperRotation(OrientationMatrix(x, y, clock, i % 2 ? 90 : 0, 9));
    ExpectProperRotation(FoliationMatrix({x, y}, {y, x}));
    ExpectProperRotation(AxisRotation(DirectionToVector(1, {x, y}), x + y));
  }
}

TEST(AxisRotation, APositiveAngleAboutTheVerticalAddsToTheDeclination) {
  ExpectDirection(Turned(VerticalRotation(30), {100, 20}), 130, 20);
  ExpectDirection(Turned(VerticalRotation(-120), {100, 20}), 340, 20);
}

TEST(AxisRotation, ItIsRightHanded) {
  ExpectDirection(Turned(AxisRotation({1, 0, 0}, 60), {90, 0}), 90, 60);  // east down about north
  ExpectDirection(Turned(AxisRotation({0, 1, 0}, 60), {0, 0}), 0, -60);   // north up about east
}

TEST(OrientationMatrix, DefaultParametersPutXAtTheAzimuth) {
  const auto axes = MatrixDirections(OrientationMatrix(70, 20, 6, 0, 6));
  ExpectDirection(axes[1], 70, 20);
  ExpectDirection(axes[2], 160, 0);
  ExpectDirection(axes[3], 250, 70);
}

TEST(OrientationMatrix, ParametersSayWhatWasMeasured) {
  struct {
    std::int16_t P1, P2, P3;
    double Dec, Inc;  // of the specimen's X
  } const cases[] = {
      {6, 0, 6, 70, 20},     // dip of the frontal side
      {6, 90, 6, 70, 70},    // plunge of the cylinder axis: 90 - 20
      {6, 45, 6, 70, 0},     // any other P2: no inclination
      {6, 0, 9, 340, 20},    // azimuth read from another clock value
      {12, 0, 12, 70, -20},  // arrow at 12 instead of 6: X turned by half a turn in its plane
      {9, 0, 9, 70, 0},      // arrow at 9: X turned by a quarter
  };
  for (const auto& c : cases) {
    const auto axes = MatrixDirections(OrientationMatrix(70, 20, c.P1, c.P2, c.P3));
    ExpectDirection(axes[1], c.Dec, c.Inc);
  }
}

TEST(OrientationMatrix, ClockProductsBeyond16BitsOverflow) {
  EXPECT_THROW(OrientationMatrix(0, 0, 1099, 0, 1099), Fault);
  EXPECT_NO_THROW(OrientationMatrix(0, 0, 1098, 0, 1098));
  EXPECT_THROW(OrientationMatrix(0, 0, 32767, 0, -32768), Fault);
  EXPECT_THROW(OrientationMatrix(0, 0, 6, 0, -32768), Fault);
}

TEST(FoliationMatrix, ThePlaneComesToTheHorizontal) {
  for (double dec = 0; dec < 360; dec += 30)
    for (double dip = 10; dip <= 80; dip += 10) {
      const Direction pole = PoleOfPlane({dec, dip});
      EXPECT_NEAR(Turned(FoliationMatrix({dec, dip}, {dec, dip}), pole).Inc, 90, 1e-4);
      EXPECT_NEAR(Turned(FoliationMatrix({dec, dip}, {dec - 90, 0}), pole).Inc, 90, 1e-4);
    }
}

TEST(FoliationMatrix, ThePlungingLineKeepsItsTrend) {
  const Direction line{75, 20};
  ExpectDirection(Turned(FoliationMatrix({40, 30}, line), line), 75,
                  Turned(FoliationMatrix({40, 30}, line), line).Inc);
  const double apart =
      std::remainder(Turned(FoliationMatrix({40, 30}, {75, 0}), {75, 0}).Dec - 75, 360);
  EXPECT_GT(std::fabs(apart), 1);  // a horizontal one doesn't: wanted
}

TEST(FoliationMatrix, AHorizontalPlaneTurnsNothing) {
  const Matrix33 M = FoliationMatrix({40, 0}, {75, 20});
  for (int i = 1; i <= 3; ++i)
    for (int j = 1; j <= 3; ++j) EXPECT_NEAR(M(i, j), i == j, 1e-7);
}

TEST(FoliationMatrix, Form90TakesAStrike) {
  EXPECT_EQ(FoliationMatrix({300, 30}, {75, 20}, 90), FoliationMatrix({30, 30}, {75, 20}));
}

}  // namespace
}  // namespace velorix
