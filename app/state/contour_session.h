#pragma once

#include <cstdint>
#include <string>

#include "plot/plots/contour.h"
#include "stats/density.h"

namespace velorix {

/// The data of a count and where they are from.
struct ContourSubject {
  std::string File;  // its name, without folder
  CoordinateSystem CoorSys = CoordinateSystem::None;
  ContourData Data;
};

/// What the contour window holds: its controls, the data in the picture and, unless `Count` is
/// empty, the count and what it is of. The densities stand in the session's grid.
struct ContourSession {
  ContourOptions Options;
  ContourSubject InView, OfCount;
  std::int16_t Smooth = 0;  // of the count
  DensityCount Count;

  bool Counted() const { return Count.ContourNodeCount > 0; }
};

}  // namespace velorix
