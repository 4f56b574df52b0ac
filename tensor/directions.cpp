#include "tensor/directions.h"

#include <cmath>

namespace velorix {
namespace {

Direction FromComponents(double x, double y, double z) {
  const double h = std::sqrt(x * x + y * y);
  return {h == 0 ? 0 : 180 - DegPerRad * Atan2(y, -x), DegPerRad * Atan2(z, h)};
}

/// D turned by half a turn, from 0 up.
double Opposite(double declination) {
  const double turned = declination - 180;
  return turned < 0 ? turned + 360 : turned;
}

}  // namespace

Vector<3> DirectionToVector(double length, const Direction& d) {
  const double dec = d.Dec / DegPerRad, inc = d.Inc / DegPerRad, h = std::cos(inc);
  return {length * (h * std::cos(dec)), length * (h * std::sin(dec)), length * std::sin(inc)};
}

DirectionAndLength VectorToDirection(Vector<3> v) {
  const double length = std::sqrt(v[1] * v[1] + v[2] * v[2] + v[3] * v[3]);
  if (length != 0)
    for (double& component : v) component /= length;
  const Direction d = FromComponents(v[1], v[2], v[3]);
  return {d.Dec, d.Inc, length};
}

Direction DirectionOfVector(const Vector<3>& v) { return FromComponents(v[1], v[2], v[3]); }

Array1<Direction, 3> MatrixDirections(const Matrix<3, 3>& M) {
  Array1<Direction, 3> directions;
  for (int j = 1; j <= 3; ++j) directions[j] = FromComponents(M(1, j), M(2, j), M(3, j));
  return directions;
}

Direction PoleOfPlane(const Direction& plane) { return {Opposite(plane.Dec), 90 - plane.Inc}; }

Direction LowerHemisphere(const Direction& d) {
  return d.Inc < 0 ? Direction{Opposite(d.Dec), -d.Inc} : d;
}

double AngleBetween(const Direction& a, const Direction& b) {
  return DegPerRad * ArcCos(Vvmpy(DirectionToVector(1, a), DirectionToVector(1, b)));
}

NormalAndAngle AngleAndNormal(const Direction& a, const Direction& b) {
  const Vector<3> u = DirectionToVector(1, a), v = DirectionToVector(1, b);
  const double angle = DegPerRad * ArcCos(Vvmpy(u, v));
  const DirectionAndLength n = VectorToDirection(
      {u[2] * v[3] - u[3] * v[2], u[3] * v[1] - u[1] * v[3], u[1] * v[2] - u[2] * v[1]});
  return {{n.Dec, n.Inc}, angle};
}

}  // namespace velorix
