// The histogram, the XY plots and the data table, with the mouse on every picture.

#include <QClipboard>
#include <QHeaderView>
#include <QStatusBar>

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
    QCOMPARE(W().Program.Drawn.XYPlot[2]->y.label, "E12");  // the entry's own column
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
            W().Program.Drawn.XYPlot[1]->symbols[static_cast<std::size_t>(r.RecordNo - 1)];
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

  void theSymbolUnderTheMouseIsNamedInTipAndStatusLine() {
    QWidget &plot = Picture("picXYPlot1"), &net = Picture("picStereo"),
            &histo = Picture("picHisto");
    QStatusBar& bar = *W().Window.statusBar();
    bar.clearMessage();
    const QString tips = plot.toolTip() + net.toolTip() + histo.toolTip();
    Records()[1].Selected = true;  // so that it lies on top
    Records()[1].Name = "<b>7";
    W().Window.Redraw(PlotKind::XYPlot1);
    Settle();
    const auto [x, y] = W().Program.Drawn.XYPlot[1]->symbols[0];
    MoveMouse(plot, PlaceIn(plot, {360, 290}, {x, y}));
    QVERIFY2(bar.currentMessage().startsWith("<b>7, Kmean "), qPrintable(bar.currentMessage()));
    QVERIFY(plot.toolTip().contains("&lt;b&gt;7, Kmean ") && plot.toolTip().contains(", P 1."));
    MoveMouse(plot, {5, 5});
    QCOMPARE(bar.currentMessage(), "");
    bar.showMessage("not written");  // a message of the program stays
    const auto& [foot, top] =
        std::pair(W().Program.Drawn.Histogram[0].foot, W().Program.Drawn.Histogram[0].top);
    MoveMouse(histo, PlaceIn(histo, {360, 290}, {(foot.x + top.x) / 2, (foot.y + top.y) / 2}));
    QVERIFY2(histo.toolTip().startsWith("Kmean ") && histo.toolTip().contains(" specimen"),
             qPrintable(histo.toolTip()));
    QCOMPARE(bar.currentMessage(), "not written");
    MoveMouse(net, PlaceIn(net, {360, 366}, {20, 20}));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&histo, &leave);
    QCOMPARE(plot.toolTip() + net.toolTip() + histo.toolTip(), tips);
    const SpecimenRecord& r = Records()[1];
    const double radius = 155 * std::sqrt(1 - std::sin(r.Inc[3] / 57.29578));
    MoveMouse(net, PlaceIn(net, {360, 366},
                           {180 + radius * std::sin(r.Dec[3] / 57.29578),
                            190 - radius * std::cos(r.Dec[3] / 57.29578)}));
    QVERIFY2(net.toolTip().contains(", K"), qPrintable(net.toolTip()));
  }

  void theWheelEnlargesRoundTheMouseAndAllComesBack() {
    QWidget& net = Picture("picStereo");
    const auto grabbed = [&] { return net.grab().toImage(); };
    const auto readOut = [&] { return Look("lblStereoCursorPos(1) lblStereoCursorPos(2)"); };
    auto& whole = In<QAction>(net, "mnuWholePlot");
    QVERIFY(net.actions().contains(&whole) && !whole.isEnabled());
    TurnWheel(net, {50, 50}, -3);  // never smaller than whole
    QVERIFY(!whole.isEnabled());
    const QImage first = grabbed();
    const auto at = [&](double x, double y) { return PlaceIn(net, {360, 366}, {x, y}); };
    const QPoint mouse = at(185, 200);
    MoveMouse(net, mouse);
    const QString read = readOut();
    TurnWheel(net, mouse, 7);  // 1.25 to the 7th power is 4.77
    QCOMPARE(readOut(), read);
    QVERIFY(whole.isEnabled() && grabbed() != first);

    // What lies 20 units beside the mouse in the plane is 4.77 times as far on the screen.
    const auto enlarged = [&](double x, double y) {
      return mouse + (4.7684 * QPointF(at(x, y) - mouse)).toPoint();
    };
    Drag(net, enlarged(165, 180), enlarged(195, 205), Qt::LeftButton);
    const QList<int> selected = W().Selected();
    QVERIFY(selected.size() > 3 && selected.size() < Records().Count());
    Key(Qt::Key_0, Qt::ControlModifier);
    QVERIFY(!whole.isEnabled());
    Drag(net, at(165, 180), at(195, 205), Qt::LeftButton);
    QVERIFY(std::abs(W().Selected().size() - selected.size()) <= 3);  // a pixel at the box's edges

    Drag(net, {1, 1}, {1, 1}, Qt::LeftButton);  // clears the selection
    QCOMPARE(grabbed(), first);
    TurnWheel(net, mouse, 100);
    const QPoint beside = mouse + QPoint(20, 0);
    MoveMouse(net, beside);
    const QString readBeside = readOut();
    TurnWheel(net, beside, 1, Qt::ShiftModifier);  // moves it
    QVERIFY(readOut() != readBeside);
    TurnWheel(net, beside, -1, Qt::ShiftModifier);
    QCOMPARE(readOut(), readBeside);
    W().Window.resize(1400, 900);
    W().Open(W().WriteFile("site", 3));
    Settle();
    QVERIFY(whole.isEnabled());  // neither a size nor a file takes it back
    whole.trigger();
    QVERIFY(!whole.isEnabled());
    MoveMouse(net, PlaceIn(net, {360, 366}, {180, 190}));
    QVERIFY(Look("lblStereoCursorPos(2)").mid(6).toDouble() > 89);
  }

  void aLassoSelectsWhereABoxDoes() {
    auto& item = The<QAction>("mnuLasso");
    QVERIFY(!item.isChecked());
    QWidget &plot = Picture("picXYPlot1"), &histo = Picture("picHisto");
    const auto draw = [&](QWidget& picture, const QList<QPointF>& places) {
      const auto at = [&](const QPointF& p) { return PlaceIn(picture, {360, 290}, p); };
      QTest::mousePress(&picture, Qt::LeftButton, {}, at(places[0]));
      for (const QPointF& place : places) MoveMouse(picture, at(place), Qt::LeftButton);
      const QImage drawn = picture.grab().toImage();
      QTest::mouseRelease(&picture, Qt::LeftButton, {}, at(places.last()));
      return drawn != picture.grab().toImage();
    };
    const QList<QPointF> corner = {{59, 246}, {59, 100}, {200, 246}};
    draw(plot, corner);  // a box from the first place to the last has no height
    QVERIFY(W().Selected().isEmpty());
    item.trigger();
    QVERIFY(item.isChecked());
    QVERIFY(draw(plot, corner));
    QVERIFY(!W().Selected().isEmpty());
    for (const SpecimenRecord& r : Records()) {  // give or take a pixel at the line
      const auto [x, y] =
          W().Program.Drawn.XYPlot[1]->symbols[static_cast<std::size_t>(r.RecordNo - 1)];
      const double beyond = (x - 59) / 141 + (246 - y) / 146 - 1;
      if (std::abs(beyond) > 0.03) QCOMPARE(r.Selected, beyond < 0);
    }
    draw(histo, {{60, 10}, {345, 10}, {345, 280}, {60, 280}});
    QCOMPARE(W().Selected().size(), Records().Count());
    draw(histo, {{100, 100}, {100, 100}});  // a click does nothing there
    QCOMPARE(W().Selected().size(), Records().Count());
    draw(plot, {{10, 10}, {12, 12}, {14, 14}});  // and clears here
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
    QVERIFY(table.model()->rowCount() == 0 && !W().Program.Drawn.XYPlot[1]);
    Drag(W().The<QWidget>("picXYPlot1"), {10, 10}, {100, 90}, Qt::LeftButton);  // does no harm
    Press("cmdCLOSE");
    QVERIFY(!W().Shown<QWidget>("frmDataTable"));
  }
};

QTEST_MAIN(PlotsTest)
#include "plots_test.moc"
