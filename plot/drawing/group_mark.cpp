#include "plot/drawing/group_mark.h"

#include <algorithm>

#include "base/rounding.h"
#include "plot/drawing/colour_scales.h"
#include "plot/drawing/symbols.h"

namespace velorix {
namespace {

struct Look {
  velorix::Colour Colour;
  std::int16_t Symbol;
};

// Neighbours differ most: blue, vermilion, bluish green, reddish purple, sky blue, orange; circle,
// square, triangle, diamond, triangle on its tip, cross.
constexpr Look Looks[] = {{0xB27200, 3}, {0x005ED5, 1},   {0x739E00, 2},
                          {0xA779CC, 0}, {0xE9B456, -11}, {0x009FE6, -12}};
constexpr Finish Finishes[] = {Finish::Full, Finish::Light, Finish::Dotted};
static_assert(std::size(Looks) * std::size(Finishes) == DistinctMarks);

constexpr double WideLine = 0.2, Dot = 0.4;  // of the symbol's size

}  // namespace

GroupMark MarkOfGroup(std::size_t group) {
  const Look& look = Looks[group % std::size(Looks)];
  return {look.Colour, look.Symbol, Finishes[group / std::size(Looks) % std::size(Finishes)]};
}

Colour LightOf(Colour colour) {
  float share = 0.3f;
  return BlendColor(colour, White, share);
}

void DrawMark(Target& target, std::int16_t type, Finish finish, double x, double y,
              std::int16_t size, Colour fill, bool keepsFill) {
  const auto symbol = [&](std::int16_t which, std::int16_t height, Colour body, Pen pen) {
    DrawSymbol(target, which, static_cast<float>(x), static_cast<float>(y), height, body, pen);
  };
  if (finish != Finish::Light) {
    symbol(type, size, fill, {});
    if (finish == Finish::Dotted) symbol(3, ToShort(Dot * size), Black, {});
    return;
  }
  const std::int16_t wide = std::max<std::int16_t>(2, ToShort(WideLine * size / target.PenUnit));
  symbol(type, size, keepsFill ? fill : LightOf(fill),
         {.colour = keepsFill ? Black : fill, .width = wide});
}

}  // namespace velorix
