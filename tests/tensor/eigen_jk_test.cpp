#include "tensor/eigen_jk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace velorix {
namespace {

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

TEST(EigenJk, VectorsAndValuesRebuildTheMatrix) {
  for (const Matrix33& A : ManyTensors()) {
    Matrix33 D, W;
    EIGEN_JK(A, D, W);
    bool whole = true;  // no vector lost to a last component of 0
    for (int j = 1; j <= 3; ++j) {
      ASSERT_GE(W(3, j), 0);
      whole = whole && W(3, j) > 0;
    }
    ASSERT_GE(D(1, 1), D(2, 2));
    ASSERT_GE(D(2, 2), D(3, 3));
    if (!whole) continue;
    Matrix33 WD, Wt, rebuilt;
    Transpose(W, Wt);
    Mxmpy(W, D, WD);
    Mxmpy(WD, Wt, rebuilt);
    // What is left off the diagonal is at most 1e-10 of the scatter.
    const double tolerance =
        1e-12 * std::max(std::fabs(D(1, 1)), std::fabs(D(3, 3))) + 1e-10 * (D(1, 1) - D(3, 3));
    for (int i = 0; i < 9; ++i) ASSERT_NEAR(rebuilt.v[i], A.v[i], tolerance);
  }
}

TEST(EigenJk, VectorsOfDiagonalMatricesAreZeroButOne) {
  struct {
    Matrix33 A;
    Vector<3> Values;
    Matrix33 W;
  } const cases[] = {
      {{}, {0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 1}},
      {Symmetric(1.1, 1, 0.9, 0, 0, 0), {1.1, 1, 0.9}, {0, 0, 0, 0, 0, 0, 0, 0, 1}},
      {Symmetric(0.9, 1, 1.1, 0, 0, 0), {1.1, 1, 0.9}, {0, 0, 0, 0, 0, 0, 1, 0, 0}},
      {Symmetric(2, 2, 2, 0, 0, 0), {2, 2, 2}, {0, 0, 0, 0, 0, 0, 0, 0, 1}},
      {Symmetric(1, 3, 1, 0, 0, 0), {3, 1, 1}, {0, 0, 0, 0, 0, 0, 0, 0, 1}},
  };
  for (const auto& c : cases) {
    Matrix33 D, W;
    EIGEN_JK(c.A, D, W);
    EXPECT_EQ(W, c.W);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(D(i, i), c.Values[i]);
  }
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

TEST(EigenJk, NoPatternOf32BitFloatsHangs) {
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    float f[6];
    for (float& x : f) x = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    Matrix33 D, W;
    EIGEN_JK(Symmetric(f[0], f[1], f[2], f[3], f[4], f[5]), D, W);
  }
  const double tiny[] = {5e-324, 1e-310, 1e-200, 1e-160, 1};
  for (const double a : tiny)
    for (const double b : tiny)
      for (const double c : tiny) {
        Matrix33 D, W;
        EIGEN_JK(Symmetric(a, b, a, c, a, b), D, W);
      }
}

TEST(EigenJk, SixBySixVectorsSatisfyTheirEquationAndShapesThatDoNotFitFail) {
  std::mt19937 random(5);
  std::normal_distribution<double> part;
  DynamicMatrix A(6, 6), D(6, 6), W(6, 6), AW(6, 6), WD(6, 6);
  for (int i = 1; i <= 6; ++i)
    for (int j = i; j <= 6; ++j) A(i, j) = A(j, i) = part(random);
  EIGEN_JK(A, D, W);
  Mxmpy(A, W, AW);
  Mxmpy(W, D, WD);
  for (int i = 1; i <= 6; ++i)
    for (int j = 1; j <= 6; ++j) EXPECT_NEAR(AW(i, j), WD(i, j), 1e-9);  // the stopping level

  DynamicMatrix m11(1, 1), m22(2, 2), m23(2, 3);
  EXPECT_THROW(EIGEN_JK(m11, m11, m11), Fault);
  EXPECT_THROW(EIGEN_JK(m23, m22, m22), Fault);
  EXPECT_THROW(EIGEN_JK(m22, m22, m23), Fault);
}

}  // namespace
}  // namespace velorix
