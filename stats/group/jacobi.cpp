#include "stats/group/jacobi.h"

#include <cmath>
#include <utility>

namespace velorix {
namespace {

constexpr int N = 3;

/// A plane rotation, applied to two elements at once.
struct Turn {
  double s, tau;

  void operator()(double& g, double& h) const {
    const double g0 = g, h0 = h;
    g = g0 - s * (h0 + g0 * tau);
    h = h0 + s * (g0 - h0 * tau);
  }
};

double TangentOf(double h, double g, double apq) {
  if (std::fabs(h) + g == std::fabs(h)) return apq / h;
  const double theta = 0.5 * h / apq;
  const double t = 1 / (std::fabs(theta) + std::sqrt(1 + theta * theta));
  return theta < 0 ? -t : t;
}

void RotatePair(Matrix<N, N>& A, Vector<N>& D, Matrix<N, N>& V, Vector<N>& z, int p, int q,
                double g) {
  const double t = TangentOf(D[q] - D[p], g, A(p, q));
  const double c = 1 / std::sqrt(1 + t * t), s = t * c;
  const Turn turn{s, s / (1 + c)};
  const double h = t * A(p, q);
  z[p] -= h;
  z[q] += h;
  D[p] -= h;
  D[q] += h;
  A(p, q) = 0;
  for (int j = 1; j < p; ++j) turn(A(j, p), A(j, q));
  for (int j = p + 1; j < q; ++j) turn(A(p, j), A(j, q));
  for (int j = q + 1; j <= N; ++j) turn(A(p, j), A(q, j));
  for (int j = 1; j <= N; ++j) turn(V(j, p), V(j, q));
}

void SortDescending(Vector<N>& D, Matrix<N, N>& V) {
  for (int i = 1; i < N; ++i) {
    int k = i;
    for (int j = i + 1; j <= N; ++j)
      if (D[j] >= D[k]) k = j;
    if (k == i) continue;
    std::swap(D[i], D[k]);
    for (int j = 1; j <= N; ++j) std::swap(V(j, i), V(j, k));
  }
}

}  // namespace

void Jacobi(Matrix<3, 3>& A, Vector<3>& D, Matrix<3, 3>& V) {
  Vector<N> b, z;
  MatrixClear(V);
  for (int p = 1; p <= N; ++p) {
    V(p, p) = 1;
    b[p] = D[p] = A(p, p);
  }
  for (int sweep = 1; sweep <= 50; ++sweep) {
    const double sm = std::fabs(A(1, 2)) + std::fabs(A(1, 3)) + std::fabs(A(2, 3));
    if (sm == 0) break;
    const double tresh = sweep < 4 ? 0.2 * sm / (N * N) : 0;
    for (int p = 1; p < N; ++p)
      for (int q = p + 1; q <= N; ++q) {
        const double g = 100 * std::fabs(A(p, q));
        const bool negligible = sweep > 4 && std::fabs(D[p]) + g == std::fabs(D[p]) &&
                                std::fabs(D[q]) + g == std::fabs(D[q]);
        if (negligible)
          A(p, q) = 0;
        else if (std::fabs(A(p, q)) > tresh)
          RotatePair(A, D, V, z, p, q, g);
      }
    for (int p = 1; p <= N; ++p) {
      b[p] += z[p];
      D[p] = b[p];
      z[p] = 0;
    }
  }
  SortDescending(D, V);
}

}  // namespace velorix
