// The contour window, driven by the names of its controls.

#include <QClipboard>
#include <QProgressBar>
#include <QSignalSpy>
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
    for (const int display : {2, 4, 5, 3, 1}) {
      Press(QString("optDisplay(%1)").arg(display));
      QVERIFY(!State().Counted() && static_cast<int>(State().Options.display) == display);
    }
  }

  void neitherDrawingNorItsChoicesCountAgain() {
    OpenAndCount();
    float& density = W().Program.Contour.Grid.Density[State().Count.MaxNode];
    const float marked = density += 1;  // a count would mend it
    QImage last = Picture();
    for (const char* name : {"optContinuous", "chkShowContours", "chkShowGridPoints",
                             "chkDataPoint", "optDiscrete", "cmdRedraw"}) {
      Press(name);
      QVERIFY2((Picture() == last) == (name == QString("cmdRedraw")), name);
      last = Picture();
    }
    QCOMPARE(density, marked);
  }

  void smoothIsTypedFrom0To100() {
    OpenAndCount();
    auto& spinner = The<QSpinBox>("udSmooth");
    QVERIFY(spinner.value() == 20 && spinner.minimum() == 0 && spinner.maximum() == 100);
    for (const char* text : {"0", "100"}) {  // the second is too great for so few: a message
      spinner.selectAll();
      QTest::keyClicks(&The<QWidget>("txtSmooth"), text);
      Press("cmdCount");
      QVERIFY(State().Smooth == 0 && Look("lblLevels") == " 1");
    }
    QCOMPARE(Boxes().size(), 1u);
  }

  void followsTheViewWithItsDataAndSaysWhatTheCountIsOf() {
    OpenAndCount();
    const auto top = [this] { return The<QWidget>("picContour").mapTo(form_, QPoint()).y(); };
    const int before = top();
    const QImage counted = Picture();
    for (const bool moved : {true, false}) {
      Key(moved ? Qt::Key_F5 : Qt::Key_F6);  // the main window's keys
      QCOMPARE(Look("lblStale"), moved ? "Counted for a.ams, geographic, N = 6; press Count" : "");
      QVERIFY((Picture() != counted) == moved && top() == before);
    }
    W().Run("mnuClose");
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
    const std::function<void()> ways[] = {[this] { Press("cmdCancel"); },
                                          [this] { Key(Qt::Key_Escape); },
                                          [this] { form_->close(); }};
    for (const auto& cancel : ways) {
      // What is asked for meanwhile is not done, the cancel is.
      QTimer::singleShot(0, this, [&] {
        Press("optDisplay(3)");
        Press("cmdCLOSE");
        cancel();
      });
      Press("cmdCount");
      QVERIFY(form_->isVisible() && !State().Counted() &&
              State().Options.display == ContourDisplay::Kmax);
      QVERIFY(Picture() == before && Look("cmdCancel") == "(Cancel)");
    }
    Press("cmdCount");
    QVERIFY(State().Counted());
  }

  void theBarMovesOnlyWhenItIsAskedTo() {
    OpenWith(1000);
    QSignalSpy moves(&The<QProgressBar>("vbalProgressBar1"), &QProgressBar::valueChanged);
    Press("cmdCount");
    QVERIFY(moves.contains(QVariantList{10000}));
    Press("chkProgressBar");
    moves.clear();
    Press("cmdCount");
    QVERIFY(!moves.contains(QVariantList{10000}));
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
    W().Asked.Buttons.push_back(1);  // no: it asks for another name, which is not given
    for (const auto& [name, boxes] :
         {std::pair{"p.png", 0u}, {"p.svg", 0u}, {"p.png", 1u}, {"p.xyz", 2u}, {"no/p.png", 3u}}) {
      W().Asked.Files.push_back(FileAnswer{W().Path(name), 1});
      Press("cmdSavePicture");
      QCOMPARE(Boxes().size(), boxes);
    }
    QCOMPARE(QImage(W().Folder.filePath("p.png")).size(),
             QSize(3 * ContourPlane.width, 3 * ContourPlane.height));
    QVERIFY(QFile::exists(W().Folder.filePath("p.svg")));
    Press("cmdCLOSE");
    QVERIFY(!W().Shown<QWidget>("frmContour"));
  }
};

QTEST_MAIN(ContourWindowTest)
#include "contour_window_test.moc"
