#pragma once

#include <string>

#include "plot/axes/plot_axis.h"
#include "stats/study/untilting.h"

namespace velorix {

/// Where the figure of an untilting stands on its plane. Curves go to whole units, so that the
/// plane is larger than those of the screen.
inline constexpr PlotGeometry UntiltingPlot = {
    .left = 120, .bottom = 490, .width = 640, .height = 410, .fontHeight = 24, .symbolSize = 16};
inline constexpr PlaneSize UntiltingPlane = {840, 740};
inline constexpr int UntiltingUnitsPerInch = 200;
inline constexpr double UntiltingScale = 2;  // pixels of a unit

/// Draws tau of Kmax and Kmin against the share of the dip, the best steps as symbols, their 95 %
/// limits as bands and lines at 0 and 100 %; below the plot the limits and verdicts in words, and
/// what they are of, last the `heading`, shortened where it is too long. The frame and the words
/// alone where no group counts.
void DrawUntilting(Target& target, const PlotGeometry& plot, const Untilting& untilting,
                   const std::string& heading);

}  // namespace velorix
