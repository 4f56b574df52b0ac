#include "plot/histogram.h"

#include <algorithm>
#include <vector>

#include "plot/clip.h"
#include "plot/colour_scales.h"
#include "plot/parameters.h"

namespace velorix {
namespace {

struct HistoClass {
  double lower = 0, upper = 0;
  int count = 0;
};

std::vector<HistoClass> CountClasses(std::span<const double> values, const AxisRange& range) {
  std::vector<double> sorted(values.begin(), values.end());
  std::sort(sorted.begin(), sorted.end());
  std::vector<HistoClass> classes;
  ForEachTick(range, [&](double lower) {
    const double upper = lower + range.step;
    const auto from = std::lower_bound(sorted.begin(), sorted.end(), lower);
    const auto to = std::upper_bound(from, sorted.end(), upper);
    classes.push_back({lower, upper, static_cast<int>(to - from)});
  });
  return classes;
}

Colour BarColour(int parameter) {
  if (parameter == KmeanParameter) return 0xFF00FF;
  if (parameter <= 11) return 0xFFFF00;
  if (parameter <= 13) return Red;
  if (parameter <= 15) return Green;
  if (parameter <= 17) return Blue;
  return GrayLevel(128);
}

}  // namespace

void PaintHistogram(Target& target, const PlotGeometry& plot, std::span<const double> values,
                    const Axis& axis, const std::string& title, Colour bars, Colour frame) {
  if (axis.IsEmpty()) return;
  DrawPlotGround(target, plot, title);
  const std::vector<HistoClass> classes = CountClasses(values, axis.range);
  int highest = 0;
  for (const HistoClass& c : classes) highest = std::max(highest, c.count);
  Axis counts;
  counts.range = AxisScale(0, highest);
  counts.label = "Counts";
  counts.grid = true;

  DrawXAxis(target, plot, axis);
  for (const HistoClass& c : classes) {
    // The class that begins at the upper end lies outside the frame.
    if (c.count == 0 || c.upper > axis.range.upper + 0.5 * axis.range.step) continue;
    const Point foot = plot.At(axis.ShareOf(c.lower), 0);
    const Point top = plot.At(axis.ShareOf(c.upper), counts.ShareOf(c.count));
    DrawRectangle(target, foot.x, foot.y, top.x, top.y, {.colour = frame}, bars);
  }
  DrawYAxis(target, plot, counts);
  DrawPlotFrame(target, plot, frame);
}

void DrawHisto(Target& target, const PlotGeometry& plot, std::span<const double> values,
               int parameter, const Settings& settings) {
  target.SetTransparent();
  Extent extent;
  for (const double value : values) extent.Add(value);
  if (extent.IsEmpty()) return;
  // Before the scale is chosen, so that the classes suit the range; ParameterAxis does it again.
  extent = ImposeBounds(parameter, extent);
  const Axis axis = ParameterAxis(parameter, extent.lower, extent.upper, settings);
  PaintHistogram(target, plot, values, axis, axis.label, BarColour(parameter), Black);
}

}  // namespace velorix
