// The contour window, driven by the names of its controls.

#include "platform/qt/contour_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <memory>

#include "app/commands.h"
#include "plot/contour.h"
#include "tests/qt/test_window.h"

namespace velorix {
namespace {

class ContourWindowTest : public QObject {
  Q_OBJECT

  std::unique_ptr<TestWindow> window_;

  frmContour* Contour() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == "frmContour" && widget->isVisible())
        return static_cast<frmContour*>(widget);
    return nullptr;
  }
  template <class Control>
  Control& The(const char* name) {
    auto* control = Contour()->findChild<Control*>(name);
    if (!control) qFatal("no control %s", name);
    return *control;
  }
  /// Near the left: a check or an option has its mark there.
  static void Click(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(10, widget.height() / 2));
  }
  void Press(const char* name) {
    Click(The<QAbstractButton>(name));
    QCoreApplication::processEvents();
  }
  QString Text(const char* label) { return The<QLabel>(label).text(); }
  QImage Picture() { return The<QWidget>("picContour").grab().toImage(); }
  /// The pixel in the middle of a unit of the picture's plane.
  QPoint Place(double x, double y) {
    QWidget& picture = The<QWidget>("picContour");
    const double scale = std::min((picture.width() - 8.0) / ContourPlane.width,
                                  (picture.height() - 8.0) / ContourPlane.height);
    return {qRound((picture.width() - scale * ContourPlane.width) / 2 + (x + 0.5) * scale),
            qRound((picture.height() - scale * ContourPlane.height) / 2 + (y + 0.5) * scale)};
  }
  void MoveTo(double x, double y) {
    const QPointF place = Place(x, y);
    QMouseEvent move(QEvent::MouseMove, place, place, Qt::NoButton, {}, {});
    QApplication::sendEvent(&The<QWidget>("picContour"), &move);
  }
  void OpenAndCount() {
    window_->Open(window_->WriteFile("a", 6));
    window_->Key(Qt::Key_F12);
    Press("cmdCount");
  }
  const ContourSession& State() const { return window_->Program.Contour; }

 private slots:
  void init() {
    window_ = std::make_unique<TestWindow>();
    BuildContourGrid(window_->Program.ContourGrid, 0, 300, 3);
  }
  void cleanup() { window_.reset(); }

  void KeyButtonAndItsOwnCloseToggleIt() {
    QVERIFY(!Contour());
    window_->Key(Qt::Key_F12);
    QVERIFY(Contour() && window_->The<QAction>("mnuAnalysis(3)").isChecked());
    window_->Press("Toolbar1(15)");
    QVERIFY(!Contour() && !window_->The<QAction>("mnuAnalysis(3)").isChecked());
    window_->Key(Qt::Key_F12);
    Press("cmdCLOSE");
    QVERIFY(!Contour() && !window_->The<QAction>("mnuAnalysis(3)").isChecked());
  }

  void ShowsTheDataFirstAndTheirDensityWhenCounted() {
    window_->Open(window_->WriteFile("a", 6));
    window_->Key(Qt::Key_F12);
    QCOMPARE(State().Data.Count(), std::int16_t(6));
    QVERIFY(Text("lblContour").startsWith("Kmax, geographic") && Text("lblLevels").isEmpty());
    const QImage before = Picture();
    Press("cmdCount");
    QVERIFY(State().Counted() && State().Count.ContourMax > 2);
    QVERIFY(Text("lblLevels").startsWith(" 1 "));
    QVERIFY(Text("lblTime").endsWith(" s"));
    QVERIFY(Picture() != before);
  }

  void ReturnCounts() {
    window_->Open(window_->WriteFile("a", 6));
    window_->Key(Qt::Key_F12);
    Contour()->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), Contour());
    QTest::keyClick(Contour(), Qt::Key_Return);
    QVERIFY(State().Counted());
  }

  void EachDisplayShowsItsDataAndWaitsForItsCount() {
    OpenAndCount();
    const struct {
      const char* name;
      int count;
    } cases[] = {{"optDisplay(2)", 6},
                 {"optDisplay(3)", 6},
                 {"optDisplay(4)", 4},
                 {"optDisplay(5)", 6},
                 {"optDisplay(1)", 6}};
    for (const auto& c : cases) {
      Press(c.name);
      QVERIFY2(!State().Counted(), c.name);
      QCOMPARE(State().Data.Count(), std::int16_t(c.count));
      Press("cmdCount");
      QVERIFY2(State().Counted(), c.name);
    }
  }

  void NeitherDrawingNorItsChoicesCountAgain() {
    OpenAndCount();
    const float seconds = State().Count.Seconds;
    window_->Program.ContourGrid.Density[State().Count.MaxNode] += 1;  // a count would mend it
    const float marked = window_->Program.ContourGrid.Density[State().Count.MaxNode];
    QImage last = Picture();
    for (const char* name :
         {"optContinuous", "chkShowContours", "chkShowGridPoints", "chkDataPoint", "optDiscrete"}) {
      Press(name);
      QVERIFY2(Picture() != last, name);
      last = Picture();
    }
    Press("cmdRedraw");
    QVERIFY(Picture() == last);
    QCOMPARE(window_->Program.ContourGrid.Density[State().Count.MaxNode], marked);
    QCOMPARE(State().Count.Seconds, seconds);
  }

  void SmoothIsTypedOrSpunFrom0To100() {
    OpenAndCount();
    auto& spinner = The<QSpinBox>("udSmooth");
    auto& text = The<QLineEdit>("txtSmooth");
    QCOMPARE(spinner.value(), 20);
    const float maximum = State().Count.ContourMax;
    text.setFocus();
    text.selectAll();
    QTest::keyClicks(&text, "60");
    Press("cmdCount");
    QCOMPARE(State().Smooth, std::int16_t(60));
    QVERIFY(State().Count.ContourMax > maximum);
    spinner.setValue(1000);
    QCOMPARE(spinner.value(), 100);
    spinner.setValue(-1);
    QCOMPARE(spinner.value(), 0);
    Press("cmdCount");
    QCOMPARE(Text("lblLevels"), QString(" 1"));
  }

  void ASmoothTooGreatIsToldAndNothingIsCounted() {
    OpenAndCount();
    const QImage before = Picture();
    The<QSpinBox>("udSmooth").setValue(100);
    Press("cmdCount");
    QCOMPARE(window_->Asked.Boxes.size(), std::size_t(1));
    QVERIFY(QString::fromStdString(window_->Asked.Boxes[0]).contains("smoothing of 100"));
    QCOMPARE(State().Smooth, std::int16_t(20));
    QVERIFY(Picture() == before);
  }

  void WithoutDataTheLastPictureStays() {
    OpenAndCount();
    const QImage before = Picture();
    CloseFile(window_->Program);
    Press("cmdCount");
    QVERIFY(State().Counted());
    QVERIFY(Picture() == before);
    Press("optDisplay(2)");
    QVERIFY(State().Data.Count() == 0 && Picture() != before);
  }

  void ACountListensToItsCancelAloneAndLeavesThePicture() {
    window_->Open(window_->WriteFile("many", 32000));
    window_->Key(Qt::Key_F12);
    The<QSpinBox>("udSmooth").setValue(0);
    const auto press = [this](QWidget* widget) {
      QTimer::singleShot(0, this, [widget] { Click(*widget); });
    };
    const QImage before = Picture();
    // What was asked for meanwhile is not done, the cancel is.
    press(&The<QWidget>("optDisplay(3)"));
    press(&The<QWidget>("cmdCLOSE"));
    press(&The<QWidget>("cmdCancel"));
    Press("cmdCount");
    QVERIFY(Contour() && !State().Counted());
    QCOMPARE(State().Options.optDisplay, std::int16_t(1));
    QVERIFY(Picture() == before);
    QVERIFY(!The<QWidget>("cmdCancel").isEnabled());

    QTimer::singleShot(0, this, [this] { QTest::keyClick(Contour(), Qt::Key_Escape); });
    Press("cmdCount");
    QVERIFY(!State().Counted());
    QTimer::singleShot(0, this, [this] { Contour()->close(); });
    Press("cmdCount");
    QVERIFY(Contour() && !State().Counted());
    Press("cmdCount");
    QVERIFY(State().Counted());
  }

  void TheBarMovesOnlyWhenWanted() {
    window_->Open(window_->WriteFile("some", 1000));
    window_->Key(Qt::Key_F12);
    auto& bar = The<QProgressBar>("vbalProgressBar1");
    QCOMPARE(bar.maximum(), 10000);
    int greatest = 0;
    connect(&bar, &QProgressBar::valueChanged, this,
            [&greatest](int value) { greatest = std::max(greatest, value); });
    Press("cmdCount");
    QCOMPARE(greatest, 10000);
    greatest = 0;
    Press("chkProgressBar");
    Press("cmdCount");
    QCOMPARE(greatest, 0);
  }

  void TellsTheNodeUnderTheMouseAndWhereTheMaximumLies() {
    window_->Open(window_->WriteFile("a", 6));
    window_->Key(Qt::Key_F12);
    QWidget& picture = The<QWidget>("picContour");
    MoveTo(180, 180);
    QCOMPARE(Text("lblCursor"), QString("Dec 0.0, Inc 90.0"));
    Press("cmdCount");
    MoveTo(330, 180);
    QVERIFY2(Text("lblCursor").startsWith("Dec 90.0, Inc 0.0, density "),
             qPrintable(Text("lblCursor")));
    MoveTo(40, 40);
    QVERIFY(Text("lblCursor").isEmpty());
    QVERIFY(!picture.toolTip().startsWith("Maximum"));
    MoveTo(380, 200);
    QVERIFY2(picture.toolTip().startsWith("Maximum "), qPrintable(picture.toolTip()));
    QVERIFY(The<QLabel>("lblLevels").toolTip().startsWith("Maximum "));
  }

  void PicturesGoToTheClipboardAndToFiles() {
    OpenAndCount();
    Press("cmdCopyToClipboard");
    QVERIFY(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32) ==
            Picture().convertToFormat(QImage::Format_RGB32));
    for (const char* name : {"p.png", "p.bmp", "p.jpg", "p.tif"}) {
      window_->Asked.Files.push_back(FileAnswer{window_->Path(name), 1});
      Press("cmdSavePicture");
      const QImage image(QString::fromStdString(window_->Path(name)));
      QVERIFY2(image.size() == QSize(3 * ContourPlane.width, 3 * ContourPlane.height), name);
    }
    for (const char* name : {"p.svg", "p.pdf"}) {
      window_->Asked.Files.push_back(FileAnswer{window_->Path(name), 1});
      Press("cmdSavePicture");
      QFile file(QString::fromStdString(window_->Path(name)));
      QVERIFY(file.open(QIODevice::ReadOnly));
      const QByteArray start = file.read(5);
      QVERIFY2(start == "<?xml" || start == "%PDF-", name);
    }
    QVERIFY(window_->Asked.Boxes.empty());
    window_->Asked.Files.push_back(FileAnswer{window_->Path("p.png"), 1});
    window_->Asked.Buttons.push_back(1);  // no: it asks for another name, which is not given
    Press("cmdSavePicture");
    QCOMPARE(window_->Asked.Boxes.size(), std::size_t(1));
    for (const char* name : {"p.xyz", "none/p.png"}) {
      window_->Asked.Files.push_back(FileAnswer{window_->Path(name), 1});
      window_->Asked.Boxes.clear();
      Press("cmdSavePicture");
      QCOMPARE(window_->Asked.Boxes.size(), std::size_t(1));
    }
  }
};

}  // namespace
}  // namespace velorix

using velorix::ContourWindowTest;
QTEST_MAIN(ContourWindowTest)
#include "contour_window_test.moc"
