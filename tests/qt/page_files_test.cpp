// The graphics page as files, on the clipboard and on paper.

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPrinter>
#include <QSvgRenderer>

#include "app/commands/picture_commands.h"
#include "platform/painting/gif_file.h"
#include "platform/painting/picture_bytes.h"
#include "platform/qt/output/page_output.h"
#include "tests/qt/painted.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

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

void DrawLetters(Target& target) { target.Text("N = 12", {20, 20}, {}); }

}  // namespace

/// The main window with a site in view, whose host makes pictures.
class PageFilesTest : public WindowTest {
  Q_OBJECT

  QString Path(const char* name) { return W().Folder.filePath(name); }
  QByteArray Content(const char* name) {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

 private slots:
  void init() {
    window_.emplace();
    form_ = &W().Window;
    GivePictures(W().Program.Host, form_);
    W().Open(VELORIX_SOURCE_DIR "/examples/dike.ams");
  }

  void figureOptionsMakeAFigureOfTheirStyle() {
    const auto list = [this](const char* name) -> QComboBox& { return The<QComboBox>(name); };
    ShowDialog("mnuFigure", [&] {
      if (const QString shots = qEnvironmentVariable("VELORIX_SHOTS"); !shots.isEmpty())
        form_->grab().save(shots + "/figure_now.png");
      QCOMPARE(The<QLabel>("lblFigureSize").text(), QString("228.6 x 203.2 mm"));
      list("style-width").setEditText("85");
      list("style-width").setEditText("8500");  // is red, and the figure stays
      QCOMPARE(list("style-width").lineEdit()->palette().color(QPalette::Text), QColor(Qt::red));
      QCOMPARE(The<QLabel>("lblFigureSize").text(), QString("85.0 x 75.6 mm"));
      list("style-layout").setCurrentText("Fill");
      list("style-captions").setCurrentText("Outside");
      list("style-resolution").setEditText("300");
      list("style-font-size").setEditText("7,5");
      Press("style-halo");
      W().Asked.Files.push_back(FileAnswer{Path("f.png").toStdString(), 5});
      Press("cmdSave");
      W().Asked.Files.push_back(FileAnswer{Path("f.style").toStdString(), 1});
      Press("cmdSaveStyle");
      Press("cmdAsNow");
      QCOMPARE(Look("style-width style-font-size style-halo"), QString("228.6|As now|"));
      W().Asked.Files.push_back(FileAnswer{Path("f.style").toStdString(), 1});
      Press("cmdLoadStyle");
      if (const QString shots = qEnvironmentVariable("VELORIX_SHOTS"); !shots.isEmpty())
        form_->grab().save(shots + "/figure.png");
    });
    const QImage figure(Path("f.png"));
    QCOMPARE(figure.width(), 1004);  // 85 mm at 300 an inch
    QCOMPARE(figure.dotsPerMeterX(), 11811);
    QVERIFY(QFileInfo(Path("f.png")).size() < figure.sizeInBytes() / 8);  // compressed
    ShowDialog("mnuFigure", [&] {                                         // the style was kept
      QCOMPARE(Look("style-layout style-width style-font-size style-halo"),
               QString("Fill|85|7.5|+"));
    });
  }

  void axesAreSetByHandAndKeptByColumn() {
    W().Program.Plots.XYPlot[1] = {.x = Column::Km, .y = Column::Fac2};
    W().Program.Plots.XYPlot[2] = {.x = Column::Fac2, .y = Column::Fac5};
    W().Program.Plots.HistoParameter = Column::Km;
    const auto write = [this](const char* field, const char* text) {
      The<QLineEdit>(field).setText(text);
      return Look("lblFault cmdOK");
    };
    ShowDialog("mnuAxes", [&] {
      QVERIFY(!form_->findChild<QLineEdit*>("txtLower(4)"));  // a row for each column
      QCOMPARE(write("txtLower(1)", "1E-6"), QString("|&OK"));
      QCOMPARE(write("txtUpper(1)", "1e-7"),
               QString("Kmean: The lower end is below the upper one.|(&OK)"));
      QCOMPARE(write("txtUpper(1)", "1e-2x"), QString("Kmean: \"1e-2x\" is no number.|(&OK)"));
      write("txtUpper(1)", "1e-2");
      Press("chkLog(1)");
      QCOMPARE(write("txtStep(2)", "0,05"), QString("|&OK"));
      Press("cmdOK");
    });
    const HandAxes axes = {{"Kmean", *HandAxisOfText("1e-6 1e-2 auto log")},
                           {"F", *HandAxisOfText("auto auto 0.05")}};
    QVERIFY(W().Program.Plots.Axes == axes);
    const auto& drawn = W().Program.Drawn.XYPlot[1];
    QVERIFY(drawn && drawn->x.log && drawn->x.range.lower == -6 && drawn->y.range.step == 0.05);
    W().Program.Plots.Axes.clear();
    LoadAxes(W().Program);  // as the next start does
    QVERIFY(W().Program.Plots.Axes == axes);
    W().Program.Plots.HistoParameter = Column::F;
    ShowDialog("mnuAxes", [&] {
      Press("cmdAutomatic");
      Press("cmdOK");
    });
    QVERIFY(W().Program.Plots.Axes.empty());
  }

  void everyTypeShowsTheSamePicture() {
    int filter = 0;
    for (const char* name :
         {"p.wmf", "p.bmp", "p.gif", "p.tif", "p.png", "p.jpg", "p.svg", "p.pdf"}) {
      W().Asked.Files.push_back(FileAnswer{Path(name).toStdString(), ++filter});
      W().Key(Qt::Key_F, Qt::ControlModifier);
    }
    const QImage bmp(Path("p.bmp")), gif(Path("p.gif"));
    QCOMPARE(bmp.size(), QSize(1440, 1280));
    for (const char* name : {"p.png", "p.tif"}) QVERIFY2(QImage(Path(name)) == bmp, name);
    QVERIFY(Difference(QImage(Path("p.jpg")), bmp) < 0.01 && Difference(gif, bmp) < 0.001);
    QCOMPARE(gif.pixelColor(1430, 1270), QColor(Qt::white));
    QSvgRenderer svg(Path("p.svg"));
    const auto small = [](const QImage& image) {
      return image.scaled(180, 160, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage drawn = small(Rendered(svg, bmp.size(), Qt::black));  // it brings its own paper
    QImage paper(drawn.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QVERIFY(Difference(drawn, small(bmp)) < 0.2 * Difference(paper, small(bmp)));
    QVERIFY(Content("p.svg").contains(">Equal-Area<") && Content("p.pdf").contains("/FontFile2"));
    QVERIFY(Content("p.wmf").startsWith("\xD7\xCD\xC6\x9A") && Boxes().empty());
  }

  void noFileContainsTheTimeOfItsMaking() {
    const QByteArray first = PictureBytes("pdf", {100, 100}, 1, DrawLetters);
    QTest::qWait(1100);
    QCOMPARE(PictureBytes("pdf", {100, 100}, 1, DrawLetters), first);
    QVERIFY(!first.contains("CreationDate"));
  }

  void checkBoxesChooseThePlots() {
    const PerPlot<bool>& onPage = W().Program.Plots.OnPage;
    for (const auto& [plot, box] :
         {std::pair(PlotKind::Stereonet, "chkStereo"), std::pair(PlotKind::Histogram, "chkHisto"),
          std::pair(PlotKind::XYPlot1, "chkXYPLot1"), std::pair(PlotKind::XYPlot2, "chkXYPlot2")}) {
      QVERIFY2(onPage[plot] && Look(box) == "Page+", box);
      Press(box);
      QVERIFY2(!onPage[plot], box);
    }
  }

  void clipboardHoldsVectorsAndNoPixels() {
    W().Key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data && !data->hasImage());
    QCOMPARE(data->data("image/x-wmf").toStdString(), GraphicsMetafile(PageOf(W().Program)));
    QCOMPARE(QSvgRenderer(data->data("image/svg+xml")).viewBox(), QRect(0, 0, 900, 800));
  }

  void printedPlaneKeepsItsMarginsAndItsShape() {
    const PlaneFit wide = PrintPlace({900, 800}, {10000, 5000});
    QVERIFY(wide.dx == 1000 && wide.dy == 250 && wide.scale == 5);
    QCOMPARE(PrintPlace({900, 800}, {4500, 9000}).scale, 4.0);

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    for (const bool can : {true, false}) {
      printer.setOutputFileName(Path(can ? "p.pdf" : "none/p.pdf"));
      QCOMPARE(bool(PrintOn(printer, "Pelt4Q", {900, 800}, DrawLetters)), can);
    }
    QVERIFY(Content("p.pdf").contains("/Count 1"));
    QVERIFY(Content("p.pdf").contains(QByteArray("\0P\0e\0l\0t\0004\0Q", 12)));
  }

  void gifKeepsColoursUntilThereAreTooMany() {
    const auto back = [](const QImage& image) {
      return QImage::fromData(GifBytes(image), "gif").convertToFormat(QImage::Format_RGB32);
    };
    QImage few(16, 16, QImage::Format_RGB32), many(128, 128, QImage::Format_RGB32);
    for (int i = 0; i < 256; ++i) few.setPixel(i % 16, i / 16, qRgb(i, 255 - i, 7));
    QVERIFY(back(few) == few);
    many.fill(Qt::white);
    for (int y = 0; y < 64; ++y)
      for (int x = 0; x < 128; ++x) many.setPixel(x, y, qRgb(2 * x, 4 * y, 2 * (x ^ y)));
    QCOMPARE(back(many).pixelColor(127, 127), QColor(Qt::white));
    QVERIFY(Difference(back(many), many) < 0.01 && GifBytes(QImage()).isEmpty());
  }
};

QTEST_MAIN(PageFilesTest)
#include "page_files_test.moc"
