// The main window, driven by the names of its controls.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QListWidget>
#include <QMimeData>
#include <QScrollBar>
#include <QThread>
#include <QToolButton>
#include <QUrl>

#include "platform/qt/parts/busy_cursor.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class MainWindowTest : public WindowTest {
  Q_OBJECT

  /// All controls that show the coordinate system, as one text: "GEO 23 mnuView(2)".
  QString ShownSystem() {
    QString text = Look("cboCoor(1)");
    for (int system = 1; system <= 4; ++system)
      for (const QString& name :
           {QString("Toolbar1(%1)").arg(21 + system), QString("mnuView(%1)").arg(system)})
        if (W().The<QAction>(name).isChecked()) text += " " + name;
    return text.remove("Toolbar1");
  }
  QString Title() { return W().Window.windowTitle(); }
  int Rows() { return W().Grid().model()->rowCount(); }

  void Drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&W().Window, &enter);
    if (!enter.isAccepted()) return;
    QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&W().Window, &drop);
    QCoreApplication::processEvents();
  }

 private slots:
  void init() {
    window_.emplace();
    form_ = &W().Window;
  }

  void startsInGeographicCoordinatesWithoutAFile() {
    W().Window.ShowStartTime(2.34f);
    QCOMPARE(Title() + " " + ShownSystem() + " " + Look("cboCoor(3) picStat(2)"),
             "Velorix5 GEO (23) mnuView(2) North| 2.3");
    QVERIFY(W().The<QAction>("mnuAnisoReIm(1)").isChecked());
    QVERIFY(W().The<QAction>("Toolbar1(27)").isChecked());
    QVERIFY(Rows() == 0 && W().Grid().model()->columnCount() == 25);
  }

  void openShowsTheFileEverywhere() {
    const auto picture = [this] { return The<QWidget>("picStereo").grab().toImage(); };
    const QImage empty = picture();
    W().Open(W().WriteFile("site", 5));
    QCOMPARE(W().Specimens(), "site1 site2 site3 site4 site5");
    QVERIFY(Title().endsWith("site.ams]     (N = 5)"));
    QCOMPARE(Look("odclFoli odclLine lblRecords optStereoColorCoding(0)"),
             "A|L|5 of 5 records in view, 0 selected|(Per axis+)");
    auto& codes = The<QListWidget>("lstFoli");
    QVERIFY(codes.item(0)->checkState() && !codes.item(1)->checkState());
    codes.item(1)->setCheckState(Qt::Checked);
    QVERIFY(W().Program.Lists.foliationsShown.Entries[1].Selected);
    const QImage five = picture();
    Press("chkK(1)");
    QVERIFY(five != empty && !W().Program.Plots.Stereo.showAxis[1] && picture() != five);
    Press("chkStereoColorCoding");
    QCOMPARE(Look("optStereoColorCoding(0)"), "Per axis+");
  }

  void keysButtonsAndListsShowOneState() {
    W().Open(W().WriteFile("site", 6));
    const QStringList shown = {"SPEC (22) mnuView(1)", "GEO (23) mnuView(2)",
                               "PALEO (24) mnuView(3)", "TECTO (25) mnuView(4)"};
    for (const bool key : {true, false})
      for (const int system : {3, 0, 2, 1}) {
        key ? W().Key(Qt::Key_F5 + system) : Press(QString("Toolbar1(%1)").arg(22 + system));
        QCOMPARE(ShownSystem(), shown[system]);
        QCOMPARE(S().CoorSys, SystemAt(system));
      }
    const auto& inPhase = W().The<QAction>("mnuAnisoReIm(1)");
    W().Key(Qt::Key_F4);
    QCOMPARE(W().Specimens(), "site2 site4 site6");
    QVERIFY(W().The<QAction>("Toolbar1(20)").isChecked() && !inPhase.isChecked());
    Press("Toolbar1(19)");
    QVERIFY(Rows() == 6 && inPhase.isChecked());
    for (const char* list : {"cboCoor(1)", "cboCoor(2)", "cboCoor(3)", "odclFoli"})
      QTest::keyClick(&The<QComboBox>(list), Qt::Key_Down);
    QCOMPARE(Look("cboCoor(1) cboCoor(2) cboCoor(3) odclFoli"), "PALEO|Vertical|North-South|B");
    QVERIFY(S().TectoPlane == PaleoPlane::Vertical && S().FoliCode == "B");
    QVERIFY(S().TectoNorthSouth && !S().TectoEastWest);
    QVERIFY(W().The<QAction>("Toolbar1(28)").isChecked());
    QCOMPARE(W().Specimens(), "site3 site6");  // those with foliation "B"
    Press("Toolbar1(27)");                     // a button puts the lists back on the first code
    QCOMPARE(Look("odclFoli cboCoor(2)"), "A|Horizontal");
  }

  void rowsAndRecordsAreSelectedTogether() {
    W().Open(W().WriteFile("s", 8));
    const auto both = [this](const QList<int>& rows) {
      QCOMPARE(W().Selected(), rows);
      QCOMPARE(W().SelectedRows(), rows);
    };
    W().ClickRow(1);
    W().ClickRow(3, Qt::ShiftModifier);
    W().ClickRow(6, Qt::ControlModifier);
    both({2, 3, 4, 7});
    W().Key(Qt::Key_Insert, Qt::ControlModifier);
    both({1, 5, 6, 8});
    QHeaderView* header = W().Grid().horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {15, header->height() / 2});
    both({});
    W().ClickRow(1);
    W().Asked.Files = {FileAnswer{W().Path("one.ams"), 1}};
    W().Key(Qt::Key_A, Qt::ControlModifier);  // saves it, and is not the grid's "select all"
    QCOMPARE(QFileInfo(W().Folder.filePath("one.ams")).size(), 640);
    both({2});
    QVERIFY(Look("lblRecords").endsWith("1 selected"));
    W().Key(Qt::Key_Delete);
    W().ClickRow(1);  // the second row, the third record
    QCOMPARE(W().Selected(), QList<int>{3});
    W().Key(Qt::Key_Backspace, Qt::AltModifier);
    QCOMPARE(Rows(), 8);
  }

  void theGridKeepsItsPlaceAndItsLastRowInView() {
    W().Open(W().WriteFile("s", RecordArray::Limit));
    W().Grid().verticalScrollBar()->setValue(120);
    W().Key(Qt::Key_F5);
    QCoreApplication::processEvents();
    QCOMPARE(W().Grid().rowAt(0), 120);
    W().ClickRow(121);
    W().Key(Qt::Key_Insert, Qt::ControlModifier);
    W().Grid().scrollToBottom();
    W().Key(Qt::Key_Delete);
    QCoreApplication::processEvents();
    QVERIFY(Rows() == 1 && W().Grid().rowAt(0) == 0);
  }

  void framesOpenAndShutAndTheirButtonsShowIt() {
    Press("cmdPairPlots");
    for (const char* name : {"cmdStereoProperties", "cmdHistoProperties", "cmdXYPlot1",
                             "cmdXYPlot2", "cmdPlot1Properties", "cmdPlot2Properties"}) {
      const auto& icon = The<QToolButton>(name);
      const auto& frame = The<QWidget>(QString(name).replace("cmd", "fra"));
      const QImage open = icon.icon().pixmap(16).toImage();
      for (const bool visible : {false, true}) {
        Press(name);
        QVERIFY2(frame.isVisible() == visible, name);
        QVERIFY2((icon.icon().pixmap(16).toImage() == open) == visible, name);
      }
    }
  }

  void theListsOfColumnsTakeTheGridsHeadersAndColours() {
    const auto& histo = The<QComboBox>("odclHisto");
    const auto& xy = The<QComboBox>("odclXYPlot2(3)");
    QVERIFY(histo.itemText(0) == "Kmean" && histo.count() == 21);
    QVERIFY(xy.itemText(0) == "Field" && xy.count() == 23 && !xy.isEnabled());
    Press("chkXYPlot2ColorCoding");
    QVERIFY(xy.isEnabled());
    QCOMPARE(xy.itemData(11, Qt::BackgroundRole).value<QColor>(), QColor(0xFFC0C0));
    S().Settings.FacName[1] = "k1/k3";
    W().Window.ShowGridHeader();
    QVERIFY(xy.itemText(3) == "k1/k3" && HeaderTexts(W().Grid()).contains("|k1/k3|"));
  }

  void droppedFilesOpenLikeAMultipleOpen() {
    const auto url = [](const std::string& path) {
      return QUrl::fromLocalFile(QString::fromStdString(path));
    };
    Drop({url(W().WriteFile("a", 2)), url(W().WriteFile("b", 1))});
    Drop({QUrl("http://example.org/x.ams")});
    Drop({url(W().Path("picture.png"))});
    QCOMPARE(W().Specimens(), "a1 a2 b1");
    QVERIFY(S().OpenFiles.size() == 2 && Boxes().size() == 1);
  }

  void theBusyCursorShowsOnlyInLongWork() {
    for (const int milliseconds : {0, 310}) {
      Work(W().Program, [&] {
        QThread::msleep(milliseconds);
        RefreshViews(W().Program);
        QCOMPARE(QGuiApplication::overrideCursor() != nullptr, milliseconds > 0);
      });
      QVERIFY(!QGuiApplication::overrideCursor());
    }
  }

  void exitAsksFirst() {
    const std::string log = W().Path("log");
    W().Program.Log.Open(log);
    W().Asked.Buttons = {1, 0};
    for (const bool stays : {true, false}) {
      W().Key(Qt::Key_Q, Qt::ControlModifier);
      QCOMPARE(Boxes().back(), "Velorix5|EXIT PROGRAM?|&Yes|&No");
      QCOMPARE(W().Window.isVisible(), stays);
    }
    QFile diary(QString::fromStdString(log));
    QVERIFY(diary.open(QIODevice::ReadOnly));
    QVERIFY(diary.readAll().endsWith(">> frmVelorix_Terminate\n"));
  }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
