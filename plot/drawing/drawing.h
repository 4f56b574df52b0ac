#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "plot/drawing/target.h"

namespace velorix {

// The drawing operations of the plot engine. Coordinates and sizes are logical units of the target;
// coordinates go to 32-bit integers of its fineness at the last moment, halves to even, and a value
// outside their range, or one that is not finite, raises "Overflow". Nothing is kept between calls.

/// The point as it reaches the target.
LogicalPoint ToLogical(const Target& target, double x, double y);

/// An ellipse on the box (cx - r, cy - r) to (cx + r, cy + r). Fill 0 is no fill, not black.
void DrawCircle(Target& target, double cx, double cy, double r, const Pen& pen, Colour fill);

void DrawLine(Target& target, double x1, double y1, double x2, double y2, const Pen& pen);

/// Colour scales side by side, see `Target::Ramp`: `sides` are the x of the bars' sides.
void DrawRamp(Target& target, std::span<const double> sides, double bottom,
              std::span<const Colour> colours);

/// One line through all points; fewer than two draw nothing.
void DrawPolyline(Target& target, std::span<const LogicalPoint> points, const Pen& pen);

/// The polygon (x1, y1), (x2, y1), (x2, y2), (x1, y2). Fill 0 is no fill, not black.
void DrawRectangle(Target& target, double x1, double y1, double x2, double y2, const Pen& pen,
                   Colour fill);

/// The outline as four lines: top, right, bottom, left. What lies within stays as it was.
void DrawBox(Target& target, double x1, double y1, double x2, double y2, const Pen& pen);

/// Text at (x, y) in the style given.
void DrawText(Target& target, std::string_view text, double x, double y, const TextStyle& style);

/// The same, reading upward whatever rotation the style has.
void DrawTextVertical(Target& target, std::string_view text, double x, double y, TextStyle style);

/// Exchanges values so that x1 <= x2 and y1 <= y2.
void SortRectangle(float& x1, float& y1, float& x2, float& y2);

}  // namespace velorix
