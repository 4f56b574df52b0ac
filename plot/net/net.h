#pragma once

#include <cstdint>

#include "plot/drawing/drawing.h"
#include "store/coordinates.h"
#include "tensor/directions.h"
#include "tensor/projection.h"

namespace velorix {

/// Where a net lies on a target: its centre and the width of its primitive circle, logical units.
struct Net {
  double cx = 180, cy = 190, diameter = 310;
};

/// The image of (u, v), a point of the unit net, on the target.
Point OnNet(const Net& net, double u, double v);

/// The frame: the primitive circle, the four labels of the coordinate system (1 or 4 "X", "Y",
/// "-X",
/// "-Y"; 2 or 3 "N", "90", "180", "270"; any other "0", "90", "180", "270") and a tick at every 10
/// degrees of inclination on both axes. The labels stand `labelGap` units farther from the circle.
void DrawNet(Target& target, CoordinateSystem coorSys, Projection projection, const Net& net,
             Colour colour, std::int16_t fontHeight, double labelGap = 0);

/// A symbol at a direction (degrees). The sign of the inclination is not looked at: (200, -30) is
/// drawn at (200, 30); who wants the antipode turns the direction himself.
void DrawNetSymbol(Target& target, const Net& net, Projection projection, Direction direction,
                   std::int16_t type, std::int16_t size, Colour fill, Pen pen);

}  // namespace velorix
