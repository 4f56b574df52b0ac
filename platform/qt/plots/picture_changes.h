#pragma once

#include <QRegion>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/painting/painter_target.h"
#include "plot/drawing/target.h"

namespace velorix {

// A picture that is drawn again is mostly what it was. So it remembers what each call was and where
// it drew, and only the tiles of the plane where calls came, went or changed are drawn again.

/// The square tiles of a plane, counted row by row; those at its edge reach beyond it.
struct TileGrid {
  explicit TileGrid(PlaneSize plane);

  int columns, rows;

  /// The first and last tiles that the box touches.
  LogicalBox RangeOf(const LogicalBox& box) const;
  /// Calls `visit(tile)` for each tile that the box touches.
  template <class Visit>
  void ForEach(const LogicalBox& box, Visit visit) const {
    ForEachIn(RangeOf(box), visit);
  }
  template <class Visit>
  void ForEachIn(const LogicalBox& range, Visit visit) const {
    for (int row = range.top; row <= range.bottom; ++row)
      for (int column = range.left; column <= range.right; ++column)
        visit(static_cast<std::uint16_t>(row * columns + column));
  }
};

/// What distinguishes a call of a composition from others, and the tiles that hold its ink.
struct CallMark {
  std::uint64_t hash = 0;
  std::uint32_t firstTile = 0, tileCount = 0;
};
struct Marks {
  std::vector<CallMark> calls;
  std::vector<std::uint16_t> tiles;
  bool complete = true;  // false: there were more than `CallMarks::MostCalls`

  std::span<const std::uint16_t> TilesOf(const CallMark& call) const {
    return std::span(tiles).subspan(call.firstTile, call.tileCount);
  }
};

/// Marks each call, and passes it on when there is another target. A picture of more than
/// `MostCalls` is not marked to its end: it is faster to draw it whole.
class CallMarks : public Target {
 public:
  static constexpr std::size_t MostCalls = 20'000;

  explicit CallMarks(PlaneSize plane, Target* next = nullptr) : grid_(plane), next_(next) {}

  velorix::Marks Marks;

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
  void Begin(std::uint64_t hash);
  void Cover(const LogicalBox& box);

  TileGrid grid_;
  LogicalBox lastRange_;
  Target* next_;
};

/// A set of tiles.
class Tiles {
 public:
  explicit Tiles(PlaneSize plane);

  void Add(std::span<const std::uint16_t> tiles);
  bool Touch(const LogicalBox& box) const;
  bool IsEmpty() const { return count_ == 0; }
  bool AreMost() const { return 2 * count_ > static_cast<int>(tiles_.size()); }
  /// The pixels of the tiles on an image.
  QRegion OnDevice(const PlaneFit& fit, const QSize& image) const;

 private:
  TileGrid grid_;
  int count_ = 0;
  std::vector<bool> tiles_;
};

/// The tiles where two compositions differ; none when the calls that both have stand in another
/// order, and all has to be drawn again.
std::optional<Tiles> ChangedTiles(const Marks& before, const Marks& after, PlaneSize plane);

/// Passes on only the calls that touch the tiles.
class TileTarget : public Target {
 public:
  TileTarget(Target& next, const Tiles& tiles) : next_(next), tiles_(tiles) {}

  void SetTransparent() override { next_.SetTransparent(); }
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
  Target& next_;
  const Tiles& tiles_;
};

}  // namespace velorix
