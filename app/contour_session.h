#pragma once

#include <cstdint>

#include "plot/contour.h"
#include "stats/density.h"

namespace velorix {

/// What the contour window holds: its controls, the data in the picture and, unless `Count` is
/// empty, what was counted of them. The densities stand in the session's grid.
struct ContourSession {
  ContourOptions Options;
  ContourData Data;
  std::int16_t CoorSys = 0;  // of the data
  std::int16_t Smooth = 0;   // of the count
  DensityCount Count;

  bool Counted() const { return Count.ContourNodeCount > 0; }
};

}  // namespace velorix
