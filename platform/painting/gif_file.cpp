#include "platform/painting/gif_file.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace velorix {
namespace {

constexpr std::size_t MostColours = 256;

struct CountedColour {
  std::array<int, 3> rgb;
  std::int64_t count = 0;
};

std::int64_t SquaredDistance(const CountedColour& a, const CountedColour& b) {
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < 3; ++i)
    sum += static_cast<std::int64_t>(a.rgb[i] - b.rgb[i]) * (a.rgb[i] - b.rgb[i]);
  return sum;
}

/// A run of colours that one of them, the most frequent, stands for, and what that loses.
struct Group {
  std::size_t first = 0, end = 0;
  CountedColour chosen;
  std::int64_t loss = 0;
};

Group MakeGroup(const std::vector<CountedColour>& colours, std::size_t first, std::size_t end) {
  Group group{first, end, colours[first], 0};
  for (std::size_t i = first; i < end; ++i)
    if (colours[i].count > group.chosen.count) group.chosen = colours[i];
  for (std::size_t i = first; i < end; ++i)
    group.loss += colours[i].count * SquaredDistance(colours[i], group.chosen);
  return group;
}

/// Parts a group of two colours or more in the middle of its widest primary.
Group Part(std::vector<CountedColour>& colours, Group& group) {
  const auto first = colours.begin() + static_cast<std::ptrdiff_t>(group.first);
  const auto end = colours.begin() + static_cast<std::ptrdiff_t>(group.end);
  std::size_t widest = 0;
  int width = 0, middle = 0;
  for (std::size_t primary = 0; primary < 3; ++primary) {
    const auto [low, high] = std::minmax_element(
        first, end, [=](const auto& a, const auto& b) { return a.rgb[primary] < b.rgb[primary]; });
    const int span = high->rgb[primary] - low->rgb[primary];
    if (span <= width) continue;
    widest = primary, width = span;
    middle = low->rgb[primary] + (span + 1) / 2;
  }
  const auto upper = std::stable_partition(
      first, end, [=](const CountedColour& c) { return c.rgb[widest] < middle; });
  const auto at = static_cast<std::size_t>(upper - colours.begin());
  const Group rest = MakeGroup(colours, at, group.end);
  group = MakeGroup(colours, group.first, at);
  return rest;
}

/// At most `MostColours` of the colours, in a fixed order.
std::vector<CountedColour> ChoosePalette(std::vector<CountedColour> colours) {
  std::vector<Group> groups = {MakeGroup(colours, 0, colours.size())};
  const auto byLoss = [](const Group& a, const Group& b) { return a.loss < b.loss; };
  while (groups.size() < MostColours) {
    const auto worst = std::max_element(groups.begin(), groups.end(), byLoss);
    if (worst->loss == 0) break;
    const Group rest = Part(colours, *worst);
    groups.push_back(rest);
  }
  std::vector<CountedColour> palette;
  palette.reserve(groups.size());
  for (const Group& group : groups) palette.push_back(group.chosen);
  return palette;
}

std::uint8_t Nearest(const CountedColour& colour, const std::vector<CountedColour>& palette) {
  const auto nearest =
      std::min_element(palette.begin(), palette.end(), [&](const auto& a, const auto& b) {
        return SquaredDistance(a, colour) < SquaredDistance(b, colour);
      });
  return static_cast<std::uint8_t>(nearest - palette.begin());
}

struct IndexedImage {
  std::vector<CountedColour> palette;
  std::vector<std::uint8_t> pixels;
};

IndexedImage Indexed(const QImage& image) {
  std::unordered_map<QRgb, std::uint8_t> places;  // of the colours, then of the palette
  std::unordered_map<QRgb, std::int64_t> counts;
  std::vector<QRgb> order;  // of first sight, so that the outcome is the same each time
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x)
      if (++counts[line[x]] == 1) order.push_back(line[x]);
  }
  std::vector<CountedColour> colours;
  colours.reserve(order.size());
  for (const QRgb c : order) colours.push_back({{qRed(c), qGreen(c), qBlue(c)}, counts[c]});
  IndexedImage indexed{ChoosePalette(colours), {}};
  for (std::size_t i = 0; i < order.size(); ++i)
    places[order[i]] = Nearest(colours[i], indexed.palette);
  indexed.pixels.reserve(static_cast<std::size_t>(image.width()) *
                         static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) indexed.pixels.push_back(places[line[x]]);
  }
  return indexed;
}

int AppendBytes(GifFileType* file, const GifByteType* bytes, int count) {
  static_cast<QByteArray*>(file->UserData)->append(reinterpret_cast<const char*>(bytes), count);
  return count;
}

struct FreeMap {
  void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

}  // namespace

QByteArray GifBytes(const QImage& image) {
  if (image.isNull()) return {};
  IndexedImage indexed = Indexed(image.convertToFormat(QImage::Format_RGB32));
  std::array<GifColorType, MostColours> table = {};
  for (std::size_t i = 0; i < indexed.palette.size(); ++i) {
    const auto& rgb = indexed.palette[i].rgb;
    table[i] = {static_cast<GifByteType>(rgb[0]), static_cast<GifByteType>(rgb[1]),
                static_cast<GifByteType>(rgb[2])};
  }
  const std::unique_ptr<ColorMapObject, FreeMap> map(GifMakeMapObject(MostColours, table.data()));
  QByteArray bytes;
  GifFileType* const file = EGifOpen(&bytes, AppendBytes, nullptr);
  if (!file) return {};
  constexpr int Bits = 8;
  bool good = map && EGifPutScreenDesc(file, image.width(), image.height(), Bits, 0, map.get()) &&
              EGifPutImageDesc(file, 0, 0, image.width(), image.height(), false, nullptr);
  for (int y = 0; good && y < image.height(); ++y)
    good =
        EGifPutLine(file, indexed.pixels.data() + std::ptrdiff_t{y} * image.width(), image.width());
  return EGifCloseFile(file, nullptr) && good ? bytes : QByteArray();
}

}  // namespace velorix
