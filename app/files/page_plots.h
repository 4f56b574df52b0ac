#pragma once

#include "app/state/plot_choices.h"
#include "plot/figure/figure_layout.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

/// Draws the plots that the page has by the user's choice at their places, with the legend of the
/// groups; all lengths times `s`.
void DrawPlots(const Session& session, const PlotChoices& plots, const GroupStats& group,
               Target& target, const PagePlaces& places, double s);

}  // namespace velorix
