// coverage [GROUPS]: how often a 95 % region holds the true axis, in simulated groups. It makes the
// table of the manual's page on statistics (docs/manual/statistics.md).
//
// The true tensor has the principal values 1.05, 1.00 and 0.95 along north, east and down. With
// independent noise each component of a specimen gets a normal error of 0.015; with correlated
// noise all errors but a small part (0.003) come from a turn of the specimen by some 8 degrees
// about any axis, as a wrong mark on it makes them.

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "stats/group/bootstrap.h"
#include "stats/group/confidence_region.h"
#include "stats/group/hext.h"

namespace {

using namespace velorix;

constexpr double Degree = 0.017453292519943295;
constexpr std::array Sizes = {5, 10, 30};

class Specimens {
 public:
  explicit Specimens(bool correlated) : correlated_(correlated) {}

  TensorColumn Next() {
    const double n = correlated_ ? 0.003 : 0.015;
    TensorColumn t = {1.05, 1.0, 0.95, 0, 0, 0};
    if (correlated_) Turn(t);
    for (double& component : t) component += n * normal_(random_);
    return t;
  }

 private:
  /// Turns by a small angle about each axis in turn.
  void Turn(TensorColumn& t) {
    for (int axis = 1; axis <= 3; ++axis) {
      const double angle = 8 * Degree / std::sqrt(3.0) * normal_(random_);
      const double c = std::cos(angle), s = std::sin(angle);
      const int i = axis % 3 + 1, j = i % 3 + 1;
      Matrix<3, 3> M, R;
      TensorForm<ToMatrix>(M, t);
      for (int k = 1; k <= 3; ++k) R(k, k) = k == axis ? 1 : c;
      R(i, j) = s;
      R(j, i) = -s;
      Mxabat(R, M, M);
      TensorForm<ToForm>(M, t);
    }
  }

  bool correlated_;
  std::mt19937_64 random_{2026};
  std::normal_distribution<double> normal_;
};

Vector<3> AxisOf(int k) {
  Vector<3> axis;
  axis[k] = 1;
  return axis;
}

/// Whether the angles round an axis, in the planes of the other two, hold a true axis.
bool HoldsInAngles(const Matrix<3, 3>& mean, int k, const std::array<double, 2>& angles,
                   const Vector<3>& axis) {
  const auto along = [&](int column) {
    return axis[1] * mean(1, column) + axis[2] * mean(2, column) + axis[3] * mean(3, column);
  };
  const int others[] = {k == 1 ? 2 : 1, k == 3 ? 2 : 3};
  double sum = 0;
  for (int i = 0; i < 2; ++i)
    sum += std::pow(
        along(others[i]) / along(k) / std::tan(angles[static_cast<std::size_t>(i)] * Degree), 2);
  return sum <= 1;
}

/// Whether the contour of a bootstrap goes round a true axis: by the turns that the contour's
/// points make round it, seen from above.
bool ContourHolds(const std::vector<Matrix<3, 3>>& contour, int k, const Vector<3>& axis) {
  Vector<3> centre;
  for (const Matrix<3, 3>& point : contour)
    for (int c = 1; c <= 3; ++c) centre[c] += point(c, k);
  const double sign = Vvmpy(centre, axis) < 0 ? -1 : 1;
  const int i = k % 3 + 1, j = i % 3 + 1;
  double turn = 0, last = 0;
  for (std::size_t p = 0; p <= contour.size(); ++p) {
    const Matrix<3, 3>& point = contour[p % contour.size()];
    const double angle = std::atan2(sign * point(j, k) - axis[j], sign * point(i, k) - axis[i]);
    if (p > 0) turn += std::remainder(angle - last, 360 * Degree);
    last = angle;
  }
  return std::fabs(turn) > 180 * Degree;
}

struct Method {
  const char* Name;
  std::array<int, 3> Held = {};
};

void Simulate(bool correlated, int n, int groups, std::span<const float> table) {
  Specimens specimens(correlated);
  Method methods[] = {{"Jelinek 95 %"}, {"Hext"}, {"bootstrap, parametric"}, {"bootstrap, simple"}};
  for (int group = 0; group < groups; ++group) {
    std::vector<TensorColumn> T(static_cast<std::size_t>(n));
    for (TensorColumn& t : T) t = specimens.Next();
    TensorStats stats;
    TensorStatistics(T, stats);
    const HextStats hext = Hext(T).value();
    const std::array<std::array<double, 2>, 3> angles = {
        {{hext.E12, hext.E13}, {hext.E12, hext.E23}, {hext.E13, hext.E23}}};
    const auto seed = static_cast<std::uint32_t>(group);
    const BootResult parametric = BootStrap(T, {BootMethod::Parametric, 500, seed}, 200, table);
    const BootResult simple = BootStrap(T, {BootMethod::Simple, 500, seed}, 200, table);
    for (int k = 1; k <= 3; ++k) {
      const auto axis = static_cast<std::size_t>(k - 1);
      methods[0].Held[axis] += ConfidenceRegion(stats, k).Holds(AxisOf(k));
      methods[1].Held[axis] += HoldsInAngles(stats.MeanVec, k, angles[axis], AxisOf(k));
      methods[2].Held[axis] += ContourHolds(parametric.BootEllipse, k, AxisOf(k));
      methods[3].Held[axis] += ContourHolds(simple.BootEllipse, k, AxisOf(k));
    }
  }
  for (const Method& method : methods) {
    std::printf("%-12s N = %2d  %-22s", correlated ? "correlated" : "independent", n, method.Name);
    for (const int held : method.Held) std::printf(" %5.1f", 100.0 * held / groups);
    std::printf("\n");
  }
}

}  // namespace

int main(int argc, char** argv) try {
  const int groups = argc > 1 ? std::atoi(argv[1]) : 2000;
  std::printf("Per cent of %d groups whose region holds the true axis: Kmax, Kint, Kmin\n", groups);
  std::vector<float> table;
  velorix::FillGaussTable(table, [] {});
  for (const bool correlated : {false, true})
    for (const int n : Sizes) Simulate(correlated, n, groups, table);
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
