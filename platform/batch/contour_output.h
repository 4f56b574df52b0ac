#pragma once

#include <ostream>

#include "app/state/velorix.h"

namespace velorix {

/// The word of the option `--contour` for each of the `ContourDisplays`, between bars.
inline constexpr char ContourWords[] = "kmax|kint|kmin|foli|line";

/// Builds the grid and counts the density of one of the `ContourDisplays`; `shown`: with a line of
/// progress. False, with the reason on standard error, when there is nothing to count or it can't
/// be.
bool CountForBatch(Velorix& velorix, int display, int smooth, bool shown);

/// The count as JSON: what was counted, maximum, levels, and the density of node (i, j) as
/// `Density[i][j]`, null outside the circle.
void WriteContourJson(std::ostream& out, const ContourSession& contour);

/// Lines for the summary.
std::string ContourSummary(const ContourSession& contour);

}  // namespace velorix
