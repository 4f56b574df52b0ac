#pragma once

#include <cassert>
#include <cmath>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "base/rounding.h"
#include "base/slots.h"

namespace velorix {

/// Arc sine in radians. Exactly 1 gives pi / 2 and exactly -1 gives 3 pi / 2 (not -pi / 2), both
/// from the 32-bit pi; beyond 1 and -1 the result of a finite x is finite, never an error.
double ArcSin(double x);

/// Arc cosine in radians. Beyond 1 and -1, even by one rounding, it fails with "Invalid procedure
/// call or argument": a caller that wants less must clamp. -1 gives the 32-bit pi. NaN gives NaN.
double ArcCos(double x);

/// Angle of the point (x, y) in radians, from minus pi to pi, half turns from the 32-bit pi. The
/// first argument is the ordinate; (0, 0) gives 0.
inline double Atan2(double y, double x) {
  if (x == 0) return y > 0 ? Pi32 / 2 : y < 0 ? -Pi32 / 2 : 0;
  const double angle = std::atan(y / x);
  if (x > 0) return angle;
  return y >= 0 ? angle + Pi32 : angle - Pi32;
}

/// A vector of `N` numbers counted from 1.
template <int N>
using Vector = Array1<double, N>;

/// A vector sized at run time, counted from 1, all elements 0 at first.
class DynamicVector {
 public:
  explicit DynamicVector(int size) : v_(static_cast<std::size_t>(size)) {}

  int Count() const { return static_cast<int>(v_.size()); }
  double& operator[](int i) { return v_[Place(i)]; }
  const double& operator[](int i) const { return v_[Place(i)]; }
  auto begin() { return v_.begin(); }
  auto end() { return v_.end(); }
  auto begin() const { return v_.begin(); }
  auto end() const { return v_.end(); }
  bool operator==(const DynamicVector&) const = default;

 private:
  std::size_t Place(int i) const {
    assert(i >= 1 && i <= Count());
    return static_cast<std::size_t>(i - 1);
  }
  std::vector<double> v_;
};

/// An R by C matrix, an aggregate written row by row: `Matrix<2, 2>{1, 2, 3, 4}(1, 2)` is 2.
template <int R, int C>
struct Matrix {
  double v[R * C] = {};

  static constexpr int Rows() { return R; }
  static constexpr int Columns() { return C; }
  constexpr double& operator()(int i, int j) {
    assert(i >= 1 && i <= R && j >= 1 && j <= C);
    return v[(i - 1) * C + j - 1];
  }
  constexpr const double& operator()(int i, int j) const {
    assert(i >= 1 && i <= R && j >= 1 && j <= C);
    return v[(i - 1) * C + j - 1];
  }
  /// An empty vector as long as a row.
  static constexpr Vector<C> EmptyRow() { return {}; }
  /// A matrix of zeros of the same shape.
  static constexpr Matrix EmptyLike() { return {}; }
  bool operator==(const Matrix&) const = default;
};

/// A matrix sized at run time, indices from 1, all elements 0 at first.
class DynamicMatrix {
 public:
  DynamicMatrix(int rows, int columns)
      : rows_(rows), columns_(columns), v_(static_cast<std::size_t>(rows * columns)) {}

  int Rows() const { return rows_; }
  int Columns() const { return columns_; }
  double& operator()(int i, int j) { return v_[Place(i, j)]; }
  const double& operator()(int i, int j) const { return v_[Place(i, j)]; }
  DynamicVector EmptyRow() const { return DynamicVector(columns_); }
  DynamicMatrix EmptyLike() const { return DynamicMatrix(rows_, columns_); }
  bool operator==(const DynamicMatrix&) const = default;

 private:
  std::size_t Place(int i, int j) const {
    assert(i >= 1 && i <= rows_ && j >= 1 && j <= columns_);
    return static_cast<std::size_t>((i - 1) * columns_ + j - 1);
  }
  int rows_, columns_;
  std::vector<double> v_;
};

/// The number of elements of a vector.
template <class T, int N>
constexpr int Count(const Array1<T, N>&) {
  return N;
}
inline int Count(const DynamicVector& v) { return v.Count(); }

// The routines below take any matrix and any vector, sized at compile time or at run time. Those
// that combine several compare their shapes in every call, which costs nothing between compile-time
// sizes; a mismatch raises error 999 with the routine as source where nothing else is said. The
// caller owns and sizes every result.

/// B(j,i) = A(i,j). B isn't A.
template <class MA, class MB>
void Transpose(const MA& A, MB& B) {
  if (B.Rows() != A.Columns() || B.Columns() != A.Rows())
    FailKernel("Sub Transpose", "Matrix dimension mismatch");
  for (int i = 1; i <= A.Rows(); ++i)
    for (int j = 1; j <= A.Columns(); ++j) B(j, i) = A(i, j);
}

/// Copies A to B; with `Flip`, a column whose last element is negative changes its sign. B may be
/// A. Different shapes raise "Error 13" and leave B as it was.
template <class MA, class MB>
void MxSignCopy(const MA& A, MB& B, bool Flip) {
  if (A.Rows() != B.Rows() || A.Columns() != B.Columns()) throw Fault(13, "Error 13");
  for (int j = 1; j <= A.Columns(); ++j) {
    const double factor = Flip && A(A.Rows(), j) < 0 ? -1 : 1;
    for (int i = 1; i <= A.Rows(); ++i) B(i, j) = factor * A(i, j);
  }
}

/// C = A times B. C is neither A nor B.
template <class MA, class MB, class MC>
void Mxmpy(const MA& A, const MB& B, MC& C) {
  if (B.Rows() != A.Columns() || C.Rows() != A.Rows() || C.Columns() != B.Columns())
    FailKernel("Sub Mxmpy", "Dimension mismatch");
  for (int i = 1; i <= A.Rows(); ++i)
    for (int j = 1; j <= B.Columns(); ++j) {
      double sum = 0;
      for (int k = 1; k <= A.Columns(); ++k) sum += A(i, k) * B(k, j);
      C(i, j) = sum;
    }
}

/// y = A times x. y may be x.
template <class MA, class VX, class VY>
void Mvmpy(const MA& A, const VX& x, VY& y) {
  if (Count(y) != A.Rows() || Count(x) != A.Columns())
    FailKernel("Sub Mvmpy", "Dimension mismatch");
  VY product = y;
  for (int i = 1; i <= A.Rows(); ++i) {
    double sum = 0;
    for (int j = 1; j <= A.Columns(); ++j) sum += A(i, j) * x[j];
    product[i] = sum;
  }
  y = product;
}

/// C = A times B times A transposed, the turn of a tensor. C may be B.
///
/// Kept for agreement with published results: both products are rounded to 32 bits, element
/// by element. C is therefore symmetric to a rounding or two only.
template <class MA, class MB, class MC>
inline void Mxabat(const MA& A, const MB& B, MC& C) {
  const int n = C.Rows(), m = A.Columns();
  if (C.Columns() != n || A.Rows() != n || B.Rows() != m || B.Columns() != m)
    FailKernel("Sub Mxabat", "Dimension mismatch");
  MC result = C.EmptyLike();
  auto w = A.EmptyRow();
  for (int i = 1; i <= n; ++i) {
    for (int j = 1; j <= m; ++j) {
      double sum = 0;
      for (int k = 1; k <= m; ++k) sum += A(i, k) * B(j, k);
      w[j] = Round32(sum);
    }
    for (int l = 1; l <= n; ++l) {
      double sum = 0;
      for (int k = 1; k <= m; ++k) sum += w[k] * A(l, k);
      result(l, i) = Round32(sum);
    }
  }
  C = result;
}

/// The sum of a(i) times b(i).
template <class VA, class VB>
double Vvmpy(const VA& a, const VB& b) {
  if (Count(a) != Count(b)) FailKernel("Sub Vvmpy", "Dimension mismatch");
  double sum = 0;
  for (int i = 1; i <= Count(a); ++i) sum += a[i] * b[i];
  return sum;
}

/// What `TensorForm` fills.
enum TensorFormTarget { ToMatrix = 0, ToForm = 1 };

/// Between a symmetric 3 by 3 matrix and its tensor form k11, k22, k33, k12, k23, k13. `ToForm`
/// fills V from the diagonal and from (1,2), (2,3), (3,1) of M, without a look at the other
/// triangle; `ToMatrix` fills M from V. V may be a record's `Number` array. What is filled can't be
/// const, or the call doesn't compile.
template <TensorFormTarget Target, class M33, class V6>
requires(Target == ToForm ? !std::is_const_v<V6> : !std::is_const_v<M33>) void TensorForm(M33& M,
                                                                                          V6& V) {
  for (int i = 1; i <= 3; ++i) {
    const int j = i % 3 + 1;
    if constexpr (Target == ToForm) {
      V[i] = M(i, i);
      V[i + 3] = M(i, j);
    } else {
      M(i, i) = V[i];
      M(i, j) = M(j, i) = V[i + 3];
    }
  }
}

/// Sets every element to 0.
template <class V>
void VectorClear(V& vector) {
  for (auto& element : vector) element = 0.0;
}
template <class M>
void MatrixClear(M& matrix) {
  for (int i = 1; i <= matrix.Rows(); ++i)
    for (int j = 1; j <= matrix.Columns(); ++j) matrix(i, j) = 0;
}

/// The determinant of the square matrix M, or, with p and q both not 0, the cofactor of its element
/// (p,q). A sum over permutations, hence for small matrices only: a size above 10, an index before
/// the first row or column, and the cofactor of a 1 by 1 matrix fail with "Subscript out of range".
template <class M>
double Determinant(const M& matrix, int p = 0, int q = 0) {
  constexpr int Room = 10;
  const int n = matrix.Rows();
  const bool cofactor = p != 0 && q != 0;
  const int m = cofactor ? n - 1 : n;
  if (n > Room || matrix.Columns() < n || m < 1 || (cofactor && (p < 1 || q < 1))) FailSubscript();

  Array1<int, Room> row, col, count;
  for (int i = 1; i <= n; ++i) row[i] = col[i] = i, count[i] = 1;
  if (cofactor) {
    for (int i = p; i <= m; ++i) ++row[i];
    for (int i = q; i <= m; ++i) ++col[i];
  }
  double sum = 0, sign = 1;
  for (;;) {
    double product = 1;
    for (int i = 1; i <= m && product != 0; ++i) product *= matrix(row[i], col[i]);
    sum += product * sign;

    // The next permutation: one exchange of columns, or a cycle of three, which keeps the sign.
    int i = 2;
    for (; i <= m && count[i] >= i; ++i) {
      std::swap(col[i - 1], col[i]);
      sign = -sign;
      count[i] = 1;
    }
    if (i > m) break;
    const int k = count[i]++;
    if (k == 1) {
      std::swap(col[1], col[i]);
      sign = -sign;
    } else {
      const int aside = col[k - 1];
      col[k - 1] = col[i];
      col[i] = col[k];
      col[k] = aside;
    }
  }
  return cofactor && (p + q) % 2 != 0 ? -sum : sum;
}

/// R = inverse of M, by cofactors; the result is the determinant. When that is exactly 0, R is a
/// plain copy of M and no error is raised. R isn't M. "Subscript out of range" for an R smaller
/// than M, and where `Determinant` fails, so for any 1 by 1 matrix but 0.
template <class M, class MR>
double MxInverse(const M& matrix, MR& R) {
  const int n = matrix.Rows();
  const double det = Determinant(matrix);
  if (R.Rows() < n || R.Columns() < n) FailSubscript();
  for (int i = 1; i <= n; ++i)
    for (int j = 1; j <= n; ++j)
      R(i, j) = det != 0 ? Determinant(matrix, j, i) / det : matrix(i, j);
  return det;
}

}  // namespace velorix
