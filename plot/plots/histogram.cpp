#include "plot/plots/histogram.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "plot/axes/column_axis.h"

namespace velorix {
namespace {

struct HistoClass {
  double lower = 0, upper = 0;
  std::int64_t count = 0;
};

std::vector<HistoClass> CountClasses(std::span<const double> values, const AxisRange& range) {
  const std::vector<double> edges = ClassEdges(range);
  std::vector<HistoClass> classes;
  for (std::size_t i = 1; i < edges.size(); ++i) {
    const double lower = edges[i - 1], upper = edges[i];
    const auto within = [=](double value) { return lower <= value && value <= upper; };
    classes.push_back({lower, upper, std::count_if(values.begin(), values.end(), within)});
  }
  return classes;
}

}  // namespace

void PaintHistogram(Target& target, const PlotGeometry& plot, std::span<const double> values,
                    const Axis& axis, const std::string& title, Colour bars, Colour frame) {
  if (axis.IsEmpty()) return;
  DrawPlotPaper(target, plot);
  DrawPlotTitle(target, plot, title);
  const std::vector<HistoClass> classes = CountClasses(values, axis.range);
  std::int64_t highest = 0;
  for (const HistoClass& c : classes) highest = std::max(highest, c.count);
  Axis counts;
  counts.range = AxisScale(0, static_cast<double>(highest));
  counts.grid = true;

  DrawXAxis(target, plot, axis, AxisTitle(axis));
  for (const HistoClass& c : classes) {
    // The class that begins at the upper end lies outside the frame.
    if (c.count == 0 || c.upper > axis.range.upper + 0.5 * axis.range.step) continue;
    const Point foot = plot.At(axis.ShareOf(c.lower), 0);
    const Point top = plot.At(axis.ShareOf(c.upper), counts.ShareOf(static_cast<double>(c.count)));
    DrawRectangle(target, foot.x, foot.y, top.x, top.y, {.colour = frame}, bars);
  }
  DrawYAxis(target, plot, counts, "Counts");
  DrawPlotFrame(target, plot, frame);
}

void DrawHisto(Target& target, const PlotGeometry& plot, std::span<const double> values,
               Column column, const Settings& settings) {
  target.SetTransparent();
  if (values.empty()) return DrawEmptyPlot(target, plot);
  Extent extent;
  for (const double value : values) extent.Add(value);
  if (extent.IsEmpty()) return;
  // Before the scale is chosen, so that the classes suit the range; ColumnAxis does it again.
  extent = ImposeBounds(column, extent);
  const Axis axis = ColumnAxis(column, extent.lower, extent.upper, settings);
  PaintHistogram(target, plot, values, axis, axis.label, InfoOf(column).colour, Black);
}

}  // namespace velorix
