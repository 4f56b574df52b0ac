#pragma once

#include <span>
#include <string>

#include "plot/axes/columns.h"
#include "plot/axes/plot_axis.h"

namespace velorix {

/// Draws the frequency histogram of `values`. The classes are as wide as the value axis's major
/// step and closed at both ends. Kept for agreement with published results: so a value on the
/// boundary of two counts in both. Nothing is drawn when the axis has no extent.
void PaintHistogram(Target& target, const PlotGeometry& plot, std::span<const double> values,
                    const Axis& axis, const std::string& title, Colour bars, Colour frame);

/// Draws the histogram of the values of a column.
void DrawHisto(Target& target, const PlotGeometry& plot, std::span<const double> values,
               Column column, const Settings& settings);

/// The plane that holds all that `DrawHisto` draws in the screen's geometry.
inline constexpr PlaneSize HistoPlane = {360, 290};

}  // namespace velorix
