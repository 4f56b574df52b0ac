#include "platform/painting/picture_bytes.h"

#include <QBuffer>
#include <QHash>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>

#include "platform/painting/gif_file.h"
#include "platform/painting/painter_target.h"
#include "plot/drawing/svg_target.h"

namespace velorix {
namespace {

using Draw = std::function<void(Target&)>;

constexpr int DefaultDotsPerMeter = 3780;  // 96 an inch, whatever the screen has
constexpr double InchesPerMeter = 39.37007874;
constexpr int JpegQuality = 95;

QByteArray Pixels(const QByteArray& type, PlaneSize plane, const PictureScale& form,
                  const Draw& draw) {
  const double scale = form.Unit;
  QImage image(static_cast<int>(std::ceil(plane.width * scale)),
               static_cast<int>(std::ceil(plane.height * scale)), QImage::Format_RGB32);
  if (image.isNull()) return {};
  const int dots = form.PixelsPerInch > 0
                       ? static_cast<int>(std::lround(form.PixelsPerInch * InchesPerMeter))
                       : DefaultDotsPerMeter;
  image.setDotsPerMeterX(dots);
  image.setDotsPerMeterY(dots);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    PainterTarget target(painter, {scale, 0, 0});
    draw(target);
  }
  if (type == "gif") return GifBytes(image);
  QBuffer buffer;
  QImageWriter writer(&buffer, type);
  writer.setQuality(type == "jpg" || type == "jpeg" ? JpegQuality : -1);
  // 1 is LZW for TIFF. For PNG it would mean hardly any compression; its default is a good one.
  if (form.PixelsPerInch > 0 && (type == "tif" || type == "tiff")) writer.setCompression(1);
  return writer.write(image) ? buffer.data() : QByteArray();
}

/// Takes the time of making out of a PDF file, which is then the same each time; blanks keep all
/// else at its place.
void BlankDate(QByteArray& bytes) {
  const qsizetype start = bytes.indexOf("/CreationDate (");
  const qsizetype end = bytes.indexOf(')', start);
  if (start >= 0 && end >= 0)
    bytes.replace(start, end + 1 - start, QByteArray(end + 1 - start, ' '));
}

QByteArray Pdf(PlaneSize plane, double scale, const Draw& draw) {
  const double pointsPerUnit = 0.75 * scale;
  // The writer lists fonts and such in the order of a hash, which is another one each time.
  QHashSeed::setDeterministicGlobalSeed();
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setCreator("Velorix");
    writer.setPageSize(
        QPageSize(QSizeF(plane.width, plane.height) * pointsPerUnit, QPageSize::Point));
    writer.setPageMargins({});
    QPainter painter(&writer);
    PainterTarget target(painter, {pointsPerUnit * writer.resolution() / 72, 0, 0}, Surface::Page);
    draw(target);
  }
  QHashSeed::resetRandomGlobalSeed();
  QByteArray bytes = buffer.data();
  BlankDate(bytes);
  return bytes;
}

}  // namespace

QByteArray PictureBytes(const QByteArray& type, PlaneSize plane, const PictureScale& scale,
                        const Draw& draw) {
  const double vectorScale = std::min(scale.Unit, 1.0);
  if (type == "svg") return QByteArray::fromStdString(SvgDocument(plane, vectorScale, draw));
  if (type == "pdf") return Pdf(plane, vectorScale, draw);
  return Pixels(type, plane, scale, draw);
}

}  // namespace velorix
