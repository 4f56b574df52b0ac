#include "platform/qt/output/page_output.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <algorithm>

#include "platform/painting/picture_bytes.h"
#include "platform/painting/picture_file.h"
#include "platform/qt/output/metafile_clipboard.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"
#include "plot/drawing/metafile_target.h"

namespace velorix {
namespace {

/// The names that programs ask for a metafile by.
[[maybe_unused]] constexpr const char* MetafileNames[] = {
    "image/x-wmf", "image/wmf", "application/x-openoffice-wmf;windows_formatname=\"Image WMF\""};

Outcome AskAndPrint(QWidget* owner, const std::string& document, PlaneSize plane,
                    const Host::DrawPicture& draw) {
  PauseBusyCursor();
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(ToQString(document));
  QPrintDialog dialog(&printer, owner);
  dialog.setObjectName("dlgPrint");
  dialog.setWindowTitle("Print");
  if (dialog.exec() != QDialog::Accepted) return {};
  return PrintOn(printer, document, plane, draw);
}

}  // namespace

void GivePictures(Host& host, QWidget* owner) {
  host.WritePicture = WritePicture;
  host.CopyPicture = CopyPicture;
  host.PrintPicture = [owner](const std::string& document, PlaneSize plane,
                              const Host::DrawPicture& draw) {
    return AskAndPrint(owner, document, plane, draw);
  };
}

Outcome CopyPicture([[maybe_unused]] const std::string& metafile, PlaneSize plane,
                    const Host::DrawPicture& draw) {
  const QByteArray svg = PictureBytes("svg", plane, 1, draw);
#ifdef _WIN32
  MetafileTarget picture(std::nullopt);  // the clipboard gives the extent itself
  draw(picture);
  if (!PutOnClipboard(picture.Bits(), svg.toStdString()))
    return Outcome::Refused("Copy", "The clipboard could not be opened. Nothing was copied.");
#else
  auto* data = new QMimeData;
  const QByteArray bytes = QByteArray::fromStdString(metafile);  // which all names share
  for (const char* name : MetafileNames) data->setData(name, bytes);
  data->setData("image/svg+xml", svg);
  QGuiApplication::clipboard()->setMimeData(data);
#endif
  return {};
}

PlaneFit PrintPlace(PlaneSize plane, const QSizeF& page) {
  const PlaneFit fit = FitPlane(plane, page * 0.8);
  return {fit.scale, page.width() / 10, page.height() / 20};
}

Outcome PrintOn(QPrinter& printer, const std::string& document, PlaneSize plane,
                const Host::DrawPicture& draw) {
  printer.setDocName(ToQString(document));
  QPainter painter;
  if (!painter.begin(&printer))
    return Outcome::Refused("Print", "The printer can't begin this page.");
  PainterTarget target(painter, PrintPlace(plane, QSizeF(printer.width(), printer.height())),
                       Surface::Page);
  draw(target);
  return painter.end() && printer.printerState() != QPrinter::Error
             ? Outcome()
             : Outcome::Refused("Print", "The page was not printed.");
}

}  // namespace velorix
