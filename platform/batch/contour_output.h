#pragma once

#include <ostream>

#include "app/commands/velorix.h"

namespace velorix {

/// Builds the grid and counts the density; `shown`: with a line of progress. False, with the reason
/// on standard error, when there is nothing to count or it can't be.
bool CountForBatch(Velorix& velorix, ContourDisplay display, int smooth, bool shown);

/// The count as JSON: what was counted, maximum, levels, and the density of node (i, j) as
/// `Density[i][j]`, null outside the circle.
void WriteContourJson(std::ostream& out, const ContourSession& contour);

/// Lines for the summary.
std::string ContourSummary(const ContourSession& contour);

}  // namespace velorix
