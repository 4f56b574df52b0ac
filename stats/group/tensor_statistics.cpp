#include "stats/group/tensor_statistics.h"

#include <cmath>

#include "tensor/eigen_jk.h"

namespace velorix {
namespace {

constexpr double DegPerRadian = 57.29577951;  // of this estimate alone, 64-bit

double Quotient(double a, double b) {
  if (b == 0) FailDivision();
  return a / b;
}

/// Sums and product sums of the columns in their order, each component rounded to 32 bits first, as
/// the turn of a tensor rounds it. A sum is one chain of additions, so that the digits don't depend
/// on the machine; the 36 chains run side by side.
void AddUp(std::span<const TensorColumn> T, Vector<6>& sum, Matrix<6, 6>& products) {
  double s[6] = {}, p[36] = {};
  for (const TensorColumn& column : T) {
    double t[6];
    for (int a = 0; a < 6; ++a) t[a] = Round32(column.v[a]);
    for (int a = 0; a < 6; ++a) {
      s[a] += t[a];
      for (int b = 0; b < 6; ++b) p[6 * a + b] += t[a] * t[b];
    }
  }
  for (int a = 0; a < 6; ++a) sum.v[a] = s[a];
  for (int i = 0; i < 36; ++i) products.v[i] = p[i];
}

/// Row and column of the tensor form's component `c`: (1,1), (2,2), (3,3), (1,2), (2,3), (3,1).
struct Place {
  int p, q;
};
Place PlaceOf(int c) {
  if (c <= 3) return {c, c};
  return {c - 3, c == 6 ? 1 : c - 2};
}

/// The 6 by 6 matrix that carries a covariance of tensor forms to the axes in the columns of V.
Matrix<6, 6> FormTransformation(const Matrix<3, 3>& V) {
  Matrix<6, 6> B;
  for (int r = 1; r <= 6; ++r) {
    const auto [p, q] = PlaceOf(r);
    for (int c = 1; c <= 6; ++c) {
      const auto [a, b] = PlaceOf(c);
      B(r, c) = c <= 3 ? V(c, p) * V(c, q) : V(a, p) * V(b, q) + V(b, p) * V(a, q);
    }
  }
  return B;
}

/// What scales the tangent of a standard error to that of the 95 % angle of the mean of `n`
/// tensors.
double ScaleTo95(int n) {
  return std::sqrt(2 * FQuantile(n - 2) * (n - 1) / (static_cast<double>(n) * (n - 2)));
}

/// Errors of direction `i` from the covariance `Cp` in the system of the mean axes.
void DirectionErrors(const Matrix<6, 6>& Cp, int i, double scaleTo95, TensorStats& stats) {
  const int j = i % 3 + 1, l = j % 3 + 1;
  const double dj = stats.MeanK[i] - stats.MeanK[j], dl = stats.MeanK[i] - stats.MeanK[l];
  DynamicMatrix W(2, 2), D(2, 2), U(2, 2);
  W(1, 1) = Quotient(Cp(i + 3, i + 3), dj * dj);
  W(2, 2) = Quotient(Cp(l + 3, l + 3), dl * dl);
  W(1, 2) = W(2, 1) = Quotient(Cp(i + 3, l + 3), dl * dj);
  EIGEN_JK(W, D, U);  // NaN throughout where the covariance overflows the kernel's 32 bits
  if (!std::isfinite(D(1, 1))) FailOverflow();
  const double s1 = std::sqrt(std::fabs(D(1, 1))), s2 = D(2, 2) > 0 ? std::sqrt(D(2, 2)) : 0;
  stats.MeanE1[i] = DegPerRadian * std::atan(s1);
  stats.MeanE2[i] = DegPerRadian * std::atan(s2);
  stats.MeanE1At95[i] = DegPerRadian * std::atan(s1 * scaleTo95);
  stats.MeanE2At95[i] = DegPerRadian * std::atan(s2 * scaleTo95);
  stats.MeanRot[i] = -DegPerRadian * Atan2(U(1, 1), U(2, 1));
}

}  // namespace

void TensorStatistics(std::span<const TensorColumn> T, TensorStats& stats) {
  stats.Errors = 0;
  if (T.empty()) return;
  const double n = static_cast<double>(T.size());
  Vector<6> sum;
  Matrix<6, 6> cov;
  AddUp(T, sum, cov);
  if (T.size() > 1)
    for (int a = 1; a <= 6; ++a)
      for (int b = 1; b <= 6; ++b) cov(a, b) = (cov(a, b) - sum[a] * sum[b] / n) / (n - 1);
  bool finite = true;
  for (double& s : sum) {
    s = s / n;
    finite = finite && std::isfinite(s);
  }

  Matrix<3, 3> mean, values;
  TensorForm<ToMatrix>(mean, sum);
  EIGEN_JK(mean, values, stats.MeanVec);
  MxSignCopy(stats.MeanVec, stats.MeanVec, true);
  const Array1<Direction, 3> directions = MatrixDirections(stats.MeanVec);
  for (int k = 1; k <= 3; ++k) {
    stats.MeanK[k] = values(k, k);
    stats.MeanDec[k] = directions[k].Dec;
    stats.MeanInc[k] = directions[k].Inc;
  }
  if (!finite) throw Fault(5, NotFinite);
  if (T.size() < 5) return;

  Matrix<6, 6> Cp;
  Mxabat(FormTransformation(stats.MeanVec), cov, Cp);
  const double scaleTo95 = ScaleTo95(static_cast<int>(T.size()));
  for (int i = 1; i <= 3; ++i) {
    DirectionErrors(Cp, i, scaleTo95, stats);
    stats.Errors = i;
  }
}

double FQuantile(int n) {
  static constexpr Array1<double, 20> Table = {
      199.5,  19.0,   9.5521, 6.9433, 5.7861, 5.1443, 4.7374, 4.459,  4.2565, 4.1028,
      3.9823, 3.8853, 3.8056, 3.7389, 3.6823, 3.6337, 3.5915, 3.5546, 3.5219, 3.4928};
  if (n < 1) FailSubscript();
  if (n <= 20) return Table[n];
  const bool large = n > 100;
  const double a = large ? 2.9950561 : 2.9666752, b = large ? 20.487532 : 23.4644267,
               c = large ? 2.9227943E-05 : 0.0018174498;
  return a * std::pow(b, 1.0 / n) * std::pow(n, c);
}

double Mean(std::span<const double> a) {
  double sum = 0;
  for (double x : a) sum += x;
  return Quotient(sum, static_cast<double>(a.size()));
}

double StdDev(std::span<const double> a) {
  if (a.size() < 2) return 0;
  const double mean = Mean(a);
  double sum = 0;
  for (double x : a) sum += (x - mean) * (x - mean);
  return std::sqrt(sum * (1 / (static_cast<double>(a.size()) - 1)));
}

}  // namespace velorix
