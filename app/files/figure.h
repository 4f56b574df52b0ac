#pragma once

#include <string>

#include "app/state/host.h"
#include "app/state/plot_choices.h"
#include "plot/figure/figure_style.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

// A figure for a publication: the plots of the page in a style.

/// A figure's logical units an inch.
inline constexpr int FigureUnitsPerInch = 1000;

/// What a figure shows.
struct FigureSubject {
  const velorix::Session& Session;
  const PlotChoices& Plots;
  const velorix::GroupStats& Group;
};

/// The plane of a figure.
PlaneSize FigurePlane(const FigureSubject& subject, const FigureStyle& style);

/// Draws a figure on its plane.
void DrawFigure(const FigureSubject& subject, const FigureStyle& style, Target& target);

/// Writes a figure as a file of the type of the path's extension, in any case: wmf, or one of the
/// host's pictures. A resolution that would give more than 250 million pixels, another type and a
/// place that can't be written are refused; the old file then stays.
Outcome WriteFigureFile(const Host& host, const std::string& path, const FigureSubject& subject,
                        const FigureStyle& style);

}  // namespace velorix
