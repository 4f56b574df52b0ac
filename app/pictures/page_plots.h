#pragma once

#include "app/state/group_subject.h"
#include "app/state/plot_choices.h"
#include "plot/figure/figure_layout.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

/// What the page is drawn from.
struct PageContent {
  const velorix::Session& Session;
  const PlotChoices& Plots;
  const GroupStats& Group;
  const GroupSubject& GroupOf;
};

/// Draws the plots that the page has by the user's choice at their places, with the legend of the
/// groups; all lengths times `s`.
void DrawPlots(const PageContent& page, Target& target, const PagePlaces& places, double s);

}  // namespace velorix
