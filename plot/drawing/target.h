#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velorix {

/// 0x00BBGGRR: red in the low byte.
using Colour = std::uint32_t;
inline constexpr Colour Black = 0, White = 0xFFFFFF, Red = 255, Green = 65280, Blue = 0xFF0000,
                        Yellow = 65535;

enum PenStyle : std::int16_t { Solid, Dashed, Dotted, DashDot, DashDotDot, NoLine };

/// Width in logical units, or those of the target's `PenUnit`.
struct Pen {
  std::int16_t style = Solid;
  velorix::Colour colour = Black;
  std::int16_t width = 1;
  bool operator==(const Pen&) const = default;
};

/// What fills a shape: a colour, or nothing, which leaves it hollow.
using Brush = std::optional<Colour>;
inline constexpr std::nullopt_t NoBrush = std::nullopt;

/// A point of the target's logical plane, x to the right, y downward, in units of the target's
/// fineness.
struct LogicalPoint {
  std::int32_t x = 0, y = 0;
  bool operator==(const LogicalPoint&) const = default;
};

/// A box by its upper left and lower right corners.
struct LogicalBox {
  std::int32_t left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const LogicalBox&) const = default;
};

/// Width and height of a logical plane whose upper left corner is (0, 0).
struct PlaneSize {
  int width = 0, height = 0;
  bool operator==(const PlaneSize&) const = default;
};

/// Where a text stands from its point: the sum of a horizontal and a vertical value.
enum Alignment : int {
  AlignLeft = 0,
  AlignRight = 2,
  AlignCentre = 6,
  AlignTop = 0,
  AlignBottom = 8,
  AlignBaseline = 24,
  LeftBaseline = AlignLeft + AlignBaseline,
  RightBaseline = AlignRight + AlignBaseline,
  CentreBaseline = AlignCentre + AlignBaseline,
  CentreTop = AlignCentre + AlignTop,
};

/// `height` is that of the whole character cell, in logical units; `rotation` turns the text
/// against the clock, in tenths of a degree, so that 900 reads upward.
struct TextStyle {
  std::int16_t height = 14;
  velorix::Colour colour = Black;
  int alignment = LeftBaseline;
  int weight = 400;
  int rotation = 0;
  std::string font = "Arial";
  bool operator==(const TextStyle&) const = default;
};

/// The mark of a unit of a raster that is left as it was.
inline constexpr Colour NoColour = 0xFFFFFFFF;

/// What everything is drawn on: a picture on the screen, an image, a page, a metafile, a recorder.
/// No call leaves a pen, brush or font behind, so every call says all that it needs; the
/// transparent background alone lasts.
///
/// Points and boxes come in units that are `Fineness` times as fine as the logical ones, so that
/// curves on paper are smooth. Sizes stay logical: widths of pens, heights of letters, the units of
/// a raster and the lines of a ramp.
///
/// A pen of width 1 is `PenUnit` logical units wide: more than 1 on a figure, whose lines have a
/// width of their own.
///
/// Symbols are drawn `SymbolScale` times their size: smaller than 1 on an enlarged picture, whose
/// symbols then come apart. Such a target keeps pens and letters at their size by itself.
struct Target {
  const int Fineness;
  const double SymbolScale, PenUnit;

  explicit Target(int fineness = 1, double symbolScale = 1, double penUnit = 1)
      : Fineness(fineness), SymbolScale(symbolScale), PenUnit(penUnit) {}
  virtual ~Target() = default;
  /// Title and description of the picture, for the targets that carry them.
  virtual void Describe(std::string_view title, std::string_view description) {
    (void)title, (void)description;
  }
  /// What follows belongs to a layer, such as "net" or "legend", until the next call names another.
  /// A target without layers draws on.
  virtual void Layer(std::string_view name) { (void)name; }
  /// Text and dashed lines paint no background from here on; a composition begins with it.
  virtual void SetTransparent() = 0;
  virtual void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) = 0;
  /// What lies within an odd number of the closed borders, without an outline.
  virtual void Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) = 0;
  virtual void Polyline(std::span<const LogicalPoint> points, const Pen& pen) = 0;
  virtual void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) = 0;
  virtual void Pixel(LogicalPoint point, Colour colour) = 0;
  /// Pixels row by row, `width` of them a row, from `corner` to the right and downward; `NoColour`
  /// leaves a unit as it was. `width` is at least 1 and `pixels` holds whole rows. A target that
  /// doesn't override this makes a `Pixel` of each; one that does covers the same units, without
  /// the gaps and overlaps that pixels of whole device units have at a scale between.
  virtual void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
    for (std::size_t n = 0; n < pixels.size(); ++n)
      if (pixels[n] != NoColour)
        Pixel({corner.x + Fineness * static_cast<int>(n % static_cast<std::size_t>(width)),
               corner.y + Fineness * static_cast<int>(n / static_cast<std::size_t>(width))},
              pixels[n]);
  }
  /// Colour scales side by side: bars of level lines, a unit apart from `bottom` upward. The sides
  /// of the bars are at `sides`, from left to right, one more than there are bars; `colours` holds
  /// the lines from the lowest on, a colour for each bar. A target that doesn't override this draws
  /// each line; one that does leaves no gaps between them at a scale above 1.
  virtual void Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                    std::span<const Colour> colours) {
    const std::size_t bars = sides.size() - 1;
    for (std::size_t n = 0; n < colours.size(); ++n) {
      const std::int32_t y = bottom - Fineness * static_cast<std::int32_t>(n / bars);
      const LogicalPoint line[] = {{sides[n % bars], y}, {sides[n % bars + 1], y}};
      Polyline(line, {.colour = colours[n]});
    }
  }
  /// `text` is UTF-8.
  virtual void Text(std::string_view text, LogicalPoint point, const TextStyle& style) = 0;
};

}  // namespace velorix
