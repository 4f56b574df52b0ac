#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "plot/axes/plot_axis.h"
#include "store/session.h"

namespace velorix {

/// A point of an XY plot: its values and the value that colours it.
struct XYPoint {
  double x = 0, y = 0, z = 0;
};

/// What a plot shows besides its axes and points.
struct XYPlotLook {
  bool frame = true;   // paper, title, axes, frame and colour scale, or only lines and points
  bool lines = false;  // connect the points
  bool zeroX = true, zeroY = true, diagonal = false;  // lines at 0, and from corner to corner
  std::string title;
  std::int16_t symbol = 3;
  Colour fill = 0xD28C5A, penColour = Black;  // of the symbols; `fill` where no value colours them
  Colour lineColour = 0x808080, frameColour = Black;
};

/// Draws a framed plot of `points`. Only points within both axes get a symbol; lines are cut at the
/// frame. With a colour axis the symbols are filled by `ColorScale` and, with the frame, the scale
/// stands at the right. Nothing is drawn when an axis has no extent. Gives the place of each point
/// on the target, NaN for one without a symbol.
std::vector<Point> PaintXYPlot(Target& target, const PlotGeometry& plot,
                               std::span<const XYPoint> points, const Axis& x, const Axis& y,
                               const std::optional<Axis>& colour, const XYPlotLook& look);

/// What the controls of an XY plot decide. The parameters are counted as in plot/axes/parameters.h.
struct XYPlotOptions {
  int x = 1, y = 1, colour = 1;
  bool coding = false, lines = false;

  bool operator==(const XYPlotOptions&) const = default;
};

/// The two axes of a plot that was drawn.
struct XYPlotAxes {
  Axis x, y;
};

/// The plane that holds all that `DrawXYPlot` draws in the screen's geometry.
PlaneSize XYPlotPlane(const XYPlotOptions& options);

/// Draws two parameters of the records in view against each other, the selected ones on top and
/// yellow. Gives the axes, or none when nothing could be drawn: the axes come from the finite
/// values, and a point without one is left out.
std::optional<XYPlotAxes> DrawXYPlot(const Session& session, Target& target,
                                     const PlotGeometry& plot, const XYPlotOptions& options);

/// The same, and keeps the places of the symbols in slot `slot` of `PlotX` and `PlotY` of all
/// records, NaN where there is none, for the mouse to find them.
std::optional<XYPlotAxes> DrawXYPlot(Session& session, Target& target, const PlotGeometry& plot,
                                     const XYPlotOptions& options, int slot);

}  // namespace velorix
