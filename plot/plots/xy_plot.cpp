#include "plot/plots/xy_plot.h"

#include <array>
#include <cmath>
#include <limits>

#include "plot/axes/axes.h"
#include "plot/axes/column_axis.h"
#include "plot/drawing/clip.h"
#include "plot/drawing/colour_scales.h"
#include "plot/drawing/symbols.h"

namespace velorix {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

void DrawZeroLines(Target& target, const PlotGeometry& plot, const Axis& x, const Axis& y,
                   const XYPlotLook& look) {
  const auto line = [&](double u1, double v1, double u2, double v2) {
    const Point a = plot.At(u1, v1), b = plot.At(u2, v2);
    DrawLine(target, a.x, a.y, b.x, b.y, {.colour = look.lineColour});
  };
  const auto crosses = [](const Axis& axis) {
    return !axis.log && axis.range.lower * axis.range.upper < 0;
  };
  if (crosses(x)) line(x.ShareOf(0), 0, x.ShareOf(0), 1);
  if (crosses(y)) line(0, y.ShareOf(0), 1, y.ShareOf(0));
}

void DrawLines(Target& target, const PlotGeometry& plot, std::span<const Point> places,
               Colour colour) {
  std::vector<LogicalPoint> line;
  for (const auto& run : ClipPolylineToBox(places, plot.At(0, 0), plot.At(1, 1))) {
    line.clear();
    for (const Point& p : run) line.push_back(ToLogical(target, p.x, p.y));
    DrawPolyline(target, line, {.colour = colour});
  }
}

/// The bar right of the plot, its numbers left of it, its title right of it.
void DrawColourScale(Target& target, const PlotGeometry& plot, const Axis& axis) {
  const auto rightOfFrame = [&](double units) { return plot.At(1, 0).x + units * plot.scale; };
  const double left = rightOfFrame(plot.barLeft), right = rightOfFrame(plot.barRight);
  const int height = ToShort(std::fabs(plot.height) * plot.scale);
  const double bottom = std::max(plot.At(0, 0).y, plot.At(0, 1).y);
  std::vector<Colour> colours;
  for (int i = 0; i <= height; ++i)
    colours.push_back(plot.style.palette.ramp(static_cast<float>(i) / static_cast<float>(height)));
  DrawRamp(target, std::array{left, right}, bottom, colours);
  constexpr double LetterPart = 0.9;
  const std::int16_t letters = plot.Letters(LetterPart);
  const double gap = plot.fontHeight / 3.0 * plot.scale;
  const double letterHeight = LetterPart * plot.fontHeight;
  for (const double value :
       LabelledTicks(axis, std::fabs(plot.height), letterHeight, false).major) {
    const double y = bottom - height * axis.ShareOf(value);
    DrawText(target, TickText(axis, value), left - gap, y + 0.015 * height,
             {.height = letters, .alignment = RightBaseline});
    DrawSymbol(target, 42, static_cast<float>(left), static_cast<float>(y), plot.TickSize(15),
               Black, {});
  }
  DrawTextVertical(target, AxisTitle(axis), rightOfFrame(plot.barTitle), bottom - height / 2.0,
                   {.height = letters, .alignment = CentreBaseline, .weight = 600});
}

}  // namespace

std::vector<Point> PaintXYPlot(Target& target, const PlotGeometry& plot,
                               std::span<const XYPoint> points, const Axis& x, const Axis& y,
                               const std::optional<Axis>& colour, const XYPlotLook& look) {
  std::vector<Point> places(points.size(), Point{NaN, NaN});
  if (x.IsEmpty() || y.IsEmpty()) return places;
  if (look.frame) {
    target.Layer(look.title + " axes");
    DrawPlotPaper(target, plot);
    DrawPlotTitle(target, plot, look.title);
    DrawZeroLines(target, plot, x, y, look);
    DrawXAxis(target, plot, x, AxisTitle(x));
    DrawYAxis(target, plot, y, AxisTitle(y));
    DrawPlotFrame(target, plot, Black);
  }

  const auto position = [&](const XYPoint& point) {
    return Point{x.PositionOf(point.x), y.PositionOf(point.y)};
  };
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point at = position(points[i]);
    places[i] = plot.At(x.ShareOf(at.x), y.ShareOf(at.y));
  }
  target.Layer(look.title + (look.frame ? " symbols" : " selected symbols"));
  if (look.lines) DrawLines(target, plot, places, look.lineColour);

  const bool colours = colour && !colour->IsEmpty();
  const Pen pen = {.colour = look.penColour};
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point at = position(points[i]);
    if (!InBox(at.x, at.y, x.range.lower, y.range.lower, x.range.upper, y.range.upper)) {
      places[i] = {NaN, NaN};
      continue;
    }
    const Colour fill =
        colours ? plot.style.palette.ramp(static_cast<float>(colour->ShareOf(points[i].z)))
                : look.fill;
    if (look.groupsBy == MarkBy::Nothing || points[i].group == NoGroup) {
      DrawSymbol(target, look.symbol, static_cast<float>(places[i].x),
                 static_cast<float>(places[i].y), plot.SymbolSize(), fill, pen);
      continue;
    }
    const GroupMark mark = MarkOfGroup(points[i].group);
    const bool keepsFill = colours || look.keepsFill;
    DrawMark(target, look.groupsBy == MarkBy::Shapes ? mark.symbol : look.symbol, mark.finish,
             places[i].x, places[i].y, plot.SymbolSize(), keepsFill ? fill : mark.colour,
             keepsFill);
  }
  if (look.frame && colours) DrawColourScale(target, plot, *colour);
  return places;
}

LegendLook XYPlotLegend(const XYPlotOptions& options, const GroupMarks& marks) {
  if (options.coding) return {std::nullopt, NeutralColour};
  if (marks.By == MarkBy::Colours) return {XYPlotLook().symbol, std::nullopt};
  return {};
}

PlaneSize XYPlotPlane(const XYPlotOptions& options) {
  const PlotGeometry plot;
  const double right = options.coding ? plot.barTitle + 4 : 15;
  return {static_cast<int>(plot.left + plot.width + right), 290};
}

namespace {

/// What a plot takes from the records in view: their points, unselected and selected ones apart,
/// and the axes.
struct XYPlotData {
  std::vector<XYPoint> points[2];
  std::vector<std::size_t> records[2];  // their places in the store, from 0
  Extent x, y, z;
};

XYPlotData Gather(const Session& session, const XYPlotOptions& options, const GroupMarks& marks) {
  XYPlotData data;
  int number = 0;
  for (int i = 1; i <= session.RecordCount(); ++i) {
    const SpecimenRecord& record = session.Records[i];
    if (!IsShown(record, session.CoorSys, session.ReImMode)) continue;
    ++number;
    const auto value = [&](Column column) {
      return ColumnValue(column, record, session.ReImMode, number);
    };
    const auto place = static_cast<std::size_t>(i - 1);
    const XYPoint point = {value(options.x), value(options.y),
                           options.coding ? value(options.colour) : 0,
                           marks.AreShown() ? marks.GroupOf(place) : NoGroup};
    data.x.Add(point.x);
    data.y.Add(point.y);
    if (!record.Selected) data.z.Add(point.z);
    data.points[record.Selected].push_back(point);
    data.records[record.Selected].push_back(place);
  }
  return data;
}

XYPlotAxes AxesOf(const XYPlotData& data, const XYPlotOptions& options, const Settings& settings,
                  const HandAxes* byHand) {
  const auto axis = [&](Column column, const Extent& values, const HandAxes* hand) {
    return values.IsEmpty() ? Axis() : ColumnAxis(column, values, settings, hand);
  };
  XYPlotAxes axes = {axis(options.x, data.x, byHand), axis(options.y, data.y, byHand),
                     std::nullopt};
  if (options.coding && !data.z.IsEmpty()) axes.colour = axis(options.colour, data.z, nullptr);
  return axes;
}

}  // namespace

XYPlotAxes AxesOfXYPlot(const Session& session, const XYPlotOptions& options,
                        const HandAxes* byHand) {
  return AxesOf(Gather(session, options, GroupMarks()), options, session.Settings, byHand);
}

std::optional<DrawnXYPlot> DrawXYPlot(const Session& session, Target& target,
                                      const PlotGeometry& plot, const XYPlotOptions& options,
                                      const GroupMarks& marks) {
  target.SetTransparent();
  const XYPlotData data = Gather(session, options, marks);
  if (data.points[false].empty() && data.points[true].empty()) DrawEmptyPlot(target, plot);
  if (data.x.IsEmpty() || data.y.IsEmpty()) return std::nullopt;
  const auto& [x, y, colour] = AxesOf(data, options, session.Settings, plot.axes);
  for (const Axis* axis : {&x, &y})
    if (axis->log && axis->IsEmpty()) return DrawEmptyPlot(target, plot), std::nullopt;
  DrawnXYPlot drawn = {x, y, {}};
  drawn.symbols.resize(static_cast<std::size_t>(session.RecordCount()), {NaN, NaN});
  for (const bool selected : {false, true}) {
    XYPlotLook look;
    look.frame = !selected;
    look.lines = options.lines;
    look.title = drawn.x.label + " - " + drawn.y.label;
    look.fill = selected ? plot.style.palette.selected : plot.style.palette.points;
    look.groupsBy = SymbolsBy(marks.By, options.coding);
    look.keepsFill = selected;
    const std::vector<Point> places = PaintXYPlot(target, plot, data.points[selected], drawn.x,
                                                  drawn.y, selected ? std::nullopt : colour, look);
    for (std::size_t i = 0; i < places.size(); ++i)
      drawn.symbols[data.records[selected][i]] = places[i];
  }
  if (drawn.x.IsEmpty() || drawn.y.IsEmpty()) return std::nullopt;
  return drawn;
}

}  // namespace velorix
