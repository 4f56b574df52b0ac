// A picture that draws only what has changed is the picture drawn whole.

#include <random>

#include "platform/qt/plots/picture_widget.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/symbols.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

constexpr PlaneSize Plane = {360, 366};

QImage Whole(const PictureWidget& like, const PictureWidget::DrawFunction& draw) {
  PictureWidget fresh;
  fresh.SetPicture(Plane, draw);
  fresh.resize(like.size());
  return fresh.grab().toImage();
}

Marks MarksOf(const PictureWidget::DrawFunction& draw) {
  CallMarks marks(Plane);
  draw(marks);
  return marks.Marks;
}

}  // namespace

class PictureChangesTest : public QObject {
  Q_OBJECT
 private slots:
  void everyChangeOfTheStereonetIsDrawnAsIfWhole() {
    TestWindow window;
    window.Open(std::string(VELORIX_SOURCE_DIR) + "/examples/granite.ams");
    Velorix& program = window.Program;
    StereoOptions options = program.Stereo;
    const auto draw = [&](Target& target) {
      const Session& session = program.Session;
      DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, options,
                 session.ReImMode, program.GroupStats, session.Settings);
    };
    PictureWidget picture;
    picture.SetPicture(Plane, draw);
    std::mt19937 random(11);
    bool* const switches[] = {
        &options.showData,           &options.showDataLines,      &options.showDataEllipses,
        &options.showMean,           &options.showMeanEllipses,   &options.showAxis[2],
        &options.showGreatCircle[1], &options.showBootstrapCloud, &options.showCaptions,
        &options.colourByValue,      &options.showPlanes};
    for (int step = 0; step < 60; ++step) {
      if (step % 20 == 0) picture.resize(300 + 7 * step, 310 + 5 * step);
      if (step % 3 == 0) {
        bool& option = *switches[random() % std::size(switches)];
        option = !option;
      } else {
        SpecimenRecord& r = program.Session.Records[1 + static_cast<int>(random() % 20)];
        r.Selected = !r.Selected;
      }
      picture.Redraw();
      QVERIFY2(picture.grab().toImage() == Whole(picture, draw), qPrintable(QString::number(step)));
    }
  }

  void onlyTheTilesOfWhatChangedAreTouched() {
    bool on = false;
    const auto draw = [&](Target& target) {
      Pen pen;
      DrawSymbol(target, 3, 50, 50, 9, Red, pen);
      if (on) DrawSymbol(target, 3, 300, 300, 9, Blue, pen);
    };
    const auto before = MarksOf(draw);
    QVERIFY(ChangedTiles(before, before, Plane)->IsEmpty());
    on = true;
    const auto tiles = ChangedTiles(before, MarksOf(draw), Plane);
    QVERIFY(tiles && !tiles->AreMost());
    QVERIFY(tiles->Touch({300, 300, 301, 301}));
    QVERIFY(!tiles->Touch({50, 50, 51, 51}));
    const QRegion region = tiles->OnDevice({2, 10, 0}, {740, 732});
    QVERIFY(region.contains(QPoint(610, 600)) && !region.contains(QPoint(110, 100)));
  }

  void anotherOrderIsDrawnWhole() {
    const auto one = [](Target& target) { target.Pixel({1, 1}, Red); };
    const auto two = [](Target& target) { target.Pixel({1, 1}, Blue); };
    const auto first = MarksOf([&](Target& t) { one(t), two(t); });
    QVERIFY(!ChangedTiles(first, MarksOf([&](Target& t) { two(t), one(t); }), Plane));
    QVERIFY(ChangedTiles(first, MarksOf([&](Target& t) { two(t); }), Plane));
  }

  void aFailedCompositionIsFollowedByAWholeOne() {
    bool fails = false;
    const auto draw = [&](Target& target) {
      Pen pen;
      DrawSymbol(target, 3, 50, 50, 30, Red, pen);
      if (fails) FailOverflow();
      DrawSymbol(target, 3, 150, 50, 30, Red, pen);
    };
    PictureWidget picture;
    int faults = 0;
    picture.OnFault = [&](const Fault& fault) { faults += fault.Number == 6; };
    picture.SetPicture(Plane, draw);
    const QImage good = picture.grab().toImage();
    fails = true;
    picture.Redraw();
    const QImage part = picture.grab().toImage();
    QVERIFY(part != good && part != Whole(picture, [](Target&) {}));
    QCOMPARE(faults, 1);
    fails = false;
    picture.Redraw();
    QVERIFY(picture.grab().toImage() == good);
  }
};

QTEST_MAIN(PictureChangesTest)
#include "picture_changes_test.moc"
