#pragma once

#include <cstdint>

#include "tensor/directions.h"

namespace velorix {

/// The turn of specimen axes into geographic ones; a tensor K becomes M K Mt (`Mxabat`).
///
/// `azimuth` and `inclination` as measured; P1, P3: clock positions (3, 6, 9, 12) of the arrow on
/// the frontal side and of the reference of the azimuth; P2: 0 when the dip of the frontal side was
/// measured, 90 for the plunge of the cylinder axis; any other P2 counts as no inclination. With P1
/// = P3 = 6 and P2 = 0 the specimen's X axis comes out at declination `azimuth` and inclination
/// `inclination`. Clock values whose products leave 16 bits fail with "Overflow".
Matrix<3, 3> OrientationMatrix(double azimuth, double inclination, std::int16_t P1, std::int16_t P2,
                               std::int16_t P3);

/// The turn of geographic axes into paleogeographic ones: brings `plane` (dip direction and dip) to
/// the horizontal and keeps `line` at its old trend. `form` 90: the plane is given by strike,
/// right-hand rule. Kept for agreement with published results: a line with inclination exactly 0
/// isn't brought back to its trend.
Matrix<3, 3> FoliationMatrix(Direction plane, const Direction& line, int form = 0);

/// The turn about axis 3 that takes declination D to D + angle.
Matrix<3, 3> VerticalRotation(double angle);

/// The right-hand turn of a vector through `angle` degrees about `axis`, a unit vector.
Matrix<3, 3> AxisRotation(const Vector<3>& axis, double angle);

}  // namespace velorix
