#pragma once

#include <cstdint>

#include "base/slots.h"
#include "plot/drawing/target.h"

namespace velorix {

/// The look that a principal axis keeps in every plot.
struct PrincipalAxis {
  const char* name;  // in legends
  std::int16_t symbol;
  velorix::Colour colour;
  double sizeFactor;  // of the symbol size
  double meanFactor;  // the same for a mean direction
};

// clang-format off
inline constexpr Array1<PrincipalAxis, 3> Axes = {{
    {"Max", 1, Red,   1.0, 1.3},
    {"Int", 2, Green, 1.0, 1.3},
    {"Min", 3, Blue,  1.2, 1.5},
}};
// clang-format on

/// Colour of selected records in every plot, of planes and of lines.
inline constexpr Colour SelectedColour = Yellow, PlaneColour = 0xC0C000, LineColour = 0x800080;

}  // namespace velorix
