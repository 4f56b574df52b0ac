#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "plot/drawing/target.h"

namespace velorix {

/// A target whose calls become the records of a Windows metafile, in one buffer. Texts are set in
/// Windows-1252. Coordinates have 16 bits: what lies beyond is moved to the nearest of them.
///
/// Pen, brush and font stay selected until a call asks for another one, which then takes the place
/// of the old one in the object table: so a picture of any size needs a table of four places, and
/// a shape that looks like the one before it costs one record.
class MetafileTarget : public Target {
 public:
  /// `window` is the logical plane, stretched to whatever room the picture gets. Without one the
  /// window's extent is 0 by 0 and no mapping is set, for a host that gives the extent itself.
  /// `header` stays in front of the metafile: with `PlaceableHeader` the whole is a file.
  explicit MetafileTarget(std::optional<PlaneSize> window, std::string header = {});

  void SetTransparent() override;
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;

  /// Closes the metafile and gives its bytes away. Nothing can be drawn after it.
  std::string Bits();

 private:
  enum Kind { PenObject, BrushObject, FontObject };
  /// The attributes of a font that make it another object.
  struct FontKey {
    std::string name;
    std::int16_t height = 0;
    int weight = 0, rotation = 0;
    bool operator==(const FontKey&) const = default;
  };

  void Word(std::int64_t value);
  void Long(std::uint32_t value);
  void Places(std::span<const LogicalPoint> points);
  void Padded(std::string_view bytes, std::size_t length);
  void PutLong(std::size_t at, std::uint32_t value);
  std::size_t Begin(std::uint16_t function);
  void End(std::size_t start);
  void Short(std::uint16_t function, int parameter);

  void SelectPen(const Pen& pen);
  void SelectBrush(Brush brush);
  void SelectFont(const TextStyle& style);
  void Replace(Kind kind);
  void Points(std::uint16_t function, std::span<const LogicalPoint> points);

  std::string bits_;
  std::size_t start_;          // of the metafile, behind the header
  std::uint32_t longest_ = 0;  // record, in words
  bool closed_ = false;

  std::array<bool, 4> taken_ = {};           // places of the object table
  std::array<int, 3> place_ = {-1, -1, -1};  // of the selected pen, brush and font
  std::optional<Pen> pen_;
  std::optional<Brush> brush_;
  std::optional<FontKey> font_;
  std::optional<Colour> textColour_;
  std::optional<int> alignment_;
  bool transparent_ = false;
};

/// The 22 bytes in front of a metafile in a file: a picture of `window` units, so many an inch.
std::string PlaceableHeader(PlaneSize window, int unitsPerInch);

}  // namespace velorix
