#include "platform/painting/picture_file.h"

#include <QGuiApplication>
#include <memory>

#include "base/fault.h"
#include "datafiles/bytes/safe_write.h"
#include "platform/painting/picture_bytes.h"
#include "text/paths.h"

namespace velorix {
namespace {

struct PictureType {
  const char* Filter;
  const char* Extensions;  // each between blanks
};

constexpr char Title[] = "Save Picture";

// clang-format off
constexpr PictureType Types[] = {
    {"Portable Network Graphics (*.png)|*.png|",   " png "},
    {"Windows Bitmap (*.bmp)|*.bmp|",              " bmp "},
    {"Graphics Interchange Format (*.gif)|*.gif|", " gif "},
    {"JPEG (*.jpg)|*.jpg|",                        " jpg jpeg "},
    {"Tagged Image File (*.tif)|*.tif|",           " tif tiff "},
    {"Scalable Vector Graphics (*.svg)|*.svg|",    " svg "},
    {"Portable Document Format (*.pdf)|*.pdf|",    " pdf "},
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
  return "Pictures are files of type png, bmp, gif, jpg, tif, svg or pdf.";
}

Outcome WritePicture(const std::string& path, PlaneSize plane, const PictureScale& scale,
                     const std::function<void(Target&)>& draw) {
  const std::string complaint = PictureComplaint(path);
  if (!complaint.empty()) return Outcome::Refused(Title, path + "\n" + complaint);
  const std::unique_ptr<QGuiApplication> painting = MakePainting();
  const QByteArray bytes = PictureBytes(TypeOf(path), plane, scale, draw);
  if (bytes.isEmpty()) return Outcome::Refused(Title, path + "\nThis type cannot be written here.");
  try {
    SafeWrite(path, [&bytes](std::ostream& out) { out.write(bytes.data(), bytes.size()); });
    return {};
  } catch (const FileFault& fault) {
    return Outcome::Refused(Title, path + "\nThis file could not be written: " + fault.what());
  }
}

}  // namespace velorix
