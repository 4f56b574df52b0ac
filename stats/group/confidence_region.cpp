#include "stats/group/confidence_region.h"

#include <cmath>
#include <numbers>

namespace velorix {
namespace {

constexpr double Degree = std::numbers::pi / 180;

}  // namespace

Vector<3> Sum(const Vector<3>& a, double factor, const Vector<3>& b) {
  return {a[1] + factor * b[1], a[2] + factor * b[2], a[3] + factor * b[3]};
}

ConfidenceRegion::ConfidenceRegion(const TensorStats& stats, int k) {
  const auto column = [&](int c) {
    return Vector<3>{stats.MeanVec(1, c), stats.MeanVec(2, c), stats.MeanVec(3, c)};
  };
  const int j = k % 3 + 1, l = j % 3 + 1;
  const double turn = -stats.MeanRot[k] * Degree;
  centre_ = column(k);
  major_ = Sum(Sum({}, std::cos(turn), column(l)), std::sin(turn), column(j));
  minor_ = Sum(Sum({}, -std::sin(turn), column(l)), std::cos(turn), column(j));
  a_ = std::tan(stats.MeanE1At95[k] * Degree);
  b_ = std::tan(stats.MeanE2At95[k] * Degree);
}

bool ConfidenceRegion::Holds(const Vector<3>& axis) const {
  const double along = Vvmpy(axis, centre_);
  if (along == 0) return false;
  const double x = Vvmpy(axis, major_) / along, y = Vvmpy(axis, minor_) / along;
  if (std::fabs(x) > a_ || std::fabs(y) > b_) return false;
  return x * x * b_ * b_ + y * y * a_ * a_ <= a_ * a_ * b_ * b_;
}

bool ConfidenceRegion::Reaches(const ConfidenceRegion& other) const {
  if (other.Holds(centre_)) return true;
  for (int degree = 0; degree < 360; ++degree) {
    const double x = a_ * std::cos(degree * Degree), y = b_ * std::sin(degree * Degree);
    if (other.Holds(Sum(Sum(centre_, x, major_), y, minor_))) return true;
  }
  return false;
}

}  // namespace velorix
