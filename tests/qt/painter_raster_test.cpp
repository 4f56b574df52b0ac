#include <QDir>
#include <QSvgRenderer>
#include <QTest>
#include <cmath>

#include "platform/painting/picture_file.h"
#include "tests/qt/painted.h"

using namespace velorix;

namespace {

constexpr PlaneSize Plane = {40, 30};
constexpr int Width = 7;
const std::vector<Colour> Pixels = [] {
  std::vector<Colour> pixels;
  for (Colour n = 0; n < 5 * Width; ++n) pixels.push_back(n % 3 == 1 ? NoColour : 0x050301 * n);
  return pixels;
}();

QColor Of(Colour c) {
  return c == NoColour ? QColor(Qt::white) : QColor(c & 255, c >> 8 & 255, c >> 16 & 255);
}

void Draw(Target& target) { target.Raster({10, 12}, Width, Pixels); }

}  // namespace

class PainterRasterTest : public QObject {
  Q_OBJECT
 private slots:
  void EveryUnitIsCrispAtAnyScale() {
    for (const double scale : {0.4, 1.0, 1.37, 2.0, 2.5, 6.9}) {
      const QSize size(static_cast<int>(40 * scale), static_cast<int>(30 * scale));
      const QImage image = Painted(size, {scale, 0, 0}, Draw);
      // A device pixel belongs to the unit whose edges, at whole pixels, lie round it.
      const auto unit = [scale](int pixel, int corner, int count) {
        for (int u = 0; u < count; ++u)
          if (pixel >= std::floor((corner + u) * scale + 0.5) &&
              pixel < std::floor((corner + u + 1) * scale + 0.5))
            return u;
        return -1;
      };
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
          const int i = unit(x, 10, Width), j = unit(y, 12, 5);
          const QColor expected = i < 0 || j < 0 ? QColor(Qt::white) : Of(Pixels[j * Width + i]);
          QVERIFY2(image.pixelColor(x, y) == expected,
                   qPrintable(QString("scale %1 at %2, %3").arg(scale).arg(x).arg(y)));
        }
    }
  }

  void ItIsTheSameAsAPixelForEach() {
    QVERIFY(Painted({120, 90}, {3, 0, 0}, Draw) ==
            Painted({120, 90}, {3, 0, 0}, [](Target& target) {
              target.Target::Raster({10, 12}, Width, Pixels);
            }));
  }

  void AnEmptyOneDrawsNothing() {
    QVERIFY(Painted({40, 30}, {1, 0, 0}, [](Target& target) {
              target.Raster({1, 1}, 3, {});
              target.Raster({1, 1}, 0, Pixels);
              target.Raster({1, 1}, 1000, Pixels);  // not one whole row
            }) == Painted({40, 30}, {1, 0, 0}, [](Target&) {}));
  }

  void PagesKeepEveryUnitApart() {
    const QString path = QDir::tempPath() + "/velorix-raster.svg";
    QVERIFY(bool(WritePicture(path.toStdString(), Plane, 1, Draw)));
    QSvgRenderer renderer(path);
    QFile::remove(path);
    QVERIFY(renderer.isValid());
    const QImage image = Rendered(renderer, {400, 300});
    for (int j = 0; j < 5; ++j)
      for (int i = 0; i < Width; ++i)
        QCOMPARE(image.pixelColor((10 + i) * 10 + 5, (12 + j) * 10 + 5), Of(Pixels[j * Width + i]));
  }

  void NamesOfOtherTypesAreRefused() {
    for (const char* name : {"a.gif2", "a", "", "a.doc", ".", "png"})
      QVERIFY2(!PictureComplaint(name).empty() && !WritePicture(name, Plane, 1, Draw), name);
    for (const char* name : {"a.png", "A.PNG", "x/b.tiff", "b.jpeg", "b.pdf"})
      QVERIFY2(PictureComplaint(name).empty(), name);
  }
};

QTEST_MAIN(PainterRasterTest)
#include "painter_raster_test.moc"
