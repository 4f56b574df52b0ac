#pragma once

#include <span>
#include <string>

#include "plot/axes/columns.h"
#include "plot/axes/plot_axis.h"
#include "plot/net/group_marks.h"

namespace velorix {

/// Draws the frequency histogram of `values`. The classes are as wide as the value axis's major
/// step and closed at both ends. Kept for agreement with published results: so a value on the
/// boundary of two counts in both. Nothing is drawn when the axis has no extent. `groups`, the
/// group of each value or nothing, parts each bar: the groups stand one on the other in their
/// order and colours.
void PaintHistogram(Target& target, const PlotGeometry& plot, std::span<const double> values,
                    const Axis& axis, const std::string& title, Colour bars, Colour frame,
                    std::span<const std::uint16_t> groups = {});

/// Draws the histogram of the values of a column.
void DrawHisto(Target& target, const PlotGeometry& plot, std::span<const double> values,
               Column column, const Settings& settings, std::span<const std::uint16_t> groups = {});

/// What the legend of the groups below the histogram looks like.
inline constexpr LegendLook HistoLegend = {1, std::nullopt};

/// The plane that holds all that `DrawHisto` draws in the screen's geometry.
inline constexpr PlaneSize HistoPlane = {360, 290};

}  // namespace velorix
