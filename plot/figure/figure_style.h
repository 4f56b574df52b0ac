#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/outcome.h"
#include "plot/axes/plot_style.h"

namespace velorix {

/// Where the plots of a figure stand: at the places of the page, or filling it.
enum class FigureLayout { Page, Fill };

enum class FigureColours { AsNow, Grey, Safe, Own };

/// Captions and legend of the net, and its colour scale: in the corners as on the screen, below it
/// and beside it without touching anything, or left out.
enum class CaptionPlace { AsNow, Outside, None };

/// How a figure for a publication looks. A default is what the page has; numbers that are 0 stand
/// for it.
struct FigureStyle {
  FigureLayout Layout = FigureLayout::Page;
  double Width = 228.6;      // mm
  std::int64_t Columns = 0;  // of plots; 0: by their number and the width
  bool PanelLetters = false;
  std::int64_t Resolution = 0;  // pixels an inch
  std::string Font = "Arial";
  double FontSize = 0;    // points
  double LineWidth = 0;   // points
  double SymbolSize = 0;  // mm
  FigureColours Colours = FigureColours::AsNow;
  std::optional<Colour> KmaxColour, KintColour, KminColour, PlaneColour, LineColour;  // own ones
  bool Halo = false;
  TickDensity Ticks = TickDensity::AsNow;
  bool Superscripts = false;  // "10⁻³", else "10^-3"
  CaptionPlace Captions = CaptionPlace::AsNow;
  bool MoreCodes = false;
  bool NameLine = false;  // level, method, number and file in a line below all

  bool operator==(const FigureStyle&) const = default;
};

inline constexpr double LeastFigureWidth = 30, MostFigureWidth = 600;  // mm
inline constexpr double PointsPerInch = 72, MmPerInch = 25.4;

/// The lines "key = value" of a style file, with a comment above each key.
std::string StyleText(const FigureStyle& style);

/// The style of such lines; keys that are missing have their defaults, and a "#" begins a comment.
/// An unknown key, or a value that is none of the key's, is refused with its line; `style` then
/// stays.
Outcome ReadStyle(std::string_view text, FigureStyle& style);

/// The colours of a style.
Palette PaletteOf(const FigureStyle& style);

}  // namespace velorix
