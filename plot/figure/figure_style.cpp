#include "plot/figure/figure_style.h"

#include <array>
#include <charconv>
#include <cmath>

#include "plot/drawing/fitting_text.h"
#include "text/numbers.h"

namespace velorix {
namespace {

using Bounded = StyleKey::Bounded;
using Whole = StyleKey::Whole;
template <class Enum>
using Word = StyleKey::Word<Enum>;
using OwnColour = StyleKey::OwnColour;

constexpr std::int64_t MostResolution = 2400;

std::string ColourText(Colour colour) {
  constexpr char Digits[] = "0123456789abcdef";
  std::string text = "#";
  for (const int shift : {0, 8, 16})
    for (const int nibble : {4, 0}) text += Digits[colour >> (shift + nibble) & 15];
  return text;
}

std::optional<Colour> ColourOfText(std::string_view text) {
  std::uint32_t rgb = 0;
  if (text.size() != 7 || text[0] != '#') return std::nullopt;
  const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 7, rgb, 16);
  if (error != std::errc() || end != text.data() + 7) return std::nullopt;
  return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

/// The words of a value.
struct TextOfValue {
  const FigureStyle& Style;

  std::string operator()(const Bounded& row) const {
    const double value = Style.*row.Value;
    return value == 0 && row.HasNow ? StyleNow : PlainText(value);
  }
  std::string operator()(const Whole& row) const {
    const std::int64_t value = Style.*row.Value;
    return value == 0 ? StyleNow : std::to_string(value);
  }
  std::string operator()(bool FigureStyle::*row) const { return Style.*row ? StyleYes : StyleNo; }
  std::string operator()(std::string FigureStyle::*row) const { return Style.*row; }
  std::string operator()(OwnColour row) const {
    return Style.*row ? ColourText(*(Style.*row)) : StyleNow;
  }
  template <class Enum>
  std::string operator()(const Word<Enum>& row) const {
    return row.Words[static_cast<std::size_t>(Style.*row.Value)];
  }
};

/// Takes the words of a value; false when they are none of the key's.
struct TakeText {
  FigureStyle& Style;
  std::string_view Text;

  bool operator()(const Bounded& row) const {
    double value = 0;
    if (row.HasNow && Text == StyleNow) return Style.*row.Value = 0, true;
    if (Text.empty() || Text.find_first_not_of("0123456789.") != Text.npos || !IsNumberText(Text))
      return false;
    value = NumberOf(Text);
    if (!(value >= row.Least && value <= row.Most)) return false;
    return Style.*row.Value = value, true;
  }
  bool operator()(const Whole& row) const {
    std::int64_t value = 0;
    if (Text == StyleNow) return Style.*row.Value = 0, true;
    const auto [end, error] = std::from_chars(Text.data(), Text.data() + Text.size(), value);
    if (error != std::errc() || end != Text.data() + Text.size()) return false;
    if (value < row.Least || value > row.Most) return false;
    return Style.*row.Value = value, true;
  }
  bool operator()(bool FigureStyle::*row) const {
    if (Text != StyleYes && Text != StyleNo) return false;
    return Style.*row = Text == StyleYes, true;
  }
  bool operator()(std::string FigureStyle::*row) const {
    constexpr std::size_t LongestName = 64;
    if (Text.empty() || Text.size() > LongestName) return false;
    for (const char c : Text)
      if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return false;
    return Style.*row = Text, true;
  }
  bool operator()(OwnColour row) const {
    if (Text == StyleNow) return Style.*row = std::nullopt, true;
    const auto colour = ColourOfText(Text);
    if (!colour) return false;
    return Style.*row = colour, true;
  }
  template <class Enum>
  bool operator()(const Word<Enum>& row) const {
    for (std::size_t i = 0; i < row.Words.size(); ++i)
      if (row.Words[i] == Text) return Style.*row.Value = static_cast<Enum>(i), true;
    return false;
  }
};

/// What may stand for a value.
struct ChoicesOf {
  std::string operator()(const Bounded& row) const {
    return std::string(row.HasNow ? "now or " : "") + "a number from " + PlainText(row.Least) +
           " to " + PlainText(row.Most);
  }
  std::string operator()(const Whole& row) const {
    return "now or a whole number from " + std::to_string(row.Least) + " to " +
           std::to_string(row.Most);
  }
  std::string operator()(bool FigureStyle::*) const { return "yes or no"; }
  std::string operator()(std::string FigureStyle::*) const { return "a name of 1 to 64 letters"; }
  std::string operator()(OwnColour) const { return "now or a colour as #rrggbb"; }
  template <class Enum>
  std::string operator()(const Word<Enum>& row) const {
    std::string words;
    for (std::size_t i = 0; i < row.Words.size(); ++i)
      words += (i == 0 ? "" : i + 1 == row.Words.size() ? " or " : ", ") + row.Words[i];
    return words;
  }
};

/// Without blanks and tabs at both ends.
std::string_view Stripped(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

Outcome Wrong(int line, const std::string& text) {
  return Outcome::Refused("Figure style", "Line " + std::to_string(line) + ": " + text);
}

constexpr std::string_view AxisKey = "axis.";

bool IsPlain(char c) {
  return static_cast<unsigned char>(c) > 0x20 && c != '%' && c != '=' && c != 0x7F;
}

/// A column's name as a part of a key, and the name of such a part.
std::string KeyOfName(const std::string& name) {
  constexpr char Digits[] = "0123456789ABCDEF";
  std::string key;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    key += IsPlain(c) ? std::string(1, c) : std::string{'%', Digits[byte >> 4], Digits[byte & 15]};
  }
  return key;
}
std::optional<std::string> NameOfKey(std::string_view key) {
  std::string name;
  while (!key.empty()) {
    unsigned byte = static_cast<unsigned char>(key[0]);
    std::size_t length = 1;
    if (key[0] == '%') {
      length = 3;
      if (key.size() < length) return std::nullopt;
      const auto [end, error] = std::from_chars(key.data() + 1, key.data() + length, byte, 16);
      if (error != std::errc() || end != key.data() + length) return std::nullopt;
    }
    name += static_cast<char>(byte);
    key.remove_prefix(length);
  }
  return name;
}

Outcome TakeAxis(std::string_view key, std::string_view value, int number, FigureStyle& style) {
  const auto name = NameOfKey(key);
  if (!name || name->empty()) return Wrong(number, "the name of a column stands behind \"axis.\".");
  const auto axis = HandAxisOfText(value);
  if (!axis)
    return Wrong(number,
                 "an axis is lower end, upper end and step, each a number or auto, and then log "
                 "and reversed where it is so; ends and step fit each other.");
  style.Axes[*name] = *axis;
  return {};
}

Outcome TakeLine(std::string_view line, int number, FigureStyle& style) {
  const std::size_t equals = line.find('=');
  if (equals == line.npos) return Wrong(number, "no \"key = value\" stands here.");
  const std::string_view key = Stripped(line.substr(0, equals));
  const std::string_view value = Stripped(line.substr(equals + 1));
  if (key.starts_with(AxisKey)) return TakeAxis(key.substr(AxisKey.size()), value, number, style);
  for (const StyleKey& row : StyleKeys()) {
    if (key != row.Key) continue;
    if (TakeValueText(style, row, value)) return {};
    return Wrong(number, std::string(key) + " is " + ChoicesText(row) + ".");
  }
  return Wrong(number, "there is no key \"" + FittingText(std::string(key), 20) + "\".");
}

Colour GreyRamp(float x) {
  const float t = std::isnan(x) ? 0 : std::min(std::max(x, 0.0f), 1.0f);
  const auto grey = static_cast<Colour>(std::lround(225 - 195 * t));
  return grey << 16 | grey << 8 | grey;
}

/// Dark violet, blue, green, yellow: lightness rises all the way. The stops are those of the map
/// "viridis" of S. van der Walt and N. Smith (2015).
Colour ViridisRamp(float x) {
  static constexpr std::array<Colour, 5> Stops = {0x540144, 0x8B523B, 0x8C9121, 0x62C95E, 0x25E7FD};
  const float t = (std::isnan(x) ? 0 : std::min(std::max(x, 0.0f), 1.0f)) * (Stops.size() - 1);
  const auto stop = std::min(static_cast<std::size_t>(t), Stops.size() - 2);
  float share = t - static_cast<float>(stop);
  return BlendColor(Stops[stop + 1], Stops[stop], share);
}

}  // namespace

// clang-format off
const std::vector<StyleKey>& StyleKeys() {
  static const std::vector<StyleKey> keys = {
      {"layout",        "Layout",            "page: the places of the page; fill: the plots fill the figure", Word<FigureLayout>{&FigureStyle::Layout, {"page", "fill"}}},
      {"width",         "Width [mm]",        "mm, 30 to 600",                                    Bounded{&FigureStyle::Width, LeastFigureWidth, MostFigureWidth, false}, "85 174"},
      {"columns",       "Columns",           "of plots with layout = fill, 1 to 4",              Whole{&FigureStyle::Columns, 1, 4}, "1 2 3 4"},
      {"panel-letters", "Panel letters",     "(a), (b) ... at the plots",                        &FigureStyle::PanelLetters},
      {"resolution",    "Pixels an inch",    "of pictures of pixels, 50 to 2400",                Whole{&FigureStyle::Resolution, 50, MostResolution}, "96 300 600 1200"},
      {"font",          "Font",              "name of the font",                                 &FigureStyle::Font},
      {"font-size",     "Font size [pt]",    "points, 3 to 40",                                  Bounded{&FigureStyle::FontSize, 3, 40}, "6 7 8 9 10"},
      {"line-width",    "Line width [pt]",   "points, 0.1 to 5",                                 Bounded{&FigureStyle::LineWidth, 0.1, 5}, "0.25 0.5 0.75 1"},
      {"symbol-size",   "Symbols [mm]",      "mm, 0.3 to 10",                                    Bounded{&FigureStyle::SymbolSize, 0.3, 10}, "1 1.5 2 3"},
      {"colours",       "Colours",           "grey, safe for colour-blind readers, own",         Word<FigureColours>{&FigureStyle::Colours, {StyleNow, "grey", "safe", "own"}}},
      {"kmax-colour",   "Own: Kmax",         "#rrggbb, with colours = own",                      &FigureStyle::KmaxColour},
      {"kint-colour",   "Own: Kint",         "#rrggbb",                                          &FigureStyle::KintColour},
      {"kmin-colour",   "Own: Kmin",         "#rrggbb",                                          &FigureStyle::KminColour},
      {"plane-colour",  "Own: planes",       "#rrggbb",                                          &FigureStyle::PlaneColour},
      {"line-colour",   "Own: lineations",   "#rrggbb",                                          &FigureStyle::LineColour},
      {"halo",          "White rims",        "white rims round means and ellipses",              &FigureStyle::Halo},
      {"ticks",         "Numbers at axes",   "fewer or more numbers at the axes",                Word<TickDensity>{&FigureStyle::Ticks, {"fewer", StyleNow, "more"}}},
      {"superscripts",  "Raised exponents",  "10 with a raised exponent",                        &FigureStyle::Superscripts},
      {"captions",      "Captions, legend",  "outside the net, or none",                         Word<CaptionPlace>{&FigureStyle::Captions, {StyleNow, "outside", "none"}}},
      {"more-codes",    "More codes",        "lines and symbols for a sixth and later code",     &FigureStyle::MoreCodes},
      {"name-line",     "Line with the name", "level, method, number and file below the plots",  &FigureStyle::NameLine},
  };
  return keys;
}
// clang-format on

std::string ValueText(const FigureStyle& style, const StyleKey& key) {
  return std::visit(TextOfValue{style}, key.Value);
}

bool TakeValueText(FigureStyle& style, const StyleKey& key, std::string_view text) {
  return std::visit(TakeText{style, text}, key.Value);
}

std::vector<std::string> WordsOf(const StyleKey& key) {
  return std::visit(
      [](const auto& value) -> std::vector<std::string> {
        if constexpr (requires { value.Words; }) return value.Words;
        return {};
      },
      key.Value);
}

std::string ChoicesText(const StyleKey& key) { return std::visit(ChoicesOf(), key.Value); }

std::string StyleText(const FigureStyle& style) {
  std::string text;
  for (const StyleKey& row : StyleKeys())
    text += "# " + std::string(row.Help) + "\n" + row.Key + " = " + ValueText(style, row) + "\n";
  if (!style.Axes.empty()) text += "# axes by hand: lower end, upper end, step; log, reversed\n";
  for (const auto& [name, axis] : style.Axes)
    text += std::string(AxisKey) + KeyOfName(name) + " = " + HandAxisText(axis) + "\n";
  return text;
}

Outcome ReadStyle(std::string_view text, FigureStyle& style) {
  constexpr std::string_view Mark = "\xEF\xBB\xBF";
  if (text.starts_with(Mark)) text.remove_prefix(Mark.size());
  FigureStyle read;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = Stripped(line);
    if (line.empty() || line.starts_with('#')) continue;
    if (Outcome outcome = TakeLine(line, number, read); !outcome) return outcome;
  }
  style = read;
  return {};
}

Palette PaletteOf(const FigureStyle& style) {
  Palette palette;
  switch (style.Colours) {
    case FigureColours::AsNow:
      break;
    case FigureColours::Grey:
      palette = {.axes = {0x000000, 0x595959, 0x949494},
                 .bootstrap = {0x000000, 0x595959, 0x949494},
                 .planes = 0x595959,
                 .lines = 0x303030,
                 .selected = White,
                 .points = 0x808080,
                 .ramp = GreyRamp};
      break;
    case FigureColours::Safe:
      // Of M. Okabe and K. Ito, Color universal design (2008): vermillion, bluish green, blue,
      // reddish purple.
      palette.axes = palette.bootstrap = {0x005ED5, 0x739E00, 0xB27200};
      palette.planes = 0xA779CC;
      palette.lines = 0x404040;
      palette.points = 0xB27200;
      palette.ramp = ViridisRamp;
      break;
    case FigureColours::Own: {
      const OwnColour own[] = {&FigureStyle::KmaxColour, &FigureStyle::KintColour,
                               &FigureStyle::KminColour};
      for (int k = 1; k <= 3; ++k)
        if (const auto& colour = style.*own[k - 1])
          palette.axes[k] = palette.bootstrap[k] = *colour;
      palette.planes = style.PlaneColour.value_or(palette.planes);
      palette.lines = style.LineColour.value_or(palette.lines);
      break;
    }
  }
  return palette;
}

}  // namespace velorix
