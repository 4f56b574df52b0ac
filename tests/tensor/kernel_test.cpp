#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "tensor/eigen_jk.h"
#include "tensor/kernel.h"

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
  const std::tuple<double, double, double> cases[] = {
      // clang-format off
      {0, 0, 0},             {1, 0, Pi32 / 2},      {-1, 0, -Pi32 / 2},
      {0, -1, Pi32},         {1, 1, eighth},        {-1, 1, -eighth},
      {1, -1, Pi32 - eighth}, {-1, -1, eighth - Pi32}, {-0.1, -1, std::atan(0.1) - Pi32},
      // clang-format on
  };
  for (const auto& [y, x, angle] : cases) EXPECT_EQ(Atan2(y, x), angle) << y << ", " << x;
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

using Matrix33 = Matrix<3, 3>;

Matrix33 Symmetric(double k11, double k22, double k33, double k12, double k23, double k13) {
  return {k11, k12, k13, k12, k22, k23, k13, k23, k33};
}

/// Tensors of all kinds: nearly isotropic, of widely different sizes, with equal values.
std::vector<Matrix33> ManyTensors() {
  std::vector<Matrix33> tensors = {
      // clang-format off
      Symmetric(1.1, 1, 0.9, 0, 0, 0),          Symmetric(0.9, 1, 1.1, 0, 0, 0),
      Symmetric(1, 1, 1, 0.1, 0.1, 0.1),        Symmetric(1, 1, 1, 1e-16, 0, 0),
      Symmetric(2, 2, 1, 0, 0, 0),              Symmetric(-1, -2, -3, 0.5, -0.2, 0.1),
      Symmetric(1e-6, 2e-6, 3e-6, 1e-7, 0, 0),  Symmetric(1e5, 2e5, 3e-5, 1, 2, 3),
      // clang-format on
  };
  std::mt19937 random(3);
  for (const double spread : {1e-12, 1e-3, 0.05, 1.0, 100.0})
    for (int i = 0; i < 200; ++i) {
      double x[6];  // made of the bits alone, the same on every machine
      for (double& part : x) part = spread * (static_cast<double>(random()) * 0x1p-31 - 1);
      tensors.push_back(Symmetric(1 + x[0], 1 + x[1], 1 + x[2], x[3], x[4], x[5]));
    }
  return tensors;
}

// The bits are those of the solution written down plainly, step by step with nothing saved. A
// change here changes the last digits of every user's directions from one version to the next.
TEST(EigenJk, EveryBitStaysAndRunTimeSizesGiveTheSame) {
  auto tensors = ManyTensors();
  // Tensors turned in 32 bits are a rounding short of symmetric.
  for (Matrix33 tensor : ManyTensors()) {
    for (int i = 1; i <= 3; ++i) tensor(i, i % 3 + 1) = Round32(tensor(i, i % 3 + 1));
    tensors.push_back(tensor);
  }
  std::uint64_t hash = 14695981039346656037u;  // FNV-1a over the bits
  for (const Matrix33& A : tensors) {
    Matrix33 D, W;
    EIGEN_JK(A, D, W);
    for (const Matrix33* M : {&D, &W})
      for (double x : M->v) hash = (hash ^ std::bit_cast<std::uint64_t>(x)) * 1099511628211u;
    const Vector<3> values = EigenvaluesJK(A);
    DynamicMatrix A3(3, 3), D3(3, 3), W3(3, 3);  // a size known at run time
    for (int i = 1; i <= 3; ++i)
      for (int j = 1; j <= 3; ++j) A3(i, j) = A(i, j);
    EIGEN_JK(A3, D3, W3);
    for (int i = 1; i <= 3; ++i) {
      ASSERT_EQ(values[i], D(i, i));
      for (int j = 1; j <= 3; ++j) ASSERT_TRUE(D3(i, j) == D(i, j) && W3(i, j) == W(i, j));
    }
  }
  EXPECT_EQ(hash, 3536050315639108941u);
}

TEST(EigenJk, ValuesThatAreNotFiniteReturnAtOnceAsNan) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {std::nan(""), infinity, -infinity, 1e200})
    for (int place = 0; place < 9; ++place) {
      Matrix33 A = Symmetric(1.1, 1, 0.9, 0.1, 0.1, 0.1), D, W;
      A.v[place] = value;
      if (value == 1e200) A.v[place % 3 * 3 + place / 3] = value;  // overflows squared
      EIGEN_JK(A, D, W);
      for (int i = 0; i < 9; ++i)
        EXPECT_TRUE(std::isnan(D.v[i]) && std::isnan(W.v[i])) << value << " at " << place;
      EXPECT_TRUE(std::isnan(EigenvaluesJK(A)[1]));
    }
}

TEST(EigenJk, ShapesThatDoNotFitFail) {
  DynamicMatrix m11(1, 1), m22(2, 2), m23(2, 3);
  EXPECT_THROW(EIGEN_JK(m11, m11, m11), Fault);
  EXPECT_THROW(EIGEN_JK(m23, m22, m22), Fault);
  EXPECT_THROW(EIGEN_JK(m22, m22, m23), Fault);
}

}  // namespace
}  // namespace velorix
