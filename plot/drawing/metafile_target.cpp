#include "plot/drawing/metafile_target.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

#include "text/code_page.h"

namespace velorix {
namespace {

/// The functions of the records.
enum Function : std::uint16_t {
  MetaEof = 0x0000,
  MetaSaveDC = 0x001E,
  MetaSetBkMode = 0x0102,
  MetaSetMapMode = 0x0103,
  MetaRestoreDC = 0x0127,
  MetaSelectObject = 0x012D,
  MetaSetTextAlign = 0x012E,
  MetaDeleteObject = 0x01F0,
  MetaSetTextColor = 0x0209,
  MetaSetWindowExt = 0x020C,
  MetaCreatePen = 0x02FA,
  MetaCreateFont = 0x02FB,
  MetaCreateBrush = 0x02FC,
  MetaPolygon = 0x0324,
  MetaPolyline = 0x0325,
  MetaEllipse = 0x0418,
  MetaSetPixel = 0x041F,
  MetaTextOut = 0x0521,
  MetaPolyPolygon = 0x0538,
};

constexpr int Transparent = 1, Anisotropic = 8;
constexpr int SolidBrush = 0, NullBrush = 1;
constexpr std::size_t FaceSize = 32;  // bytes of a font's name
constexpr std::size_t MostPoints = 32767;
constexpr std::size_t MostCharacters = 32767;
constexpr std::size_t SizeAt = 6, LongestAt = 12;  // in the metafile

/// The nearest number of 16 bits.
std::int16_t Clamped(std::int32_t value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<std::int32_t>(value, Limits::min(), Limits::max()));
}

}  // namespace

void MetafileTarget::Word(std::int64_t value) {
  const auto word = static_cast<std::uint16_t>(value);
  bits_ += static_cast<char>(word & 0xFF);
  bits_ += static_cast<char>(word >> 8);
}

void MetafileTarget::Long(std::uint32_t value) {
  Word(value & 0xFFFF);
  Word(value >> 16);
}

void MetafileTarget::Places(std::span<const LogicalPoint> points) {
  std::size_t at = bits_.size();
  bits_.resize(at + 4 * points.size());
  for (const LogicalPoint point : points)
    for (const std::int32_t part : {point.x, point.y}) {
      const auto word = static_cast<std::uint16_t>(Clamped(part));
      bits_[at++] = static_cast<char>(word & 0xFF);
      bits_[at++] = static_cast<char>(word >> 8);
    }
}

/// `bytes`, cut or filled with zeros to `length`.
void MetafileTarget::Padded(std::string_view bytes, std::size_t length) {
  const std::size_t used = std::min(bytes.size(), length);
  bits_.append(bytes.substr(0, used)).append(length - used, '\0');
}

void MetafileTarget::PutLong(std::size_t at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) bits_[at + i] = static_cast<char>(value >> (8 * i) & 0xFF);
}

/// The head of a record, whose size comes with its end.
std::size_t MetafileTarget::Begin(std::uint16_t function) {
  assert(!closed_);
  const std::size_t start = bits_.size();
  Long(0);
  Word(function);
  return start;
}

void MetafileTarget::End(std::size_t start) {
  const auto words = static_cast<std::uint32_t>((bits_.size() - start) / 2);
  PutLong(start, words);
  longest_ = std::max(longest_, words);
}

/// A record of one parameter.
void MetafileTarget::Short(std::uint16_t function, int parameter) {
  const std::size_t start = Begin(function);
  Word(parameter);
  End(start);
}

MetafileTarget::MetafileTarget(std::optional<PlaneSize> window, std::string header)
    : bits_(std::move(header)), start_(bits_.size()) {
  Word(1);       // in memory
  Word(9);       // words of this header
  Word(0x0300);  // version
  Long(0);       // words of all
  Word(static_cast<int>(taken_.size()));
  Long(0);  // words of the longest record
  Word(0);
  const std::size_t start = Begin(MetaSetWindowExt);
  Word(window ? window->height : 0);
  Word(window ? window->width : 0);
  End(start);
  if (window) Short(MetaSetMapMode, Anisotropic);
  End(Begin(MetaSaveDC));
}

void MetafileTarget::SetTransparent() {
  if (!std::exchange(transparent_, true)) Short(MetaSetBkMode, Transparent);
}

/// Selects the object that was just made in place of the former one of its kind, which goes. The
/// player gives a new object the first free place, and so does this.
void MetafileTarget::Replace(Kind kind) {
  const auto free = std::find(taken_.begin(), taken_.end(), false);
  const int made = static_cast<int>(free - taken_.begin());
  *free = true;
  Short(MetaSelectObject, made);
  const int old = std::exchange(place_[kind], made);
  if (old < 0) return;
  Short(MetaDeleteObject, old);
  taken_[old] = false;
}

void MetafileTarget::SelectPen(const Pen& pen) {
  if (pen_ == pen) return;
  pen_ = pen;
  const std::size_t start = Begin(MetaCreatePen);
  Word(pen.style);
  Word(pen.width);
  Word(0);
  Long(pen.colour);
  End(start);
  Replace(PenObject);
}

void MetafileTarget::SelectBrush(Brush brush) {
  if (brush_ && *brush_ == brush) return;
  brush_ = brush;
  const std::size_t start = Begin(MetaCreateBrush);
  Word(brush ? SolidBrush : NullBrush);
  Long(brush.value_or(Black));
  Word(0);
  End(start);
  Replace(BrushObject);
}

void MetafileTarget::SelectFont(const TextStyle& style) {
  const FontKey font = {style.font, style.height, style.weight, style.rotation};
  if (font_ == font) return;
  font_ = font;
  const std::size_t start = Begin(MetaCreateFont);
  Word(style.height);  // positive: of the whole cell
  Word(0);
  Word(style.rotation);
  Word(0);
  Word(style.weight);
  Padded({}, 8);
  Padded(ToCodePage(style.font).substr(0, FaceSize - 1), FaceSize);
  End(start);
  Replace(FontObject);
}

void MetafileTarget::Points(std::uint16_t function, std::span<const LogicalPoint> points) {
  const std::size_t start = Begin(function);
  Word(static_cast<std::int64_t>(points.size()));
  Places(points);
  End(start);
}

void MetafileTarget::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  if (points.size() < 2) return;
  SelectPen(pen);
  SelectBrush(brush);
  Points(MetaPolygon, points.first(std::min(points.size(), MostPoints)));
}

/// Alternate filling, which a metafile begins with, leaves holes within borders.
void MetafileTarget::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  const auto longest = [](const std::vector<LogicalPoint>& border) {
    return std::span(border).first(std::min(border.size(), MostPoints));
  };
  SelectPen({.style = NoLine});
  SelectBrush(fill);
  const std::size_t start = Begin(MetaPolyPolygon);
  Word(static_cast<std::int64_t>(borders.size()));
  for (const std::vector<LogicalPoint>& border : borders)
    Word(static_cast<std::int64_t>(longest(border).size()));
  for (const std::vector<LogicalPoint>& border : borders) Places(longest(border));
  End(start);
}

void MetafileTarget::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  if (points.size() < 2) return;
  SelectPen(pen);
  // A line too long for one record goes on in the next from where it was.
  for (; points.size() > MostPoints; points = points.subspan(MostPoints - 1))
    Points(MetaPolyline, points.first(MostPoints));
  Points(MetaPolyline, points);
}

void MetafileTarget::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  SelectPen(pen);
  SelectBrush(brush);
  const std::size_t start = Begin(MetaEllipse);
  for (const std::int32_t side : {box.bottom, box.right, box.top, box.left}) Word(Clamped(side));
  End(start);
}

void MetafileTarget::Pixel(LogicalPoint point, Colour colour) {
  const std::size_t start = Begin(MetaSetPixel);
  Long(colour);
  Word(Clamped(point.y));
  Word(Clamped(point.x));
  End(start);
}

void MetafileTarget::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  const std::string bytes = ToCodePage(text).substr(0, MostCharacters);
  if (bytes.empty()) return;
  SelectFont(style);
  if (alignment_ != style.alignment) Short(MetaSetTextAlign, style.alignment);
  alignment_ = style.alignment;
  if (textColour_ != style.colour) {
    const std::size_t start = Begin(MetaSetTextColor);
    Long(style.colour);
    End(start);
    textColour_ = style.colour;
  }
  const std::size_t start = Begin(MetaTextOut);
  Word(static_cast<std::int64_t>(bytes.size()));
  Padded(bytes, bytes.size() + bytes.size() % 2);
  Word(Clamped(point.y));
  Word(Clamped(point.x));
  End(start);
}

std::string MetafileTarget::Bits() {
  // What is selected can't be deleted: so the state from before the drawing comes back first.
  Short(MetaRestoreDC, -1);
  for (int place = 0; place < static_cast<int>(taken_.size()); ++place)
    if (taken_[place]) Short(MetaDeleteObject, place);
  End(Begin(MetaEof));
  closed_ = true;
  PutLong(start_ + SizeAt, static_cast<std::uint32_t>((bits_.size() - start_) / 2));
  PutLong(start_ + LongestAt, longest_);
  return std::move(bits_);
}

std::string PlaceableHeader(PlaneSize window, int unitsPerInch) {
  const auto width = static_cast<std::uint16_t>(window.width);
  const auto height = static_cast<std::uint16_t>(window.height);
  const auto inch = static_cast<std::uint16_t>(unitsPerInch);
  const std::uint16_t words[] = {0xCDD7, 0x9AC6, 0, 0, 0, width, height, inch, 0, 0};
  std::string header;
  std::uint16_t checksum = 0;
  const auto add = [&header](std::uint16_t word) {
    header += static_cast<char>(word & 0xFF);
    header += static_cast<char>(word >> 8);
  };
  for (const std::uint16_t word : words) {
    checksum = static_cast<std::uint16_t>(checksum ^ word);
    add(word);
  }
  add(checksum);
  return header;
}

}  // namespace velorix
