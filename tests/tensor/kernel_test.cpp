#include "tensor/kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

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

TEST(ArcCos, FailsOneRoundingBeyondOneAndItsHalfTurnIs32BitsOnlyAtMinusOne) {
  for (const double x : {1.0000000001, -1.0000000001, Infinity})
    EXPECT_EQ(FaultOf([x] { ArcCos(x); }), (Report{5, "Invalid procedure call or argument"}));
  EXPECT_EQ(ArcCos(1), 0);
  EXPECT_TRUE(std::isnan(ArcCos(std::nan(""))));
  EXPECT_EQ(ArcCos(-1), Pi32);
  EXPECT_NEAR(ArcCos(0), std::acos(0.0), 1e-16);  // the quarter turn is exact
  EXPECT_NEAR(ArcCos(-0.999), std::acos(-0.999), 1e-14);
}

TEST(Atan2, EveryQuadrantTakesItsHalfTurnFromThe32BitPi) {
  const double eighth = std::atan(1.0);
  struct {
    double y, x, angle;
  } const cases[] = {
      // clang-format off
      {0, 0, 0},             {1, 0, Pi32 / 2},      {-1, 0, -Pi32 / 2},
      {0, -1, Pi32},         {1, 1, eighth},        {-1, 1, -eighth},
      {1, -1, Pi32 - eighth}, {-1, -1, eighth - Pi32}, {-0.1, -1, std::atan(0.1) - Pi32},
      // clang-format on
  };
  for (const auto& c : cases) EXPECT_EQ(Atan2(c.y, c.x), c.angle) << c.y << ", " << c.x;
}

TEST(Kernel, MvmpyMayWriteOverItsArgument) {
  Vector<3> x{1, 0, -1};
  Mvmpy(Matrix<3, 3>{1, 2, 3, 4, 5, 6, 7, 8, 9}, x, x);
  EXPECT_EQ(x, (Vector<3>{-2, -2, -2}));
}

TEST(Mxabat, RoundsTheSumsOfBothProductsTo32BitsAndNothingElse) {
  // By way of 0.01 in 32 bits, 0.1 x 0.1 x 0.1 falls one step short of 0.001 in 32 bits.
  const Matrix<1, 1> tenth{0.1};
  Matrix<1, 1> thousandth;
  Mxabat(tenth, tenth, thousandth);
  EXPECT_EQ(thousandth(1, 1), std::nextafter(0.001f, 0.0f));
  // From Python's 64-bit numbers, rounded by struct. Exact are 0.42, 0.04 and -0.02.
  const Matrix<2, 2> turn{0.6, 0.8, -0.8, 0.6}, B{0.1, 0.2, 0.2, 0.3};
  Matrix<2, 2> C;
  Mxabat(turn, B, C);
  EXPECT_EQ(C, (Matrix<2, 2>{0x1.ae147cp-2, 0x1.47ae14p-5, 0x1.47ae1ap-5, -0x1.47ae14p-6}));
}

TEST(Mxabat, TurnsBetweenSizesAndMayWriteOverTheTensor) {
  const DynamicMatrix A = RandomMatrix(2, 3, 3), B = RandomMatrix(3, 3, 4);
  DynamicMatrix C(2, 2), AB(2, 3), At(3, 2), expected(2, 2), Bt(3, 3);
  Mxabat(A, B, C);
  // It takes B by rows, so it turns B transposed; for a tensor that is the same.
  Transpose(B, Bt);
  Transpose(A, At);
  Mxmpy(A, Bt, AB);
  Mxmpy(AB, At, expected);
  for (int i = 1; i <= 2; ++i)
    for (int j = 1; j <= 2; ++j) EXPECT_NEAR(C(j, i), expected(i, j), 1e-5);
  DynamicMatrix D(3, 3);
  Mxabat(B, B, D);
  Mxabat(B, Bt = B, Bt);
  EXPECT_EQ(Bt, D);
}

template <TensorFormTarget Target, class M, class V>
constexpr bool Fills = requires(M& matrix, V& form) {
  TensorForm<Target>(matrix, form);
};
using Matrix33 = Matrix<3, 3>;
static_assert(Fills<ToForm, const Matrix33, Vector<6>> &&
              Fills<ToMatrix, Matrix33, const Vector<6>>);
static_assert(!Fills<ToForm, Matrix33, const Vector<6>> &&
              !Fills<ToMatrix, const Matrix33, Vector<6>>);

TEST(TensorForm, SlotSixIsElementThreeOne) {
  Vector<6> form = {1, 2, 3, 4, 5, 6};
  Matrix<3, 3> M;
  TensorForm<ToMatrix>(M, form);
  EXPECT_EQ(M, (Matrix<3, 3>{1, 4, 6, 4, 2, 5, 6, 5, 3}));
  M = {1, 4, -1, -1, 2, 5, 6, -1, 3};  // the other triangle isn't looked at
  form = {};
  TensorForm<ToForm>(M, form);
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

TEST(MxInverse, TimesTheMatrixIsTheIdentityAndASingularMatrixComesBackAsItIs) {
  for (int n = 2; n <= 7; ++n) {
    const DynamicMatrix M = RandomMatrix(n, n, static_cast<unsigned>(n));
    DynamicMatrix R(n, n), product(n, n);
    EXPECT_EQ(MxInverse(M, R), Determinant(M));
    Mxmpy(M, R, product);
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j <= n; ++j) EXPECT_NEAR(product(i, j), i == j, 1e-11) << n;
  }
  const Matrix<2, 2> singular{1, 2, 2, 4};
  Matrix<2, 2> R;
  EXPECT_EQ(MxInverse(singular, R), 0);
  EXPECT_EQ(R, singular);
}

TEST(Kernel, MismatchedShapesRaise999WithTheRoutineAsSource) {
  DynamicMatrix a(2, 2), b(2, 3), c(3, 3);
  DynamicVector v(2), w(3);
  const auto expect = [](const char* report, auto work) {
    EXPECT_EQ(FaultOf(work), (Report{999, report}));
  };
  expect("Sub Transpose: Matrix dimension mismatch", [&] { Transpose(b, a); });
  expect("Sub Mxmpy: Dimension mismatch", [&] { Mxmpy(b, a, b); });
  expect("Sub Mxmpy: Dimension mismatch", [&] { Mxmpy(b, c, a); });
  expect("Sub Mvmpy: Dimension mismatch", [&] { Mvmpy(b, v, w); });
  expect("Sub Mxabat: Dimension mismatch", [&] { Mxabat(b, a, a); });
  expect("Sub Mxabat: Dimension mismatch", [&] { Mxabat(b, c, c); });
  expect("Sub Vvmpy: Dimension mismatch", [&] { Vvmpy(v, w); });
}

TEST(MxSignCopy, OnlyColumnsWithANegativeLastElementChangeSignAndShapesMustFit) {
  const Matrix<2, 3> A{1, 2, 3, -1, 0, 1};
  Matrix<2, 3> B;
  MxSignCopy(A, B, true);
  EXPECT_EQ(B, (Matrix<2, 3>{-1, 2, 3, 1, 0, 1}));
  MxSignCopy(A, B, false);
  EXPECT_EQ(B, A);
  const DynamicMatrix before = RandomMatrix(3, 2, 6);
  DynamicMatrix result = before;
  EXPECT_EQ(FaultOf([&] { MxSignCopy(RandomMatrix(2, 3, 5), result, true); }),
            (Report{13, "Error 13"}));
  EXPECT_EQ(result, before);
}

}  // namespace
}  // namespace velorix
