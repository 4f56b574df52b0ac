#pragma once

#include <vector>

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

/// Whether any plot is on the page.
bool HasPlots(const PlotChoices& plots);

/// The places of the plots on the page of 900 by 800 units.
PagePlaces PlacesOfPage();

/// How wide the numbers of a plot's axes are; zero for the net and for axes that are empty.
LabelWidths LabelsOf(const PageContent& page, PlotKind plot, TickDensity density);

/// A column along an axis of a plot that can be set by hand, and where it stands: "XY plot 1 X".
struct AxisColumn {
  Column Key;
  const char* Where;
};
std::vector<AxisColumn> AxisColumnsOf(const PlotChoices& plots, PlotKind plot);

/// Draws the plots that the page has by the user's choice at their places, with the legend of the
/// groups; all lengths times `s`.
void DrawPlots(const PageContent& page, Target& target, const PagePlaces& places, double s);

}  // namespace velorix
