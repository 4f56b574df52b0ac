// The graphics page as files, on the clipboard and on paper.

#include <QClipboard>
#include <QMimeData>
#include <QPrinter>
#include <QSvgRenderer>

#include "app/files/graphics_page.h"
#include "platform/painting/gif_file.h"
#include "platform/painting/picture_bytes.h"
#include "platform/qt/output/page_output.h"
#include "plot/drawing/recorder.h"
#include "tests/qt/painted.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Share of the pixels that differ visibly between two pictures of one size.
double Difference(const QImage& a, const QImage& b) {
  int different = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      const QColor p = a.pixelColor(x, y), q = b.pixelColor(x, y);
      different += std::abs(p.red() - q.red()) + std::abs(p.green() - q.green()) +
                       std::abs(p.blue() - q.blue()) >
                   120;
    }
  return static_cast<double>(different) / (a.width() * a.height());
}

/// The window with a site in view, whose host makes pictures.
struct PageWindow : TestWindow {
  PageWindow() {
    GivePictures(Program.Host, &Window);
    Asked.Files.push_back(FileAnswer{std::string(VELORIX_SOURCE_DIR) + "/examples/dike.ams", 1});
    Window.activateWindow();
    RunMenu(Program, CommandNamed("mnuOpen"));
  }
  QString Path(const char* name) const { return Folder.filePath(name); }
  void Save(const char* name, int filter) {
    Asked.Files.push_back(FileAnswer{Path(name).toStdString(), filter});
    Key(Qt::Key_F, Qt::ControlModifier);
  }
};

}  // namespace

class PageFilesTest : public QObject {
  Q_OBJECT

 private slots:
  void EveryTypeShowsTheSamePicture() {
    PageWindow window;
    const char* const names[] = {"p.wmf", "p.bmp", "p.gif", "p.tif",
                                 "p.png", "p.jpg", "p.svg", "p.pdf"};
    for (int filter = 1; filter <= 8; ++filter) window.Save(names[filter - 1], filter);
    const QImage bmp(window.Path("p.bmp"));
    QCOMPARE(bmp.size(), QSize(1440, 1280));
    for (const char* name : {"p.png", "p.tif"}) QVERIFY2(QImage(window.Path(name)) == bmp, name);
    QVERIFY(Difference(QImage(window.Path("p.jpg")), bmp) < 0.01);
    const QImage gif(window.Path("p.gif"));
    QVERIFY(Difference(gif, bmp) < 0.001);
    QCOMPARE(gif.pixelColor(1430, 1270), QColor(Qt::white));

    QSvgRenderer svg(window.Path("p.svg"));
    QCOMPARE(svg.viewBox(), QRect(0, 0, 900, 800));
    const QImage drawn = Rendered(svg, bmp.size(), Qt::black);  // it brings its own paper
    const auto small = [](const QImage& image) {
      return image.scaled(180, 160, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    QImage paper(bmp.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QVERIFY(Difference(small(drawn), small(bmp)) < 0.2 * Difference(small(paper), small(bmp)));
    QVERIFY(ContentOf(window.Path("p.svg")).contains(">Equal-Area<"));
    QVERIFY(ContentOf(window.Path("p.pdf")).contains("/FontFile2"));
    QVERIFY(ContentOf(window.Path("p.wmf")).startsWith("\xD7\xCD\xC6\x9A"));
    QVERIFY(window.Asked.Boxes.empty());
  }

  void NoFileTellsTheTimeOfItsMaking() {
    const auto draw = [](Target& target) {
      target.Text("N = 12", {20, 20}, {});
      target.Text("bold", {20, 40}, {.weight = 700});
    };
    const QByteArray first = PictureBytes("pdf", {100, 100}, 1, draw);
    QTest::qWait(1100);
    QCOMPARE(PictureBytes("pdf", {100, 100}, 1, draw), first);
    QVERIFY(!first.contains("CreationDate"));
  }

  void CheckBoxesChooseThePlots() {
    PageWindow window;
    const auto marks = [&window] {
      Recorder recorder;
      DrawGraphicsPage(window.Program, recorder, 1);
      return recorder.calls.size();
    };
    std::size_t all = marks();
    for (const char* box : {"chkStereo", "chkHisto", "chkXYPLot1", "chkXYPlot2"}) {
      QVERIFY(window.The<QAbstractButton>(box).isChecked());
      window.Press(box);
      QVERIFY2(marks() < all, box);
      all = marks();
    }
    QCOMPARE(all, std::size_t{0});
  }

  void ClipboardHoldsVectorsAndNoPixels() {
    PageWindow window;
    window.Key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data && !data->hasImage());
    QCOMPARE(data->data("image/x-wmf").toStdString(), GraphicsMetafile(window.Program));
    QSvgRenderer svg(data->data("image/svg+xml"));
    QVERIFY(svg.isValid());
    QCOMPARE(svg.viewBox(), QRect(0, 0, 900, 800));
  }

  void PrintedPlaneKeepsItsMarginsAndItsShape() {
    const PlaneFit wide = PrintPlace({900, 800}, {10000, 5000});
    QCOMPARE(wide.dx, 1000.0);
    QCOMPARE(wide.dy, 250.0);
    QCOMPARE(wide.scale, 5.0);
    const PlaneFit tall = PrintPlace({900, 800}, {4500, 9000});
    QCOMPARE(tall.scale, 4.0);

    QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath("p.pdf"));
    QVERIFY(bool(PrintOn(printer, "Pelt4Q", {900, 800}, [](Target& target) {
      target.Text("N = 12", {20, 20}, {});
    })));
    const QByteArray bytes = ContentOf(folder.filePath("p.pdf"));
    QVERIFY(bytes.contains("/Count 1"));
    QVERIFY(bytes.contains(QByteArray("\0P\0e\0l\0t\0004\0Q", 12)));
    printer.setOutputFileName(folder.filePath("none/p.pdf"));
    QVERIFY(!PrintOn(printer, "Pelt4Q", {900, 800}, [](Target&) {}));
  }

  void GifKeepsColoursUntilThereAreTooMany() {
    QImage few(20, 13, QImage::Format_RGB32);
    for (int i = 0; i < 260; ++i)
      few.setPixel(i % 20, i / 20, qRgb(std::min(i, 255), 255 - std::min(i, 255), 7));
    const auto back = [](const QImage& image) {
      return QImage::fromData(GifBytes(image), "gif").convertToFormat(QImage::Format_RGB32);
    };
    QVERIFY(back(few) == few);
    QImage many(128, 128, QImage::Format_RGB32);
    many.fill(Qt::white);
    for (int y = 0; y < 64; ++y)
      for (int x = 0; x < 128; ++x) many.setPixel(x, y, qRgb(2 * x, 4 * y, 2 * (x ^ y)));
    const QImage shown = back(many);
    QCOMPARE(shown.pixelColor(127, 127), QColor(Qt::white));
    QVERIFY(Difference(shown, many) < 0.01);
    QVERIFY(GifBytes(QImage()).isEmpty());
  }
};

QTEST_MAIN(PageFilesTest)
#include "page_files_test.moc"
