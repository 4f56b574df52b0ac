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

TEST(Rotations, EveryMatrixIsAProperRotation) {
  for (int i = 0; i < 200; ++i) {
    const double x = 37.0 * i, y = 13.0 * i;
    const auto clock = static_cast<std::int16_t>(3 + i % 4 * 3);
    for (const Matrix33& M :
         {OrientationMatrix(x, y, clock, i % 2 ? 90 : 0, 9), FoliationMatrix({x, y}, {y, x}),
          AxisRotation(DirectionToVector(1, {x, y}), x + y)}) {
      Matrix33 Mt, product;
      Transpose(M, Mt);
      Mxmpy(M, Mt, product);
      for (int n = 0; n < 9; ++n) EXPECT_NEAR(product.v[n], n % 4 == 0, 1e-13);
      EXPECT_NEAR(Determinant(M), 1, 1e-13);
    }
  }
}

TEST(AxisRotation, IsRightHandedSoThatAPositiveAngleAboutTheVerticalAddsToTheDeclination) {
  ExpectDirection(Turned(VerticalRotation(30), {100, 20}), 130, 20);
  ExpectDirection(Turned(VerticalRotation(-120), {100, 20}), 340, 20);
  ExpectDirection(Turned(AxisRotation({1, 0, 0}, 60), {90, 0}), 90, 60);  // east down about north
  ExpectDirection(Turned(AxisRotation({0, 1, 0}, 60), {0, 0}), 0, -60);   // north up about east
}

TEST(OrientationMatrix, ParametersSayWhatWasMeasured) {
  struct {
    std::int16_t P1, P2, P3;
    double Dec, Inc;  // of the specimen's X
  } const cases[] = {
      {6, 0, 6, 70, 20},     // azimuth of X and dip of the frontal side
      {6, 90, 6, 70, 70},    // plunge of the cylinder axis: 90 - 20
      {6, 45, 6, 70, 0},     // any other P2: no inclination
      {6, 0, 9, 340, 20},    // azimuth read from another clock value
      {12, 0, 12, 70, -20},  // arrow at 12 instead of 6: X turned by half a turn in its plane
      {9, 0, 9, 70, 0},      // arrow at 9: X turned by a quarter
  };
  for (const auto& c : cases)
    ExpectDirection(MatrixDirections(OrientationMatrix(70, 20, c.P1, c.P2, c.P3))[1], c.Dec, c.Inc);
  ExpectDirection(MatrixDirections(OrientationMatrix(70, 20, 6, 0, 6))[2], 160, 0);
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

TEST(FoliationMatrix, ThePlungingLineKeepsItsTrendAndAHorizontalOneDoesNot) {
  const auto trend = [](const Direction& line) {
    return Turned(FoliationMatrix({40, 30}, line), line).Dec;
  };
  EXPECT_NEAR(trend({75, 20}), 75, 1e-4);
  EXPECT_GT(std::fabs(trend({75, 0}) - 75), 1);  // wanted
}

TEST(FoliationMatrix, AHorizontalPlaneTurnsNothingAndForm90TakesAStrike) {
  const Matrix33 M = FoliationMatrix({40, 0}, {75, 20});
  for (int n = 0; n < 9; ++n) EXPECT_NEAR(M.v[n], n % 4 == 0, 1e-7);
  EXPECT_EQ(FoliationMatrix({300, 30}, {75, 20}, 90), FoliationMatrix({30, 30}, {75, 20}));
}

}  // namespace
}  // namespace velorix
