#pragma once

#include <cstdint>
#include <optional>

#include "base/slots.h"
#include "plot/net/net.h"
#include "stats/density/density.h"
#include "store/coordinates.h"

namespace velorix {

/// What can be counted: a principal direction, the pole of a foliation, a lineation.
enum class ContourDisplay : std::int8_t { Kmax = 1, Kint, Kmin, FoliationPole, Lineation };

/// How it is named and drawn.
struct ContourDisplayInfo {
  ContourDisplay Key;
  const char *Name, *Word;  // in the window; for the console
  velorix::Colour Colour;   // of the greatest density and of the data
  std::int16_t Symbol, Size;
};
// clang-format off
inline constexpr ContourDisplayInfo ContourDisplays[] = {
    {ContourDisplay::Kmax,          "Kmax",           "kmax", 255,      1, 5},
    {ContourDisplay::Kint,          "Kint",           "kint", 65280,    2, 5},
    {ContourDisplay::Kmin,          "Kmin",           "kmin", 0xFF0000, 3, 6},
    {ContourDisplay::FoliationPole, "Foliation Pole", "foli", 0xC0C000, 3, 6},
    {ContourDisplay::Lineation,     "Lineation",      "line", 0x800080, 1, 5}};
// clang-format on
constexpr const ContourDisplayInfo& InfoOf(ContourDisplay display) {
  return ContourDisplays[static_cast<int>(display) - 1];
}

/// What the controls of the contour window decide.
struct ContourOptions {
  std::int16_t smoothing = 20;  // of the next count
  ContourDisplay display = ContourDisplay::Kmax;
  bool discrete = true;      // levels, else a continuous ramp
  bool showContours = true;  // black lines between the levels
  bool curves = false;       // levels as smooth curves, else node by node
  bool showGridPoints = false;
  bool showData = true;
  bool showProgress = true;

  bool operator==(const ContourOptions&) const = default;
};

/// Node (0, 0) of the grid on the contour picture, and the picture's net, a unit a node.
inline constexpr LogicalPoint ContourCorner = {30, 30};
inline constexpr Net ContourNet = {ContourCorner.x + ContourLast / 2.0,
                                   ContourCorner.y + ContourLast / 2.0, ContourLast};
/// The plane of the picture with its legend.
inline constexpr PlaneSize ContourPlane = {486, 360};

/// Draws the counted densities, the net, the data and the legend; the net with the data alone while
/// `count` is empty.
void DrawContour(Target& target, const ContourGrid& grid, const ContourData& data,
                 const DensityCount& count, CoordinateSystem coorSys,
                 const ContourOptions& options);

/// The node of the grid at a place of the plane, when it lies within the circle.
std::optional<std::size_t> ContourNodeAt(const ContourGrid& grid, double x, double y);
/// Whether a place of the plane lies on the legend.
bool IsOnContourLegend(double x, double y);

}  // namespace velorix
