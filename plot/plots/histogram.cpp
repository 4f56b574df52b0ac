#include "plot/plots/histogram.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <vector>

#include "base/rounding.h"
#include "plot/axes/column_axis.h"

namespace velorix {
namespace {

struct HistoClass {
  double left = 0, right = 0;  // positions on the axis
  double lower = 0, upper = 0;
  std::int64_t count = 0;
  std::map<std::uint16_t, std::int64_t> ofGroup;
};

std::vector<HistoClass> CountClasses(std::span<const double> values,
                                     std::span<const std::uint16_t> groups, const Axis& axis) {
  const std::vector<double> edges = ClassEdges(axis.range);
  std::vector<HistoClass> classes;
  for (std::size_t i = 1; i < edges.size(); ++i) {
    const double lower = axis.ValueAt(edges[i - 1]), upper = axis.ValueAt(edges[i]);
    const auto within = [=](double value) { return IsInClass(value, lower, upper); };
    classes.push_back({edges[i - 1],
                       edges[i],
                       lower,
                       upper,
                       std::count_if(values.begin(), values.end(), within),
                       {}});
    if (groups.size() != values.size()) continue;
    for (std::size_t v = 0; v < values.size(); ++v)
      if (within(values[v])) ++classes.back().ofGroup[groups[v]];
  }
  return classes;
}

/// One group's part of a bar. What is too low for a frame goes without.
void DrawPart(Target& target, const Point& foot, const Point& top, const GroupMark& mark,
              Colour frame, double scale) {
  const double leastFramed = 3 * scale, dotSize = 4 * scale;
  const double height = std::fabs(foot.y - top.y);
  const bool light = mark.finish == Finish::Light;
  DrawRectangle(target, foot.x, foot.y, top.x, top.y,
                {.style = height < leastFramed ? NoLine : Solid, .colour = frame},
                light ? LightOf(mark.colour) : mark.colour);
  if (mark.finish == Finish::Dotted && height > 1.5 * dotSize)
    DrawMark(target, 3, Finish::Full, (foot.x + top.x) / 2, (foot.y + top.y) / 2, ToShort(dotSize),
             Black);
}

}  // namespace

std::vector<HistoBar> PaintHistogram(Target& target, const PlotGeometry& plot,
                                     std::span<const double> values, const Axis& axis,
                                     const std::string& title, Colour bars, Colour frame,
                                     std::span<const std::uint16_t> groups) {
  target.Layer("histogram");
  std::vector<HistoBar> drawn;
  if (axis.IsEmpty()) return drawn;
  DrawPlotPaper(target, plot);
  DrawPlotTitle(target, plot, title);
  const std::vector<HistoClass> classes = CountClasses(values, groups, axis);
  std::int64_t highest = 0;
  for (const HistoClass& c : classes) highest = std::max(highest, c.count);
  Axis counts;
  counts.range = AxisScale(0, static_cast<double>(highest));
  counts.grid = true;

  DrawXAxis(target, plot, axis, AxisTitle(axis));
  for (const HistoClass& c : classes) {
    // The class that begins at the upper end lies outside the frame; so does one that an end set by
    // hand cuts.
    const double beyond = axis.IsByHand() ? 0.001 : 0.5;
    if (c.count == 0 || c.right > axis.range.upper + beyond * axis.range.step) continue;
    const Point foot = plot.At(axis.ShareOf(c.left), 0);
    const Point top = plot.At(axis.ShareOf(c.right), counts.ShareOf(static_cast<double>(c.count)));
    drawn.push_back({c.lower, c.upper, c.count, foot, top});
    if (c.ofGroup.empty()) {
      DrawRectangle(target, foot.x, foot.y, top.x, top.y, {.colour = frame}, bars);
      continue;
    }
    std::int64_t below = 0;
    for (const auto& [group, count] : c.ofGroup) {
      const auto height = [&](std::int64_t counted) {
        return plot.At(0, counts.ShareOf(static_cast<double>(counted))).y;
      };
      const GroupMark mark = group == NoGroup ? GroupMark{.colour = bars} : MarkOfGroup(group);
      DrawPart(target, {foot.x, height(below)}, {top.x, height(below + count)}, mark, frame,
               plot.scale);
      below += count;
    }
    DrawBox(target, foot.x, foot.y, top.x, top.y, {.colour = frame});
  }
  DrawYAxis(target, plot, counts, "Counts");
  DrawPlotFrame(target, plot, frame);
  return drawn;
}

std::vector<HistoBar> DrawHisto(Target& target, const PlotGeometry& plot,
                                std::span<const double> values, Column column,
                                const Settings& settings, std::span<const std::uint16_t> groups) {
  target.SetTransparent();
  if (values.empty()) DrawEmptyPlot(target, plot);
  Extent extent;
  for (const double value : values) extent.Add(value);
  if (extent.IsEmpty()) return {};
  // Before the scale is chosen, so that the classes suit the range; ColumnAxis does it again.
  const Extent imposed = ImposeBounds(column, extent);
  extent.lower = imposed.lower;
  extent.upper = imposed.upper;
  const Axis axis = ColumnAxis(column, extent, settings, plot.axes);
  if (axis.log && axis.IsEmpty()) DrawEmptyPlot(target, plot);
  return PaintHistogram(target, plot, values, axis, axis.label, InfoOf(column).colour, Black,
                        groups);
}

}  // namespace velorix
