#include <QImage>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/painting/painter_target.h"

namespace velorix {
namespace {

constexpr int PageEnlargement =
    4;  // a viewer may smooth pictures on a page; this keeps units crisp

/// For each device pixel from the first edge to the last the unit that covers it.
std::vector<int> UnitsOf(const std::vector<int>& edges) {
  std::vector<int> units;
  for (std::size_t unit = 0; unit + 1 < edges.size(); ++unit)
    for (int pixel = edges[unit]; pixel < edges[unit + 1]; ++pixel)
      units.push_back(static_cast<int>(unit));
  return units;
}

/// A picture whose pixels are the units of the raster.
QImage Magnified(std::span<const Colour> pixels, int width, const std::vector<int>& columns,
                 const std::vector<int>& rows) {
  QImage image(static_cast<int>(columns.size()), static_cast<int>(rows.size()),
               QImage::Format_ARGB32_Premultiplied);
  for (std::size_t y = 0; y < rows.size(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(static_cast<int>(y)));
    if (y > 0 && rows[y] == rows[y - 1]) {
      const auto* above =
          reinterpret_cast<const QRgb*>(image.constScanLine(static_cast<int>(y) - 1));
      std::copy(above, above + columns.size(), line);
      continue;
    }
    const Colour* row = pixels.data() + static_cast<std::ptrdiff_t>(rows[y]) * width;
    for (std::size_t x = 0; x < columns.size(); ++x) {
      const Colour c = row[columns[x]];
      line[x] = c == NoColour ? 0
                              : qRgb(static_cast<int>(c & 0xFF), static_cast<int>(c >> 8 & 0xFF),
                                     static_cast<int>(c >> 16 & 0xFF));
    }
  }
  return image;
}

}  // namespace

void PainterTarget::Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
  if (width <= 0 || pixels.size() < static_cast<std::size_t>(width)) return;
  const int height = static_cast<int>(pixels.size() / static_cast<std::size_t>(width));
  std::vector<int> xEdges, yEdges;
  if (surface_ == Surface::Page || SymbolScale < 1) {
    const double unit = fine_.scale * Fineness;
    for (int i = 0; i <= width; ++i) xEdges.push_back(i * PageEnlargement);
    for (int j = 0; j <= height; ++j) yEdges.push_back(j * PageEnlargement);
    painter_.drawImage(QRectF(Placed(corner), QSizeF(width * unit, height * unit)),
                       Magnified(pixels, width, UnitsOf(xEdges), UnitsOf(yEdges)));
    return;
  }
  for (int i = 0; i <= width; ++i)
    xEdges.push_back(static_cast<int>(Snapped({corner.x + i, corner.y}).x()));
  for (int j = 0; j <= height; ++j)
    yEdges.push_back(static_cast<int>(Snapped({corner.x, corner.y + j}).y()));
  const QImage image = Magnified(pixels, width, UnitsOf(xEdges), UnitsOf(yEdges));
  if (!image.isNull()) painter_.drawImage(QPoint(xEdges.front(), yEdges.front()), image);
}

}  // namespace velorix
