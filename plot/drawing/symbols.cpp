#include "plot/drawing/symbols.h"

#include <array>
#include <cmath>

#include "base/rounding.h"
#include "plot/drawing/drawing.h"

namespace velorix {

namespace {

enum class Body { None, Diamond, Square, Triangle, TriangleOnTip, Cross, Circle };

/// A segment in units of the symbol's size from its centre, y downward.
struct Stroke {
  double x1, y1, x2, y2;
};

/// One symbol: a body, a dot on it or not, and strokes drawn over it in their order.
struct Shape {
  std::int16_t type;
  Body body;
  bool dot = false;
  int strokeCount = 0;
  std::array<Stroke, 2> strokes = {};
};

// clang-format off
constexpr Stroke Vertical   = { 0.0, -0.5,  0.0,  0.5};
constexpr Stroke Horizontal = {-0.5,  0.0,  0.5,  0.0};
constexpr Stroke Falling    = {-0.354, -0.354, 0.354,  0.354};
constexpr Stroke Rising     = {-0.354,  0.354, 0.354, -0.354};
// Kept for agreement with published results: 0.345 where the other corners have 0.354.
constexpr Stroke FallingOff = {-0.345, -0.354, 0.354,  0.354};

constexpr Shape Catalogue[] = {
    { 0, Body::Diamond},
    { 1, Body::Square},
    {11, Body::Square,   true},
    {12, Body::Square,   false, 2, {Vertical, Horizontal}},
    {13, Body::Square,   false, 2, {FallingOff, Rising}},
    {14, Body::Square,   false, 1, {Vertical}},
    {15, Body::Square,   false, 1, {Horizontal}},
    { 2, Body::Triangle},
    {21, Body::Triangle, true},
    { 3, Body::Circle},
    {31, Body::Circle,   true},
    {32, Body::Circle,   false, 2, {Vertical, Horizontal}},
    {33, Body::Circle,   false, 2, {Falling, Rising}},
    {34, Body::Circle,   false, 1, {Vertical}},
    {35, Body::Circle,   false, 1, {Horizontal}},
    { 4, Body::None,     false, 1, {Horizontal}},
    {41, Body::None,     false, 1, {Stroke{0.0, 0.0, -0.5,  0.0}}},
    {42, Body::None,     false, 1, {Stroke{0.0, 0.0,  0.5,  0.0}}},
    { 6, Body::None,     false, 1, {Vertical}},
    {61, Body::None,     false, 1, {Stroke{0.0, 0.0,  0.0,  0.5}}},
    {62, Body::None,     false, 1, {Stroke{0.0, 0.0,  0.0, -0.5}}},
    { 7, Body::None,     false, 2, {Vertical, Horizontal}},
    { 8, Body::None,     false, 2, {Stroke{-0.5, -0.5, 0.5, 0.5}, Stroke{-0.5, 0.5, 0.5, -0.5}}},
    {-11, Body::TriangleOnTip},
    {-12, Body::Cross},
};
// clang-format on

constexpr const char* TileLetters[] = {"X", "Y", "Z", "N", "E", "D"};  // types 91 to 96
constexpr const char* Digits[] = {"1", "2", "3"};                      // types 97 to 99

/// The target and the place and size of one symbol on it.
struct Place {
  velorix::Target& target;
  double x, y, s;

  /// On a fine target equal symbols are equal in every unit, wherever they stand.
  LogicalPoint At(double dx, double dy) const {
    if (target.Fineness == 1) return ToLogical(target, x + dx * s, y + dy * s);
    const LogicalPoint centre = ToLogical(target, x, y), part = ToLogical(target, dx * s, dy * s);
    return {centre.x + part.x, centre.y + part.y};
  }
  void Ellipse(double half, const Pen& pen, Colour fill) const {
    const LogicalPoint a = At(-half, -half), b = At(half, half);
    target.Ellipse({a.x, a.y, b.x, b.y}, pen, fill);
  }
  void Square(const Pen& pen, Colour fill) const {
    const LogicalPoint p[] = {At(-0.5, -0.5), At(-0.5, 0.5), At(0.5, 0.5), At(0.5, -0.5)};
    target.Polygon(p, pen, fill);
  }
  void Segment(const Stroke& stroke, const Pen& pen) const {
    const LogicalPoint p[] = {At(stroke.x1, stroke.y1), At(stroke.x2, stroke.y2)};
    target.Polyline(p, pen);
  }
  void Letter(const char* text, std::int16_t height, Colour colour) const {
    DrawText(target, text, x, y + 0.5 * s,
             {.height = height, .colour = colour, .alignment = CentreBaseline});
  }
};

void DrawBody(Body body, const Place& place, const Pen& pen, Colour fill) {
  switch (body) {
    case Body::None:
      break;
    case Body::Diamond: {
      const LogicalPoint p[] = {place.At(0, -0.5), place.At(0.5, 0), place.At(0, 0.5),
                                place.At(-0.5, 0)};
      place.target.Polygon(p, pen, fill);
      break;
    }
    case Body::Square:
      place.Square(pen, fill);
      break;
    case Body::Triangle: {
      // Kept for agreement with published results: the height equals the base, 1, instead of the
      // 0.866 of an equilateral triangle.
      const LogicalPoint p[] = {place.At(-0.5, 0.2887), place.At(0, -0.7113),
                                place.At(0.5, 0.2887)};
      place.target.Polygon(p, pen, fill);
      break;
    }
    case Body::TriangleOnTip: {
      const LogicalPoint p[] = {place.At(-0.5, -0.2887), place.At(0, 0.7113),
                                place.At(0.5, -0.2887)};
      place.target.Polygon(p, pen, fill);
      break;
    }
    case Body::Cross: {
      constexpr double Arm = 0.2, End = 0.55;
      const LogicalPoint p[] = {place.At(-Arm, -End), place.At(Arm, -End),  place.At(Arm, -Arm),
                                place.At(End, -Arm),  place.At(End, Arm),   place.At(Arm, Arm),
                                place.At(Arm, End),   place.At(-Arm, End),  place.At(-Arm, Arm),
                                place.At(-End, Arm),  place.At(-End, -Arm), place.At(-Arm, -Arm)};
      place.target.Polygon(p, pen, fill);
      break;
    }
    case Body::Circle:
      place.Ellipse(0.5, pen, fill);
      break;
  }
}

}  // namespace

void DrawSymbol(Target& target, std::int16_t type, float x, float y, std::int16_t size, Colour fill,
                Pen pen) {
  if (pen.width == 0) pen.width = 1;
  const Place place = {target, x, y, size * target.SymbolScale};

  if (type == -1) {
    target.Pixel(place.At(0, 0), fill);
  } else if (type >= 1000) {
    const double a = (type - 1000) / DegPerRad;
    place.Segment({0, 0, std::sin(a), -std::cos(a)}, pen);
  } else if (type >= 97 && type <= 99) {
    place.Letter(Digits[type - 97], size, pen.colour);
  } else if (type >= 91 && type <= 96) {
    place.Square({.style = Solid, .colour = White, .width = 1}, White);
    place.Letter(TileLetters[type - 91], 14, pen.colour);
  } else {
    for (const Shape& shape : Catalogue) {
      if (shape.type != type) continue;
      DrawBody(shape.body, place, pen, fill);
      if (shape.dot) place.Ellipse(0.1, pen, fill);
      for (int i = 0; i < shape.strokeCount; ++i) place.Segment(shape.strokes[i], pen);
      return;
    }
  }
}

}  // namespace velorix
