#pragma once

#include <QImage>
#include <QPainter>
#include <array>
#include <cstdint>
#include <span>
#include <unordered_map>

#include "plot/drawing/target.h"

namespace velorix {

/// How a logical plane lies on a device: one scale for both axes and an offset.
struct PlaneFit {
  double scale = 1, dx = 0, dy = 0;

  QPointF ToDevice(double x, double y) const { return {x * scale + dx, y * scale + dy}; }
  /// (0, 0) where the scale is 0.
  QPointF ToLogical(const QPointF& p) const;
};

/// The plane whole and undistorted in the middle of `device`; scale 0 where either has no extent.
PlaneFit FitPlane(PlaneSize plane, const QSizeF& device);

/// What lies under a painter: device pixels, to which lines and symbols snap so that they are
/// crisp, or a page of vectors (PDF, paper), which keeps every call as it is.
enum class Surface { Pixels, Page };
/// Of a page: its curves are smooth to 1/100 of a unit.
inline constexpr int PageFineness = 100;

/// A target on a painter, smooth at any scale. For `Surface::Pixels` one unit of the painter must
/// be one pixel of its device. Pens scale with the plane but never get thinner than a device pixel.
///
/// A small shape drawn before with the same pen and brush is stamped as a picture on pixels, since
/// a full store means 98,000 symbols; nothing else distinguishes it from one that was drawn.
class PainterTarget : public Target {
 public:
  PainterTarget(QPainter& painter, const PlaneFit& fit, Surface surface = Surface::Pixels);
  /// On pixels, `enlarged` times as large as the whole picture is: `fit` is that of the enlarged
  /// plane. Points lie as finely as on a page, what lies outside the painter's window costs little,
  /// and symbols, pens and letters keep their size.
  PainterTarget(QPainter& painter, const PlaneFit& fit, double enlarged);

  void SetTransparent() override;
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override;
  void Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
            std::span<const Colour> colours) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;

 private:
  enum class Kind : std::int16_t { Polygon, Polyline, Ellipse };
  static constexpr int MaxStampPoints = 4;

  /// A shape apart from its place: the points from the first one on, pen and brush.
  struct StampKey {
    Kind kind = Kind::Polygon;
    std::int16_t count = 0, penStyle = 0, penWidth = 0;
    Colour penColour = 0, fill = 0;
    bool hollow = false;
    std::array<std::int16_t, 2 * MaxStampPoints> offsets = {};
    bool operator==(const StampKey&) const = default;
  };
  struct StampHash {
    std::size_t operator()(const StampKey& key) const;
  };
  struct Stamp {
    QImage image;
    QPoint corner;  // of the image, from the device pixel of the first point
  };

  void Draw(Kind kind, std::span<const LogicalPoint> points, const Pen& pen, Brush brush);
  bool DrawStamp(Kind kind, std::span<const LogicalPoint> points, const Pen& pen, Brush brush);
  void DrawShape(QPainter& painter, Kind kind, std::span<const LogicalPoint> points,
                 const QPointF& first, const Pen& pen, Brush brush) const;
  Stamp MakeStamp(Kind kind, std::span<const LogicalPoint> points, const Pen& pen,
                  Brush brush) const;
  bool IsOutside(std::span<const LogicalPoint> points, const Pen& pen) const;
  QPointF Placed(LogicalPoint point) const;
  QPointF Snapped(LogicalPoint point) const;
  double PenWidth(const Pen& pen) const;
  QPen ToQPen(const Pen& pen, Kind kind) const;

  QPainter& painter_;
  PlaneFit fit_;   // of logical units, for sizes
  PlaneFit fine_;  // of the units of points
  Surface surface_;
  std::unordered_map<StampKey, Stamp, StampHash> stamps_;
};

}  // namespace velorix
