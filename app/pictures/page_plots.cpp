#include "app/pictures/page_plots.h"

#include "app/tables/data_table.h"
#include "plot/plots/histogram.h"

namespace velorix {
namespace {

/// A place, times `s`.
template <class Geometry>
Geometry Scaled(Geometry place, double s) {
  place.scale = s;
  return place;
}

/// The same of a plot, with the axes set by hand.
PlotGeometry Scaled(PlotGeometry place, double s, const HandAxes& axes) {
  place.axes = &axes;
  return Scaled(place, s);
}

/// What the one legend of the groups looks like: their shapes, where a plot shows them, in their
/// colours.
LegendLook PageLegend(const PlotChoices& plots) {
  const PageOptions& page = plots.Page;
  bool values = page.stereonet && plots.Stereo.showData && plots.Stereo.colourByValue;
  for (const int plot : {1, 2})
    values |= (plot == 1 ? page.xyPlot1 : page.xyPlot2) && plots.XYPlot[plot].coding;
  if (plots.Marks.By == MarkBy::Colours && !values) return {NeutralSymbol, std::nullopt};
  return {};
}

}  // namespace

void DrawPlots(const PageContent& content, Target& target, const PagePlaces& places, double s) {
  const auto& [session, plots, group, groupOf] = content;
  const PageOptions& page = plots.Page;
  if (page.stereonet)
    DrawStereo(session.Records, session.CoorSys, target, Scaled(places.Net, s), plots.Stereo,
               session.ReImMode, group, session.Settings, plots.Marks);
  if (page.histogram)
    DrawHisto(target, Scaled(places.Histogram, s, plots.Axes),
              DataTableValues(plots.HistoParameter, session), plots.HistoParameter,
              session.Settings, ShownGroups(session, plots.Marks));
  for (const int plot : {1, 2})
    if (plot == 1 ? page.xyPlot1 : page.xyPlot2)
      DrawXYPlot(session, target, Scaled(places.XYPlot[plot], s, plots.Axes), plots.Shown(plot),
                 plots.Marks);
  if (page.stereonet || page.histogram || page.xyPlot1 || page.xyPlot2)
    DrawLegendIn(target, places.Legend, plots.Marks, PageLegend(plots), s);
}

}  // namespace velorix
