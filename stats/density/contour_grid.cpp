#include "stats/density/contour_grid.h"

#include <cmath>

#include "base/fault.h"
#include "base/rounding.h"
#include "tensor/projection.h"

namespace velorix {

namespace {

void Allocate(ContourGrid& grid, int first, int last) {
  grid = {};
  grid.First = first;
  grid.Last = last;
  const std::size_t nodes =
      static_cast<std::size_t>(grid.Side()) * static_cast<std::size_t>(grid.Side());
  grid.Inside.resize(nodes);
  for (auto* values : {&grid.Dec, &grid.Inc, &grid.X, &grid.Y, &grid.Z, &grid.Density})
    values->resize(nodes);
}

}  // namespace

void BuildContourGrid(ContourGrid& grid, int first, int last, int step) {
  if (last < first || step < 1) FailArgument();
  Allocate(grid, first, last);
  const double radius = last / 2.0;
  const Point centre{radius, radius}, upperRight{radius + radius, radius - radius};
  for (int j = first; j <= last; ++j)
    for (int i = first; i <= last; ++i) {
      const double dx = i - radius, dy = j - radius;
      if (dx * dx + dy * dy > radius * radius) continue;
      const std::size_t node = static_cast<std::size_t>(grid.Index(i, j));
      grid.Inside[node] = 1;
      ++grid.InsideCount;
      const Point place{static_cast<double>(i), static_cast<double>(j)};
      const Direction d = InverseEqualArea(MapPoint(place, centre, {0, 0}, upperRight, {1, 1}));
      const double dec = d.Dec / DegPerRad, inc = d.Inc / DegPerRad;
      grid.Dec[node] = static_cast<float>(d.Dec);
      grid.Inc[node] = static_cast<float>(d.Inc);
      grid.X[node] = static_cast<float>(std::cos(inc) * std::cos(dec));
      grid.Y[node] = static_cast<float>(std::cos(inc) * std::sin(dec));
      grid.Z[node] = static_cast<float>(std::sin(inc));
    }
  for (int j = first; j <= last; j += step)
    for (int i = first; i <= last; i += step)
      grid.ComputedCount += grid.Inside[static_cast<std::size_t>(grid.Index(i, j))];
}

}  // namespace velorix
