#include "plot/plot_axis.h"

#include <cmath>
#include <cstdlib>

#include "base/rounding.h"
#include "plot/colour_scales.h"
#include "text/numbers.h"

namespace velorix {
namespace {

int PowerOf(const Axis& axis) { return SplitExponent(axis.range.lower).Exponent; }

std::string PowerText(int exponent) {
  return exponent == 0 ? "" : "10^" + std::to_string(exponent);
}

}  // namespace

std::string TickText(const Axis& axis, double value) {
  if (axis.log) return PlainText(std::pow(10, value));
  if (axis.power)
    return FormatNumber(value / std::pow(10, PowerOf(axis)),
                        PowerTickPicture(axis.range.lower, axis.range.step));
  return FormatNumber(value, TickPicture(axis.range.step));
}

TickLabels::TickLabels(const Axis& axis, double length, std::int16_t height, bool alongText)
    : step_(axis.range.step) {
  constexpr double DigitHeight = 0.75, DigitWidth = 0.5, Gap = 0.6;  // of the height
  double room = DigitHeight * height;
  if (alongText)
    for (const double end : {axis.range.first, axis.range.upper}) {
      const std::string text(StripBlanks(TickText(axis, end)));
      room = std::max(room, (DigitWidth * static_cast<double>(text.size()) + Gap) * height);
    }
  const double spacing =
      length * (axis.ShareOf(axis.range.first + step_) - axis.ShareOf(axis.range.first));
  for (const int every : {1, 2, 5, 10, 20, 50, 100})
    if (every_ = every; every * spacing >= room) break;
}

bool TickLabels::Has(double value) const {
  return std::fabs(std::remainder(std::round(value / step_), every_)) < 0.5;
}

std::string AxisTitle(const Axis& axis) {
  const std::string power = axis.power ? PowerText(PowerOf(axis)) : "";
  const std::string blank = power.empty() || axis.unit.empty() ? "" : " ";
  const std::string unit = power + blank + axis.unit;
  return unit.empty() ? axis.label + " " : axis.label + " [" + unit + "]";
}

std::string AxisReadOut(const Axis& axis, double value) {
  std::string text = axis.label + " = ";
  if (!axis.power) return text + FormatNumber(value, "0.000");
  const int exponent = PowerOf(axis);
  text += FormatNumber(value / std::pow(10, exponent), "0.000");
  return exponent == 0 ? text : text + " " + PowerText(exponent);
}

Point PlotGeometry::At(double u, double v) const {
  return MapPoint({u, v}, {0, 0}, {left, bottom}, {1, 1}, {left + width, bottom - height});
}

Point PlotGeometry::FromTarget(const Point& p) const {
  return MapPoint(p, {left, bottom}, {0, 0}, {left + width, bottom - height}, {1, 1});
}

std::int16_t PlotGeometry::TickSize(double part) const { return ToShort(width / part); }

std::int16_t PlotGeometry::Letters(double factor) const { return ToShort(factor * fontHeight); }

namespace {

constexpr std::int16_t GridGrey = 96;
constexpr int MajorPart = 30, MinorPart = 60;  // parts of the width that the ticks take
constexpr int MaxMinorTicks = 5 * MaxTicks;

/// One side of the plot with its ticks.
struct Side {
  bool vertical;
  std::int16_t tick;  // symbol
  double gap, drop;   // from the side to a label, outward and downward
  int alignment;      // of labels
};

Side SideOf(bool vertical, bool upsideDown) {
  if (vertical) return {true, 42, -0.02, -0.015, upsideDown ? 2 : RightBaseline};
  return {false, static_cast<std::int16_t>(upsideDown ? 61 : 62), -0.015, 0,
          upsideDown ? CentreBaseline : CentreTop};
}

void DrawTicks(Target& target, const PlotGeometry& plot, const Axis& axis, const Side& side) {
  const auto at = [&](double share, double across) {
    return side.vertical ? plot.At(across, share) : plot.At(share, across);
  };
  const auto tick = [&](double value, int part) {
    const Point p = at(axis.ShareOf(value), 0);
    Pen pen;
    DrawSymbol(target, side.tick, static_cast<float>(p.x), static_cast<float>(p.y),
               plot.TickSize(part), Black, pen);
  };
  const TickLabels labels(axis, side.vertical ? std::fabs(plot.height) : plot.width,
                          plot.fontHeight, !side.vertical);
  ForEachTick(axis.range, [&](double value) {
    const double share = axis.ShareOf(value);
    const Point label = at(share + side.drop, side.gap);
    if (labels.Has(value))
      DrawText(target, TickText(axis, value), label.x, label.y,
               {.height = plot.fontHeight, .alignment = side.alignment});
    if (axis.grid) {
      const Point a = at(share, 0), b = at(share, 1);
      DrawLine(target, a.x, a.y, b.x, b.y, {.style = Dotted, .colour = GrayLevel(GridGrey)});
    }
    tick(value, MajorPart);
  });
  ForEachTick(axis.range, axis.range.minor, MaxMinorTicks,
              [&](double value) { tick(value, MinorPart); });
}

TextStyle TitleStyle(const PlotGeometry& plot) {
  return {.height = plot.Letters(1.1), .alignment = CentreBaseline, .weight = 600};
}

}  // namespace

void DrawXAxis(Target& target, const PlotGeometry& plot, const Axis& axis) {
  const bool upsideDown = plot.height < 0;
  DrawTicks(target, plot, axis, SideOf(false, upsideDown));
  DrawPlotText(target, plot, AxisTitle(axis), 0.5, upsideDown ? -0.04 : -0.16, TitleStyle(plot));
}

void DrawYAxis(Target& target, const PlotGeometry& plot, const Axis& axis) {
  DrawTicks(target, plot, axis, SideOf(true, plot.height < 0));
  DrawPlotTextVertical(target, plot, AxisTitle(axis), -0.14, 0.5, TitleStyle(plot));
}

void DrawPlotGround(Target& target, const PlotGeometry& plot, const std::string& title) {
  DrawRectangle(target, plot.left, plot.bottom, plot.left + plot.width, plot.bottom - plot.height,
                {.style = NoLine}, White);
  DrawPlotText(target, plot, title, 0.45, 1.08,
               {.height = plot.Letters(1.5), .alignment = CentreBaseline, .weight = 700});
}

void DrawPlotFrame(Target& target, const PlotGeometry& plot, Colour colour) {
  DrawBox(target, plot.left, plot.bottom, plot.left + plot.width, plot.bottom - plot.height,
          {.colour = colour});
}

void DrawPlotText(Target& target, const PlotGeometry& plot, const std::string& text, double u,
                  double v, const TextStyle& style) {
  const Point p = plot.At(u, v);
  DrawText(target, text, p.x, p.y, style);
}

void DrawPlotTextVertical(Target& target, const PlotGeometry& plot, const std::string& text,
                          double u, double v, const TextStyle& style) {
  const Point p = plot.At(u, v);
  DrawTextVertical(target, text, p.x, p.y, style);
}

}  // namespace velorix
