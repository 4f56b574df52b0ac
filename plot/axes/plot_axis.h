#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "plot/axes/axis_scale.h"
#include "plot/axes/hand_axis.h"
#include "plot/axes/plot_style.h"
#include "plot/drawing/drawing.h"
#include "tensor/projection.h"

namespace velorix {

/// An axis of a plot: its scale and its words. Positions on it are values of what it shows, on a
/// logarithmic axis their decimal logarithms.
struct Axis {
  AxisRange range;
  std::string label, unit;
  bool log = false;       // a tick shows 10 to its position
  bool power = false;     // ticks show the value divided by a power of ten, that of the lower end
  bool grid = false;      // a dotted grey line at each tick
  bool reversed = false;  // the lower end stands at the right or at the top
  // Of an axis set by hand: the power of ten, and the decimals of the numbers.
  std::optional<int> tens = {}, decimals = {};

  /// Nothing can be placed on it: it has no extent, or one beyond all numbers.
  bool IsEmpty() const {
    return !(range.upper > range.lower) || !std::isfinite(range.upper - range.lower);
  }
  /// Where a value lies; NaN for one that a logarithmic axis does not have.
  double PositionOf(double value) const {
    if (!log) return value;
    return value > 0 ? std::log10(value) : std::numeric_limits<double>::quiet_NaN();
  }
  double ValueAt(double position) const { return log ? std::pow(10, position) : position; }
  bool IsByHand() const { return log || decimals; }
  /// The share of the axis before a position, 0 at the left or lower side of the plot and 1 at the
  /// other; and the position there.
  double ShareOf(double position) const {
    const double share = (position - range.lower) / (range.upper - range.lower);
    return reversed ? 1 - share : share;
  }
  double PositionAt(double share) const {
    return range.lower + (reversed ? 1 - share : share) * (range.upper - range.lower);
  }
};

/// The number at a tick.
std::string TickText(const Axis& axis, double position);

/// The ticks of an axis whose labels take `room`, a share of its length: `TicksOf`. On a
/// logarithmic axis the major ones stand at 1 to 9, at 1, 2 and 5 or at 1 times the powers of ten,
/// or at some of these, as far apart as the step at least.
Ticks AxisTicks(const Axis& axis, double room);

/// The ticks of an axis of `length` units whose labels of `height` don't run into each other along
/// the text or across it. Both are those of scale 1, so that each target gets the same ticks. A
/// plot with fewer ticks gives each label more room.
Ticks LabelledTicks(const Axis& axis, double length, double height, bool alongText,
                    TickDensity density = TickDensity::AsNow);

/// The axis as its ticks are chosen: with a finer step for a plot with more of them.
Axis TickedAxis(Axis axis, TickDensity density);

/// The label with the power of ten and the unit in brackets: "Kmean [10^-4 SI]".
std::string AxisTitle(const Axis& axis);

/// What the mouse reads off the axis: "Kmean = 1.250 10^-4".
std::string AxisReadOut(const Axis& axis, double position);

/// Where a plot lies on its target: its frame, in whose unit square (0, 0) is the lower left
/// corner, and the sizes of letters and symbols. A negative height turns the plot upside down, its
/// labels then on the other side. The defaults are those of the screen. `scale` multiplies all of
/// them; sizes of letters, symbols and ticks are rounded once, behind it.
struct PlotGeometry {
  double left = 60, bottom = 245, width = 285, height = 205;
  double fontHeight = 12, symbolSize = 8;
  // From the frame to the left and the right side of the colour scale, and to its title's baseline.
  double barLeft = 55, barRight = 65, barTitle = 81;
  // From the frame to the baselines of the axes' titles and of the plot's, in its width or height.
  double titleLeft = 0.14, titleBelow = 0.16, titleAbove = 0.08;
  // From the frame to the numbers, in its width or height.
  double numbersLeft = 0.02, numbersBelow = 0.015;
  double scale = 1;
  PlotStyle style = {};
  const HandAxes* axes = nullptr;  // those set by hand, which outlive the drawing

  /// A point of the unit square on the target, and the way back.
  Point At(double u, double v) const;
  Point FromTarget(const Point& p) const;
  /// The tick across an axis, the height of letters, and a symbol.
  std::int16_t TickSize(double part) const;
  std::int16_t Letters(double factor) const;
  std::int16_t SymbolSize() const;
};

/// Ticks, labels and title along the lower and the left side.
void DrawXAxis(Target& target, const PlotGeometry& plot, const Axis& axis,
               const std::string& title);
void DrawYAxis(Target& target, const PlotGeometry& plot, const Axis& axis,
               const std::string& title);

/// White paper under the plot, the title above it, the frame round it; and the paper and the frame
/// alone, which a plot without records shows.
void DrawPlotPaper(Target& target, const PlotGeometry& plot);
void DrawPlotTitle(Target& target, const PlotGeometry& plot, const std::string& title);
void DrawPlotFrame(Target& target, const PlotGeometry& plot, Colour colour);
void DrawEmptyPlot(Target& target, const PlotGeometry& plot);

/// A text at (u, v) of the unit square, upright or reading upward.
void DrawPlotText(Target& target, const PlotGeometry& plot, const std::string& text, double u,
                  double v, const TextStyle& style);
void DrawPlotTextVertical(Target& target, const PlotGeometry& plot, const std::string& text,
                          double u, double v, const TextStyle& style);

}  // namespace velorix
