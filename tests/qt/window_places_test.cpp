#include <QFile>
#include <QScrollBar>

#include "platform/qt/data_table_window.h"
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
