#include "tensor/kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/number.h"

namespace velorix {
namespace {

const double Infinity = std::numeric_limits<double>::infinity();

DynamicMatrix RandomMatrix(int rows, int columns, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> part(-2, 2);
  DynamicMatrix M(rows, columns);
  for (int i = 1; i <= rows; ++i)
    for (int j = 1; j <= columns; ++j) M(i, j) = part(random);
  return M;
}

/// The number and source of the fault that `work` ends in; {0, ""} for none.
template <class Work>
std::pair<int, std::string> FaultOf(Work work) {
  try {
    work();
  } catch (const Fault& fault) {
    return {fault.Number, fault.Source.empty() ? fault.what() : fault.Source + ": " + fault.what()};
  }
  return {};
}

using Report = std::pair<int, std::string>;

TEST(ArcSin, OfMinusOneIsThreeQuarterTurnsAndBeyondOneFinite) {
  EXPECT_EQ(ArcSin(1), Pi32 / 2);
  EXPECT_EQ(ArcSin(-1), 3 * Pi32 / 2);
  for (const double x : {0.5, 1.5, -1.5})
    EXPECT_NEAR(ArcSin(x), std::atan(x / std::sqrt(std::fabs(1 - x * x))), 1e-15);
}

TEST(ArcCos, ArcCosFailsOneRoundingBeyondOne) {
  const Report invalid{5, "Invalid procedure call or argument"};
  EXPECT_EQ(FaultOf([] { ArcCos(1.0000000001); }), invalid);
  EXPECT_EQ(FaultOf([] { ArcCos(-1.0000000001); }), invalid);
  EXPECT_EQ(FaultOf([] { ArcCos(Infinity); }), invalid);
  EXPECT_EQ(ArcCos(1), 0);
  EXPECT_TRUE(std::isnan(ArcCos(std::nan(""))));
}

TEST(ArcCos, TheHalfTurnIs32BitsOnlyAtMinusOne) {
  EXPECT_EQ(ArcCos(-1), Pi32);
  EXPECT_NEAR(ArcCos(0), std::acos(0.0), 1e-16);  // the quarter turn is exact
  EXPECT_NEAR(ArcCos(-0.999), std::acos(-0.999), 1e-14);
}

TEST(Atan2, EveryQuadrantTakesItsHalfTurnFromThe32BitPi) {
  struct {
    double y, x, angle;
  } const cases[] = {{0, 0, 0},
                     {1, 0, Pi32 / 2},
                     {-1, 0, -Pi32 / 2},
                     {0, -1, Pi32},
                     {1, 1, std::atan(1.0)},
                     {-1, 1, -std::atan(1.0)},
                     {1, -1, Pi32 - std::atan(1.0)},
                     {-1, -1, std::atan(1.0) - Pi32},
                     {-0.1, -1, std::atan(0.1) - Pi32}};
  for (const auto& c : cases) EXPECT_EQ(Atan2(c.y, c.x), c.angle) << c.y << ", " << c.x;
}

TEST(Kernel, MvmpyMayWriteOverItsArgument) {
  const Matrix<3, 3> A{1, 2, 3, 4, 5, 6, 7, 8, 9};
  Vector<3> x{1, 0, -1};
  Mvmpy(A, x, x);
  EXPECT_EQ(x, (Vector<3>{-2, -2, -2}));
}

TEST(Mxabat, MxabatRoundsBothProductsTo32Bits) {
  // By hand: w = 0.1 in 32 bits times 1; then 3 w rounded again.
  const Matrix<1, 1> A{1.0 / 3}, B{0.1};
  Matrix<1, 1> C;
  Mxabat(A, B, C);
  EXPECT_EQ(C(1, 1), static_cast<float>(static_cast<float>(0.1 / 3) * (1.0 / 3)));
}

TEST(Mxabat, MxabatMayWriteOverTheTensor) {
  const DynamicMatrix A = RandomMatrix(3, 3, 1);
  DynamicMatrix B = RandomMatrix(3, 3, 2), C(3, 3);
  Mxabat(A, B, C);
  Mxabat(A, B, B);
  EXPECT_EQ(B, C);
}

TEST(Mxabat, MxabatTurnsBetweenSizes) {
  const DynamicMatrix A = RandomMatrix(2, 3, 3), B = RandomMatrix(3, 3, 4);
  DynamicMatrix C(2, 2), AB(2, 3), At(3, 2), expected(2, 2);
  Mxabat(A, B, C);
  // It takes B by rows, so it turns B transposed; for a tensor that is the same.
  DynamicMatrix Bt(3, 3);
  Transpose(B, Bt);
  Transpose(A, At);
  Mxmpy(A, Bt, AB);
  Mxmpy(AB, At, expected);
  for (int i = 1; i <= 2; ++i)
    for (int j = 1; j <= 2; ++j) EXPECT_NEAR(C(j, i), expected(i, j), 1e-5);
}

TEST(MxSignCopy, OnlyColumnsWithANegativeLastElementChangeSign) {
  const Matrix<2, 3> A{1, 2, 3, -1, 0, 1};
  Matrix<2, 3> B;
  MxSignCopy(A, B, true);
  EXPECT_EQ(B, (Matrix<2, 3>{-1, 2, 3, 1, 0, 1}));
  MxSignCopy(A, B, false);
  EXPECT_EQ(B, A);
}

TEST(TensorForm, SlotSixIsElementThreeOne) {
  const Array1<Number, 6> tensor = {Number(1.0), Number(2.0), Number(3.0),
                                    Number(4.0), Number(5.0), Number(6.0)};
  Matrix<3, 3> M;
  TensorForm(M, tensor, 0);
  EXPECT_EQ(M, (Matrix<3, 3>{1, 4, 6, 4, 2, 5, 6, 5, 3}));
  M = {1, 4, -1, -1, 2, 5, 6, -1, 3};  // the other triangle isn't looked at
  Vector<6> form;
  TensorForm(M, form, 1);
  EXPECT_EQ(form, (Vector<6>{1, 2, 3, 4, 5, 6}));
}

TEST(Determinant, CofactorsExpandTheDeterminantAlongEveryRow) {
  const DynamicMatrix M = RandomMatrix(4, 4, 9);
  for (int p = 1; p <= 4; ++p) {
    double sum = 0;
    for (int q = 1; q <= 4; ++q) sum += M(p, q) * Determinant(M, p, q);
    EXPECT_NEAR(sum, Determinant(M), 1e-12);
  }
  EXPECT_EQ(Determinant(M, 2, 0), Determinant(M));  // one index alone asks for no cofactor
}

TEST(Determinant, SizesBeyondTenFail) {
  const Report range{9, "Subscript out of range"};
  EXPECT_EQ(FaultOf([] { Determinant(DynamicMatrix(11, 11)); }), range);
  EXPECT_EQ(FaultOf([] { Determinant(Matrix<1, 1>{2}, 1, 1); }), range);
  EXPECT_EQ(FaultOf([] { Determinant(Matrix<2, 2>{}, -1, 1); }), range);
  EXPECT_EQ(Determinant(DynamicMatrix(10, 10)), 0);
}

TEST(MxInverse, TheInverseTimesTheMatrixIsTheIdentity) {
  for (int n = 2; n <= 7; ++n) {
    const DynamicMatrix M = RandomMatrix(n, n, static_cast<unsigned>(n));
    DynamicMatrix R(n, n), product(n, n);
    EXPECT_EQ(MxInverse(M, R), Determinant(M));
    Mxmpy(M, R, product);
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j <= n; ++j) EXPECT_NEAR(product(i, j), i == j, 1e-11) << n;
  }
}

TEST(MxInverse, ASingularMatrixComesBackAsItIs) {
  const Matrix<2, 2> M{1, 2, 2, 4};
  Matrix<2, 2> R;
  EXPECT_EQ(MxInverse(M, R), 0);
  EXPECT_EQ(R, M);
}

TEST(Kernel, MismatchedShapesRaise999WithTheRoutineAsSource) {
  DynamicMatrix a(2, 2), b(2, 3), c(3, 3);
  DynamicVector v(2), w(3);
  const auto dimension = [](const char* source) {
    return Report{999, std::string(source) + ": Dimension mismatch"};
  };
  EXPECT_EQ(FaultOf([&] { Transpose(b, a); }),
            (Report{999, "Sub Transpose: Matrix dimension mismatch"}));
  EXPECT_EQ(FaultOf([&] { Mxmpy(b, a, b); }), dimension("Sub Mxmpy"));
  EXPECT_EQ(FaultOf([&] { Mxmpy(b, c, a); }), dimension("Sub Mxmpy"));
  EXPECT_EQ(FaultOf([&] { Mvmpy(b, v, w); }), dimension("Sub Mvmpy"));
  EXPECT_EQ(FaultOf([&] { Mxabat(b, a, a); }), dimension("Sub Mxabat"));
  EXPECT_EQ(FaultOf([&] { Mxabat(b, c, c); }), dimension("Sub Mxabat"));
  EXPECT_EQ(FaultOf([&] { Vvmpy(v, w); }), dimension("Sub Vvmpy"));
}

TEST(MxSignCopy, DifferentShapesRaiseError13AndLeaveTheResult) {
  const DynamicMatrix A = RandomMatrix(2, 3, 5), before = RandomMatrix(3, 2, 6);
  DynamicMatrix B = before;
  EXPECT_EQ(FaultOf([&] { MxSignCopy(A, B, true); }), (Report{13, "Error 13"}));
  EXPECT_EQ(B, before);
}

}  // namespace
}  // namespace velorix
