#pragma once

#include <cstdint>
#include <optional>

#include "base/slots.h"
#include "plot/net/net.h"
#include "stats/density.h"
#include "store/coordinates.h"

namespace velorix {

/// What the controls of the contour window decide.
struct ContourOptions {
  std::int16_t smoothing = 20;  // of the next count
  std::int16_t display = 1;     // what is counted, see `ContourDisplays`
  bool discrete = true;         // levels, else a continuous ramp
  bool showContours = true;     // black lines between the levels
  bool showGridPoints = false;
  bool showData = true;
  bool showProgress = true;

  bool operator==(const ContourOptions&) const = default;
};

/// What can be counted, and how it is drawn.
struct ContourDisplay {
  const char* Name;
  velorix::Colour Colour;  // of the greatest density and of the data
  std::int16_t Symbol, Size;
};
inline constexpr Array1<ContourDisplay, 5> ContourDisplays = {{{"Kmax", 255, 1, 5},
                                                               {"Kint", 65280, 2, 5},
                                                               {"Kmin", 0xFF0000, 3, 6},
                                                               {"Foliation Pole", 0xC0C000, 3, 6},
                                                               {"Lineation", 0x800080, 1, 5}}};

/// Node (0, 0) of the grid on the contour picture, and the picture's net, a unit a node.
inline constexpr LogicalPoint ContourCorner = {30, 30};
inline constexpr Net ContourNet = {ContourCorner.x + ContourLast / 2.0,
                                   ContourCorner.y + ContourLast / 2.0, ContourLast};
/// The plane of the picture with its legend.
inline constexpr PlaneSize ContourPlane = {486, 360};

/// Draws the counted densities, the net, the data and the legend; the net with the data alone while
/// `count` is empty. Colours and levels of the nodes are made anew, their densities stay.
void DrawContour(Target& target, ContourGrid& grid, const ContourData& data,
                 const DensityCount& count, CoordinateSystem coorSys,
                 const ContourOptions& options);

/// The node of the grid at a place of the plane, when it lies within the circle.
std::optional<std::size_t> ContourNodeAt(const ContourGrid& grid, double x, double y);
/// Whether a place of the plane lies on the legend.
bool IsOnContourLegend(double x, double y);

}  // namespace velorix
