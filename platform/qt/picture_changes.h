#pragma once

#include <QRegion>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/qt/painter_target.h"
#include "plot/target.h"

namespace velorix {

// A picture that is drawn again is mostly what it was. So it remembers what each call was and where
// it drew, and only the tiles of the plane where calls came, went or changed are drawn again.

/// A call of a composition: a number that tells it from others, and the box that holds its ink.
struct CallMark {
  std::uint64_t hash = 0;
  LogicalBox box;
};

/// Marks each call, and passes it on when there is another target.
class CallMarks : public Target {
 public:
  explicit CallMarks(Target* next = nullptr) : next_(next) {}

  std::vector<CallMark> marks;

  void SetTransparent() override;
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;

 private:
  Target* next_;
};

/// Square tiles of a plane; those at its edge reach beyond it.
class Tiles {
 public:
  explicit Tiles(PlaneSize plane);

  void Add(const LogicalBox& box);
  bool Touch(const LogicalBox& box) const;
  bool IsEmpty() const { return count_ == 0; }
  bool AreMost() const { return 2 * count_ > static_cast<int>(tiles_.size()); }
  /// The pixels of the tiles on an image.
  QRegion OnDevice(const PlaneFit& fit, const QSize& image) const;

 private:
  struct Range {
    int left, top, right, bottom;
  };
  Range RangeOf(const LogicalBox& box) const;

  int columns_, rows_, count_ = 0;
  std::vector<bool> tiles_;
};

/// The tiles where two compositions differ; none when the calls that both have stand in another
/// order, and all has to be drawn again.
std::optional<Tiles> ChangedTiles(const std::vector<CallMark>& before,
                                  const std::vector<CallMark>& after, PlaneSize plane);

/// Passes on only the calls that touch the tiles.
class TileTarget : public Target {
 public:
  TileTarget(Target& next, const Tiles& tiles) : next_(next), tiles_(tiles) {}

  void SetTransparent() override { next_.SetTransparent(); }
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;

 private:
  Target& next_;
  const Tiles& tiles_;
};

}  // namespace velorix
