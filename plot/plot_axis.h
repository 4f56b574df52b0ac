#pragma once

#include <cmath>
#include <cstdint>
#include <string>

#include "plot/axis_scale.h"
#include "plot/drawing.h"
#include "tensor/projection.h"

namespace velorix {

/// An axis of a plot: its scale and its words.
struct Axis {
  AxisRange range;
  std::string label, unit;
  bool log = false;    // the values are logarithms; a tick shows 10 to its value
  bool power = false;  // ticks show the value divided by the power of ten of the lower end
  bool grid = false;   // a dotted grey line at each tick

  /// Nothing can be placed on it: it has no extent, or one beyond all numbers.
  bool IsEmpty() const {
    return !(range.upper > range.lower) || !std::isfinite(range.upper - range.lower);
  }
  /// Where a value lies, 0 at the lower end and 1 at the upper one; and the value there.
  double ShareOf(double value) const { return (value - range.lower) / (range.upper - range.lower); }
  double ValueAt(double share) const { return range.lower + share * (range.upper - range.lower); }
};

/// The number at a tick.
std::string TickText(const Axis& axis, double value);

/// Which ticks of an axis are labelled so that labels of `height` don't run into each other on
/// `length` units, along the text or across it: every one, or only the multiples of 2, 5, 10, ...
/// steps.
class TickLabels {
 public:
  TickLabels(const Axis& axis, double length, std::int16_t height, bool alongText);
  bool Has(double value) const;

 private:
  double step_;
  int every_ = 1;
};

/// The label with the power of ten and the unit in brackets: "Kmean [10^-4 SI]".
std::string AxisTitle(const Axis& axis);

/// What the mouse reads off the axis: "Kmean = 1.250 10^-4".
std::string AxisReadOut(const Axis& axis, double value);

/// Where a plot lies on its target: its frame, in whose unit square (0, 0) is the lower left
/// corner, and the sizes of letters and symbols. A negative height turns the plot upside down, its
/// labels then on the other side. The defaults are those of the screen; another target multiplies
/// all of them by one factor.
struct PlotGeometry {
  double left = 60, bottom = 245, width = 285, height = 205;
  std::int16_t fontHeight = 12, symbolSize = 8;

  /// A point of the unit square on the target, and the way back.
  Point At(double u, double v) const;
  Point FromTarget(const Point& p) const;
  /// The tick across an axis, and the height of letters.
  std::int16_t TickSize(double part) const;
  std::int16_t Letters(double factor) const;
};

/// Ticks, labels and title along the lower and the left side.
void DrawXAxis(Target& target, const PlotGeometry& plot, const Axis& axis);
void DrawYAxis(Target& target, const PlotGeometry& plot, const Axis& axis);

/// White paper under the plot and its title above it; the frame round it.
void DrawPlotGround(Target& target, const PlotGeometry& plot, const std::string& title);
void DrawPlotFrame(Target& target, const PlotGeometry& plot, Colour colour);

/// A text at (u, v) of the unit square, upright or reading upward.
void DrawPlotText(Target& target, const PlotGeometry& plot, const std::string& text, double u,
                  double v, const TextStyle& style);
void DrawPlotTextVertical(Target& target, const PlotGeometry& plot, const std::string& text,
                          double u, double v, const TextStyle& style);

}  // namespace velorix
