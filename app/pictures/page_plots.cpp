#include "app/pictures/page_plots.h"

#include <algorithm>

#include "app/tables/data_table.h"
#include "plot/axes/column_axis.h"
#include "plot/drawing/fitting_text.h"
#include "plot/plots/histogram.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// A place, times `s`.
template <class Geometry>
Geometry Scaled(Geometry place, double s) {
  place.scale = s;
  return place;
}

/// The place of a plot with a frame, with the axes set by hand.
PlotGeometry FrameOf(const PageContent& page, const PagePlaces& places, PlotKind plot, double s) {
  PlotGeometry place = Scaled(places.Frame[plot], s);
  place.axes = &page.Plots.Axes;
  return place;
}

/// The width of an axis's numbers, in heights of letters.
double LabelWidth(const Axis& axis, TickDensity density) {
  if (axis.IsEmpty()) return 0;
  const Axis ticked = TickedAxis(axis, density);
  double width = 0;
  for (const double value : AxisTicks(ticked, 0).major)
    width = std::max(width, TextWidth(std::string(StripBlanks(TickText(ticked, value)))));
  return width;
}

void DrawNet(const PageContent& page, Target& target, const PagePlaces& places, double s) {
  DrawStereo(page.Session.Records, page.Session.CoorSys, target, Scaled(places.Net, s),
             page.Plots.Stereo, page.Session.ReImMode, page.Group, page.Session.Settings,
             page.Plots.Marks);
}

LabelWidths NoLabels(const PageContent&, TickDensity) { return {}; }

bool NetShowsValues(const PlotChoices& plots) {
  return plots.Stereo.showData && plots.Stereo.colourByValue;
}

void DrawHistogram(const PageContent& page, Target& target, const PagePlaces& places, double s) {
  const Column column = page.Plots.HistoParameter;
  DrawHisto(target, FrameOf(page, places, PlotKind::Histogram, s),
            DataTableValues(column, page.Session), column, page.Session.Settings,
            ShownGroups(page.Session, page.Plots.Marks));
}

/// The numbers at the histogram's counts have as many digits as the greatest count.
LabelWidths HistogramLabels(const PageContent& page, TickDensity) {
  const std::size_t values = DataTableValues(page.Plots.HistoParameter, page.Session).size();
  return {TextWidth(PlainText(static_cast<int>(values))) + TextWidth("0"), {}};
}

bool ShowsNoValues(const PlotChoices&) { return false; }

template <int Plot>
void DrawXY(const PageContent& page, Target& target, const PagePlaces& places, double s) {
  DrawXYPlot(page.Session, target, FrameOf(page, places, XYPlotKind(Plot), s),
             page.Plots.Shown(Plot), page.Plots.Marks);
}

template <int Plot>
LabelWidths XYLabels(const PageContent& page, TickDensity density) {
  const XYPlotAxes axes = AxesOfXYPlot(page.Session, page.Plots.Shown(Plot), &page.Plots.Axes);
  LabelWidths labels = {LabelWidth(axes.y, density), {}};
  if (axes.colour) labels.Scale = LabelWidth(*axes.colour, TickDensity::AsNow);
  return labels;
}

template <int Plot>
bool XYShowsValues(const PlotChoices& plots) {
  return plots.XYPlot[Plot].coding;
}

std::vector<AxisColumn> NoAxes(const PlotChoices&) { return {}; }

std::vector<AxisColumn> HistogramAxes(const PlotChoices& plots) {
  return {{plots.HistoParameter, "Histogram"}};
}

template <int Plot>
std::vector<AxisColumn> XYAxes(const PlotChoices& plots) {
  return {{plots.XYPlot[Plot].x, Plot == 1 ? "XY plot 1 X" : "XY plot 2 X"},
          {plots.XYPlot[Plot].y, Plot == 1 ? "XY plot 1 Y" : "XY plot 2 Y"}};
}

/// Titles, axis titles and numbers of the XY plots are 14, 10 and 9 high: 1.5, 1.1 and 1 times 9.
/// Their colour scales stand nearer than on the screen, so that the second one ends on the page.
constexpr PlotGeometry XYPlotAt(double left) {
  return {.left = left,
          .bottom = 620,
          .width = 320,
          .height = 180,
          .fontHeight = 9,
          .symbolSize = 8,
          .barLeft = 23,
          .barRight = 31,
          .barTitle = 45};
}

/// A plot of the page.
struct PagePlot {
  PlotKind Plot;
  PlotGeometry Place;  // on the page; not of the net
  void (*Draw)(const PageContent&, Target&, const PagePlaces&, double s);
  LabelWidths (*Labels)(const PageContent&, TickDensity);
  bool (*ShowsValues)(const PlotChoices&);  // whether a value colours its symbols
  std::vector<AxisColumn> (*Axes)(const PlotChoices&);
};

const PagePlot& RowOf(PlotKind plot) {
  // clang-format off
  static const PagePlot rows[] = {
      {PlotKind::Stereonet, {},           DrawNet,       NoLabels,        NetShowsValues,   NoAxes},
      {PlotKind::Histogram, {.left = 530, .bottom = 340, .width = 320, .height = 240, .fontHeight = 14},
                                          DrawHistogram, HistogramLabels, ShowsNoValues,    HistogramAxes},
      {PlotKind::XYPlot1,   XYPlotAt(60), DrawXY<1>,     XYLabels<1>,     XYShowsValues<1>, XYAxes<1>},
      {PlotKind::XYPlot2,   XYPlotAt(530), DrawXY<2>,    XYLabels<2>,     XYShowsValues<2>, XYAxes<2>},
  };
  // clang-format on
  static_assert(std::size(rows) == AllPlots.size());
  return *std::find_if(std::begin(rows), std::end(rows),
                       [plot](const PagePlot& row) { return row.Plot == plot; });
}

/// What the one legend of the groups looks like: their shapes, where a plot shows them, in their
/// colours.
LegendLook PageLegend(const PlotChoices& plots) {
  const bool values = std::any_of(AllPlots.begin(), AllPlots.end(), [&](PlotKind plot) {
    return plots.OnPage[plot] && RowOf(plot).ShowsValues(plots);
  });
  if (plots.Marks.By == MarkBy::Colours && !values) return {NeutralSymbol, std::nullopt};
  return {};
}

}  // namespace

bool HasPlots(const PlotChoices& plots) {
  return std::any_of(AllPlots.begin(), AllPlots.end(),
                     [&](PlotKind plot) { return plots.OnPage[plot]; });
}

PagePlaces PlacesOfPage() {
  PagePlaces places;
  places.Net = {.cx = 220, .cy = 200, .diameter = 320, .symbolSize = 8, .fontHeight = 14};
  for (const PlotKind plot : AllPlots) places.Frame[plot] = RowOf(plot).Place;
  places.Legend = {60, 675, 860, 795};
  return places;
}

LabelWidths LabelsOf(const PageContent& page, PlotKind plot, TickDensity density) {
  return RowOf(plot).Labels(page, density);
}

std::vector<AxisColumn> AxisColumnsOf(const PlotChoices& plots, PlotKind plot) {
  return RowOf(plot).Axes(plots);
}

void DrawPlots(const PageContent& page, Target& target, const PagePlaces& places, double s) {
  for (const PlotKind plot : AllPlots)
    if (page.Plots.OnPage[plot]) RowOf(plot).Draw(page, target, places, s);
  if (HasPlots(page.Plots))
    DrawLegendIn(target, places.Legend, page.Plots.Marks, PageLegend(page.Plots), s);
}

}  // namespace velorix
