// The histogram, the XY plots and the data table, with the mouse on every picture.

#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>

#include "platform/qt/plots/picture_widget.h"
#include "platform/qt/windows/data_table_window.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

constexpr const char* Examples = VELORIX_SOURCE_DIR "/examples/";

}  // namespace

class PlotsTest : public QObject {
  Q_OBJECT
  std::optional<TestWindow> window_;

  TestWindow& W() { return *window_; }
  RecordArray& Records() { return W().Program.Session.Records; }
  PictureWidget& Picture(const char* name) {
    return dynamic_cast<PictureWidget&>(W().The<QWidget>(name));
  }
  frmDataTable& Table() { return W().The<frmDataTable>("frmDataTable"); }
  /// All events that are due, paint events too.
  void Settle() {
    QCoreApplication::processEvents();
    QTest::qWait(1);
  }
  void Choose(const char* list, int index) {
    auto& box = W().The<QComboBox>(list);
    box.setCurrentIndex(index);
    emit box.activated(index);
  }
  void Drag(PictureWidget& picture, QPoint from, QPoint to, Qt::MouseButton button,
            Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(&picture, button, keys, from);
    MoveMouse(picture, to, button, keys);
    QTest::mouseRelease(&picture, button, keys, to);
  }

 private slots:
  void init() {
    window_.emplace();
    W().Open(std::string(Examples) + "u1359b.ams");
    Settle();
  }

  void theFirstPlotsAreThoseOfTheField() {
    for (const auto& [list, parameter] :
         {std::pair{"odclHisto", "Kmean"}, std::pair{"odclXYPlot1(1)", "Kmean"},
          std::pair{"odclXYPlot1(2)", "P"}, std::pair{"odclXYPlot2(1)", "P"},
          std::pair{"odclXYPlot2(2)", "T"}})
      QCOMPARE(W().The<QComboBox>(list).currentText(), parameter);
    Choose("odclXYPlot2(2)", 20);
    Settle();
    QCOMPARE(W().Program.XYDrawn[2]->y.label, "E12");  // the entry's own column
  }

  void theSameBoxSelectsTheSameRecordsAtAnySize() {
    Choose("odclXYPlot1(1)", 12);  // Kmax_Inc
    QList<int> first;
    for (const QSize size : {QSize(1280, 800), QSize(1600, 1000), QSize(2560, 1600)}) {
      W().Window.resize(size);
      Settle();
      PictureWidget& picture = Picture("picXYPlot1");
      const auto at = [&](double x, double y) {
        return PlaceIn(picture, {360, 290}, QPointF(x, y));
      };
      Drag(picture, at(251, 200), at(60, 100), Qt::LeftButton);
      const QList<int> selected = W().Selected();
      QVERIFY(selected.size() > 3 && selected.size() < 130);
      for (const SpecimenRecord& r : Records()) {  // give or take a pixel at the box's edges
        const auto [x, y] =
            W().Program.XYDrawn[1]->symbols[static_cast<std::size_t>(r.RecordNo - 1)];
        const bool inside = x > 61 && x < 250 && y > 101 && y < 199;
        const bool outside = x > 252 || y < 99 || y > 201;
        if (r.Selected ? outside : inside) QFAIL(qPrintable(QString::number(r.RecordNo)));
      }
      QCOMPARE(W().SelectedRows(), selected);  // the grid follows
      if (first.isEmpty()) first = selected;
      QVERIFY(std::abs(first.size() - selected.size()) <= 3);
    }
  }

  void theNetSelectsByItsKeysAndReadsOut() {
    PictureWidget& net = Picture("picStereo");
    const auto at = [&](double x, double y) { return PlaceIn(net, {360, 366}, QPointF(x, y)); };
    Drag(net, at(0, 0), at(359, 365), Qt::LeftButton);
    QCOMPARE(W().Selected().size(), Records().Count());
    Drag(net, at(140, 150), at(220, 230), Qt::LeftButton, Qt::ShiftModifier);
    const auto steep = W().Selected().size();
    QVERIFY(steep > 50);  // the foliation lies flat: Kmin at the centre
    Drag(net, at(140, 150), at(220, 230), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(W().Selected().size() < steep / 4);
    MoveMouse(net, at(180, 190));
    const QString inc = W().The<QLabel>("lblStereoCursorPos(2)").text();
    QVERIFY2(inc.startsWith("Inc = ") && inc.mid(6).toDouble() > 85, qPrintable(inc));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&net, &leave);
    QCOMPARE(W().The<QLabel>("lblStereoCursorPos(2)").text(), "");
  }

  void bandAndCrossLeaveNoTraces() {
    PictureWidget& plot = Picture("picXYPlot2");
    const QImage before = plot.grab().toImage();
    const QPoint from(80, 60), to(150, 110);
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton}) {
      QTest::mousePress(&plot, button, {}, from);
      MoveMouse(plot, to, button);
      QVERIFY(plot.grab().toImage() != before);
      QTest::mouseRelease(&plot, button, {}, button == Qt::LeftButton ? from : to);
      QCOMPARE(plot.grab().toImage(), before);
    }
  }

  void aCrossSelectsNothing() {
    W().ClickRow(2);
    Drag(Picture("picXYPlot1"), {50, 50}, {120, 90}, Qt::MiddleButton);
    Drag(Picture("picXYPlot1"), {50, 50}, {120, 90}, Qt::LeftButton,
         Qt::ControlModifier | Qt::ShiftModifier);
    Drag(Picture("picHisto"), {50, 50}, {120, 90}, Qt::LeftButton);
    QCOMPARE(W().Selected(), QList<int>{3});
    Drag(Picture("picXYPlot1"), {50, 50}, {50, 50}, Qt::LeftButton);  // a click clears
    QCOMPARE(W().Selected(), QList<int>{});
  }

  void linesOfBothPlotsFollowTheFirstUntilTheSecondIsTouched() {
    const auto shown = [&](int plot) { return ShownXYPlot(W().Program, plot).lines; };
    W().The<QCheckBox>("chkXYPLot1Lines").setChecked(true);
    QVERIFY(shown(1) && !shown(2));
    W().Key(Qt::Key_F6);
    QVERIFY(shown(1) && shown(2));
    Choose("odclXYPlot2(1)", 4);
    QVERIFY(!shown(2));
  }

  void aColouredPlotMakesRoomForItsScale() {
    PictureWidget& plot = Picture("picXYPlot1");
    const QSize before = plot.sizeHint();
    W().The<QCheckBox>("chkXYPlot1ColorCoding").setChecked(true);
    QCOMPARE(plot.sizeHint().width(), before.width() + 70);
  }

  void theDataTableOpensSortsSelectsAndCloses() {
    W().Key(Qt::Key_F1);
    Settle();
    RecordTable& table = *Table().Table;
    const auto cell = [&](int row, int column) {
      return table.model()->index(row, column).data().toString();
    };
    QCOMPARE(table.model()->rowCount(), Records().Count());
    QCOMPARE(table.model()->columnCount(), 33);
    const auto click = [&](int column) {
      const QHeaderView& header = *table.horizontalHeader();
      QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                        {header.sectionViewportPosition(column) + 8, 5});
    };
    click(13);  // Kmax_Dec
    QVERIFY2(cell(0, 13).toDouble() < 10, qPrintable(cell(0, 13)));
    click(13);
    QVERIFY2(cell(0, 13).toDouble() > 350, qPrintable(cell(0, 13)));

    const QRect third = table.visualRect(table.model()->index(2, 0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, third.center());
    const int id = cell(2, 0).toInt();
    QCOMPARE(W().Selected(), QList<int>{id});
    QCOMPARE(W().SelectedRows(), QList<int>{id});
    QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
    const QString copied = QGuiApplication::clipboard()->text();
    QVERIFY(copied.startsWith(QString("%1\t").arg(id)));
    QCOMPARE(copied.count('\n'), 1);
    QCOMPARE(copied.count('\t'), 32);

    W().ClickRow(4);  // and the other way round
    QCOMPARE(table.SelectedIds(), std::vector<int>{5});
    W().Key(Qt::Key_F6);
    QCOMPARE(cell(0, 0), "1");  // a display brings back the store's order
    QVERIFY(W().The<QAction>("mnuDataTable").isChecked());
    QTest::mouseClick(&W().The<QAbstractButton>("cmdCLOSE"), Qt::LeftButton);
    Settle();
    QVERIFY(!W().The<QAction>("mnuDataTable").isChecked());
    QVERIFY(!W().Window.findChild<frmDataTable*>("frmDataTable"));
  }

  void anEmptyStoreShowsEmptyPlots() {
    W().Key(Qt::Key_F1);
    W().Key(Qt::Key_X, Qt::ControlModifier);
    Settle();
    QCOMPARE(Table().Table->model()->rowCount(), 0);
    QVERIFY(!W().Program.XYDrawn[1]);
    Drag(Picture("picXYPlot1"), {10, 10}, {100, 90}, Qt::LeftButton);
  }
};

QTEST_MAIN(PlotsTest)
#include "plots_test.moc"
