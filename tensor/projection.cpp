#include "tensor/projection.h"

#include <cmath>

namespace velorix {
namespace {

constexpr double DegPerRad64 = 57.2957795130824;  // the read-out alone converts in 64 bits

double MapAxis(double u, double u1, double x1, double u2, double x2) {
  const double width = u2 - u1;
  if (width == 0) FailDivision();
  return u * (x2 - x1) / width + (u2 * x1 - u1 * x2) / width;
}

}  // namespace

Point ProjectDirection(Projection projection, const Direction& d) {
  if (projection == Projection::Plain) return {d.Dec / 90, d.Inc / 90};
  double r = 0;
  switch (projection) {
    case Projection::EqualAngle:
      r = std::tan((90 - std::fabs(d.Inc)) / 2 / DegPerRad);
      break;
    case Projection::EqualArea:
      r = std::sqrt(1 - std::sin(Pi32 * std::fabs(d.Inc) / 180));
      break;
    default:
      return {};
  }
  const double dec = d.Dec / DegPerRad;
  return {r * std::sin(dec), r * std::cos(dec)};
}

Direction InverseEqualArea(const Point& p) {
  if (p.x == 0 && p.y == 0) return {0, 90};
  const double r = std::sqrt(p.x * p.x + p.y * p.y);
  const double width = Round32(r);
  if (width == 0) FailDivision();  // a point whose distance from the centre is 0 in 32 bits
  Direction d{DegPerRad64 * ArcSin(p.x / width), DegPerRad64 * ArcSin(Round32(1 - r * r))};
  if (p.y < 0) d.Dec = 180 - d.Dec;
  if (d.Dec >= 360) d.Dec -= 360;
  if (d.Dec < 0) d.Dec += 360;
  return d;
}

Point MapPoint(const Point& p, const Point& p1, const Point& q1, const Point& p2, const Point& q2) {
  return {MapAxis(p.x, p1.x, q1.x, p2.x, q2.x), MapAxis(p.y, p1.y, q1.y, p2.y, q2.y)};
}

Point NetToTarget(const Point& p, const Point& centre, double diameter) {
  return MapPoint(p, {0, 0}, centre, {1, 1},
                  {centre.x + 0.5 * diameter, centre.y - 0.5 * diameter});
}

}  // namespace velorix
