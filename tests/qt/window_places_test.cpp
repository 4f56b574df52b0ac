#include <QFile>
#include <QHeaderView>
#include <QScrollBar>
#include <QToolButton>

#include "platform/qt/windows/data_table_window.h"
#include "stats/group_statistics.h"
#include "tests/qt/test_window.h"

using namespace velorix;

/// Where windows stand, and what a failed display leaves in them.
class WindowPlacesTest : public QObject {
  Q_OBJECT

 private slots:
  void windowsBesideTheMainOneStayAboveItAndCanBeEnlarged() {
    TestWindow w;
    for (const auto& [command, name] :
         {std::pair{"mnuDataTable", "frmDataTable"},
          std::pair{"mnuAnalysis(1)", "frmGroupStatistics"},
          std::pair{"mnuAnalysis(3)", "frmContour"}, std::pair{"mnuFoliLine", "frmFoliLine"}}) {
      w.The<QAction>(command).trigger();
      const QWidget& window = w.The<QWidget>(name);
      QCOMPARE(window.windowType(), Qt::Dialog);
      QVERIFY(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    }
  }

  void theDataTableHasItsTitleWithinTheScreen() {
    TestWindow w;
    w.Window.move(0, 0);
    w.The<QAction>("mnuDataTable").trigger();
    const QWidget& table = w.The<frmDataTable>("frmDataTable");
    QVERIFY(table.frameGeometry().top() >= w.Window.frameGeometry().top());
    QVERIFY(table.frameGeometry().left() > w.Window.frameGeometry().left());
  }

  void theGridWidensAndShrinks() {
    TestWindow w;
    w.Window.resize(1900, 900);
    auto& frame = w.The<QFrame>("fraAnisoView");
    auto& button = w.The<QToolButton>("cmdExpand");
    auto& histogram = w.The<QWidget>("picHisto");
    QCOMPARE(frame.width(), 177);  // 2655 twips
    QCOMPARE(button.toolTip(), "Expand ->");
    QCoreApplication::processEvents();
    const int beside = histogram.width();
    w.Press("cmdExpand");
    QCOMPARE(frame.width(), 993);  // 14895 twips
    QCOMPARE(button.toolTip(), "<- Shrink");
    QVERIFY(histogram.isVisible());  // there is room for both
    for (const int width : {1450, 1900}) {
      w.Window.resize(width, 900);
      QTRY_COMPARE(histogram.isVisible(), width == 1900);
      QVERIFY(w.The<QWidget>("fraStereoProperties").isVisible());
      QTRY_COMPARE(frame.width(), 993);
    }
    w.Press("cmdExpand");
    QCOMPARE(frame.width(), 177);
    QCOMPARE(histogram.width(), beside);

    const auto& options = w.The<QWidget>("fraStereoProperties");
    w.Window.resize(1280, 900);
    for (const bool chosen : {true, false}) {
      w.Press("cmdExpand");
      QCOMPARE(frame.width(), 993);
      QVERIFY(!histogram.isVisible() && !options.isVisible());
      w.Press("cmdExpand");
      QCOMPARE(frame.width(), 177);
      QVERIFY(options.isVisible());
      QCOMPARE(histogram.isVisible(), chosen);  // as the user left it
      w.Press("cmdColumnPlots");
    }
  }

  void numberAndNameStayInSight_data() {
    QTest::addColumn<QString>("button");
    QTest::newRow("wide grid") << "cmdExpand";
    QTest::newRow("narrow grid") << "";  // which has room for the number alone
    QTest::newRow("data table") << "Toolbar1(17)";
  }
  void numberAndNameStayInSight() {
    QFETCH(const QString, button);
    const bool isTable = button == "Toolbar1(17)";
    TestWindow w;
    w.Open(w.WriteFile("site", 60));
    if (!button.isEmpty()) w.Press(button);
    QTableView& table =
        isTable ? In<QTableView>(w.The<QWidget>("frmDataTable"), "scgAnisoView") : w.Grid();
    table.verticalScrollBar()->setValue(20);
    QScrollBar& across = *table.horizontalScrollBar();
    across.setValue(across.maximum());
    QVERIFY(across.maximum() > 300);

    // What a user sees at the left edge, from where the mouse finds it.
    const auto at = [&table](int x, int y) {
      return qobject_cast<QTableView*>(
          table.childAt(table.viewport()->mapTo(&table, QPoint(x, y)))->parentWidget());
    };
    const int line = table.rowHeight(0), wide = table.columnWidth(0);
    QTableView* seen = at(5, line / 2);
    QVERIFY(seen && seen != &table);
    QCOMPARE(at(wide + 5, line / 2) == seen, !button.isEmpty());
    const auto textAt = [&](int x) { return seen->indexAt(QPoint(x, line / 2)).data().toString(); };
    QCOMPARE(textAt(5) + " " + textAt(wide + 5), button.isEmpty() ? "21 " : "21 site21");
    QCOMPARE(seen->rowHeight(0), line);
    QCOMPARE(seen->horizontalHeader()->height(), table.horizontalHeader()->height());

    // It is of the table: a click selects and leaves the place, one on the header sorts or clears.
    QTest::mouseClick(seen->viewport(), Qt::LeftButton, {}, QPoint(5, line / 2));
    QCOMPARE(w.Selected(), QList<int>{21});
    QCOMPARE(across.value(), across.maximum());
    QTest::keyClick(&table, Qt::Key_Down);
    QCOMPARE(w.Selected(), QList<int>{22});
    QCOMPARE(across.value(), across.maximum());
    for (const char* first : {"21", "40"}) {  // the header sorts upward, then downward
      QTest::mouseClick(seen->horizontalHeader()->viewport(), Qt::LeftButton, {}, {8, 8});
      QVERIFY(w.Selected().isEmpty());
      QCOMPARE(textAt(5), isTable ? first : "21");
      QCOMPARE(seen->horizontalHeader()->isSortIndicatorShown(), isTable);
    }
    w.Key(Qt::Key_F5);  // the order of the store again
    QCOMPARE(textAt(5), "21");
    QVERIFY(!seen->horizontalHeader()->isSortIndicatorShown());
    across.setValue(0);
    QVERIFY(at(5, line / 2) == &table);
  }

  void theNarrowGridShowsTheNames() {
    TestWindow w;
    w.Open(w.WriteFile("site", 5));
    w.Press("cmdExpand");
    w.Grid().horizontalScrollBar()->setValue(w.Grid().horizontalScrollBar()->maximum());
    w.Press("cmdExpand");
    QCOMPARE(w.Grid().horizontalScrollBar()->value(), 0);
  }

  void noMeanOfTheFileBeforeStandsBesideOneThatCannotBeShown() {
    TestWindow w;
    w.Open(w.WriteFile("site", 5));
    QVERIFY(ShowsMean(w.Program.GroupStats));
    QFile picture(w.Folder.filePath("picture.ams"));  // no AMS file, but as long as four records
    QVERIFY(picture.open(QIODevice::WriteOnly));
    picture.write(QByteArray(4 * 640, '\x7f'));
    picture.close();
    w.Open(picture.fileName().toStdString());
    QCOMPARE(w.Program.Session.RecordCount(), 4);
    QVERIFY(!w.Asked.Boxes.empty());
    QVERIFY(!ShowsMean(w.Program.GroupStats));
  }
};

QTEST_MAIN(WindowPlacesTest)
#include "window_places_test.moc"
