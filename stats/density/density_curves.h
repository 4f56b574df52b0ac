#pragma once

#include <span>
#include <vector>

#include "stats/density/contour_grid.h"
#include "tensor/projection.h"

namespace velorix {

/// A density level as curves, in nodes of the grid: x along the columns, y along the rows.
struct DensityCurves {
  using Curve = std::vector<Point>;

  /// Where the density has the level: from rim to rim, or closed, with the first point at the end.
  std::vector<Curve> Lines;
  /// The closed borders of where the density is at least the level, along the rim where it is so
  /// there; a place within an odd number of them belongs to it.
  std::vector<Curve> Borders;
};

/// The curves of each level through the counted densities of the grid: they cross the sides of its
/// squares where the density between two nodes, along a straight line, has the level; in a square
/// with two curves the bilinear surface decides which corners belong together. Beyond the rim the
/// density goes on as at the opposite end of the axis, so that the curves meet the rim, a circle of
/// half the grid's width, and end on it.
std::vector<DensityCurves> CurvesOf(const ContourGrid& grid, std::span<const double> levels);

}  // namespace velorix
