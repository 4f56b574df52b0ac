#pragma once

#include <optional>
#include <span>
#include <vector>

#include "tensor/projection.h"

namespace velorix {

// Points and boxes in the plane.

/// Whether `value` lies between the smaller and the larger of `a` and `b`; the ends belong to it
/// unless it is `open`.
bool Between(double value, double a, double b, bool open = false);

/// Whether (x, y) lies in the box with two opposite corners (x1, y1) and (x2, y2), edges included.
/// What is not a number lies in no box.
bool InBox(double x, double y, double x1, double y1, double x2, double y2);

double PointDistance(const Point& a, const Point& b);

/// The point that the segments a-b and c-d share, ends included; none for parallel ones.
std::optional<Point> SegmentsIntersect(const Point& a, const Point& b, const Point& c,
                                       const Point& d);

/// The parts of the line through `points` that lie in the box with two opposite corners, edges
/// included: runs of at least two points in the order of the line. A point that is not finite
/// interrupts the line.
std::vector<std::vector<Point>> ClipPolylineToBox(std::span<const Point> points,
                                                  const Point& corner, const Point& opposite);

}  // namespace velorix
