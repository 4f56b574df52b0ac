#include "platform/host/picture_file.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <cmath>
#include <memory>

#include "platform/qt/painter_target.h"
#include "text/paths.h"

namespace velorix {
namespace {

using Draw = std::function<void(Target&)>;

struct PictureType {
  const char* Filter;
  const char* Extensions;  // each between blanks
};

constexpr char Title[] = "Save Picture";

// clang-format off
constexpr PictureType Types[] = {
    {"Portable Network Graphics (*.png)|*.png|",  " png "},
    {"Windows Bitmap (*.bmp)|*.bmp|",             " bmp "},
    {"JPEG (*.jpg)|*.jpg|",                       " jpg jpeg "},
    {"Tagged Image File (*.tif)|*.tif|",          " tif tiff "},
    {"Scalable Vector Graphics (*.svg)|*.svg|",   " svg "},
    {"Portable Document Format (*.pdf)|*.pdf|",   " pdf "},
};
// clang-format on

QByteArray TypeOf(const std::string& path) {
  return QByteArray::fromStdString(ExtensionOf(path)).toLower();
}

/// Texts need the toolkit at work; a program without windows starts it without a screen and without
/// its remarks on the desktop.
std::unique_ptr<QGuiApplication> MakePainting() {
  if (QCoreApplication::instance()) return nullptr;
  static int count = 1;
  static char name[] = "velorix", platform[] = "offscreen";
  static char* arguments[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", platform);
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return std::make_unique<QGuiApplication>(count, arguments);
}

QByteArray Pixels(const QByteArray& type, PlaneSize plane, double scale, const Draw& draw) {
  QImage image(static_cast<int>(std::ceil(plane.width * scale)),
               static_cast<int>(std::ceil(plane.height * scale)), QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    PainterTarget target(painter, {scale, 0, 0});
    draw(target);
  }
  QBuffer buffer;
  QImageWriter writer(&buffer, type);
  writer.setQuality(type == "jpg" || type == "jpeg" ? 95 : -1);
  return writer.write(image) ? buffer.data() : QByteArray();
}

QByteArray Svg(PlaneSize plane, const Draw& draw) {
  QBuffer buffer;
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize({plane.width, plane.height});
  generator.setViewBox(QRect(0, 0, plane.width, plane.height));
  {
    QPainter painter(&generator);
    PainterTarget target(painter, {}, Surface::Page);
    draw(target);
  }
  return buffer.data();
}

QByteArray Pdf(PlaneSize plane, const Draw& draw) {
  constexpr double PointsPerUnit = 0.75;
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setPageSize(
        QPageSize(QSizeF(plane.width, plane.height) * PointsPerUnit, QPageSize::Point));
    writer.setPageMargins({});
    QPainter painter(&writer);
    PainterTarget target(painter, {PointsPerUnit * writer.resolution() / 72, 0, 0}, Surface::Page);
    draw(target);
  }
  return buffer.data();
}

}  // namespace

std::string PictureFilter() {
  std::string filter;
  for (const PictureType& type : Types) filter += type.Filter;
  return filter;
}

std::string PictureComplaint(const std::string& path) {
  const QByteArray type = TypeOf(path);
  for (const PictureType& row : Types)
    if (!type.isEmpty() && QByteArray(row.Extensions).contains(" " + type + " ")) return {};
  return "Pictures are files of type png, bmp, jpg, tif, svg or pdf.";
}

Outcome WritePicture(const std::string& path, PlaneSize plane, double scale, const Draw& draw) {
  const std::string complaint = PictureComplaint(path);
  if (!complaint.empty()) return Outcome::Refused(Title, path + "\n" + complaint);
  const std::unique_ptr<QGuiApplication> painting = MakePainting();
  const QByteArray type = TypeOf(path);
  const QByteArray bytes = type == "svg"   ? Svg(plane, draw)
                           : type == "pdf" ? Pdf(plane, draw)
                                           : Pixels(type, plane, scale, draw);
  if (bytes.isEmpty()) return Outcome::Refused(Title, path + "\nThis type cannot be written here.");
  QSaveFile file(QString::fromStdString(path));
  if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
    return {};
  return Outcome::Refused(
      Title, path + "\nThis file could not be written: " + file.errorString().toStdString());
}

}  // namespace velorix
