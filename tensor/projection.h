#pragma once

#include "tensor/directions.h"

namespace velorix {

/// How directions go to the unit net: centre (0, 0), primitive circle of radius 1, y to declination
/// 0.
enum class Projection { Plain, EqualAngle, EqualArea };

struct Point {
  double x = 0, y = 0;
  bool operator==(const Point&) const = default;
};

/// The place of a direction on the unit net. The sign of the inclination isn't looked at: an upward
/// direction falls where its mirror image in the horizontal plane does. `Plain` isn't a net: it
/// gives (Dec / 90, Inc / 90). Any other projection gives (0, 0).
Point ProjectDirection(Projection projection, const Direction& d);

/// The direction at a point of the equal-area net, for the cursor read-out; the centre gives (0,
/// 90). Outside the primitive circle the inclination is negative, and 270 at a radius of sqrt(2). A
/// point whose 32-bit radius is 0 but which is not the centre fails with "Division by zero".
Direction InverseEqualArea(const Point& p);

/// The linear map, each axis by itself, that takes `p1` to `q1` and `p2` to `q2`. Points p1 and p2
/// with a common coordinate fail with "Division by zero".
Point MapPoint(const Point& p, const Point& p1, const Point& q1, const Point& p2, const Point& q2);

/// A point of the unit net on a target whose y points down. `centre` and `diameter` of the
/// primitive circle are in the target's units.
Point NetToTarget(const Point& p, const Point& centre, double diameter);

}  // namespace velorix
