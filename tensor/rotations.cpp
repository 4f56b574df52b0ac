#include "tensor/rotations.h"

#include <cmath>

namespace velorix {
namespace {

/// 30 * clock in 16 bits.
int ThirtyTimes(int clock) {
  if (clock < INT16_MIN || clock > INT16_MAX) FailOverflow();
  if (30 * clock < INT16_MIN || 30 * clock > INT16_MAX) FailOverflow();
  return 30 * clock;
}

}  // namespace

Matrix<3, 3> OrientationMatrix(double azimuth, double inclination, std::int16_t P1, std::int16_t P2,
                               std::int16_t P3) {
  const int arrow = ThirtyTimes(P1 - 6);
  const double phi = (azimuth + ThirtyTimes(P1 - P3) - arrow) / DegPerRad;
  const double theta = (P2 == 0 ? inclination : P2 == 90 ? 90 - inclination : 0) / DegPerRad;
  const double psi = arrow / DegPerRad;
  const double cf = std::cos(phi), sf = std::sin(phi);
  const double ct = std::cos(theta), st = std::sin(theta);
  const double cp = std::cos(psi), sp = std::sin(psi);
  // clang-format off
  return {cf * ct * cp - sp * sf, -cf * ct * sp - cp * sf, -cf * st,
          sf * ct * cp + sp * cf, -sf * ct * sp + cp * cf, -sf * st,
          st * cp,                -st * sp,                 ct};
  // clang-format on
}

Matrix<3, 3> FoliationMatrix(Direction plane, const Direction& line, int form) {
  if (form == 90) {
    plane.Dec += 90;
    if (plane.Dec >= 360) plane.Dec -= 360;
  }
  const double dec = plane.Dec / DegPerRad;
  const Matrix<3, 3> level = AxisRotation({-std::sin(dec), std::cos(dec), 0}, plane.Inc);
  // Kept for agreement with published results: a horizontal line isn't brought back to its
  // trend.
  if (line.Inc == 0) return level;

  Vector<3> turned = DirectionToVector(1, line);
  Mvmpy(level, turned, turned);
  const double trend = DegPerRad * Atan2(turned[2], turned[1]);
  Matrix<3, 3> M;
  Mxmpy(VerticalRotation(line.Dec - trend), level, M);
  return M;
}

Matrix<3, 3> VerticalRotation(double angle) { return AxisRotation({0, 0, 1}, angle); }

Matrix<3, 3> AxisRotation(const Vector<3>& axis, double angle) {
  const double s = std::sin(angle / DegPerRad), c = std::cos(angle / DegPerRad);
  const Vector<3>& v = axis;
  Matrix<3, 3> M;
  for (int i = 1; i <= 3; ++i) {
    const int j = i % 3 + 1, k = j % 3 + 1;
    M(i, k) = (1 - c) * v[k] * v[i] + s * v[j];
    M(j, k) = (1 - c) * v[k] * v[j] - s * v[i];
    M(k, k) = 1 - (1 - c) * (1 - v[k] * v[k]);
  }
  return M;
}

}  // namespace velorix
