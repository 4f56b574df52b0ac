#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "plot/axes/columns.h"
#include "plot/axes/plot_axis.h"
#include "plot/net/group_marks.h"

namespace velorix {

/// A point of an XY plot: its values, the value that colours it, and its group.
struct XYPoint {
  double x = 0, y = 0, z = 0;
  std::uint16_t group = NoGroup;
};

/// What a plot shows besides its axes and points.
struct XYPlotLook {
  bool frame = true;   // paper, title, axes, frame and colour scale, or only lines and points
  bool lines = false;  // connect the points
  std::string title;
  std::int16_t symbol = 3;
  Colour fill = Palette().points, penColour = Black;  // of symbols that no value colours
  Colour lineColour = 0x808080;
  MarkBy groupsBy = MarkBy::Nothing;  // what shows the points' groups, shapes their colours, too
  bool keepsFill = false;             // `fill` stands before the groups' colours
};

/// Draws a framed plot of `points`. Only points within both axes get a symbol; lines are cut at the
/// frame. With a colour axis the symbols are filled by `ColorScale` and, with the frame, the scale
/// stands at the right. Nothing is drawn when an axis has no extent. Gives the place of each point
/// on the target, NaN for one without a symbol.
std::vector<Point> PaintXYPlot(Target& target, const PlotGeometry& plot,
                               std::span<const XYPoint> points, const Axis& x, const Axis& y,
                               const std::optional<Axis>& colour, const XYPlotLook& look);

/// What the controls of an XY plot decide: columns of `PlotColumns`.
struct XYPlotOptions {
  Column x = Column::Field, y = Column::Field, colour = Column::Field;
  bool coding = false, lines = false;

  bool operator==(const XYPlotOptions&) const = default;
};

/// A plot that was drawn, as the mouse needs it: its two axes and where each record of the store
/// has its symbol, NaN for one without.
struct DrawnXYPlot {
  Axis x, y;
  std::vector<Point> symbols;
};

/// The plane that holds all that `DrawXYPlot` draws in the screen's geometry.
PlaneSize XYPlotPlane(const XYPlotOptions& options);

/// Draws two columns of the records in view against each other, the selected ones on top and
/// yellow. Gives nothing when nothing could be drawn: the axes come from the finite values, and a
/// point without one is left out. Groups have their colours, or their shapes and colours; where
/// values colour the symbols, their shapes alone.
std::optional<DrawnXYPlot> DrawXYPlot(const Session& session, Target& target,
                                      const PlotGeometry& plot, const XYPlotOptions& options,
                                      const GroupMarks& marks = GroupMarks());

/// The axes that `DrawXYPlot` draws, and that of the colour scale; empty ones where nothing can be
/// drawn.
struct XYPlotAxes {
  Axis x, y;
  std::optional<Axis> colour;
};
XYPlotAxes AxesOfXYPlot(const Session& session, const XYPlotOptions& options,
                        const HandAxes* byHand = nullptr);

/// What the legend of the groups below an XY plot looks like.
LegendLook XYPlotLegend(const XYPlotOptions& options, const GroupMarks& marks);

}  // namespace velorix
