#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/outcome.h"
#include "plot/axes/hand_axis.h"
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
  HandAxes Axes;

  bool operator==(const FigureStyle&) const = default;
};

inline constexpr double LeastFigureWidth = 30, MostFigureWidth = 600;  // mm
inline constexpr double PointsPerInch = 72, MmPerInch = 25.4;

/// The words of a style file for what the page has, and of its switches.
inline constexpr char StyleNow[] = "now", StyleYes[] = "yes", StyleNo[] = "no";

/// A key of a style file and what may stand for it.
struct StyleKey {
  /// A number between bounds; 0 stands for the page's where it has one.
  struct Bounded {
    double FigureStyle::*Value;
    double Least, Most;
    bool HasNow = true;
  };
  /// A whole number between bounds, or 0 for the page's.
  struct Whole {
    std::int64_t FigureStyle::*Value;
    std::int64_t Least, Most;
  };
  /// One of some words, in the order of the values.
  template <class Enum>
  struct Word {
    Enum FigureStyle::*Value;
    std::vector<std::string> Words;
  };
  using OwnColour = std::optional<Colour> FigureStyle::*;
  using Place =
      std::variant<Bounded, Whole, bool FigureStyle::*, std::string FigureStyle::*, OwnColour,
                   Word<FigureLayout>, Word<FigureColours>, Word<TickDensity>, Word<CaptionPlace>>;

  const char *Key, *Caption, *Help;
  StyleKey::Place Value;
  const char* Usual = "";  // numbers, between blanks
};
const std::vector<StyleKey>& StyleKeys();

/// The words of a key's value, and the same taken from words: false, and the style as it was, when
/// they are none of the key's.
std::string ValueText(const FigureStyle& style, const StyleKey& key);
bool TakeValueText(FigureStyle& style, const StyleKey& key, std::string_view text);
/// The words that a key's value may be; none for values of other kinds.
std::vector<std::string> WordsOf(const StyleKey& key);
/// What may stand for a key's value: "a number from 30 to 600".
std::string ChoicesText(const StyleKey& key);

/// The lines "key = value" of a style file, with a comment above each key. The axes set by hand
/// have the keys "axis." and the column's name, in which blanks, "%", "=" and control characters
/// stand as "%20".
std::string StyleText(const FigureStyle& style);

/// The style of such lines; keys that are missing have their defaults, and a "#" begins a comment.
/// An unknown key, or a value that is none of the key's, is refused with its line; `style` then
/// stays.
Outcome ReadStyle(std::string_view text, FigureStyle& style);

/// The colours of a style.
Palette PaletteOf(const FigureStyle& style);

}  // namespace velorix
