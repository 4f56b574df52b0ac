#pragma once

#include "plot/axes/axes.h"
#include "plot/drawing/colour_scales.h"

namespace velorix {

/// The colours that have a meaning in the plots.
struct Palette {
  Array1<Colour, 3> axes = {Axes[1].colour, Axes[2].colour, Axes[3].colour};
  Array1<Colour, 3> bootstrap = {128, 32768, 0x800000};  // contours, darker than the axes
  Colour planes = PlaneColour, lines = LineColour, selected = SelectedColour;
  Colour points = 0xD28C5A;            // symbols of the XY plots that no value colours
  Colour (*ramp)(float) = ColorScale;  // of values, 0 to 1

  bool operator==(const Palette&) const = default;
};

/// How many numbers an axis has.
enum class TickDensity { Fewer, AsNow, More };

/// What the plots look like apart from their places and sizes. The defaults are those of the
/// screen.
struct PlotStyle {
  velorix::Palette palette;
  std::int16_t halo = 0;  // width of the white rim of means and their ellipses, as of a pen
  TickDensity ticks = TickDensity::AsNow;
  bool moreCodes = false;  // lines and symbols for a sixth and later code, too

  bool operator==(const PlotStyle&) const = default;
};

}  // namespace velorix
