#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "stats/density/contour_grid.h"

namespace velorix {

/// The directions that are counted: each property of the data is an array of its own.
struct ContourData {
  std::vector<float> Dec, Inc;  // degrees
  std::vector<float> X, Y, Z;   // unit vectors: north, east, down

  std::int16_t Count() const { return static_cast<std::int16_t>(Dec.size()); }
  /// Adds a direction in degrees, of any sign. "Overflow" beyond 32767.
  void Add(double dec, double inc);
};

/// What a count found. `MaxNode` is the first node of `ContourMax`, in the order of the grid's
/// arrays.
struct DensityCount {
  std::int16_t ContourDataCount = 0;
  std::int32_t ContourNodeCount = 0;     // nodes computed, all others lie between them
  float ContourMin = 0, ContourMax = 0;  // over the nodes within the circle
  std::size_t MaxNode = 0;
  float Seconds = 0;  // that the count took
};

/// Gets the share of the work done, 0 to 1 and never less than before, on the thread of the caller;
/// answers whether to go on. It is called after each row of nodes that this thread computes itself:
/// all of them when it is the only one, else as many as the others leave it, maybe none. Where
/// there are others, a last call with 1 follows when all rows are done.
using CountProgress = std::function<bool(double share)>;

/// The density of the data at every node within the circle, in multiples of a uniform density: at
/// every third node the sum of exp(`smooth` c c), c the cosine between node and datum whatever its
/// sign, divided by the mean of these nodes; on the nodes between, straight lines. A greater
/// `smooth` gives sharper peaks.
///
/// c, smooth c c and the sum of a node are 32-bit, the exponential 64-bit, and each node adds its
/// data in their order, so that the digits don't depend on `threads` (0: as many as the machine
/// has; a small count takes fewer). True when it finished; false without data, without a node in
/// the circle, or when `progress` answered no. "Overflow" where a sum leaves the 32-bit range (see
/// `DensityFits`), "Division by zero" where all are 0, by a `smooth` far below 0. Unless it
/// finished, grid and `count` are as they were.
bool CountDensity(ContourGrid& grid, const ContourData& data, std::int16_t smooth,
                  DensityCount& count, const CountProgress& progress = {}, int threads = 0);

/// Whether the sums of such a count stay within the 32-bit range. Costs as much as the count where
/// `smooth` and the number of data alone don't decide it.
bool DensityFits(const ContourGrid& grid, const ContourData& data, std::int16_t smooth);

/// The values of the contour levels: 1, 1 + Step, 1 + 2 Step and so on.
struct ContourLevels {
  std::int16_t Step = 1;
  std::vector<std::int16_t> Values;  // at least the level 1

  std::int16_t Top() const { return Values.back(); }
};

/// The levels for a maximum: with a step of 1 below 10, from there on with as many levels as one
/// and the same step allows, 15 at the most. "Overflow" from 32768 on.
ContourLevels LevelsOf(float contourMax);

}  // namespace velorix
