// The contour window, driven by the names of its controls.

#include <QClipboard>
#include <QProgressBar>
#include <QSpinBox>

#include "plot/plots/contour.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class ContourWindowTest : public WindowTest {
  Q_OBJECT

  QImage Picture() { return The<QWidget>("picContour").grab().toImage(); }
  /// Into the middle of a unit of the picture's plane.
  void MoveTo(double x, double y) {
    const QSizeF plane(ContourPlane.width, ContourPlane.height);
    QWidget& picture = The<QWidget>("picContour");
    MoveMouse(picture, PlaceIn(picture, plane, {x + 0.5, y + 0.5}));
  }
  void OpenWith(int count) {
    W().Open(W().WriteFile("a", count));
    OpenForm("mnuAnalysis(3)", "frmContour");
  }
  void OpenAndCount() {
    OpenWith(6);
    Press("cmdCount");
  }
  const ContourSession& State() const { return window_->Program.Contour; }

 private slots:
  void init() {
    window_.emplace();
    BuildContourGrid(W().Program.Contour.Grid, 0, 300, 3);
  }

  void eachDisplayShowsItsDataAndWaitsForItsCount() {
    OpenWith(6);
    QCOMPARE(Look("lblContour lblLevels"), "Kmax, geographic coordinates, not counted yet|");
    const QImage before = Picture();
    Key(Qt::Key_Return);
    QVERIFY(State().Counted() && Look("lblLevels").startsWith(" 1 ") && Picture() != before);
    QVERIFY(Look("lblTime").endsWith(" s"));
    for (const auto& [name, count] : {std::pair{"optDisplay(2)", 6}, std::pair{"optDisplay(4)", 4},
                                      std::pair{"optDisplay(5)", 6}, std::pair{"optDisplay(3)", 6},
                                      std::pair{"optDisplay(1)", 6}}) {
      Press(name);
      QVERIFY2(!State().Counted() && State().InView.Data.Count() == count, name);
      Press("cmdCount");
      QVERIFY2(State().Counted(), name);
    }
  }

  void neitherDrawingNorItsChoicesCountAgain() {
    OpenAndCount();
    float& density = W().Program.Contour.Grid.Density[State().Count.MaxNode];
    const float marked = density += 1;  // a count would mend it
    QImage last = Picture();
    for (const char* name :
         {"optContinuous", "chkShowContours", "chkShowGridPoints", "chkDataPoint", "optDiscrete"}) {
      Press(name);
      QVERIFY2(Picture() != last, name);
      last = Picture();
    }
    Press("cmdRedraw");
    QVERIFY(Picture() == last && density == marked);
  }

  void smoothIsTypedOrSpunFrom0To100() {
    OpenAndCount();
    auto& spinner = The<QSpinBox>("udSmooth");
    QVERIFY(spinner.value() == 20 && spinner.minimum() == 0 && spinner.maximum() == 100);
    spinner.selectAll();
    QTest::keyClicks(&The<QWidget>("txtSmooth"), "0");
    Press("cmdCount");
    QVERIFY(State().Smooth == 0 && Look("lblLevels") == " 1");
    const QImage before = Picture();
    spinner.setValue(100);  // too great for so few: a message, and nothing is counted
    Press("cmdCount");
    QVERIFY(Boxes().size() == 1 && State().Smooth == 0 && Picture() == before);
  }

  void followsTheViewWithItsDataAndSaysWhatTheCountIsOf() {
    OpenAndCount();
    const QString line = "Counted for a.ams, geographic, N = 6; press Count";
    const auto top = [this] { return The<QWidget>("picContour").mapTo(form_, QPoint()).y(); };
    const int before = top();
    const QImage counted = Picture();
    QCOMPARE(Look("lblStale"), "");
    Key(Qt::Key_F5);  // the main window's key
    QCOMPARE(Look("lblStale"), line);
    QVERIFY(Picture() != counted && top() == before);  // the data moved
    Key(Qt::Key_F6);
    QVERIFY(Look("lblStale").isEmpty() && Picture() == counted);
    W().Run("mnuClose");
    QCOMPARE(Look("lblStale"), line);
    const QImage empty = Picture();
    Press("cmdCount");  // without data it does nothing
    QVERIFY(State().Counted() && Picture() == empty);
    Press("optDisplay(2)");
    QVERIFY(Look("lblStale").isEmpty() && Picture() != empty);
  }

  void aCountListensToItsCancelAloneAndLeavesThePicture() {
    OpenWith(32000);
    The<QSpinBox>("udSmooth").setValue(0);
    const QImage before = Picture();
    const auto later = [this](auto act) { QTimer::singleShot(0, this, act); };
    // What is asked for meanwhile is not done, the cancel is.
    for (const char* name : {"optDisplay(3)", "cmdCLOSE", "cmdCancel"})
      later([this, name] { Press(name); });
    Press("cmdCount");
    QVERIFY(form_->isVisible() && !State().Counted() && State().Options.display == 1);
    QVERIFY(Picture() == before && Look("cmdCancel") == "(Cancel)");
    for (const bool escape : {true, false}) {
      later([this, escape] { escape ? Key(Qt::Key_Escape) : void(form_->close()); });
      Press("cmdCount");
      QVERIFY(form_->isVisible() && !State().Counted());
    }
    Press("cmdCount");
    QVERIFY(State().Counted());
  }

  void theBarMovesOnlyWhenItIsAskedTo() {
    OpenWith(1000);
    int greatest = 0;
    connect(&The<QProgressBar>("vbalProgressBar1"), &QProgressBar::valueChanged, this,
            [&greatest](int value) { greatest = std::max(greatest, value); });
    for (const int expected : {10000, 0}) {
      greatest = 0;
      Press("cmdCount");
      QCOMPARE(greatest, expected);
      Press("chkProgressBar");
    }
  }

  void showsTheNodeUnderTheMouseAndTheMaximumOnTheLegend() {
    OpenAndCount();
    const auto tip = [this](const char* name) { return The<QWidget>(name).toolTip().left(8); };
    MoveTo(330, 180);
    QVERIFY(Look("lblCursor").startsWith("Dec 90.0, Inc 0.0, density "));
    MoveTo(40, 40);
    QVERIFY(Look("lblCursor").isEmpty() && tip("picContour") != "Maximum ");
    MoveTo(380, 200);
    QCOMPARE(tip("picContour") + tip("lblLevels"), "Maximum Maximum ");
  }

  void picturesGoToTheClipboardAndToFiles() {
    OpenAndCount();
    Press("cmdCopyToClipboard");
    const auto format = QImage::Format_RGB32;
    QVERIFY(QApplication::clipboard()->image().convertToFormat(format) ==
            Picture().convertToFormat(format));
    const auto save = [this](const char* name) {
      W().Asked.Files.push_back(FileAnswer{W().Path(name), 1});
      Boxes().clear();
      Press("cmdSavePicture");
      return Boxes().size();
    };
    QCOMPARE(save("p.png") + save("p.svg"), 0u);
    QCOMPARE(QImage(W().Folder.filePath("p.png")).size(),
             QSize(3 * ContourPlane.width, 3 * ContourPlane.height));
    QVERIFY(QFile::exists(W().Folder.filePath("p.svg")));
    W().Asked.Buttons.push_back(1);  // no: it asks for another name, which is not given
    for (const char* name : {"p.png", "p.xyz", "none/p.png"}) QVERIFY2(save(name) == 1u, name);
    Press("cmdCLOSE");
    QVERIFY(!W().Shown<QWidget>("frmContour"));
  }
};

QTEST_MAIN(ContourWindowTest)
#include "contour_window_test.moc"
