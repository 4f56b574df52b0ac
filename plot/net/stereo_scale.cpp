#include "plot/axes/column_axis.h"
#include "plot/drawing/colour_scales.h"
#include "plot/net/stereo_view.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// Where the colour scale stands: right of the net, as high as its lower half.
struct ScalePlace {
  double base, bottom;  // left end of the last bar, y of the lower end
  double barWidth;
  int height;
  int axesOn;
  bool perAxis;

  /// Left of the bars: each axis has one of its own, leading up to the base.
  double Left() const { return perAxis ? base - barWidth * axesOn : base; }
};

ScalePlace PlaceOf(const StereoView& view) {
  ScalePlace place;
  place.height = ToShort(view.net.diameter / 2);
  place.base = view.net.cx + place.height + view.geometry.scaleGap * view.geometry.scale;
  place.barWidth = BarWidth * view.geometry.scale;
  place.bottom = view.net.cy + place.height;
  place.axesOn = 0;
  for (bool on : view.options.showAxis) place.axesOn += on;
  place.perAxis = view.options.colourRamp == ColourRamp::PerAxis;
  return place;
}

void DrawBars(const StereoView& view, const ScalePlace& place) {
  std::vector<double> sides = {place.perAxis ? place.Left() + place.barWidth : place.base};
  const int bars = place.perAxis ? place.axesOn : 1;
  for (int bar = 0; bar < bars; ++bar) sides.push_back(sides.back() + place.barWidth);
  std::vector<Colour> colours;
  for (int i = 0; i <= place.height; ++i) {
    const float t = static_cast<float>(i) / static_cast<float>(place.height);
    if (!place.perAxis) {
      colours.push_back(view.Colours().ramp(t));
      continue;
    }
    for (int k = 1; k <= 3; ++k) {
      float share = t;
      if (view.options.showAxis[k])
        colours.push_back(BlendColor(view.Colours().axes[k], White, share));
    }
  }
  DrawRamp(view.target, sides, place.bottom, colours);
}

void DrawTicks(const StereoView& view, const ScalePlace& place, const Axis& scale) {
  constexpr double LetterPart = 0.9;
  const StereoGeometry& geometry = view.geometry;
  const std::int16_t letters = view.Scaled(LetterPart, geometry.FontHeight());
  const double left = place.Left(), gap = 5 * geometry.scale;
  const Ticks ticks = LabelledTicks(scale, geometry.diameter / 2, LetterPart * geometry.fontHeight,
                                    false, geometry.style.ticks);
  for (const double value : ticks.major) {
    const double y = place.bottom - place.height * scale.ShareOf(value);
    DrawText(view.target, TickText(scale, value), place.perAxis ? left + gap : left - gap, y + gap,
             {.height = letters, .alignment = RightBaseline});
    const int bars = place.perAxis ? place.axesOn : 1;
    for (int bar = 0; bar < bars; ++bar) {
      const double x = left + (place.perAxis ? place.barWidth * (bar + 1) : 0);
      DrawLine(view.target, x, y, x + place.barWidth, y, {.colour = Black});
    }
  }
}

void DrawTitle(const StereoView& view, const ScalePlace& place, const Axis& scale) {
  DrawTextVertical(
      view.target, AxisTitle(scale),
      place.base - (view.geometry.scaleGap - view.geometry.scaleTitle) * view.geometry.scale,
      view.net.cy + place.height / 2.0,
      {.height = view.geometry.FontHeight(), .alignment = CentreBaseline, .weight = 600});
}

}  // namespace

double ColourCoding::Value(const StereoView& view, const SpecimenRecord& record, int number) {
  return ColumnValue(view.options.colourParameter, record, view.reImMode, number);
}

Colour ColourCoding::Fill(double value, Colour axisColour) const {
  float t = static_cast<float>((value - scale.lower) / (scale.upper - scale.lower));
  return perAxis ? BlendColor(axisColour, White, t) : ramp(t);
}

std::optional<ColourCoding> DrawColourScale(const StereoView& view) {
  view.target.Layer("colour scale");
  if (!view.options.showData || !view.options.colourByValue) return std::nullopt;
  Extent values;
  view.ForEachPlotted(false, [&](const SpecimenRecord& record, int number) {
    values.Add(ColourCoding::Value(view, record, number));
  });
  if (values.IsEmpty()) return std::nullopt;
  const ScalePlace place = PlaceOf(view);
  const Column parameter = view.options.colourParameter;
  Axis scale = ColumnAxis(parameter, values.lower, values.upper, view.settings);
  scale.label = ScaleTitle(parameter, view.settings);
  if (place.axesOn > 0) {
    DrawBars(view, place);
    if (!scale.IsEmpty()) DrawTicks(view, place, scale);
  }
  DrawTitle(view, place, scale);
  return ColourCoding{scale.range, place.perAxis, view.Colours().ramp};
}

void DrawFieldNet(Target& target, CoordinateSystem coorSys, const StereoGeometry& geometry,
                  std::span<const FieldPoint> points) {
  constexpr int StripSteps = 320;
  const Net net = geometry.OnTarget();
  target.SetTransparent();
  DrawNet(target, coorSys, Projection::EqualArea, net, Black, geometry.FontHeight());
  float lower = INFINITY, upper = -INFINITY;
  for (const FieldPoint& point : points) {
    lower = std::min(lower, point.Value);
    upper = std::max(upper, point.Value);
  }
  for (const FieldPoint& point : points) {
    if (!IsFinite(point.Direction) || !std::isfinite(point.Value)) continue;
    const float share = upper > lower ? (point.Value - lower) / (upper - lower) : 0;
    DrawNetSymbol(target, net, Projection::EqualArea, point.Direction, 3,
                  ToShort(1.2 * geometry.SymbolSize()), RainbowColor(share), {});
  }
  for (int i = 1; i <= StripSteps; ++i) {
    const Colour colour = RainbowColor(static_cast<float>(i) / StripSteps);
    const Point p = OnNet(net, -1.04, i / 1100.0 - 1.05);
    DrawSymbol(target, 4, static_cast<float>(p.x), static_cast<float>(p.y), 14, colour,
               {.colour = colour});
  }
}

}  // namespace velorix
