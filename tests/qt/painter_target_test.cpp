#include <QTest>

#include "platform/qt/plots/picture_widget.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/symbols.h"
#include "tests/qt/painted.h"

using namespace velorix;

namespace {

constexpr PlaneSize Plane = {100, 100};

/// A white picture of the plane at `scale`, drawn on by `draw`.
template <class Draw>
QImage Picture(double scale, Draw draw) {
  const QSize size = (QSizeF(100, 100) * scale).toSize();
  return Painted(size, FitPlane(Plane, size), [&draw](Target& target) {
    target.SetTransparent();
    draw(target);
  });
}

/// The box round all that is not white; empty for a white picture.
QRect Ink(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != QColor(Qt::white).rgb()) ink |= QRect(x, y, 1, 1);
  return ink;
}

QRect TextInk(const TextStyle& style, double scale = 1) {
  return Ink(Picture(scale, [&](Target& t) { t.Text("HHH", {50, 50}, style); }));
}

bool IsBlackPixel(const QImage& image, int x, int y) {
  return image.pixel(x, y) == QColor(Qt::black).rgb();
}

}  // namespace

class PainterTargetTest : public QObject {
  Q_OBJECT
 private slots:
  void FitIsWholeUndistortedAndCentred() {
    const PlaneFit wide = FitPlane({360, 300}, {1000, 600});
    QCOMPARE(wide.scale, 2.0);
    QCOMPARE(wide.ToDevice(0, 0), QPointF(140, 0));
    QCOMPARE(wide.ToDevice(360, 300), QPointF(860, 600));
    QCOMPARE(wide.ToLogical(wide.ToDevice(12, 34)), QPointF(12, 34));
    const PlaneFit high = FitPlane({360, 300}, {180, 500});
    QCOMPARE(high.ToDevice(180, 150), QPointF(90, 250));
    QCOMPARE(FitPlane({0, 300}, {180, 500}).ToLogical({5, 5}), QPointF());
    QCOMPARE(FitPlane({360, 300}, {0, 0}).scale, 0.0);
  }

  void LinesFillWholePixels() {
    for (const double scale : {0.5, 1.0, 1.37, 2.0, 3.0}) {
      const QImage image = Picture(scale, [](Target& t) {
        DrawLine(t, 10, 50, 90, 50, {});
        DrawLine(t, 30, 10, 30, 90, {.width = 3});
      });
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)  // no pixel is grey
          QVERIFY2(IsBlackPixel(image, x, y) || image.pixelColor(x, y) == QColor(Qt::white),
                   qPrintable(QStringLiteral("%1, %2, scale %3").arg(x).arg(y).arg(scale)));
    }
  }

  void PensKeepAtLeastAPixelAndScaleUp() {
    const struct {
      double scale;
      std::int16_t width;
      int pixels;
    } rows[] = {{0.2, 1, 1}, {0.2, 2, 1}, {1, 0, 1}, {1, 1, 1}, {1, 2, 2}, {2, 1, 2}, {2, 3, 6}};
    for (const auto& row : rows) {
      const QImage image =
          Picture(row.scale, [&](Target& t) { DrawLine(t, 10, 50, 90, 50, {.width = row.width}); });
      QCOMPARE(Ink(image).height(), row.pixels);
    }
  }

  void ColourBarsHaveNoStripesAtAnyScale() {
    for (const double scale : {1.0, 1.2, 1.4, 1.55, 1.9, 2.45}) {
      const std::vector<Colour> colours(2 * 61, Blue);  // two bars side by side, from 80 up to 20
      const QImage image = Picture(scale, [&](Target& target) {
        DrawRamp(target, std::array{30.0, 40.0, 50.0}, 80, colours);
      });
      for (int y = static_cast<int>(21 * scale); y < 80 * scale; ++y)
        for (const int x : {35, 45})
          QVERIFY2(image.pixel(static_cast<int>(x * scale), y) == QColor(Qt::blue).rgb(),
                   qPrintable(QString("scale %1, row %2").arg(scale).arg(y)));
    }
  }

  void CornersStayWherePointsRepeat() {
    for (const int times : {1, 2, 3}) {
      std::vector<LogicalPoint> line;
      for (const LogicalPoint p : {LogicalPoint{10, 10}, {50, 10}, {90, 10}, {90, 60}, {30, 60}})
        line.insert(line.end(), times, p);
      const QImage image = Picture(1, [&](Target& t) { t.Polyline(line, {}); });
      QVERIFY(IsBlackPixel(image, 70, 10) && IsBlackPixel(image, 90, 30));
      QVERIFY(IsBlackPixel(image, 60, 60));
    }
  }

  void PenStylesLeaveGaps() {
    int inked[6] = {};
    for (std::int16_t style = Solid; style <= NoLine; ++style) {
      const QImage image =
          Picture(1, [&](Target& t) { DrawLine(t, 10, 50, 90, 50, {.style = style}); });
      for (int x = 0; x < 100; ++x) inked[style] += IsBlackPixel(image, x, 50);
    }
    QCOMPARE(inked[Solid], 81);
    QCOMPARE(inked[NoLine], 0);
    for (const int style : {Dashed, Dotted, DashDot, DashDotDot})
      QVERIFY2(inked[style] > 20 && inked[style] < 70, qPrintable(QString::number(style)));
  }

  void HollowShapesLeaveWhatLiesUnderThem() {
    const QImage image = Picture(1, [](Target& t) {
      DrawRectangle(t, 0, 0, 99, 99, {.colour = Yellow}, Yellow);
      DrawCircle(t, 50, 50, 40, {}, 0);
      DrawRectangle(t, 20, 20, 80, 80, {}, 0);
      Pen pen;
      DrawSymbol(t, 3, 30, 50, 9, 0, pen);
    });
    QCOMPARE(image.pixelColor(50, 50), QColor(Qt::yellow));
    QCOMPARE(image.pixelColor(50, 20), QColor(Qt::black));  // the rectangle's outline
    QCOMPARE(image.pixelColor(30, 50), QColor(Qt::black));  // fill 0 of a symbol is black
  }

  void PixelCoversItsUnit() {
    const auto dot = [](Target& t) { t.Pixel({40, 60}, Black); };
    QCOMPARE(Ink(Picture(3, dot)), QRect(120, 180, 3, 3));
    QCOMPARE(Ink(Picture(0.25, dot)), QRect(10, 15, 1, 1));
  }

  void StampsEqualDrawnShapes() {
    // The fifth point, a repeated one, keeps the second shape from being a stamp.
    const LogicalPoint points[] = {{40, 40}, {40, 50}, {51, 53}, {48, 38}, {48, 38}};
    const Pen pen = {.colour = Blue, .width = 2};
    for (const double scale : {0.7, 1.0, 1.37, 2.0}) {
      const QImage stamped = Picture(scale, [&](Target& t) {
        t.Polygon(std::span(points, 4), pen, Brush(Green));
        t.Polygon(std::span(points, 4), pen, Brush(Green));
      });
      const QImage drawn = Picture(scale, [&](Target& t) {
        t.Polygon(points, pen, Brush(Green));
        t.Polygon(points, pen, Brush(Green));
      });
      int worst = 0;  // smooth edges that are blended twice may round apart
      for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) {
          const QColor a = stamped.pixelColor(x, y), b = drawn.pixelColor(x, y);
          worst = std::max({worst, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                            std::abs(a.blue() - b.blue())});
        }
      QVERIFY2(worst <= 3, qPrintable(QStringLiteral("%1 at %2").arg(worst).arg(scale)));
    }
  }

  void SymbolsLookAlikeEverywhere() {
    // A scale at which whole units fall on fractions of pixels.
    const QImage image = Picture(1.37, [](Target& t) {
      Pen pen;
      for (const float x : {10.f, 31.f, 57.f, 80.f}) DrawSymbol(t, 0, x, 50, 12, Red, pen);
    });
    const auto cut = [&image](double x) {
      return image.copy(static_cast<int>(std::floor(x * 1.37 + 0.5)) - 10, 55, 21, 27);
    };
    for (const double x : {31, 57, 80}) QCOMPARE(cut(x), cut(10));
  }

  void TextStandsAsAligned() {
    const struct {
      int alignment;
      double left, bottom;  // of the letters from the point, in their own widths and heights
    } rows[] = {
        {LeftBaseline, 0, 0},           {RightBaseline, -1, 0},
        {CentreBaseline, -0.5, 0},      {CentreTop, -0.5, 1.3},
        {AlignLeft + AlignTop, 0, 1.3}, {AlignRight + AlignBottom, -1, -0.3},
    };
    for (const auto& row : rows) {
      const QRect ink = TextInk({.height = 20, .alignment = row.alignment});
      QVERIFY(!ink.isEmpty());
      const double left = ink.left() - 50, bottom = ink.bottom() + 1 - 50;
      QVERIFY2(std::abs(left - row.left * ink.width()) <= 4, qPrintable(QString::number(left)));
      QVERIFY2(std::abs(bottom - row.bottom * ink.height()) <= 2,
               qPrintable(QString::number(bottom)));
    }
  }

  void TextHeightIsTheCells() {
    // A capital is 0.69 (Liberation Sans) to 0.72 em (Arial) high, an em the cell's height / 1.117.
    for (const int height : {14, 20, 40})
      for (const double scale : {1.0, 1.5, 2.0}) {
        const QRect ink = TextInk({.height = static_cast<std::int16_t>(height)}, scale);
        const double expected = height * scale * 0.70 / 1.117;
        QVERIFY2(std::abs(ink.height() - expected) <= 1 + 0.03 * expected,
                 qPrintable(QStringLiteral("%1 for %2").arg(ink.height()).arg(expected)));
      }
  }

  void TextTurnsAgainstTheClock() {
    const QRect flat = TextInk({.height = 20});
    const QRect turned = TextInk({.height = 20, .rotation = 900});
    QVERIFY(std::abs(turned.height() - flat.width()) <= 2);
    QVERIFY(std::abs(turned.width() - flat.height()) <= 2);
    QVERIFY(turned.bottom() <= 50 &&
            turned.right() <= 50);  // upward, the letters' feet to the right
  }

  void PageKeepsFractions() {
    const QImage image = Painted(
        {100, 100}, {0.25, 0, 0}, [](Target& t) { DrawLine(t, 40, 200, 360, 200, {}); },
        Surface::Page);
    // A line a quarter of a pixel wide, half of it on either side of the edge at 50.
    QVERIFY(qGray(image.pixel(50, 50)) > 180 && qGray(image.pixel(50, 50)) < 255);
  }

  void WildCoordinatesDoNoHarm() {
    const auto wild = [](Target& t) {
      const LogicalPoint far[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}, {0, INT32_MIN}};
      t.Polyline(far, {});
      t.Polyline(std::span(far, 1), {});
      t.Polygon({}, {}, Brush(Red));
      t.Pixel({INT32_MAX, INT32_MIN}, Red);
      t.Ellipse({10, 10, 12, 12}, {.width = INT16_MAX}, Brush(White));
      t.Ellipse({INT32_MIN, 0, INT32_MAX, 10}, {.style = 77, .width = -5}, NoBrush);
      t.Text("", {5, 5}, {});
      t.Text("\xFF\xFE", {5, 5}, {.height = -3, .weight = -1});
      Pen pen;
      DrawSymbol(t, 1, 50, 50, 9, Red, pen);
    };
    for (const double scale : {0.01, 1.0, 4.0}) Picture(scale, wild);
    QCOMPARE(Picture(1, wild).pixelColor(50, 50), QColor(Qt::red));
  }

  void WidgetKeepsItsPictureUntilToldOrResized() {
    PictureWidget widget;
    int drawn = 0, overlaid = 0;
    widget.resize(208, 108);
    widget.SetPicture(Plane, [&](Target& t) {
      ++drawn;
      DrawRectangle(t, 0, 0, 99, 99, {.colour = Red}, Red);
    });
    const QImage shown = widget.grab().toImage();
    QCOMPARE(shown.pixelColor(104, 54), QColor(Qt::red));   // the plane in the middle,
    QCOMPARE(shown.pixelColor(20, 54), QColor(Qt::white));  // white beside it
    widget.SetOverlay([&](Target& t) {
      ++overlaid;
      t.Pixel({50, 50}, Blue);
    });
    QCOMPARE(widget.grab().toImage().pixelColor(104, 54), QColor(Qt::blue));
    widget.SetOverlay({});
    QVERIFY(widget.grab().toImage() == shown && drawn == 1 && overlaid == 1);
    const auto drawnBy = [&](auto change) {
      const int before = drawn;
      change();
      widget.grab();
      return drawn - before;
    };
    QCOMPARE(drawnBy([&] { widget.Redraw(); }), 1);
    QCOMPARE(drawnBy([&] { widget.resize(300, 300); }), 1);
    QCOMPARE(drawnBy([&] { widget.SetPlane(Plane); }), 0);
    QCOMPARE(drawnBy([&] { widget.SetPlane({200, 100}); }), 1);
  }

  void WidgetMapsTheMouseToThePlane() {
    PictureWidget widget;
    widget.resize(408, 208);  // the plane twice as large, from (104, 4) on
    widget.SetPicture(Plane, [](Target&) {});
    QString heard;
    const auto hear = [&heard](const char* what) {
      return [&heard, what](const PictureMouse& mouse) {
        heard +=
            QStringLiteral("%1 %2 %3 %4; ").arg(what).arg(mouse.x).arg(mouse.y).arg(mouse.button);
      };
    };
    widget.OnPress = hear("press");
    widget.OnMove = hear("move");
    widget.OnRelease = hear("release");
    widget.show();
    QTest::mousePress(&widget, Qt::LeftButton, {}, {104, 4});
    QTest::mouseMove(&widget, {204, 104});
    QTest::mouseRelease(&widget, Qt::MiddleButton, {}, {304, 204});
    QVERIFY2(heard.startsWith("press 0 0 1; "), qPrintable(heard));
    QVERIFY2(heard.contains("move 50 50 0; "), qPrintable(heard));
    QVERIFY2(heard.endsWith("release 100 100 4; "), qPrintable(heard));
  }
};

QTEST_MAIN(PainterTargetTest)
#include "painter_target_test.moc"
