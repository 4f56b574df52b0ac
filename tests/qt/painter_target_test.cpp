// Drawing on pixels and pages: lines, letters, stamps, rasters, and pictures that draw only what
// has changed.

#include <QSvgRenderer>
#include <random>

#include "platform/painting/picture_file.h"
#include "platform/qt/plots/picture_widget.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/symbols.h"
#include "tests/qt/painted.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

constexpr PlaneSize Plane = {100, 100}, NetPlane = {360, 366};

/// A white picture of the plane at `scale`, drawn on by `draw`.
template <class Draw>
QImage Picture(double scale, Draw draw) {
  const QSize size = (QSizeF(100, 100) * scale).toSize();
  return Painted(size, FitPlane(Plane, size), [&draw](Target& target) {
    target.SetTransparent();
    draw(target);
  });
}

QImage Line(double scale, const velorix::Pen& pen) {
  return Picture(scale, [&](Target& t) { DrawLine(t, 10, 50, 90, 50, pen); });
}

QRect TextInk(const TextStyle& style, double scale = 1) {
  return Ink(Picture(scale, [&](Target& t) { t.Text("HHH", {50, 50}, style); }));
}

bool IsNear(double value, double expected, double within) {
  if (std::abs(value - expected) <= within) return true;
  qWarning("%g instead of %g", value, expected);
  return false;
}

bool IsBlack(const QImage& image, int x, int y) {
  return image.pixel(x, y) == QColor(Qt::black).rgb();
}

int Inked(const QImage& image, const QRect& part) {
  int black = 0;
  for (int y = part.top(); y <= part.bottom(); ++y)
    for (int x = part.left(); x <= part.right(); ++x) black += IsBlack(image, x, y);
  return black;
}

/// A symbol, filled with a colour.
void Symbol(Target& target, std::int16_t kind, float x, float y, std::int16_t size, Colour colour) {
  velorix::Pen pen;
  DrawSymbol(target, kind, x, y, size, colour, pen);
}

constexpr int Width = 7;
const std::vector<Colour> Pixels = [] {
  std::vector<Colour> pixels;
  for (Colour n = 0; n < 5 * Width; ++n) pixels.push_back(n % 3 == 1 ? NoColour : 0x050301 * n);
  return pixels;
}();
QColor PixelAt(int column, int row) {
  if (column < 0 || row < 0) return Qt::white;
  const Colour c = Pixels[static_cast<std::size_t>(row) * Width + static_cast<std::size_t>(column)];
  return c == NoColour ? QColor(Qt::white) : QColor(c & 255, c >> 8 & 255, c >> 16 & 255);
}
void DrawRaster(Target& target) { target.Raster(ToLogical(target, 10, 12), Width, Pixels); }

QImage Whole(const PictureWidget& like, const PictureWidget::DrawFunction& draw) {
  PictureWidget fresh;
  fresh.SetPicture(NetPlane, draw);
  fresh.resize(like.size());
  return fresh.grab().toImage();
}

Marks MarksOf(const PictureWidget::DrawFunction& draw) {
  CallMarks marks(NetPlane);
  draw(marks);
  return marks.Marks;
}

}  // namespace

class PainterTargetTest : public QObject {
  Q_OBJECT
 private slots:
  void fitIsWholeUndistortedAndCentred() {
    const PlaneFit wide = FitPlane({360, 300}, {1000, 600});
    QCOMPARE(wide.ToDevice(360, 300), QPointF(860, 600));
    QCOMPARE(wide.ToLogical(wide.ToDevice(12, 34)), QPointF(12, 34));
    QCOMPARE(FitPlane({360, 300}, {180, 500}).ToDevice(180, 150), QPointF(90, 250));
    QCOMPARE(FitPlane({0, 300}, {180, 500}).ToLogical({5, 5}), QPointF());
  }

  void linesFillWholePixelsOfTheirWidth() {
    const std::tuple<double, int, int> rows[] = {// scale, width, pixels
                                                 {0.2, 1, 1}, {0.2, 2, 1}, {0.5, 1, 1},  {1, 0, 1},
                                                 {1, 1, 1},   {1, 2, 2},   {1.37, 3, 4}, {2, 1, 2},
                                                 {2, 3, 6},   {3, 1, 3}};
    for (const auto& [scale, width, pixels] : rows) {
      const QImage image = Line(scale, {.width = static_cast<std::int16_t>(width)});
      const QRect ink = Ink(image);
      QCOMPARE(ink.height(), pixels);
      QCOMPARE(Inked(image, ink), ink.width() * pixels);  // no pixel is grey
    }
  }

  void penStylesLeaveGaps() {
    for (std::int16_t style = Solid; style <= NoLine; ++style) {
      const int inked = Inked(Line(1, {.style = style}), {0, 50, 100, 1});
      const int least = style == Solid ? 81 : style == NoLine ? 0 : 21;
      QVERIFY2(inked >= least && inked <= (least == 21 ? 69 : least),
               qPrintable(QString::number(style)));
    }
  }

  void colourBarsHaveNoStripesAtAnyScale() {
    const std::vector<Colour> colours(2 * 61, Black);  // two bars side by side, from 80 up to 20
    for (const double scale : {1.0, 1.2, 1.4, 1.55, 1.9, 2.45}) {
      const QImage image = Picture(scale, [&](Target& target) {
        DrawRamp(target, std::array{30.0, 40.0, 50.0}, 80, colours);
      });
      const QRect bars = QRectF(31 * scale, 21 * scale, 18 * scale, 58 * scale).toRect();
      QCOMPARE(Inked(image, bars), bars.width() * bars.height());
    }
  }

  void hollowShapesLeaveWhatLiesUnderThem() {
    const QImage image = Picture(1, [](Target& t) {
      DrawCircle(t, 50, 50, 40, {.colour = Red}, Red);
      DrawCircle(t, 50, 50, 30, {}, 0);
      DrawRectangle(t, 20, 20, 80, 80, {}, 0);
      Symbol(t, 3, 30, 50, 9, 0);
    });
    QCOMPARE(image.pixelColor(50, 50), QColor(Qt::red));
    QVERIFY(IsBlack(image, 50, 20) && IsBlack(image, 30, 50));  // fill 0 of a symbol is black
  }

  void pixelsCoverTheirUnits() {
    for (const double scale : {0.25, 0.4, 1.0, 1.37, 2.0, 2.5, 6.9}) {
      const QImage image = Painted((QSizeF(40, 30) * scale).toSize(), {scale, 0, 0}, DrawRaster);
      // A device pixel belongs to the unit whose edges, at whole pixels, lie round it.
      const auto unit = [scale](int pixel, int corner, int count) {
        for (int u = 0; u < count; ++u)
          if (pixel >= std::floor((corner + u) * scale + 0.5) &&
              pixel < std::floor((corner + u + 1) * scale + 0.5))
            return u;
        return -1;
      };
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
          QVERIFY2(image.pixelColor(x, y) == PixelAt(unit(x, 10, Width), unit(y, 12, 5)),
                   qPrintable(QString("scale %1 at %2, %3").arg(scale).arg(x).arg(y)));
    }
  }

  void pagesKeepFractionsAndEveryUnitApart() {
    const QImage page = Painted(
        {100, 100}, {0.25, 0, 0}, [](Target& t) { DrawLine(t, 40, 200, 360, 200, {}); },
        Surface::Page);
    // A line a quarter of a pixel wide, half of it on either side of the edge at 50.
    QVERIFY(qGray(page.pixel(50, 50)) > 180 && qGray(page.pixel(50, 50)) < 255);
    const QTemporaryDir folder;
    const QString path = folder.filePath("raster.svg");
    QVERIFY(bool(WritePicture(path.toStdString(), {40, 30}, 1, DrawRaster)));
    QSvgRenderer renderer(path);
    const QImage image = Rendered(renderer, {400, 300});
    for (int j = 0; j < 5; ++j)
      for (int i = 0; i < Width; ++i)
        QCOMPARE(image.pixelColor((10 + i) * 10 + 5, (12 + j) * 10 + 5), PixelAt(i, j));
  }

  void aLargeCircleOnAPageIsRound() {
    constexpr int Radius = 2000, Centre = 2010;
    const QImage page = Painted(
        {2 * Centre, 2 * Centre}, {1, 0, 0},
        [](Target& t) { DrawCircle(t, Centre, Centre, Radius, {}, 0); }, Surface::Page);
    for (int degrees = 0; degrees < 90; degrees += 5) {
      // The line's ink along the rays of five degrees: its middle is the circle.
      double ink = 0, moment = 0;
      for (double ray = degrees; ray < degrees + 5; ray += 0.1) {
        const double c = std::cos(qDegreesToRadians(ray)), s = std::sin(qDegreesToRadians(ray));
        for (double r = Radius - 4; r < Radius + 4; r += 0.05) {
          const double dark = 255 - qRed(page.pixel(static_cast<int>(Centre + r * c),
                                                    static_cast<int>(Centre + r * s)));
          ink += dark, moment += dark * r;
        }
      }
      QVERIFY2(std::fabs(moment / ink - Radius) < 0.3, qPrintable(QString::number(degrees)));
    }
  }

  void stampsEqualDrawnShapes() {
    // The fifth point, a repeated one, keeps the second shape from being a stamp.
    const LogicalPoint points[] = {{40, 40}, {40, 50}, {51, 53}, {48, 38}, {48, 38}};
    for (const double scale : {0.7, 1.0, 1.37, 2.0}) {
      const auto twice = [&](std::size_t count) {
        return Picture(scale, [&](Target& t) {
          for (int i = 0; i < 2; ++i)
            t.Polygon(std::span(points, count), {.colour = Blue, .width = 2}, Brush(Green));
        });
      };
      const QImage stamped = twice(4), drawn = twice(5);
      for (int i = 0; i < drawn.sizeInBytes(); ++i)  // smooth edges blended twice may round apart
        QVERIFY(std::abs(stamped.constBits()[i] - drawn.constBits()[i]) <= 3);
    }
    // A scale at which whole units fall on fractions of pixels: symbols look alike everywhere.
    const QImage image = Picture(1.37, [](Target& t) {
      for (const float x : {10.f, 31.f, 57.f, 80.f}) Symbol(t, 0, x, 50, 12, Red);
    });
    for (const int left : {32, 68, 100})
      QCOMPARE(image.copy(left, 55, 21, 27), image.copy(4, 55, 21, 27));
  }
  void textStandsAsAlignedInItsHeightAndTurned() {
    const std::tuple<int, double, double> rows[] = {
        // From the point to the letters' left and bottom, in their own widths and heights.
        {LeftBaseline, 0, 0},           {RightBaseline, -1, 0},
        {CentreBaseline, -0.5, 0},      {CentreTop, -0.5, 1.3},
        {AlignLeft + AlignTop, 0, 1.3}, {AlignRight + AlignBottom, -1, -0.3},
    };
    for (const auto& [alignment, left, bottom] : rows) {
      const QRect ink = TextInk({.height = 20, .alignment = alignment});
      QVERIFY(IsNear(ink.left() - 50, left * ink.width(), 4));
      QVERIFY(IsNear(ink.bottom() + 1 - 50, bottom * ink.height(), 2));
    }
    // A capital is 0.69 (Liberation Sans) to 0.72 em (Arial) high, an em the cell's height / 1.117.
    for (const auto& [height, scale] : {std::pair{14, 1.0}, {20, 1.5}, {40, 2.0}}) {
      const double expected = height * scale * 0.70 / 1.117;
      const TextStyle style = {.height = static_cast<std::int16_t>(height)};
      QVERIFY(IsNear(TextInk(style, scale).height(), expected, 1 + 0.03 * expected));
    }
    const QRect flat = TextInk({.height = 20}), turned = TextInk({.height = 20, .rotation = 900});
    QVERIFY(IsNear(turned.height(), flat.width(), 2) && IsNear(turned.width(), flat.height(), 2));
    QVERIFY(turned.bottom() <= 50 && turned.right() <= 50);  // upward, the feet to the right
  }

  void wildCoordinatesDoNoHarm() {
    for (const double scale : {0.01, 4.0, 1.0}) {
      const QImage image = Picture(scale, [](Target& t) {
        const LogicalPoint far[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}, {0, INT32_MIN}};
        t.Polyline(far, {});
        t.Polyline(std::span(far, 1), {});
        t.Polygon({}, {}, Brush(Red));
        t.Pixel({INT32_MAX, INT32_MIN}, Red);
        t.Ellipse({10, 10, 12, 12}, {.width = INT16_MAX}, Brush(White));
        t.Ellipse({INT32_MIN, 0, INT32_MAX, 10}, {.style = 77, .width = -5}, NoBrush);
        t.Text("", {5, 5}, {});
        t.Text("\xFF\xFE", {5, 5}, {.height = -3, .weight = -1});
        for (const int width : {0, 1000}) t.Raster({48, 48}, width, Pixels);  // not one whole row
        t.Raster({48, 48}, 3, {});
        t.Pixel({50, 50}, Red);
      });
      if (scale == 1) QCOMPARE(image.pixelColor(50, 50), QColor(Qt::red));
    }
  }

  void aPictureKeepsWhatItDrewUntilItChanges() {
    PictureWidget widget;
    int drawn = 0;
    widget.resize(208, 108);
    widget.SetPicture(Plane, [&](Target& t) {
      ++drawn;
      DrawRectangle(t, 0, 0, 99, 99, {.colour = Red}, Red);
    });
    const auto grabbed = [&] { return widget.grab().toImage(); };
    const QImage shown = grabbed();
    QCOMPARE(shown.pixelColor(104, 54), QColor(Qt::red));   // the plane in the middle,
    QCOMPARE(shown.pixelColor(20, 54), QColor(Qt::white));  // white beside it
    widget.SetOverlay([&](Target& t) { t.Pixel({50, 50}, Blue); });
    QCOMPARE(grabbed().pixelColor(104, 54), QColor(Qt::blue));
    widget.SetOverlay({});
    QVERIFY(grabbed() == shown);
    widget.SetPlane(Plane);
    grabbed();
    QCOMPARE(drawn, 1);
    const std::function<void()> changes[] = {[&] { widget.Redraw(); },
                                             [&] { widget.resize(300, 300); },
                                             [&] {
                                               widget.SetPlane({200, 100});
                                             }};
    for (const auto& change : changes) {
      drawn = 0;
      change();
      grabbed();
      QCOMPARE(drawn, 1);
    }
  }

  void everyChangeOfTheStereonetIsDrawnAsIfWhole() {
    TestWindow window;
    window.Open(VELORIX_SOURCE_DIR "/examples/granite.ams");
    Session& session = window.Program.Session;
    StereoOptions options = window.Program.Plots.Stereo;
    const auto draw = [&](Target& target) {
      DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, options,
                 session.ReImMode, window.Program.GroupStats, session.Settings);
    };
    PictureWidget picture;
    picture.SetPicture(NetPlane, draw);
    std::mt19937 random(11);
    bool* const switches[] = {
        &options.showData,           &options.showDataLines,      &options.showDataEllipses,
        &options.showMean,           &options.showMeanEllipses,   &options.showAxis[2],
        &options.showGreatCircle[1], &options.showBootstrapCloud, &options.showCaptions,
        &options.colourByValue,      &options.showPlanes};
    for (int step = 0; step < 60; ++step) {
      if (step % 20 == 0) picture.resize(300 + 7 * step, 310 + 5 * step);
      bool& change = step % 3 == 0 ? *switches[random() % std::size(switches)]
                                   : session.Records[1 + static_cast<int>(random() % 20)].Selected;
      change = !change;
      picture.Redraw();
      QVERIFY2(picture.grab().toImage() == Whole(picture, draw), qPrintable(QString::number(step)));
    }
  }
  void anEnlargedPictureIsFinerAndKeepsSizes() {
    PictureWidget picture;
    picture.AllowZoom();
    picture.resize(368, 374);  // a unit is a pixel
    const auto draw = [](Target& t) {
      Symbol(t, 1, 50, 100, 9, Black);
      Symbol(t, 1, 50.4f, 100.4f, 9, Black);
      DrawLine(t, 90, 0, 90, 366, {});
    };
    picture.SetPicture(NetPlane, draw);
    TurnWheel(picture, {54, 104}, 100);  // place 50, 100 stays under the mouse; 40 times
    // Squares 10 pixels wide, as on the whole picture, with 0.4 units of 40 pixels between them.
    QCOMPARE(Ink(picture.grab().toImage()), QRect(QPoint(50, 100), QPoint(75, 125)));
    TurnWheel(picture, {200, 10}, -50);
    QVERIFY(picture.grab().toImage() == Whole(picture, draw));
  }

  void everyChangeOfAnEnlargedStereonetIsDrawnAsIfWhole() {
    TestWindow window;
    window.Open(VELORIX_SOURCE_DIR "/examples/granite.ams");
    Session& session = window.Program.Session;
    StereoOptions options = window.Program.Plots.Stereo;
    const auto draw = [&](Target& target) {
      DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, options,
                 session.ReImMode, window.Program.GroupStats, session.Settings);
    };
    PictureWidget picture;
    picture.AllowZoom();
    picture.SetPicture(NetPlane, draw);
    picture.resize(500, 420);
    const auto turn = [](PictureWidget& widget, int step) {
      TurnWheel(widget, {100 + 9 * step, 60 + 7 * step}, step % 5 == 4 ? -20 : 3);
    };
    int changes = 0;
    for (int step = 0; step < 30; ++step) {
      session.Records[1 + step % 20].Selected ^= true;
      if (step % 3 == 0) options.showDataEllipses = !options.showDataEllipses;
      turn(picture, step);
      const QImage before = picture.grab().toImage();
      session.Records[1 + step * 7 % 20].Selected ^= true;
      picture.Redraw();
      PictureWidget fresh;
      fresh.AllowZoom();
      fresh.SetPicture(NetPlane, draw);
      fresh.resize(picture.size());
      for (int i = 0; i <= step; ++i) turn(fresh, i);
      const QImage after = picture.grab().toImage();
      QVERIFY2(after == fresh.grab().toImage(), qPrintable(QString::number(step)));
      changes += after != before;
    }
    QVERIFY(changes > 10);
  }

  void onlyTheTilesOfWhatChangedAreTouched() {
    const auto one = [](Target& t) { Symbol(t, 3, 50, 50, 9, Red); };
    const auto two = [](Target& t) { Symbol(t, 3, 300, 300, 9, Blue); };
    const auto before = MarksOf(one), both = MarksOf([&](Target&t) { one(t), two(t); });
    QVERIFY(ChangedTiles(before, before, NetPlane)->IsEmpty());
    const auto tiles = ChangedTiles(before, both, NetPlane);
    QVERIFY(tiles && !tiles->AreMost());
    QVERIFY(tiles->Touch({300, 300, 301, 301}) && !tiles->Touch({50, 50, 51, 51}));
    const QRegion region = tiles->OnDevice({2, 10, 0}, {740, 732});
    QVERIFY(region.contains(QPoint(610, 600)) && !region.contains(QPoint(110, 100)));
    // Another order is drawn whole.
    QVERIFY(!ChangedTiles(both, MarksOf([&](Target& t) { two(t), one(t); }), NetPlane));
  }

  void aFailedCompositionIsFollowedByAWholeOne() {
    bool fails = false;
    int faults = 0;
    PictureWidget picture;
    picture.OnFault = [&](const Fault& fault) { faults += fault.Number == 6; };
    picture.SetPicture(NetPlane, [&](Target& target) {
      Symbol(target, 3, 50, 50, 30, Red);
      if (fails) FailOverflow();
      Symbol(target, 3, 150, 50, 30, Red);
    });
    QList<QImage> shown;
    for (const bool failure : {false, true, false}) {
      fails = failure;
      picture.Redraw();
      shown += picture.grab().toImage();
    }
    QVERIFY(faults == 1 && shown[1] != shown[0] && shown[2] == shown[0]);
    QVERIFY(shown[1] != Whole(picture, [](Target&) {}));
  }
};

QTEST_MAIN(PainterTargetTest)
#include "painter_target_test.moc"
