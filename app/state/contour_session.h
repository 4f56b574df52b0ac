#pragma once

#include <cstdint>
#include <string>

#include "plot/plots/contour.h"
#include "stats/density/contour_grid.h"
#include "stats/density/density.h"

namespace velorix {

/// The data of a count and where they are from.
struct ContourSubject {
  std::string File;  // its name, without folder
  CoordinateSystem CoorSys = CoordinateSystem::None;
  ContourData Data;
};

/// What the contour window holds: its controls, the data in the picture and, unless `Count` is
/// empty, the count and what it is of. The densities are in `Grid`.
struct ContourSession {
  ContourOptions Options;
  ContourGrid Grid;
  ContourSubject InView, OfCount;
  std::int16_t Smooth = 0;  // of the count
  DensityCount Count;

  bool Counted() const { return Count.ContourNodeCount > 0; }
};

}  // namespace velorix
