#pragma once

#include <optional>
#include <span>
#include <string>

#include "plot/net/group_marks.h"
#include "plot/net/stereo.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "store/session.h"

namespace velorix {

// What the symbol under the mouse stands for, in words; empty where there is none. Of symbols that
// cover each other the topmost counts. A symbol reaches 0.6 of its size from its centre. Places are
// in the units of the picture's plane; in a picture that is `zoom` times enlarged symbols keep
// their size, so they take so much less of the plane.

/// A direction of a record in view, "GR-07, Kmax 132.4 / 12.8", or of a mean that is shown.
std::string NameInStereo(const Session& session, const StereoOptions& options,
                         const GroupStats& stats, const GroupMarks& marks, const Point& mouse,
                         double zoom);

/// A record with the two values of the data table, "GR-07, Kmean 1.250E-04, P 1.108".
std::string NameInXYPlot(const Session& session, const XYPlotOptions& options,
                         const std::optional<DrawnXYPlot>& drawn, const Point& mouse, double zoom);

/// The bounds and the count of a bar's class, "P 1.02 to 1.04, 12 specimens". A low bar counts as
/// one that is high enough for the mouse.
std::string NameInHisto(Column column, const Settings& settings, std::span<const HistoBar> bars,
                        const Point& mouse, double zoom);

}  // namespace velorix
