// The contour window, driven by the names of its controls.

#include "platform/qt/windows/contour_window.h"

#include <QCheckBox>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>

#include "app/commands.h"
#include "plot/plots/contour.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class ContourWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;

  frmContour* Contour() { return window_->Shown<frmContour>("frmContour"); }
  template <class Control>
  Control& The(const char* name) {
    return In<Control>(*Contour(), name);
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
  /// Into the middle of a unit of the picture's plane.
  void MoveTo(double x, double y) {
    QWidget& picture = The<QWidget>("picContour");
    const QSizeF plane(ContourPlane.width, ContourPlane.height);
    MoveMouse(picture, PlaceIn(picture, plane, {x + 0.5, y + 0.5}));
  }
  void OpenWith(int count) {
    window_->Open(window_->WriteFile("a", count));
    window_->Key(Qt::Key_F12);
  }
  void OpenAndCount() {
    OpenWith(6);
    Press("cmdCount");
  }
  const ContourSession& State() const { return window_->Program.Contour; }

 private slots:
  void init() {
    window_.emplace();
    BuildContourGrid(window_->Program.Contour.Grid, 0, 300, 3);
  }

  void ShowsTheDataFirstAndTheirDensityWhenCounted() {
    OpenWith(6);
    QCOMPARE(State().InView.Data.Count(), std::int16_t(6));
    QVERIFY(Text("lblContour").startsWith("Kmax, geographic") && Text("lblLevels").isEmpty());
    const QImage before = Picture();
    Contour()->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), Contour());
    QTest::keyClick(Contour(), Qt::Key_Return);
    QVERIFY(State().Counted() && State().Count.ContourMax > 2);
    QVERIFY(Text("lblLevels").startsWith(" 1 "));
    QVERIFY(Text("lblTime").endsWith(" s"));
    QVERIFY(Picture() != before);
  }

  void EachDisplayShowsItsDataAndWaitsForItsCount() {
    OpenAndCount();
    for (const auto& [name, count] : {std::pair{"optDisplay(2)", 6}, std::pair{"optDisplay(4)", 4},
                                      std::pair{"optDisplay(5)", 6}, std::pair{"optDisplay(3)", 6},
                                      std::pair{"optDisplay(1)", 6}}) {
      Press(name);
      QVERIFY2(!State().Counted() && State().InView.Data.Count() == count, name);
      Press("cmdCount");
      QVERIFY2(State().Counted(), name);
    }
  }

  void NeitherDrawingNorItsChoicesCountAgain() {
    OpenAndCount();
    const float seconds = State().Count.Seconds;
    window_->Program.Contour.Grid.Density[State().Count.MaxNode] += 1;  // a count would mend it
    const float marked = window_->Program.Contour.Grid.Density[State().Count.MaxNode];
    QImage last = Picture();
    for (const char* name :
         {"optContinuous", "chkShowContours", "chkShowGridPoints", "chkDataPoint", "optDiscrete"}) {
      Press(name);
      QVERIFY2(Picture() != last, name);
      last = Picture();
    }
    Press("cmdRedraw");
    QVERIFY(Picture() == last);
    QCOMPARE(window_->Program.Contour.Grid.Density[State().Count.MaxNode], marked);
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
    const QImage before = Picture();
    spinner.setValue(100);  // too great for so few: told, and nothing is counted
    Press("cmdCount");
    QCOMPARE(window_->Asked.Boxes.size(), std::size_t(1));
    QVERIFY(State().Smooth == 0 && Picture() == before);
  }

  void FollowsTheViewWithItsDataAndTellsWhatTheCountIsOf() {
    OpenAndCount();
    const QString line = "Counted for a.ams, geographic, N = 6; press Count";
    const int top = The<QWidget>("picContour").mapTo(Contour(), QPoint()).y();
    QVERIFY(Text("lblStale").isEmpty());
    const QImage before = Picture();
    RunMenu(window_->Program, CommandNamed("mnuView(1)"));
    QCOMPARE(Text("lblStale"), line);
    QVERIFY(Text("lblContour").startsWith("Kmax, specimen"));
    QVERIFY(Picture() != before);  // the data moved
    QCOMPARE(The<QWidget>("picContour").mapTo(Contour(), QPoint()).y(), top);
    RunMenu(window_->Program, CommandNamed("mnuView(2)"));
    QVERIFY(Text("lblStale").isEmpty() && Picture() == before);

    RunMenu(window_->Program, CommandNamed("mnuClose"));
    QCOMPARE(Text("lblStale"), line);
    const QImage empty = Picture();
    Press("cmdCount");  // without data it does nothing
    QVERIFY(State().Counted() && Picture() == empty);
    Press("optDisplay(2)");
    QVERIFY(Text("lblStale").isEmpty() && Picture() != empty);
  }

  void ACountListensToItsCancelAloneAndLeavesThePicture() {
    OpenWith(32000);
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
    QCOMPARE(State().Options.display, std::int16_t(1));
    QVERIFY(Picture() == before);
    QVERIFY(!The<QWidget>("cmdCancel").isEnabled());

    for (const bool escape : {true, false}) {
      QTimer::singleShot(0, this, [this, escape] {
        escape ? QTest::keyClick(Contour(), Qt::Key_Escape) : void(Contour()->close());
      });
      Press("cmdCount");
      QVERIFY(Contour() && !State().Counted());
    }
    Press("cmdCount");
    QVERIFY(State().Counted());
  }

  void TheBarMovesOnlyWhenWanted() {
    OpenWith(1000);
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
    OpenWith(6);
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
    const auto save = [this](const char* name) {
      window_->Asked.Files.push_back(FileAnswer{window_->Path(name), 1});
      window_->Asked.Boxes.clear();
      Press("cmdSavePicture");
      return window_->Asked.Boxes.size();
    };
    QCOMPARE(save("p.png") + save("p.svg"), 0u);
    QCOMPARE(QImage(window_->Folder.filePath("p.png")).size(),
             QSize(3 * ContourPlane.width, 3 * ContourPlane.height));
    QVERIFY(QFile::exists(window_->Folder.filePath("p.svg")));
    window_->Asked.Buttons.push_back(1);  // no: it asks for another name, which is not given
    for (const char* name : {"p.png", "p.xyz", "none/p.png"}) QVERIFY2(save(name) == 1u, name);
    Press("cmdCLOSE");
    QVERIFY(!Contour());
  }
};

QTEST_MAIN(ContourWindowTest)
#include "contour_window_test.moc"
