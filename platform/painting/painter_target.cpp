#include "platform/painting/painter_target.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include "plot/drawing/letters.h"

namespace velorix {

namespace {

constexpr double LargestStamp = 64;           // device pixels; a greater shape is drawn,
constexpr double LargestStampPen = 16;        // and one under a wider pen
constexpr std::size_t MostStamps = 1u << 12;  // more colours than that would only fill memory

QColor ToQColor(Colour colour) {
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF));
}

Qt::PenStyle ToQPenStyle(std::int16_t style) {
  switch (style) {
    case Dashed:
      return Qt::DashLine;
    case Dotted:
      return Qt::DotLine;
    case DashDot:
      return Qt::DashDotLine;
    case DashDotDot:
      return Qt::DashDotDotLine;
    case NoLine:
      return Qt::NoPen;
    default:
      return Qt::SolidLine;
  }
}

/// The part of a transparent image that was drawn on: an empty margin costs time at each stamping.
QRect Inked(const QImage& image) {
  QRect inked;
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x)
      if (qAlpha(line[x]) != 0) inked |= QRect(x, y, 1, 1);
  }
  return inked.isEmpty() ? QRect(0, 0, 1, 1) : inked;
}

/// Whether a line goes on in its direction at `b`; curves of whole units do so at most points, and
/// each corner costs time.
bool GoesStraightOn(LogicalPoint a, LogicalPoint b, LogicalPoint c) {
  const std::int64_t ux = std::int64_t{b.x} - a.x, uy = std::int64_t{b.y} - a.y;
  const std::int64_t vx = std::int64_t{c.x} - b.x, vy = std::int64_t{c.y} - b.y;
  constexpr std::int64_t Far = 1 << 20;  // beyond, the products could overflow
  if (std::max({std::abs(ux), std::abs(uy), std::abs(vx), std::abs(vy)}) > Far) return false;
  return ux * vy == uy * vx && ux * vx + uy * vy > 0;
}

/// A line in pieces that share their ends: the painter's time grows with the square of a path that
/// crosses itself. Pieces outside the clip cost nothing. Dashes would begin again, so they stay
/// whole.
void DrawInPieces(QPainter& painter, const QPolygonF& line) {
  constexpr qsizetype Piece = 4;
  const qsizetype step = painter.pen().style() == Qt::SolidLine ? Piece : line.size();
  const QRegion clip = painter.hasClipping() ? painter.clipRegion() : QRegion();
  const double rim = painter.pen().widthF() + 1;
  for (qsizetype i = 0; i + 1 < line.size(); i += step) {
    const QPointF* piece = line.constData() + i;
    const qsizetype count = std::min(step + 1, line.size() - i);
    if (!clip.isEmpty()) {
      QRectF box(*piece, QSizeF());
      for (const QPointF& p : std::span(piece, static_cast<std::size_t>(count)))
        box = {QPointF(std::min(box.left(), p.x()), std::min(box.top(), p.y())),
               QPointF(std::max(box.right(), p.x()), std::max(box.bottom(), p.y()))};
      if (!clip.intersects(box.adjusted(-rim, -rim, rim, rim).toAlignedRect())) continue;
    }
    painter.drawPolyline(piece, static_cast<int>(count));
  }
}

/// Inches; a smaller ellipse is exact enough as four curves.
constexpr double SmallOnPage = 0.5;

/// An ellipse as eight cubic curves, which leave it by 4e-6 of its radius. The toolkit's four leave
/// it by 3e-4, 0.01 mm of a net on a page.
QPainterPath ExactEllipse(const QRectF& box) {
  constexpr int Curves = 8;
  constexpr double Angle = 2 * std::numbers::pi / Curves;
  const double handle = 4 / 3.0 * std::tan(Angle / 4);  // of the radius, along the tangent
  const auto at = [&](int i, double along) {
    const double c = std::cos(Angle * i), s = std::sin(Angle * i);
    return box.center() +
           QPointF(box.width() / 2 * (c - along * s), box.height() / 2 * (s + along * c));
  };
  QPainterPath path(at(0, 0));
  for (int i = 1; i <= Curves; ++i) path.cubicTo(at(i - 1, handle), at(i, -handle), at(i, 0));
  path.closeSubpath();
  return path;
}

}  // namespace

QPointF PlaneFit::ToLogical(const QPointF& p) const {
  if (scale <= 0) return {};
  return {(p.x() - dx) / scale, (p.y() - dy) / scale};
}

PlaneFit FitPlane(PlaneSize plane, const QSizeF& device) {
  if (plane.width <= 0 || plane.height <= 0 || device.isEmpty()) return {0, 0, 0};
  const double scale = std::min(device.width() / plane.width, device.height() / plane.height);
  return {scale, (device.width() - scale * plane.width) / 2,
          (device.height() - scale * plane.height) / 2};
}

PainterTarget::PainterTarget(QPainter& painter, const PlaneFit& fit, Surface surface)
    : Target(surface == Surface::Page ? PageFineness : 1),
      painter_(painter),
      fit_(fit),
      fine_{fit.scale / Fineness, fit.dx, fit.dy},
      surface_(surface) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setRenderHint(QPainter::TextAntialiasing);
}

PainterTarget::PainterTarget(QPainter& painter, const PlaneFit& fit, double enlarged)
    : Target(PageFineness, 1 / enlarged),
      painter_(painter),
      fit_{fit.scale / enlarged, fit.dx, fit.dy},
      fine_{fit.scale / Fineness, fit.dx, fit.dy},
      surface_(Surface::Pixels) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setRenderHint(QPainter::TextAntialiasing);
}

void PainterTarget::SetTransparent() { painter_.setBackgroundMode(Qt::TransparentMode); }

void PainterTarget::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  Draw(Kind::Polygon, points, pen, brush);
}

void PainterTarget::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  QPainterPath path;  // of odd-even filling
  for (const std::vector<LogicalPoint>& border : borders) {
    QPolygonF polygon;
    for (const LogicalPoint point : border) polygon.append(fine_.ToDevice(point.x, point.y));
    path.addPolygon(polygon);
    path.closeSubpath();
  }
  painter_.fillPath(path, ToQColor(fill));
}

void PainterTarget::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  Draw(Kind::Polyline, points, pen, NoBrush);
}

/// On pixels each line of a bar reaches down to the one below it, so that no paper shows between
/// them where a unit has more pixels than the pen. Its other sides are those of a line of the pen.
void PainterTarget::Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                         std::span<const Colour> colours) {
  if (surface_ == Surface::Page) return Target::Ramp(sides, bottom, colours);
  const double pen = PenWidth({}), half = std::floor(pen / 2);
  const std::size_t bars = sides.size() - 1;
  for (std::size_t n = 0; n < colours.size(); ++n) {
    const std::int32_t y = bottom - Fineness * static_cast<std::int32_t>(n / bars);
    const QPointF from = Snapped({sides[n % bars], y});
    const QPointF below = Snapped({sides[n % bars + 1], std::min(y + Fineness, bottom)});
    const QPointF corner(from.x() - half, from.y() - half);
    painter_.fillRect(
        QRectF(corner, QPointF(below.x() - half + pen, std::max(below.y(), corner.y() + pen))),
        ToQColor(colours[n]));
  }
}

void PainterTarget::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  const LogicalPoint corners[] = {{box.left, box.top}, {box.right, box.bottom}};
  Draw(Kind::Ellipse, corners, pen, brush);
}

void PainterTarget::Pixel(LogicalPoint point, Colour colour) {
  const QPointF corner = Placed(point);
  const double side =
      surface_ == Surface::Pixels ? std::max(1.0, std::round(fit_.scale)) : fit_.scale;
  painter_.fillRect(QRectF(corner, QSizeF(side, side)), ToQColor(colour));
}

void PainterTarget::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  const double em = style.height * fit_.scale / CellPerEm;
  if (!(em > 0) || text.empty()) return;
  // In points, because a font takes pixels in whole numbers only.
  QFont font;
  font.setFamilies({QString::fromStdString(style.font), QStringLiteral("Liberation Sans")});
  font.setPointSizeF(em * 72 / painter_.device()->logicalDpiY());
  font.setWeight(static_cast<QFont::Weight>(std::clamp(style.weight, 1, 1000)));
  font.setHintingPreference(QFont::PreferVerticalHinting);

  const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  const QFontMetricsF metrics(font, painter_.device());
  double x = 0, y = 0;
  if ((style.alignment & AlignCentre) == AlignCentre) {
    x = -metrics.horizontalAdvance(string) / 2;
  } else if (style.alignment & AlignRight) {
    x = -metrics.horizontalAdvance(string);
  }
  if ((style.alignment & AlignBaseline) == AlignBaseline) {
    y = 0;
  } else if (style.alignment & AlignBottom) {
    y = -metrics.descent();
  } else {
    y = metrics.ascent();
  }

  painter_.save();
  painter_.setFont(font);
  painter_.setPen(ToQColor(style.colour));
  painter_.translate(Placed(point));
  if (style.rotation != 0) painter_.rotate(-style.rotation / 10.0);
  if (surface_ == Surface::Pixels) y = std::round(y);
  painter_.drawText(QPointF(x, y), string);
  painter_.restore();
}

/// Whether all of a shape lies beside the painter's window, its pen and pointed corners included.
bool PainterTarget::IsOutside(std::span<const LogicalPoint> points, const Pen& pen) const {
  const double rim = 2 + 3 * PenWidth(pen);
  const QRectF seen = QRectF(painter_.window()).adjusted(-rim, -rim, rim, rim);
  QPointF least = fine_.ToDevice(points[0].x, points[0].y), most = least;
  for (const LogicalPoint point : points) {
    const QPointF p = fine_.ToDevice(point.x, point.y);
    least = {std::min(least.x(), p.x()), std::min(least.y(), p.y())};
    most = {std::max(most.x(), p.x()), std::max(most.y(), p.y())};
  }
  return most.x() < seen.left() || most.y() < seen.top() || least.x() > seen.right() ||
         least.y() > seen.bottom();
}

QPointF PainterTarget::Placed(LogicalPoint point) const {
  return surface_ == Surface::Pixels ? Snapped(point) : fine_.ToDevice(point.x, point.y);
}

QPointF PainterTarget::Snapped(LogicalPoint point) const {
  const QPointF p = fine_.ToDevice(point.x, point.y);
  return {std::floor(p.x() + 0.5), std::floor(p.y() + 0.5)};
}

double PainterTarget::PenWidth(const Pen& pen) const {
  const double width = std::max<double>(pen.width, 1) * fit_.scale;
  return surface_ == Surface::Pixels ? std::max(1.0, std::round(width)) : width;
}

QPen PainterTarget::ToQPen(const Pen& pen, Kind kind) const {
  const Qt::PenStyle style = ToQPenStyle(pen.style);
  // A solid line covers its end points too; dashes would run together.
  return QPen(ToQColor(pen.colour), PenWidth(pen), style,
              style == Qt::SolidLine ? Qt::SquareCap : Qt::FlatCap,
              kind == Kind::Polyline ? Qt::BevelJoin : Qt::MiterJoin);
}

void PainterTarget::Draw(Kind kind, std::span<const LogicalPoint> points, const Pen& pen,
                         Brush brush) {
  if (points.size() < 2 || (SymbolScale < 1 && IsOutside(points, pen))) return;
  if (surface_ == Surface::Page || !DrawStamp(kind, points, pen, brush))
    DrawShape(painter_, kind, points, Placed(points[0]), pen, brush);
}

/// Draws the shape with its first point at `first`. On pixels all points are whole pixels apart,
/// and half a pixel is added to all under a pen of odd width, whose line then fills whole pixels.
void PainterTarget::DrawShape(QPainter& painter, Kind kind, std::span<const LogicalPoint> points,
                              const QPointF& first, const Pen& pen, Brush brush) const {
  const bool pixels = surface_ == Surface::Pixels;
  const double half = pixels && std::fmod(PenWidth(pen), 2) == 1 ? 0.5 : 0;
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (std::size_t i = 0; i < points.size(); ++i) {
    const LogicalPoint p = points[i];
    if (kind == Kind::Polyline && i > 0 && i + 1 < points.size() &&
        GoesStraightOn(points[i - 1], p, points[i + 1]))
      continue;
    double x = (static_cast<double>(p.x) - points[0].x) * fine_.scale;
    double y = (static_cast<double>(p.y) - points[0].y) * fine_.scale;
    if (pixels) x = std::round(x), y = std::round(y);
    const QPointF at(first.x() + x + half, first.y() + y + half);
    if (polygon.size() < 2 || at != polygon.back()) polygon.append(at);
  }
  painter.setPen(ToQPen(pen, kind));
  painter.setBrush(brush ? QBrush(ToQColor(*brush)) : QBrush(Qt::NoBrush));
  switch (kind) {
    case Kind::Polygon:
      painter.drawPolygon(polygon);
      break;
    case Kind::Polyline:
      DrawInPieces(painter, polygon);
      break;
    case Kind::Ellipse:
      if (const QRectF box(polygon[0], polygon[1]);
          pixels || box.width() < SmallOnPage * painter.device()->logicalDpiX())
        painter.drawEllipse(box);
      else
        painter.drawPath(ExactEllipse(box));
      break;
  }
}

/// Stamps a shape that is small enough; false when it is not.
bool PainterTarget::DrawStamp(Kind kind, std::span<const LogicalPoint> points, const Pen& pen,
                              Brush brush) {
  if (points.size() > MaxStampPoints || PenWidth(pen) > LargestStampPen) return false;
  StampKey key = {.kind = kind,
                  .count = static_cast<std::int16_t>(points.size()),
                  .penStyle = pen.style,
                  .penWidth = pen.width,
                  .penColour = pen.colour,
                  .fill = brush.value_or(0),
                  .hollow = !brush};
  const double limit = std::min(LargestStamp / std::max(fine_.scale, 1e-3), 1e4);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double dx = static_cast<double>(points[i].x) - points[0].x;
    const double dy = static_cast<double>(points[i].y) - points[0].y;
    if (std::abs(dx) > limit || std::abs(dy) > limit) return false;
    key.offsets[2 * i] = static_cast<std::int16_t>(dx);
    key.offsets[2 * i + 1] = static_cast<std::int16_t>(dy);
  }
  auto found = stamps_.find(key);
  if (found == stamps_.end()) {
    if (stamps_.size() >= MostStamps) stamps_.clear();
    found = stamps_.emplace(key, MakeStamp(kind, points, pen, brush)).first;
  }
  const Stamp& stamp = found->second;
  painter_.drawImage(Snapped(points[0]) + stamp.corner, stamp.image);
  return true;
}

PainterTarget::Stamp PainterTarget::MakeStamp(Kind kind, std::span<const LogicalPoint> points,
                                              const Pen& pen, Brush brush) const {
  double left = 0, top = 0, right = 0, bottom = 0;
  for (const LogicalPoint p : points) {
    left = std::min(left, (static_cast<double>(p.x) - points[0].x) * fine_.scale);
    right = std::max(right, (static_cast<double>(p.x) - points[0].x) * fine_.scale);
    top = std::min(top, (static_cast<double>(p.y) - points[0].y) * fine_.scale);
    bottom = std::max(bottom, (static_cast<double>(p.y) - points[0].y) * fine_.scale);
  }
  // Pointed corners reach beyond the outline by up to three pen widths.
  const double margin = 2 + 3 * PenWidth(pen);
  const QPoint corner(static_cast<int>(std::floor(left - margin)),
                      static_cast<int>(std::floor(top - margin)));
  QImage image(static_cast<int>(std::ceil(right + margin)) - corner.x(),
               static_cast<int>(std::ceil(bottom + margin)) - corner.y(),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawShape(painter, kind, points, QPointF(-corner), pen, brush);
  painter.end();
  const QRect inked = Inked(image);
  return {image.copy(inked), corner + inked.topLeft()};
}

std::size_t PainterTarget::StampHash::operator()(const StampKey& key) const {
  std::uint64_t hash = static_cast<std::uint64_t>(key.kind) << 3 | (key.hollow ? 1u : 0u);
  const auto mix = [&hash](std::uint64_t value) {
    hash = (hash ^ value) * 0x9E37'79B9'7F4A'7C15u;
    hash ^= hash >> 29;
  };
  mix(static_cast<std::uint64_t>(key.penColour) << 32 | key.fill);
  mix(static_cast<std::uint64_t>(static_cast<std::uint16_t>(key.penStyle)) << 16 |
      static_cast<std::uint16_t>(key.penWidth));
  for (std::size_t i = 2; i < 2u * static_cast<std::size_t>(key.count); i += 2)
    mix(static_cast<std::uint64_t>(static_cast<std::uint16_t>(key.offsets[i])) << 16 |
        static_cast<std::uint16_t>(key.offsets[i + 1]));
  return static_cast<std::size_t>(hash);
}

}  // namespace velorix
