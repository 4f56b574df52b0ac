#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "plot/drawing/target.h"

namespace velorix {

/// A target whose calls become a document of Scalable Vector Graphics 1.1, on white paper. A layer
/// is a group with its name; what is drawn on one layer at several times stays in one group, where
/// it was first. A small shape that comes several times is defined once and used. The ids begin
/// with a hash of the content, so that several pictures stand in one web page. Control characters
/// in texts become blanks.
class SvgTarget : public Target {
 public:
  /// The picture is `plane` in size, `scale` times 1/96 inch a unit.
  explicit SvgTarget(PlaneSize plane, double scale = 1);

  void Describe(std::string_view title, std::string_view description) override;
  void Layer(std::string_view name) override;
  void SetTransparent() override {}
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override;
  void Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
            std::span<const Colour> colours) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;

  /// The document, UTF-8.
  std::string Document() const;

 private:
  struct Group {
    std::string name, body;
  };

  void Put(std::string_view element);
  void PutShape(LogicalPoint origin, const std::string& shape);
  void Rectangle(LogicalPoint corner, std::int64_t width, std::int64_t height, Colour colour);

  PlaneSize plane_;
  double scale_;
  std::string title_ = "Velorix", description_, definitions_;
  std::unordered_map<std::string, std::size_t> shapes_;  // and their numbers
  std::vector<Group> groups_;
  std::size_t group_ = 0;
};

/// The document that `draw` draws, see `SvgTarget`.
std::string SvgDocument(PlaneSize plane, double scale, const std::function<void(Target&)>& draw);

}  // namespace velorix
