#include "plot/net/net.h"

#include "base/rounding.h"
#include "plot/drawing/symbols.h"
#include "store/coordinates.h"

namespace velorix {

namespace {

struct NetLabel {
  double u, v;
  int alignment;
};

// clang-format off
constexpr NetLabel Labels[] = {             // top, right, bottom, left
    { 0.00,  1.02, CentreBaseline},
    { 1.02, -0.03, LeftBaseline},
    { 0.00, -1.01, CentreTop},
    {-1.02, -0.03, RightBaseline},
};
// clang-format on

void DrawRim(Target& target, const Net& net, Colour colour) {
  DrawCircle(target, net.cx, net.cy, net.diameter / 2, {.colour = colour, .width = 2}, 0);
}

void DrawLabel(Target& target, const Net& net, const char* label, const NetLabel& place,
               Colour colour, std::int16_t fontHeight, double gap) {
  const auto outward = [gap](double part) { return part > 0.5 ? gap : part < -0.5 ? -gap : 0; };
  Point p = OnNet(net, place.u, place.v);
  p.x += outward(place.u);
  p.y -= outward(place.v);
  DrawText(target, label, p.x, p.y,
           {.height = fontHeight, .colour = colour, .alignment = place.alignment});
}

/// Each tick stands across its radius; those of inclination 90 make a small plus at the centre.
void DrawTicks(Target& target, Projection projection, const Net& net, Colour colour) {
  const std::int16_t size = ToShort(5 * net.diameter / 340);
  for (int inc = 10; inc <= 90; inc += 10)
    for (const int dec : {0, 180, 90, 270}) {
      const std::int16_t type = dec % 180 == 0 ? 4 : 6;
      DrawNetSymbol(target, net, projection, {static_cast<double>(dec), static_cast<double>(inc)},
                    type, size, colour, {.colour = colour});
    }
}

}  // namespace

Point OnNet(const Net& net, double u, double v) {
  return NetToTarget({u, v}, {net.cx, net.cy}, net.diameter);
}

void DrawNetSymbol(Target& target, const Net& net, Projection projection, Direction direction,
                   std::int16_t type, std::int16_t size, Colour fill, Pen pen) {
  const Point unit = ProjectDirection(projection, direction);
  const Point p = OnNet(net, unit.x, unit.y);
  DrawSymbol(target, type, static_cast<float>(p.x), static_cast<float>(p.y), size, fill, pen);
}

void DrawNet(Target& target, CoordinateSystem coorSys, Projection projection, const Net& net,
             Colour colour, std::int16_t fontHeight, double labelGap) {
  target.Layer("net");
  DrawRim(target, net, colour);
  const auto& names = NamesOf(coorSys).Rim;
  for (int i = 0; i < 4; ++i)
    DrawLabel(target, net, names[i], Labels[i], colour, fontHeight, labelGap);
  DrawTicks(target, projection, net, colour);
}

}  // namespace velorix
