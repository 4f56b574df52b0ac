#include "plot/axes/plot_axis.h"

#include <cmath>
#include <cstdlib>

#include "base/rounding.h"
#include "plot/drawing/colour_scales.h"
#include "plot/drawing/symbols.h"
#include "text/numbers.h"

namespace velorix {
namespace {

int PowerOf(const Axis& axis) {
  return axis.tens.value_or(SplitExponent(axis.range.lower).Exponent);
}

std::string PowerText(int exponent) {
  return exponent == 0 ? "" : "10^" + std::to_string(exponent);
}

/// The number at a position of a logarithmic axis: "0.02", "5"; far from 1 "10^-4", "2 10^-4".
std::string LogText(const AxisRange& range, double position) {
  const int exponent = static_cast<int>(std::floor(position + 1e-9));
  std::string mantissa = PlainText(NumberOf(SignificantText(std::pow(10, position - exponent), 3)));
  if (range.lower >= -3 && range.upper <= 4)
    return PlainText(NumberOf(mantissa + "e" + std::to_string(exponent)));
  if (exponent == 0) return mantissa;
  return (mantissa == "1" ? "" : mantissa + " ") + PowerText(exponent);
}

/// The width of a number in Arial without the blank that may stand before it, in heights.
double WidthOf(const std::string& number) {
  double width = 0;
  for (const char c : StripBlanks(number)) width += c == '.' ? 0.25 : c == '-' ? 0.3 : 0.5;
  return width;
}

}  // namespace

std::string TickText(const Axis& axis, double position) {
  if (axis.log) return LogText(axis.range, position);
  if (axis.decimals)
    return FormatNumber(position / std::pow(10, axis.power ? PowerOf(axis) : 0),
                        DecimalPicture(*axis.decimals));
  if (axis.power)
    return FormatNumber(position / std::pow(10, PowerOf(axis)),
                        PowerTickPicture(axis.range.lower, axis.range.step));
  return FormatNumber(position, TickPicture(axis.range.step));
}

Ticks AxisTicks(const Axis& axis, double room) {
  return axis.log ? LogTicksOf(axis.range, room) : TicksOf(axis.range, room);
}

Ticks LabelledTicks(const Axis& axis, double length, double height, bool alongText,
                    TickDensity density) {
  constexpr double DigitHeight = 0.8, Gap = 0.4, FewerRoom = 2;  // of the height; of a label
  double room = DigitHeight;
  if (alongText)
    for (const double end : {axis.range.first, axis.range.upper})
      room = std::max(room, WidthOf(TickText(axis, end)) + Gap);
  if (density == TickDensity::Fewer) room *= FewerRoom;
  return AxisTicks(axis, room * height / length);
}

Axis TickedAxis(Axis axis, TickDensity density) {
  if (density != TickDensity::More || axis.log || axis.decimals) return axis;
  // Steps are 2, 5 or 10 times a power of ten.
  const double leading = std::fabs(SplitExponent(axis.range.step).Mantissa);
  axis.range.step /= std::lround(leading) == 5 ? 5 : 2;
  axis.range.minor = axis.range.step / 5;
  return axis;
}

std::string AxisTitle(const Axis& axis) {
  const std::string power = axis.power ? PowerText(PowerOf(axis)) : "";
  const std::string blank = power.empty() || axis.unit.empty() ? "" : " ";
  const std::string unit = power + blank + axis.unit;
  return unit.empty() ? axis.label + " " : axis.label + " [" + unit + "]";
}

std::string AxisReadOut(const Axis& axis, double position) {
  std::string text = axis.label + " = ";
  if (axis.log) return text + SignificantText(std::pow(10, position), 4);
  if (!axis.power) return text + FormatNumber(position, "0.000");
  const int exponent = PowerOf(axis);
  text += FormatNumber(position / std::pow(10, exponent), "0.000");
  return exponent == 0 ? text : text + " " + PowerText(exponent);
}

Point PlotGeometry::At(double u, double v) const {
  const Point p = MapPoint({u, v}, {0, 0}, {left, bottom}, {1, 1}, {left + width, bottom - height});
  return {p.x * scale, p.y * scale};
}

Point PlotGeometry::FromTarget(const Point& p) const {
  return MapPoint({p.x / scale, p.y / scale}, {left, bottom}, {0, 0},
                  {left + width, bottom - height}, {1, 1});
}

std::int16_t PlotGeometry::TickSize(double part) const { return ToShort(width * scale / part); }

std::int16_t PlotGeometry::Letters(double factor) const {
  return ToShort(factor * fontHeight * scale);
}

std::int16_t PlotGeometry::SymbolSize() const { return ToShort(symbolSize * scale); }

namespace {

constexpr std::int16_t GridGrey = 96;
constexpr int MajorPart = 30, MinorPart = 60;  // parts of the width that the ticks take

/// One side of the plot with its ticks.
struct Side {
  bool vertical;
  std::int16_t tick;  // symbol
  double gap, drop;   // from the side to a label, outward and downward
  int alignment;      // of labels
};

Side SideOf(const PlotGeometry& plot, bool vertical) {
  constexpr double Drop = -0.015;
  const bool upsideDown = plot.height < 0;
  if (vertical) return {true, 42, -plot.numbersLeft, Drop, upsideDown ? 2 : RightBaseline};
  return {false, static_cast<std::int16_t>(upsideDown ? 61 : 62), -plot.numbersBelow, 0,
          upsideDown ? CentreBaseline : CentreTop};
}

void DrawTicks(Target& target, const PlotGeometry& plot, const Axis& whole, const Side& side) {
  const Axis axis = TickedAxis(whole, plot.style.ticks);
  const auto at = [&](double share, double across) {
    return side.vertical ? plot.At(across, share) : plot.At(share, across);
  };
  const auto tick = [&](double value, int part) {
    const Point p = at(axis.ShareOf(value), 0);
    DrawSymbol(target, side.tick, static_cast<float>(p.x), static_cast<float>(p.y),
               plot.TickSize(part), Black, {});
  };
  const Ticks ticks = LabelledTicks(axis, side.vertical ? std::fabs(plot.height) : plot.width,
                                    plot.fontHeight, !side.vertical, plot.style.ticks);
  for (const double value : ticks.major) {
    const double share = axis.ShareOf(value);
    const Point label = at(share + side.drop, side.gap);
    DrawText(target, TickText(axis, value), label.x, label.y,
             {.height = plot.Letters(1), .alignment = side.alignment});
    if (axis.grid) {
      const Point a = at(share, 0), b = at(share, 1);
      DrawLine(target, a.x, a.y, b.x, b.y, {.style = Dotted, .colour = GrayLevel(GridGrey)});
    }
    tick(value, MajorPart);
  }
  for (const double value : ticks.minor) tick(value, MinorPart);
}

TextStyle TitleStyle(const PlotGeometry& plot) {
  return {.height = plot.Letters(1.1), .alignment = CentreBaseline, .weight = 600};
}

}  // namespace

void DrawXAxis(Target& target, const PlotGeometry& plot, const Axis& axis,
               const std::string& title) {
  const bool upsideDown = plot.height < 0;
  DrawTicks(target, plot, axis, SideOf(plot, false));
  DrawPlotText(target, plot, title, 0.5, upsideDown ? -0.04 : -plot.titleBelow, TitleStyle(plot));
}

void DrawYAxis(Target& target, const PlotGeometry& plot, const Axis& axis,
               const std::string& title) {
  DrawTicks(target, plot, axis, SideOf(plot, true));
  DrawPlotTextVertical(target, plot, title, -plot.titleLeft, 0.5, TitleStyle(plot));
}

void DrawPlotPaper(Target& target, const PlotGeometry& plot) {
  const Point a = plot.At(0, 0), b = plot.At(1, 1);
  DrawRectangle(target, a.x, a.y, b.x, b.y, {.style = NoLine}, White);
}

void DrawPlotTitle(Target& target, const PlotGeometry& plot, const std::string& title) {
  DrawPlotText(target, plot, title, 0.45, 1 + plot.titleAbove,
               {.height = plot.Letters(1.5), .alignment = CentreBaseline, .weight = 700});
}

void DrawPlotFrame(Target& target, const PlotGeometry& plot, Colour colour) {
  const Point a = plot.At(0, 0), b = plot.At(1, 1);
  DrawBox(target, a.x, a.y, b.x, b.y, {.colour = colour});
}

void DrawEmptyPlot(Target& target, const PlotGeometry& plot) {
  DrawPlotPaper(target, plot);
  DrawPlotFrame(target, plot, Black);
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
