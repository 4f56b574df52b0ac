// The histogram, the XY plots and the data table, with the mouse on every picture.

#include <QClipboard>
#include <QHeaderView>

#include "platform/qt/plots/picture_widget.h"
#include "platform/qt/windows/data_table_window.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class PlotsTest : public WindowTest {
  Q_OBJECT

  RecordArray& Records() { return S().Records; }
  QWidget& Picture(const char* name) { return The<QWidget>(name); }
  /// All events that are due, paint events too.
  void Settle() {
    QCoreApplication::processEvents();
    QTest::qWait(1);
  }
  void Choose(const char* list, int index) {
    auto& box = The<QComboBox>(list);
    box.setCurrentIndex(index);
    emit box.activated(index);
    Settle();
  }
  void Drag(QWidget& picture, QPoint from, QPoint to, Qt::MouseButton button,
            Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(&picture, button, keys, from);
    MoveMouse(picture, to, button, keys);
    QTest::mouseRelease(&picture, button, keys, to);
  }

 private slots:
  void init() {
    window_.emplace();
    form_ = &W().Window;
    W().Open(VELORIX_SOURCE_DIR "/examples/u1359b.ams");
    Settle();
  }

  void theFirstPlotsAreThoseOfTheField() {
    QCOMPARE(Look("odclHisto odclXYPlot1(1) odclXYPlot1(2) odclXYPlot2(1) odclXYPlot2(2)"),
             "Kmean|Kmean|P|P|T");
    Choose("odclXYPlot2(2)", 20);
    QCOMPARE(W().Program.XYDrawn[2]->y.label, "E12");  // the entry's own column
    const int before = Picture("picXYPlot1").sizeHint().width();
    Press("chkXYPlot1ColorCoding");  // its scale takes room
    QCOMPARE(Picture("picXYPlot1").sizeHint().width(), before + 70);
  }

  void theSameBoxSelectsTheSameRecordsAtAnySize() {
    Choose("odclXYPlot1(1)", 12);  // Kmax_Inc
    for (const QSize size : {QSize(1280, 800), QSize(1600, 1000), QSize(2560, 1600)}) {
      W().Window.resize(size);
      Settle();
      QWidget& picture = Picture("picXYPlot1");
      const auto at = [&](double x, double y) { return PlaceIn(picture, {360, 290}, {x, y}); };
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
    }
  }

  void theNetSelectsByItsKeysAndReadsOut() {
    QWidget& net = Picture("picStereo");
    const auto at = [&](double x, double y) { return PlaceIn(net, {360, 366}, QPointF(x, y)); };
    Drag(net, at(0, 0), at(359, 365), Qt::LeftButton);
    QCOMPARE(W().Selected().size(), Records().Count());
    Drag(net, at(140, 150), at(220, 230), Qt::LeftButton, Qt::ShiftModifier);
    const auto steep = W().Selected().size();
    QVERIFY(steep > 50);  // the foliation lies flat: Kmin at the centre
    Drag(net, at(140, 150), at(220, 230), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(W().Selected().size() < steep / 4);
    MoveMouse(net, at(180, 190));
    const QString inc = Look("lblStereoCursorPos(2)");
    QVERIFY2(inc.startsWith("Inc = ") && inc.mid(6).toDouble() > 85, qPrintable(inc));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&net, &leave);
    QCOMPARE(Look("lblStereoCursorPos(1) lblStereoCursorPos(2)"), "|");
  }

  void bandAndCrossLeaveNoTracesAndACrossSelectsNothing() {
    W().ClickRow(2);
    QWidget& plot = Picture("picXYPlot2");
    const QPoint from(80, 60), to(150, 110);
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    for (const auto& [button, keys] :
         {std::pair{Qt::MiddleButton, Qt::KeyboardModifiers()}, {Qt::LeftButton, both}}) {
      const QImage before = plot.grab().toImage();
      QTest::mousePress(&plot, button, keys, from);
      MoveMouse(plot, to, button);
      QVERIFY(plot.grab().toImage() != before);
      QTest::mouseRelease(&plot, button, keys, to);
      QCOMPARE(plot.grab().toImage(), before);
      Drag(Picture("picHisto"), from, to, Qt::LeftButton);
      QCOMPARE(W().Selected(), QList<int>{3});
    }
    QTest::mousePress(&plot, Qt::LeftButton, {}, from);
    MoveMouse(plot, to, Qt::LeftButton);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, from);  // it ends as a click
    QVERIFY(W().Selected().isEmpty());
  }

  void theDataTableSortsSelectsAndCopies() {
    OpenForm("mnuDataTable", "frmDataTable");
    Settle();
    RecordTable& table = *static_cast<frmDataTable&>(*form_).Table;
    QCOMPARE(table.model()->rowCount(), Records().Count());
    QCOMPARE(table.model()->columnCount(), 33);
    for (const bool upward : {true, false}) {
      const QHeaderView& header = *table.horizontalHeader();
      QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                        {header.sectionViewportPosition(13) + 8, 5});  // Kmax_Dec
      const double top = CellAt(table, 0, 13).toDouble();
      QVERIFY2(upward ? top < 10 : top > 350, qPrintable(QString::number(top)));
    }
    const QModelIndex third = table.model()->index(2, 0);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(third).center());
    const int id = third.data().toInt();
    QCOMPARE(W().Selected(), QList<int>{id});
    QCOMPARE(W().SelectedRows(), QList<int>{id});
    QTest::keyClick(form_, Qt::Key_C, Qt::ControlModifier);
    const QString copied = QGuiApplication::clipboard()->text();
    QVERIFY(copied.startsWith(QString("%1\t").arg(id)));
    QVERIFY(copied.count('\n') == 1 && copied.count('\t') == 32);
    W().ClickRow(4);  // and the other way round
    QCOMPARE(table.SelectedIds(), std::vector<int>{5});
    W().Key(Qt::Key_F6);
    QCOMPARE(CellAt(table, 0, 0), "1");  // a display brings back the store's order
    W().Run("mnuClose");
    Settle();
    QVERIFY(table.model()->rowCount() == 0 && !W().Program.XYDrawn[1]);
    Drag(W().The<QWidget>("picXYPlot1"), {10, 10}, {100, 90}, Qt::LeftButton);  // does no harm
    Press("cmdCLOSE");
    QVERIFY(!W().Shown<QWidget>("frmDataTable"));
  }
};

QTEST_MAIN(PlotsTest)
#include "plots_test.moc"
