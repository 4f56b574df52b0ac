#pragma once

#include "tensor/kernel.h"

namespace velorix {

// Axes: 1 north, 2 east, 3 down, right-handed (or the specimen's X, Y, Z). Angles are degrees and
// become radians through the 32-bit 57.29578.

/// A direction, or a plane by dip direction and dip. `Dec`: clockwise from north, 0 to below 360.
/// `Inc`: positive downward, -90 to 90.
struct Direction {
  double Dec = 0, Inc = 0;
  bool operator==(const Direction&) const = default;
};

/// A direction with the length of the vector that it came from.
struct DirectionAndLength {
  double Dec = 0, Inc = 0, Length = 0;
};

/// What two directions span: the direction of their cross product and the angle between them.
struct NormalAndAngle {
  Direction Normal;
  double Angle = 0;
};

/// length * (cos I cos D, cos I sin D, sin I).
Vector<3> DirectionToVector(double length, const Direction& d);

/// Direction and length of any vector. A zero vector has declination and inclination 0, a vertical
/// one declination 0. By the 32-bit constants a declination may pass 360 or fall below 0 by a
/// rounding; nothing wraps it.
DirectionAndLength VectorToDirection(Vector<3> v);
/// As `VectorToDirection`, without dividing by the length first.
Direction DirectionOfVector(const Vector<3>& v);
/// `DirectionOfVector` of each column.
Array1<Direction, 3> MatrixDirections(const Matrix<3, 3>& M);

/// The pole of a plane, and the plane of a pole: applied twice it returns its argument.
Direction PoleOfPlane(const Direction& plane);
/// The same axis with an inclination of 0 or more.
Direction LowerHemisphere(const Direction& d);

/// The angle between two directions, 0 to 180. A dot product that rounds beyond 1 fails with
/// "Invalid procedure call or argument" (see `ArcCos`).
double AngleBetween(const Direction& a, const Direction& b);
/// The angle as in `AngleBetween`, and the direction of a x b; parallel directions give a normal
/// (0, 0).
NormalAndAngle AngleAndNormal(const Direction& a, const Direction& b);

}  // namespace velorix
