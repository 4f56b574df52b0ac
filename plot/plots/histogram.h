#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "plot/axes/columns.h"
#include "plot/axes/plot_axis.h"
#include "plot/net/group_marks.h"

namespace velorix {

/// Whether a class counts a value: both bounds belong to it. Kept for agreement with published
/// results: so a value on the boundary of two counts in both.
inline bool IsInClass(double value, double lower, double upper) {
  return lower <= value && value <= upper;
}

/// A bar that was drawn: the bounds of its class, how many values are in it, and two opposite
/// corners on the target.
struct HistoBar {
  double lower = 0, upper = 0;
  std::int64_t count = 0;
  Point foot, top;
};

/// Draws the frequency histogram of `values`, and gives its bars from left to right. The classes
/// (`IsInClass`) are as wide as the value axis's major step. Nothing is drawn when the
/// axis has no extent. `groups`, the group of each value or nothing, parts each bar: the groups
/// stand one on the other in their order and colours.
std::vector<HistoBar> PaintHistogram(Target& target, const PlotGeometry& plot,
                                     std::span<const double> values, const Axis& axis,
                                     const std::string& title, Colour bars, Colour frame,
                                     std::span<const std::uint16_t> groups = {});

/// Draws the histogram of the values of a column, and gives its bars.
std::vector<HistoBar> DrawHisto(Target& target, const PlotGeometry& plot,
                                std::span<const double> values, Column column,
                                const Settings& settings,
                                std::span<const std::uint16_t> groups = {});

/// What the legend of the groups below the histogram looks like.
inline constexpr LegendLook HistoLegend = {1, std::nullopt};

/// The plane that holds all that `DrawHisto` draws in the screen's geometry.
inline constexpr PlaneSize HistoPlane = {360, 290};

}  // namespace velorix
