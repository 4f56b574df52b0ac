#include "stats/group/hext.h"

#include <boost/math/distributions/fisher_f.hpp>
#include <cmath>
#include <map>
#include <numbers>

#include "tensor/eigen_jk.h"

namespace velorix {
namespace {

constexpr double LeastSigma = 1e-12;

/// 95 % points of the F distribution with 5 and `nf`, and with 2 and `nf` degrees of freedom.
struct CriticalValues {
  double Of5, Of2;
};

double FPoint95(int n, int nf) {
  // No wider numbers in between: they differ from one processor to the next.
  using Policy = boost::math::policies::policy<boost::math::policies::promote_double<false>>;
  return quantile(boost::math::fisher_f_distribution<double, Policy>(n, nf), 0.95);
}

/// A quantile takes as long as the rest of a group; the groups of a study have few sizes.
const CriticalValues& CriticalValuesOf(int nf) {
  thread_local std::map<int, CriticalValues> known;
  const auto found = known.find(nf);
  if (found != known.end()) return found->second;
  return known.emplace(nf, CriticalValues{FPoint95(5, nf), FPoint95(2, nf)}).first->second;
}

/// The tensor with trace 1, as its values in six directions; nothing where it has no such form.
std::optional<Vector<6>> SixDirections(const TensorColumn& t) {
  const double trace = t[1] + t[2] + t[3];
  if (!(trace > 0) || !std::isfinite(trace)) return std::nullopt;
  const double k11 = t[1] / trace, k22 = t[2] / trace, k33 = t[3] / trace;
  return Vector<6>{k11,
                   k22,
                   k33,
                   t[4] / trace + (k11 + k22) / 2,
                   t[5] / trace + (k22 + k33) / 2,
                   t[6] / trace + (k11 + k33) / 2};
}

/// The principal values of the tensor with these values in the six directions.
Vector<3> PrincipalValues(const Vector<6>& d) {
  const TensorColumn t{d[1],
                       d[2],
                       d[3],
                       d[4] - (d[1] + d[2]) / 2,
                       d[5] - (d[2] + d[3]) / 2,
                       d[6] - (d[1] + d[3]) / 2};
  Matrix<3, 3> M;
  TensorForm<ToMatrix>(M, t);
  return EigenvaluesJK(M);
}

double Square(double x) { return x * x; }

double HalfAngle(double scaledSigma, double difference) {
  if (difference == 0) return 90;
  return std::atan(scaledSigma / (2 * difference)) * (180 / std::numbers::pi);
}

}  // namespace

std::optional<HextStats> Hext(std::span<const TensorColumn> T) {
  if (T.size() < 2) return std::nullopt;
  const double n = static_cast<double>(T.size());
  std::vector<Vector<6>> values;
  Vector<6> mean;
  for (const TensorColumn& t : T) {
    const std::optional<Vector<6>> six = SixDirections(t);
    if (!six) return std::nullopt;
    values.push_back(*six);
    for (int c = 1; c <= 6; ++c) mean[c] += (*six)[c] / n;
  }
  double squares = 0;
  for (const Vector<6>& value : values)
    for (int c = 1; c <= 6; ++c) squares += Square(value[c] - mean[c]);

  HextStats hext;
  hext.Nf = 6 * (static_cast<int>(T.size()) - 1);
  hext.Sigma = std::sqrt(squares / hext.Nf);
  if (!(hext.Sigma > LeastSigma) || !std::isfinite(hext.Sigma)) return std::nullopt;
  const Vector<3> t = PrincipalValues(mean);
  const auto [of5, of2] = CriticalValuesOf(hext.Nf);
  hext.FCritical = of5;
  hext.F12Critical = of2;
  // The sum of squared deviations from the mean, by differences: no digits cancel.
  const double deviations = (Square(t[1] - t[2]) + Square(t[2] - t[3]) + Square(t[1] - t[3])) / 3;
  hext.F = 0.4 * deviations / Square(hext.Sigma);
  hext.F12 = 0.5 * Square((t[1] - t[2]) / hext.Sigma);
  hext.F23 = 0.5 * Square((t[2] - t[3]) / hext.Sigma);
  const double scaledSigma = std::sqrt(2 * of2) * hext.Sigma;
  hext.E12 = HalfAngle(scaledSigma, t[1] - t[2]);
  hext.E23 = HalfAngle(scaledSigma, t[2] - t[3]);
  hext.E13 = HalfAngle(scaledSigma, t[1] - t[3]);
  return hext;
}

HextVerdict VerdictOf(const HextStats& hext) {
  if (hext.F < hext.FCritical) return HextVerdict::Isotropic;
  if (hext.F12 < hext.F12Critical) return HextVerdict::OblateNotRejected;
  if (hext.F23 < hext.F12Critical) return HextVerdict::ProlateNotRejected;
  return HextVerdict::Triaxial;
}

const char* WordsOf(HextVerdict verdict) {
  static constexpr const char* Words[] = {"isotropic", "oblate not rejected",
                                          "prolate not rejected", "triaxial"};
  return Words[static_cast<int>(verdict)];
}

}  // namespace velorix
