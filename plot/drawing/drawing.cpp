#include "plot/drawing/drawing.h"

#include <algorithm>
#include <vector>

#include "base/rounding.h"

namespace velorix {

namespace {

// Circles and rectangles take colour 0 for "hollow": no caller fills them black.
Brush HollowIfZero(Colour fill) { return fill == 0 ? Brush(NoBrush) : Brush(fill); }

}  // namespace

LogicalPoint ToLogical(const Target& target, double x, double y) {
  return {ToLong(target.Fineness * x), ToLong(target.Fineness * y)};
}

void DrawCircle(Target& target, double cx, double cy, double r, const Pen& pen, Colour fill) {
  const LogicalPoint a = ToLogical(target, cx - r, cy - r), b = ToLogical(target, cx + r, cy + r);
  target.Ellipse({a.x, a.y, b.x, b.y}, pen, HollowIfZero(fill));
}

void DrawLine(Target& target, double x1, double y1, double x2, double y2, const Pen& pen) {
  const LogicalPoint points[] = {ToLogical(target, x1, y1), ToLogical(target, x2, y2)};
  target.Polyline(points, pen);
}

void DrawRamp(Target& target, std::span<const double> sides, double bottom,
              std::span<const Colour> colours) {
  std::vector<std::int32_t> places;
  for (const double x : sides) places.push_back(ToLong(target.Fineness * x));
  target.Ramp(places, ToLong(target.Fineness * bottom), colours);
}

void DrawPolyline(Target& target, std::span<const LogicalPoint> points, const Pen& pen) {
  if (points.size() >= 2) target.Polyline(points, pen);
}

void DrawRectangle(Target& target, double x1, double y1, double x2, double y2, const Pen& pen,
                   Colour fill) {
  const LogicalPoint points[] = {ToLogical(target, x1, y1), ToLogical(target, x2, y1),
                                 ToLogical(target, x2, y2), ToLogical(target, x1, y2)};
  target.Polygon(points, pen, HollowIfZero(fill));
}

void DrawBox(Target& target, double x1, double y1, double x2, double y2, const Pen& pen) {
  DrawLine(target, x1, y1, x2, y1, pen);
  DrawLine(target, x2, y1, x2, y2, pen);
  DrawLine(target, x2, y2, x1, y2, pen);
  DrawLine(target, x1, y2, x1, y1, pen);
}

void DrawText(Target& target, std::string_view text, double x, double y, const TextStyle& style) {
  target.Text(text, ToLogical(target, x, y), style);
}

void DrawTextVertical(Target& target, std::string_view text, double x, double y, TextStyle style) {
  style.rotation = 900;
  DrawText(target, text, x, y, style);
}

void SortRectangle(float& x1, float& y1, float& x2, float& y2) {
  if (x1 > x2) std::swap(x1, x2);
  if (y1 > y2) std::swap(y1, y2);
}

}  // namespace velorix
