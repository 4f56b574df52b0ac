#include "tensor/eigen_jk.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace velorix {
namespace {

constexpr double Tolerance = 1e-10;
constexpr int RotationLimit = 32767;
constexpr double Nan = std::numeric_limits<double>::quiet_NaN();

// A size or an index that the compiler knows: 3 by 3 is solved without loops, run-time sizes with
// them, by one text.
template <int I>
using Fixed = std::integral_constant<int, I>;

/// In place of the pointer to the vectors where only the eigenvalues are asked for.
struct NoVectors {};
template <class Vectors>
constexpr bool HasVectors = !std::is_same_v<Vectors, NoVectors>;

/// What the thresholds start from and come down to.
struct Levels {
  double Thr, Eps;
  bool Finite;
};

template <class M, class N>
Levels Measure(const M& W, const N n) {
  double lower = 0, upper = 0, trace = 0, sumSq = 0;
  for (int i = 1; i <= n; ++i) {
    for (int j = 1; j < i; ++j) {
      lower += W(i, j) * W(i, j);
      upper += W(j, i);
    }
    trace += W(i, i);
    sumSq += W(i, i) * W(i, i);
  }
  const double offMean = 2 * lower / (n * n - n);
  const double diagVar = (sumSq - trace * trace / n) / n;
  const double both = diagVar + offMean;
  return {std::sqrt(offMean), both >= 0 ? Tolerance * std::sqrt(both / 2) : 0,
          std::isfinite(both) && std::isfinite(upper)};
}

/// One plane rotation of W, accumulated in V when there is one. The order of every operation is
/// part of the results.
template <class M, class Vectors, class P, class Q, class N>
void Rotate(M& W, Vectors V, const P p, const Q q, const N n) {
  const double a = W(p, p), b = W(p, q), c = W(q, q);
  const double y = (a - c) / 2;
  double x = -1;
  if (y != 0) {
    x = (y > 0 ? -b : b) / std::sqrt(y * y + b * b);
    if (x < -1) x = -1;  // no guard against x > 1, which rounding can't reach
  }
  const double s = x / std::sqrt(2 * (1 + std::sqrt(1 - x * x)));
  const double co = std::sqrt(1 - s * s);
  for (int k = 1; k <= n; ++k) {
    if (k != p && k != q) {
      // Read down the columns: a tensor turned by Mxabat isn't symmetric to the last bit.
      const double t = W(k, p), u = W(k, q);
      W(q, k) = W(k, q) = s * t + co * u;
      W(p, k) = W(k, p) = co * t - s * u;
    }
    if constexpr (HasVectors<Vectors>) {
      const double t = (*V)(k, p), u = (*V)(k, q);
      (*V)(k, q) = s * t + co * u;
      (*V)(k, p) = co * t - s * u;
    }
  }
  W(p, p) = a * co * co + c * s * s - 2 * b * s * co;
  W(q, q) = a * s * s + c * co * co + 2 * b * s * co;
  W(p, q) = W(q, p) = (a - c) * s * co + (co * co - s * s) * b;
}

/// Whether every element above the diagonal is within `level`.
template <class M, class N>
bool IsWithin(const M& W, double level, const N n) {
  for (int q = 2; q <= n; ++q)
    for (int p = 1; p < q; ++p)
      if (std::fabs(W(p, q)) > level) return false;
  return true;
}

/// Calls `visit` for each pair (p, q) above the diagonal, column by column.
template <class Visit>
void ForEachPair(const int n, Visit visit) {
  for (int q = 2; q <= n; ++q)
    for (int p = 1; p < q; ++p) visit(p, q);
}
template <class Visit>
void ForEachPair(Fixed<3>, Visit visit) {
  visit(Fixed<1>(), Fixed<2>());
  visit(Fixed<1>(), Fixed<3>());
  visit(Fixed<2>(), Fixed<3>());
}

/// Turns W to diagonal form and leaves the product of the rotations in V when there is one.
template <class M, class Vectors, class N>
void Diagonalise(M& W, Vectors V, double Thr, const double Eps, const N n) {
  int rotations = 0;
  for (;;) {
    const int before = rotations;
    ForEachPair(n, [&](auto p, auto q) {
      if (std::fabs(W(p, q)) > Thr) {
        if (++rotations > RotationLimit) FailOverflow();
        Rotate(W, V, p, q, n);
      }
    });
    if (rotations > before) continue;
    if (Thr <= Eps) return;
    // No threshold to come is under Eps / n. When nothing would pass that one, the sweeps down to
    // it would find nothing either: leaving now saves them and changes no bit.
    if (IsWithin(W, Eps / n, n)) return;
    Thr = Thr / n;
  }
}

/// `order` receives the columns of the eigenvalues in descending order, `value` the values; equal
/// ones keep the order of their columns.
template <class V, class N>
void SortDescending(V& value, V& order, const N n) {
  for (int k = 2; k <= n; ++k) {
    bool sorted = true;
    for (int i = 1; i <= n - k + 1; ++i)
      if (value[i] < value[i + 1]) {
        std::swap(value[i], value[i + 1]);
        std::swap(order[i], order[i + 1]);
        sorted = false;
      }
    if (sorted) break;
  }
}

/// The larger of two in front, without a branch, which no processor could predict.
void Descend(double& x, double& y) {
  const double larger = x < y ? y : x, smaller = x < y ? x : y;
  x = larger;
  y = smaller;
}

int Sgn(double x) { return (x > 0) - (x < 0); }

template <class M, class N>
void Solve(const M& A, M& D, M& W, const N n) {
  const Levels levels = Measure(A, n);
  if (!levels.Finite) {
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j <= n; ++j) D(i, j) = W(i, j) = Nan;
    return;
  }
  M work = A, turns = A;
  for (int i = 1; i <= n; ++i)
    for (int j = 1; j <= n; ++j) turns(i, j) = i == j;
  Diagonalise(work, &turns, levels.Thr, levels.Eps, n);

  auto value = work.EmptyRow(), order = work.EmptyRow();
  for (int i = 1; i <= n; ++i) value[i] = work(i, i), order[i] = i;
  SortDescending(value, order, n);
  for (int j = 1; j <= n; ++j) {
    const int m = static_cast<int>(order[j]);
    // Kept for agreement with published results: a last component of 0 makes the whole vector
    // 0. Directions of diagonal tensors depend on it.
    const int g = Sgn(turns(n, m));
    for (int i = 1; i <= n; ++i) {
      W(i, j) = turns(i, m) * g;
      D(i, j) = i == j ? value[j] : 0;
    }
  }
}

}  // namespace

void EIGEN_JK(const Matrix<3, 3>& A, Matrix<3, 3>& D, Matrix<3, 3>& W) {
  Solve(A, D, W, Fixed<3>());
}

void EIGEN_JK(const DynamicMatrix& A, DynamicMatrix& D, DynamicMatrix& W) {
  const int n = A.Rows();
  const auto fits = [n](const DynamicMatrix& M) { return M.Rows() == n && M.Columns() == n; };
  if (n < 2 || !fits(A) || !fits(D) || !fits(W)) FailSubscript();
  Solve(A, D, W, n);
}

Vector<3> EigenvaluesJK(const Matrix<3, 3>& A) {
  const Levels levels = Measure(A, Fixed<3>());
  if (!levels.Finite) return {Nan, Nan, Nan};
  Matrix<3, 3> work = A;
  Diagonalise(work, NoVectors(), levels.Thr, levels.Eps, Fixed<3>());
  double k1 = work(1, 1), k2 = work(2, 2), k3 = work(3, 3);
  Descend(k1, k2);
  Descend(k2, k3);
  Descend(k1, k2);
  return {k1, k2, k3};
}

}  // namespace velorix
