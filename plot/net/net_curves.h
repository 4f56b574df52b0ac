#pragma once

#include <span>

#include "plot/net/net.h"
#include "tensor/kernel.h"

namespace velorix {

// Curves on the net. Kept for agreement with published results: ellipses and great circles stop a
// step short of the primitive circle, lists of directions end on it. Angles are degrees. A curve
// with a number that is not finite is not drawn.

/// A confidence region round principal direction `axis`: column `axis` of `vectors`, semi-axes
/// toward the other two columns, turned by `rotation` about the direction.
struct ConfidenceEllipse {
  int axis = 1;
  Matrix<3, 3> vectors;
  double E1 = 0, E2 = 0, rotation = 0;
};

/// As few points as a curve needs to lie within a small part of a unit of its place; it ends within
/// a degree of the primitive circle.
inline constexpr int StepBySize = 0;

/// Draws the region's outline in steps of `step` degrees, a divisor of 90; nothing when a semi-axis
/// is 0. An arc in the upper hemisphere reappears at the opposite side of the net or, with
/// `showUpper`, overlays the lower one and is dashed.
void DrawConfidenceEllipse(Target& target, const Net& net, Projection projection, bool showUpper,
                           const ConfidenceEllipse& ellipse, Pen pen, int step = 1);

/// Draws the great circle perpendicular to `pole` in steps of `step` degrees; its last point isn't
/// joined to its first. On a fine target each arc has a point at every degree, so that its chords
/// leave it by less than 5e-5 of the net's radius. The upper hemisphere as with an ellipse.
void DrawGreatCircle(Target& target, const Net& net, Projection projection, int step,
                     bool showUpper, Direction pole, Pen pen);

/// Draws a line through the directions in their order. Where it leaves its hemisphere it ends on
/// the primitive circle and goes on from the point opposite.
void DrawNetPolyline(Target& target, const Net& net, Projection projection,
                     std::span<const Direction> directions, const Pen& pen);

}  // namespace velorix
