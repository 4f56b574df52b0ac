#pragma once

#include <iosfwd>
#include <string>
#include <variant>
#include <vector>

#include "plot/drawing/target.h"

namespace velorix {

/// The calls of a `Target` as plain records.
struct TransparentCall {
  bool operator==(const TransparentCall&) const = default;
};
struct PolygonCall {
  std::vector<LogicalPoint> points;
  velorix::Pen pen;
  velorix::Brush brush;
  bool operator==(const PolygonCall&) const = default;
};
struct PolylineCall {
  std::vector<LogicalPoint> points;
  velorix::Pen pen;
  bool operator==(const PolylineCall&) const = default;
};
struct EllipseCall {
  LogicalBox box;
  velorix::Pen pen;
  velorix::Brush brush;
  bool operator==(const EllipseCall&) const = default;
};
struct PixelCall {
  LogicalPoint point;
  velorix::Colour colour = Black;
  bool operator==(const PixelCall&) const = default;
};
struct RasterCall {
  LogicalPoint corner;
  int width = 0;
  std::vector<Colour> pixels;
  bool operator==(const RasterCall&) const = default;
};
struct RampCall {
  std::vector<std::int32_t> sides;
  std::int32_t bottom = 0;
  std::vector<Colour> colours;
  bool operator==(const RampCall&) const = default;
};
struct TextCall {
  std::string text;
  LogicalPoint point;
  TextStyle style;
  bool operator==(const TextCall&) const = default;
};

using DrawCall = std::variant<TransparentCall, PolygonCall, PolylineCall, EllipseCall, PixelCall,
                              RasterCall, RampCall, TextCall>;

/// A target that remembers what was drawn on it, in order.
struct Recorder : Target {
  std::vector<DrawCall> calls;

  explicit Recorder(int fineness = 1) : Target(fineness) {}
  void SetTransparent() override;
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override;
  void Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
            std::span<const Colour> colours) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;
};

/// Makes the recorded calls again on another target.
void Replay(const std::vector<DrawCall>& calls, Target& target);

/// One call as one line of text without a line end, for tests and golden files, such as
/// `polyline (1,2) (3,4) pen 0 FF 1` (style, colour in hexadecimal, width). A raster is written in
/// runs of like pixels, as `raster (0,0) width 4: 2 none 1 FF 1 0`, a ramp as its lines, one a line
/// of text.
std::string ToText(const DrawCall& call);
/// All calls, one a line.
std::string ToText(const std::vector<DrawCall>& calls);
std::ostream& operator<<(std::ostream& out, const DrawCall& call);

}  // namespace velorix
