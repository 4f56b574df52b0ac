#include "platform/qt/plots/picture_changes.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace velorix {
namespace {

constexpr int TileSide = 8;  // logical units
/// Beyond the points: rims of smoothed lines and pointed corners.
constexpr int Rim = 4;

LogicalBox Grown(LogicalBox box, std::int64_t by) {
  const auto clamp = [](std::int64_t v) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(v, INT32_MIN / 4, INT32_MAX / 4));
  };
  return {clamp(box.left - by), clamp(box.top - by), clamp(box.right + by), clamp(box.bottom + by)};
}

LogicalBox BoxOf(std::span<const LogicalPoint> points, const Pen& pen) {
  if (points.empty()) return {};
  LogicalBox box = {points[0].x, points[0].y, points[0].x, points[0].y};
  for (const LogicalPoint p : points) {
    box.left = std::min(box.left, p.x);
    box.top = std::min(box.top, p.y);
    box.right = std::max(box.right, p.x);
    box.bottom = std::max(box.bottom, p.y);
  }
  return Grown(box, Rim + 2 * static_cast<std::int64_t>(pen.width));
}

LogicalBox BoxOf(std::span<const std::vector<LogicalPoint>> borders) {
  std::vector<LogicalPoint> points;
  for (const auto& border : borders) points.insert(points.end(), border.begin(), border.end());
  return BoxOf(points, {});
}

LogicalBox BoxOf(const LogicalBox& ellipse, const Pen& pen) {
  const LogicalPoint corners[] = {{ellipse.left, ellipse.top}, {ellipse.right, ellipse.bottom}};
  return BoxOf(corners, pen);
}

/// Wherever the text goes from its point: no letter is wider than high.
LogicalBox BoxOf(std::string_view text, LogicalPoint point, const TextStyle& style) {
  const std::int64_t reach = (static_cast<std::int64_t>(text.size()) + 1) * style.height;
  return Grown({point.x, point.y, point.x, point.y}, reach + Rim);
}

LogicalBox BoxOf(LogicalPoint corner, int width, std::size_t pixels) {
  const int rows = width > 0 ? static_cast<int>(pixels / static_cast<std::size_t>(width)) : 0;
  return Grown({corner.x, corner.y, corner.x + width, corner.y + rows}, Rim);
}

LogicalBox BoxOf(std::span<const std::int32_t> sides, std::int32_t bottom, std::size_t colours) {
  const auto lines = static_cast<std::int32_t>(colours / (sides.size() - 1));
  return Grown({sides.front(), bottom - lines, sides.back(), bottom}, Rim);
}

class Hash {
 public:
  Hash& operator<<(std::uint64_t value) {
    value_ = (value_ ^ value) * 0x9E37'79B9'7F4A'7C15u;
    value_ ^= value_ >> 32;
    return *this;
  }
  Hash& operator<<(LogicalPoint p) {
    return *this << (static_cast<std::uint64_t>(static_cast<std::uint32_t>(p.x)) << 32 |
                     static_cast<std::uint32_t>(p.y));
  }
  Hash& operator<<(std::span<const LogicalPoint> points) {
    for (const LogicalPoint p : points) *this << p;
    return *this << points.size();
  }
  Hash& operator<<(const Pen& pen) {
    return *this << (static_cast<std::uint64_t>(pen.colour) << 32 |
                     static_cast<std::uint64_t>(static_cast<std::uint16_t>(pen.style)) << 16 |
                     static_cast<std::uint16_t>(pen.width));
  }
  Hash& operator<<(std::string_view text) {
    for (const char c : text) *this << static_cast<std::uint64_t>(static_cast<unsigned char>(c));
    return *this << text.size();
  }
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 0x243F'6A88'85A3'08D3u;
};

std::uint64_t FillOf(const Brush& brush) { return brush ? *brush : std::uint64_t{1} << 40; }

enum Kind : std::uint64_t {
  PolygonKind = 1,
  RegionKind,
  PolylineKind,
  EllipseKind,
  PixelKind,
  RasterKind,
  RampKind,
  TextKind
};

}  // namespace

void CallMarks::SetTransparent() {
  if (next_) next_->SetTransparent();
}

void CallMarks::Begin(std::uint64_t hash) {
  Marks.complete = Marks.calls.size() < MostCalls;
  if (!Marks.complete) return;
  lastRange_ = {-1, -1, -1, -1};
  Marks.calls.push_back({hash, static_cast<std::uint32_t>(Marks.tiles.size()), 0});
}

/// The tiles of a box belong to the last call; most are those of the segment before.
void CallMarks::Cover(const LogicalBox& box) {
  if (!Marks.complete) return;
  const LogicalBox range = grid_.RangeOf(box);
  if (range == lastRange_) return;
  lastRange_ = range;
  CallMark& call = Marks.calls.back();
  grid_.ForEachIn(range, [&](std::uint16_t tile) {
    constexpr std::uint32_t Window = 16;
    const auto recent = Marks.tiles.end() - std::min(call.tileCount, Window);
    if (std::find(recent, Marks.tiles.end(), tile) != Marks.tiles.end()) return;
    Marks.tiles.push_back(tile);
    ++call.tileCount;
  });
}

void CallMarks::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  Begin((Hash() << PolygonKind << points << pen << FillOf(brush)).Value());
  Cover(BoxOf(points, pen));
  if (next_) next_->Polygon(points, pen, brush);
}

void CallMarks::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  Hash hash;
  hash << RegionKind << fill;
  for (const auto& border : borders) hash << std::span<const LogicalPoint>(border);
  Begin(hash.Value());
  Cover(BoxOf(borders));
  if (next_) next_->Region(borders, fill);
}

void CallMarks::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  Begin((Hash() << PolylineKind << points << pen).Value());
  for (std::size_t i = 1; i < points.size(); ++i) Cover(BoxOf(points.subspan(i - 1, 2), pen));
  if (next_) next_->Polyline(points, pen);
}

void CallMarks::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  const LogicalPoint corners[] = {{box.left, box.top}, {box.right, box.bottom}};
  Begin((Hash() << EllipseKind << std::span<const LogicalPoint>(corners) << pen << FillOf(brush))
            .Value());
  Cover(BoxOf(box, pen));
  if (next_) next_->Ellipse(box, pen, brush);
}

void CallMarks::Pixel(LogicalPoint point, Colour colour) {
  Begin((Hash() << PixelKind << point << colour).Value());
  Cover(BoxOf(point, 1, 1));
  if (next_) next_->Pixel(point, colour);
}

void CallMarks::Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
  Hash hash;
  hash << RasterKind << corner << static_cast<std::uint64_t>(width);
  for (const Colour colour : pixels) hash << colour;
  Begin(hash.Value());
  Cover(BoxOf(corner, width, pixels.size()));
  if (next_) next_->Raster(corner, width, pixels);
}

void CallMarks::Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                     std::span<const Colour> colours) {
  Hash hash;
  hash << RampKind;
  for (const std::int32_t x : sides) hash << LogicalPoint{x, bottom};
  for (const Colour colour : colours) hash << colour;
  Begin(hash.Value());
  Cover(BoxOf(sides, bottom, colours.size()));
  if (next_) next_->Ramp(sides, bottom, colours);
}

void CallMarks::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  Hash hash;
  hash << TextKind << text << point << std::string_view(style.font);
  for (const int value :
       {static_cast<int>(style.height), style.alignment, style.weight, style.rotation})
    hash << static_cast<std::uint64_t>(value);
  hash << style.colour;
  Begin(hash.Value());
  Cover(BoxOf(text, point, style));
  if (next_) next_->Text(text, point, style);
}

TileGrid::TileGrid(PlaneSize plane)
    : columns(std::clamp((plane.width + TileSide - 1) / TileSide, 1, 255)),
      rows(std::clamp((plane.height + TileSide - 1) / TileSide, 1, 255)) {}

LogicalBox TileGrid::RangeOf(const LogicalBox& box) const {
  const auto tile = [](std::int32_t place, int count) {
    return std::clamp(place < 0 ? 0 : place / TileSide, 0, count - 1);
  };
  return {tile(box.left, columns), tile(box.top, rows), tile(box.right, columns),
          tile(box.bottom, rows)};
}

Tiles::Tiles(PlaneSize plane)
    : grid_(plane), tiles_(static_cast<std::size_t>(grid_.columns * grid_.rows)) {}

void Tiles::Add(std::span<const std::uint16_t> tiles) {
  for (const std::uint16_t tile : tiles) {
    count_ += !tiles_[tile];
    tiles_[tile] = true;
  }
}

bool Tiles::Touch(const LogicalBox& box) const {
  bool touched = false;
  grid_.ForEach(box, [&](std::uint16_t tile) { touched = touched || tiles_[tile]; });
  return touched;
}

QRegion Tiles::OnDevice(const PlaneFit& fit, const QSize& image) const {
  const auto edge = [&](int tile, int count, double offset, int end) {
    if (tile <= 0) return 0;
    if (tile >= count) return end;
    return static_cast<int>(std::floor(tile * TileSide * fit.scale + offset));
  };
  const auto has = [&](int row, int column) {
    const int tile = row * grid_.columns + column;
    return column < grid_.columns && tiles_[static_cast<std::size_t>(tile)];
  };
  QRegion region;
  for (int row = 0; row < grid_.rows; ++row) {
    const int top = edge(row, grid_.rows, fit.dy, image.height());
    const int bottom = edge(row + 1, grid_.rows, fit.dy, image.height()) + 1;
    for (int column = 0; column < grid_.columns; ++column) {
      if (!has(row, column)) continue;
      const int first = column;
      while (has(row, column + 1)) ++column;
      const int left = edge(first, grid_.columns, fit.dx, image.width());
      const int right = edge(column + 1, grid_.columns, fit.dx, image.width()) + 1;
      region += QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
    }
  }
  return region & QRect(QPoint(), image);
}

std::optional<Tiles> ChangedTiles(const Marks& before, const Marks& after, PlaneSize plane) {
  std::unordered_map<std::uint64_t, int> surplus;  // of `after` over `before`
  surplus.reserve(after.calls.size());
  for (const CallMark& call : after.calls) ++surplus[call.hash];
  for (const CallMark& call : before.calls) --surplus[call.hash];
  const auto changed = [&](const CallMark& call) { return surplus.find(call.hash)->second != 0; };

  Tiles tiles(plane);
  auto old = before.calls.begin();
  const auto skipChanged = [&] {
    for (; old != before.calls.end() && changed(*old); ++old) tiles.Add(before.TilesOf(*old));
  };
  for (const CallMark& call : after.calls) {
    if (changed(call)) {
      tiles.Add(after.TilesOf(call));
      continue;
    }
    skipChanged();
    if (old->hash != call.hash) return std::nullopt;
    ++old;
  }
  skipChanged();
  return tiles;
}

void TileTarget::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  if (tiles_.Touch(BoxOf(points, pen))) next_.Polygon(points, pen, brush);
}

void TileTarget::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  if (tiles_.Touch(BoxOf(borders))) next_.Region(borders, fill);
}

void TileTarget::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  for (std::size_t i = 1; i < points.size(); ++i)
    if (tiles_.Touch(BoxOf(points.subspan(i - 1, 2), pen))) return next_.Polyline(points, pen);
}

void TileTarget::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  if (tiles_.Touch(BoxOf(box, pen))) next_.Ellipse(box, pen, brush);
}

void TileTarget::Pixel(LogicalPoint point, Colour colour) {
  if (tiles_.Touch(BoxOf(point, 1, 1))) next_.Pixel(point, colour);
}

void TileTarget::Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
  if (tiles_.Touch(BoxOf(corner, width, pixels.size()))) next_.Raster(corner, width, pixels);
}

void TileTarget::Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                      std::span<const Colour> colours) {
  if (tiles_.Touch(BoxOf(sides, bottom, colours.size()))) next_.Ramp(sides, bottom, colours);
}

void TileTarget::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  if (tiles_.Touch(BoxOf(text, point, style))) next_.Text(text, point, style);
}

}  // namespace velorix
