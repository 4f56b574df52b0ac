#include "plot/colour_scales.h"
#include "plot/parameters.h"
#include "plot/stereo_view.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// Where the colour scale stands: right of the net, as high as its lower half.
struct ScalePlace {
  double base, bottom;  // left end of the last bar, y of the lower end
  int height;
  int axesOn;
  bool perAxis;

  /// Left of the bars: each axis has one of its own, leading up to the base.
  double Left() const { return perAxis ? base - BarWidth * axesOn : base; }
};

ScalePlace PlaceOf(const StereoView& view) {
  ScalePlace place;
  place.height = ToShort(view.net.diameter / 2);
  place.base = view.net.cx + place.height + ScaleGap;
  place.bottom = view.net.cy + place.height;
  place.axesOn = 0;
  for (bool on : view.options.chkK) place.axesOn += on;
  place.perAxis = view.options.optStereoColorCoding == 0;
  return place;
}

void DrawBars(const StereoView& view, const ScalePlace& place) {
  const auto line = [&](double x, double y, Colour colour) {
    DrawLine(view.target, x, y, x + BarWidth, y, {.colour = colour});
  };
  for (int i = 0; i <= place.height; ++i) {
    const double y = place.bottom - i;
    const float t = static_cast<float>(i) / static_cast<float>(place.height);
    if (!place.perAxis) {
      line(place.base, y, ColorScale(t));
      continue;
    }
    double x = place.Left();
    for (int k = 1; k <= 3; ++k) {
      if (!view.options.chkK[k]) continue;
      float share = t;
      line(x + BarWidth, y, BlendColor(Axes[k].colour, White, share));
      x += BarWidth;
    }
  }
}

/// Text of a tick; those of the mean susceptibility are divided by the power of ten in the title.
std::string TickText(int parameter, const AxisRange& scale, double value) {
  if (parameter != KmeanParameter) return FormatNumber(value, TickPicture(scale.step));
  const int exponent = SplitExponent(scale.lower).Exponent;
  return FormatNumber(value / std::pow(10, exponent), PowerTickPicture(scale.lower, scale.step));
}

void DrawTicks(const StereoView& view, const ScalePlace& place, const AxisRange& scale) {
  const std::int16_t height = view.Scaled(0.9, view.geometry.fontHeight);
  const double left = place.Left();
  ForEachTick(scale, [&](double value) {
    const double share = (value - scale.lower) / (scale.upper - scale.lower);
    const double y = place.bottom - place.height * share;
    DrawText(view.target, TickText(view.options.odclStereoColorCoding, scale, value),
             place.perAxis ? left + 5 : left - 5, y + 5,
             {.height = height, .alignment = RightBaseline});
    const int bars = place.perAxis ? place.axesOn : 1;
    for (int bar = 0; bar < bars; ++bar) {
      const double x = left + (place.perAxis ? BarWidth * (bar + 1) : 0);
      DrawLine(view.target, x, y, x + BarWidth, y, {.colour = Black});
    }
  });
}

void DrawTitle(const StereoView& view, const ScalePlace& place, const AxisRange& scale) {
  const int parameter = view.options.odclStereoColorCoding;
  std::string title = ParameterTitle(parameter, view.settings) + " ";
  std::string unit = ParameterUnit(parameter);
  const int exponent = SplitExponent(scale.lower).Exponent;
  if (parameter == KmeanParameter && exponent != 0)
    unit = "10^" + std::to_string(exponent) + " " + unit;
  if (!unit.empty()) title += "[" + unit + "]";
  DrawTextVertical(
      view.target, title, place.base - 55, view.net.cy + place.height / 2.0,
      {.height = view.geometry.fontHeight, .alignment = CentreBaseline, .weight = 600});
}

}  // namespace

double ColourCoding::Value(const StereoView& view, const SpecimenRecord& record, int number) {
  return ParameterValue(view.options.odclStereoColorCoding, record, view.reImMode, number);
}

Colour ColourCoding::Fill(double value, Colour axisColour) const {
  float t = static_cast<float>((value - scale.lower) / (scale.upper - scale.lower));
  return perAxis ? BlendColor(axisColour, White, t) : ColorScale(t);
}

std::optional<ColourCoding> DrawColourScale(const StereoView& view) {
  if (!view.options.chkData || !view.options.chkStereoColorCoding) return std::nullopt;
  double lower = INFINITY, upper = -INFINITY;
  view.ForEachPlotted(false, [&](const SpecimenRecord& record, int number) {
    const double value = ColourCoding::Value(view, record, number);
    if (!std::isfinite(value)) return;
    lower = std::min(lower, value);
    upper = std::max(upper, value);
  });
  if (lower > upper) return std::nullopt;
  const ScalePlace place = PlaceOf(view);
  const ColourCoding coding = {ParameterScale(view.options.odclStereoColorCoding, lower, upper),
                               place.perAxis};
  if (place.axesOn > 0) {
    DrawBars(view, place);
    if (coding.scale.upper > coding.scale.lower) DrawTicks(view, place, coding.scale);
  }
  DrawTitle(view, place, coding.scale);
  return coding;
}

void DrawFieldNet(Target& target, std::int16_t coorSys, const StereoGeometry& geometry,
                  std::span<const FieldPoint> points) {
  constexpr int StripSteps = 320;
  const Net net = {geometry.cx, geometry.cy, geometry.diameter};
  target.SetTransparent();
  DrawNet(target, coorSys, EqualArea, net, Black, geometry.fontHeight);
  float lower = INFINITY, upper = -INFINITY;
  for (const FieldPoint& point : points) {
    lower = std::min(lower, point.Value);
    upper = std::max(upper, point.Value);
  }
  for (const FieldPoint& point : points) {
    if (!IsFinite(point.Direction) || !std::isfinite(point.Value)) continue;
    const float share = upper > lower ? (point.Value - lower) / (upper - lower) : 0;
    DrawNetSymbol(target, net, EqualArea, point.Direction, 3, ToShort(1.2 * geometry.symbolSize),
                  RainbowColor(share), {});
  }
  for (int i = 1; i <= StripSteps; ++i) {
    const Colour colour = RainbowColor(static_cast<float>(i) / StripSteps);
    const Point p = OnNet(net, -1.04, i / 1100.0 - 1.05);
    Pen pen = {.colour = colour};
    DrawSymbol(target, 4, static_cast<float>(p.x), static_cast<float>(p.y), 14, colour, pen);
  }
}

}  // namespace velorix
