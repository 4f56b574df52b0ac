#include <QCheckBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QScrollBar>
#include <QThread>
#include <QToolButton>
#include <QUrl>
#include <limits>

#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/plots/picture_widget.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class MainWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;
  TestWindow& W() { return *window_; }
  Session& S() { return W().Program.Session; }

  /// All controls that show the coordinate system, as one text: "GEO 23 mnuView(2)".
  QString ShownSystem() {
    QString text = W().The<QComboBox>("cboCoor(1)").currentText();
    for (int system = 1; system <= 4; ++system) {
      const QString item = QString("mnuView(%1)").arg(system);
      if (W().The<QAction>(QString("Toolbar1(%1)").arg(21 + system)).isChecked())
        text += QString(" %1").arg(21 + system);
      if (W().The<QAction>(item).isChecked()) text += " " + item;
    }
    return text;
  }

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
  void init() { window_.emplace(); }

  void startsInGeographicCoordinatesWithoutAFile() {
    QCOMPARE(W().Window.windowTitle(), "Velorix5");
    QCOMPARE(ShownSystem(), "GEO 23 mnuView(2)");
    QVERIFY(W().The<QAction>("mnuAnisoReIm(1)").isChecked());
    QVERIFY(W().The<QAction>("Toolbar1(27)").isChecked());
    QCOMPARE(W().The<QComboBox>("cboCoor(3)").currentText(), "North");
    QCOMPARE(W().Grid().model()->rowCount(), 0);
    QCOMPARE(W().Grid().model()->columnCount(), 25);
    W().Window.ShowStartTime(2.34f);
    QCOMPARE(W().The<QLabel>("picStat(2)").text(), " 2.3");
  }

  void openShowsTheFileEverywhere() {
    W().Open(W().WriteFile("site", 5));
    QCOMPARE(W().Specimens(), "site1 site2 site3 site4 site5");
    QVERIFY(W().Window.windowTitle().endsWith("site.ams]     (N = 5)"));
    QCOMPARE(Entries(W().The<QComboBox>("odclFoli")), "A B");
    QCOMPARE(W().The<QComboBox>("odclFoli").currentText(), "A");
    QCOMPARE(W().The<QComboBox>("odclLine").currentText(), "L");
    QCOMPARE(W().The<QListWidget>("lstFoli").item(0)->checkState(), Qt::Checked);
    QCOMPARE(W().The<QListWidget>("lstFoli").item(1)->checkState(), Qt::Unchecked);
    QCOMPARE(W().The<QLabel>("lblRecords").text(), "5 of 5 records in view, 0 selected");
  }

  void thePictureFollowsTheFileAndItsOptions() {
    const auto picture = [this] { return W().The<PictureWidget>("picStereo").grab().toImage(); };
    const QImage empty = picture();
    W().Open(W().WriteFile("site", 5));
    const QImage five = picture();
    QVERIFY(five != empty);
    W().The<QCheckBox>("chkK(1)").click();
    QVERIFY(!W().Program.Stereo.showAxis[1] && picture() != five && picture() != empty);
  }

  void everyExampleShowsSomethingInItsFolder() {
    const QDir folder(VELORIX_SOURCE_DIR "/examples");
    const QStringList files = folder.entryList({"*.ams"}, QDir::Files, QDir::Name);
    QVERIFY(files.size() >= 3);
    W().Open(folder.filePath(files.front()).toStdString());
    for (const QString& file : files) {
      if (file.contains("unoriented")) W().Key(Qt::Key_F5);  // no other system has it
      QVERIFY2(W().Window.windowTitle().contains(file), qPrintable(W().Window.windowTitle()));
      QVERIFY2(W().Grid().model()->rowCount() > 0, qPrintable(file));
      QVERIFY(!W().Cell(0, 14).isEmpty());
      W().Key(Qt::Key_F6);
      W().Key(Qt::Key_N, Qt::ControlModifier);
    }
    W().Press("Toolbar1(3)");
    QVERIFY(W().Window.windowTitle().contains(files[1]));
    for (int step = 0; step < 2; ++step) W().Key(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(W().Window.windowTitle().contains(files.back()));  // it goes round
    W().Key(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(W().Window.windowTitle(), "Velorix5");
    QCOMPARE(W().Grid().model()->rowCount(), 0);
    QVERIFY(W().Asked.Boxes.empty());
  }

  void keysMenuButtonsAndListsShowOneState() {
    W().Open(W().WriteFile("site", 4));
    const QStringList shown = {"SPEC 22 mnuView(1)", "GEO 23 mnuView(2)", "PALEO 24 mnuView(3)",
                               "TECTO 25 mnuView(4)"};
    for (int system : {3, 0, 2, 1, 1}) {  // the last repeats what is shown already
      W().Key(Qt::Key_F5 + system);
      QCOMPARE(ShownSystem(), shown[system]);
      QCOMPARE(S().CoorSys, SystemAt(system));
    }
    for (int system : {2, 1, 3, 3, 0}) {
      W().Press(QString("Toolbar1(%1)").arg(22 + system));
      QCOMPARE(ShownSystem(), shown[system]);
    }
    auto& list = W().The<QComboBox>("cboCoor(1)");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(ShownSystem(), shown[1]);
    QCOMPARE(S().Records[1].CoorLevel, Geographic);
    const QAction& inPhase = W().The<QAction>("mnuAnisoReIm(1)");
    W().Key(Qt::Key_F4);
    QCOMPARE(W().Specimens(), "site2 site4");
    QVERIFY(W().The<QAction>("Toolbar1(20)").isChecked() && !inPhase.isChecked());
    W().Press("Toolbar1(19)");
    QVERIFY(W().Grid().model()->rowCount() == 4 && inPhase.isChecked());
  }

  void theListsSetPlaneAxisAndCodes() {
    W().Open(W().WriteFile("site", 6));
    const struct {
      const char *list, *entry;
      std::function<bool()> set;
    } cases[] = {
        {"cboCoor(2)", "Vertical", [this] { return S().TectoPlane == PaleoPlane::Vertical; }},
        {"cboCoor(3)", "North-South", [this] { return S().TectoNorthSouth && !S().TectoEastWest; }},
        {"odclFoli", "B", [this] { return S().FoliCode == "B"; }},
    };
    for (const auto& c : cases) {
      auto& list = W().The<QComboBox>(c.list);
      QTest::keyClick(&list, Qt::Key_Down);
      QCOMPARE(list.currentText(), c.entry);
      QVERIFY2(c.set(), c.list);
    }
    QVERIFY(W().The<QAction>("Toolbar1(28)").isChecked());
    QTest::keyClick(&W().The<QComboBox>("cboCoor(1)"), Qt::Key_Down);
    QCOMPARE(W().Specimens(), "site3 site6");  // those with foliation "B"
    W().Press("Toolbar1(27)");                 // a button puts the lists back on the first code
    QCOMPARE(W().The<QComboBox>("odclFoli").currentText(), "A");
    QCOMPARE(W().The<QComboBox>("cboCoor(2)").currentText(), "Horizontal");
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
    W().ClickRow(4, Qt::ControlModifier);
    both({1, 6, 8});
    QHeaderView* header = W().Grid().horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {15, header->height() / 2});
    both({});
    W().ClickRow(1);
    W().Key(Qt::Key_Delete);
    QCOMPARE(W().Specimens(), "s1 s3 s4 s5 s6 s7 s8");
    W().ClickRow(1);  // the second row, the third record
    QCOMPARE(W().Selected(), QList<int>{3});
    W().Key(Qt::Key_Backspace, Qt::AltModifier);
    QCOMPARE(W().Grid().model()->rowCount(), 8);
  }

  void theGridKeepsItsPlaceAndItsLastRowInView() {
    W().Open(W().WriteFile("s", 300));
    W().Grid().verticalScrollBar()->setValue(120);
    W().Key(Qt::Key_F5);
    QCoreApplication::processEvents();
    QCOMPARE(W().Grid().rowAt(0), 120);
    W().Grid().scrollToBottom();
    std::vector<int> half;
    for (int i = 1; i <= 150; ++i) half.push_back(i);
    SelectRecords(W().Program, half);
    W().Key(Qt::Key_Delete);
    QCoreApplication::processEvents();
    const QRect last = W().Grid().visualRect(W().Grid().model()->index(149, 0));
    QVERIFY(W().Grid().viewport()->rect().intersects(last));
    QVERIFY(W().Grid().rowAt(0) > 100);
  }

  void framesOpenAndShutAndTheirButtonsTellTheState() {
    W().Press("cmdPairPlots");
    const struct {
      const char *button, *frame;
    } cases[] = {{"cmdStereoProperties", "fraStereoProperties"},
                 {"cmdHistoProperties", "fraHistoProperties"},
                 {"cmdXYPlot1", "fraXYPlot1"},
                 {"cmdXYPlot2", "fraXYPlot2"},
                 {"cmdPlot1Properties", "fraPlot1Properties"},
                 {"cmdPlot2Properties", "fraPlot2Properties"}};
    for (const auto& c : cases) {
      const auto& properties = W().The<QFrame>(c.frame);
      const auto picture = [&] {
        return W().The<QToolButton>(c.button).icon().pixmap(16).toImage();
      };
      const QImage open = picture();
      for (const bool visible : {false, true}) {
        W().Press(c.button);
        QVERIFY2(properties.isVisible() == visible && (picture() == open) == visible, c.frame);
      }
    }
  }

  void theListsOfColumnsTakeTheGridsHeadersAndColours() {
    const auto& histo = W().The<QComboBox>("odclHisto");
    QCOMPARE(histo.itemText(0), "Kmean");
    QCOMPARE(histo.count(), 21);
    const auto& xy = W().The<QComboBox>("odclXYPlot2(3)");
    QCOMPARE(xy.itemText(0), "Field");
    QCOMPARE(xy.count(), 23);
    QVERIFY(!xy.isEnabled());
    W().The<QCheckBox>("chkXYPlot2ColorCoding").setChecked(true);
    QVERIFY(xy.isEnabled());
    QCOMPARE(xy.itemData(11, Qt::BackgroundRole).value<QColor>(), QColor(0xFF, 0xC0, 0xC0));
    S().Settings.FacName[1] = "k1/k3";
    W().Window.ShowGridHeader();
    QCOMPARE(W().The<QComboBox>("odclXYPlot1(1)").itemText(3), "k1/k3");
    QCOMPARE(W().Grid().model()->headerData(5, Qt::Horizontal).toString(), "k1/k3");
  }

  void droppedFilesOpenLikeAMultipleOpen() {
    const auto url = [](const std::string& path) {
      return QUrl::fromLocalFile(QString::fromStdString(path));
    };
    Drop({url(W().WriteFile("a", 2)), url(W().WriteFile("b", 1))});
    QCOMPARE(W().Specimens(), "a1 a2 b1");
    QCOMPARE(S().OpenFiles.size(), 2u);
    Drop({QUrl("http://example.org/x.ams")});
    Drop({url(W().Path("picture.png"))});
    QCOMPARE(W().Specimens(), "a1 a2 b1");
    QCOMPARE(W().Asked.Boxes.size(), 1u);
  }

  void savingTheSelectedIsNotTheGridsSelectAll() {
    W().Open(W().WriteFile("a", 3));
    W().ClickRow(1);
    W().Asked.Files = {FileAnswer{W().Path("one.ams"), 1}};
    W().Key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(QFileInfo(W().Folder.filePath("one.ams")).size(), 640);
    QCOMPARE(W().Selected(), QList<int>{2});
  }

  void cellsWithoutANumberAreEmpty() {
    RecordArray records;
    records.Grow(1);
    SpecimenRecord& r = records[1];
    r.Active = r.HasCoor[2] = true;
    r.Tensor[1] = std::numeric_limits<float>::quiet_NaN();
    r.Field = std::numeric_limits<float>::infinity();
    r.Frequency = 976;
    ReplaceStore(S(), records);
    DisplayData(W().Program, true);
    QCOMPARE(W().Cell(0, 3), "");
    QCOMPARE(W().Cell(0, 4), "976");
    QCOMPARE(W().Cell(0, 14), "");
    QVERIFY(W().Asked.Boxes.empty());
  }

  void aFullStoreIsShownAndSelected() {
    W().Open(W().WriteFile("full", 32767));
    QCOMPARE(W().Cell(32766, 1), "32767");
    W().ClickRow(2);
    W().Key(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(W().Selected().size(), 32766);
  }

  void theBusyCursorShowsOnlyInLongWork() {
    const auto cursorAfter = [this](int milliseconds) {
      bool shown = false;
      Work(W().Program, [&] {
        QThread::msleep(milliseconds);
        RefreshViews(W().Program);
        shown = QGuiApplication::overrideCursor() != nullptr;
      });
      return shown;
    };
    QVERIFY(!cursorAfter(0));
    QVERIFY(cursorAfter(310));
    QVERIFY(!QGuiApplication::overrideCursor());
  }

  void exitAsksFirst() {
    const std::string log = W().Path("log");
    W().Program.Log.Open(log);
    W().Asked.Buttons = {1, 0};
    W().Key(Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(W().Asked.Boxes.back(), "Velorix5|EXIT PROGRAM?|&Yes|&No");
    QVERIFY(W().Window.isVisible());
    W().Key(Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!W().Window.isVisible());
    QFile diary(QString::fromStdString(log));
    QVERIFY(diary.open(QIODevice::ReadOnly));
    QVERIFY(diary.readAll().endsWith(">> frmVelorix_Terminate\n"));
  }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
