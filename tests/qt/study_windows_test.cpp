// The windows that compare and untilt the groups, driven by the names of their controls.

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTableWidget>

#include "platform/qt/output/page_output.h"
#include "platform/qt/parts/widgets.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class StudyWindowsTest : public WindowTest {
  Q_OBJECT

  QPointer<QWidget> groups_;

  bool IsReady(const QWidget& form) {
    return QTest::qWaitFor([&form] { return In<QPushButton>(form, "cmdCancel").isHidden(); },
                           60'000);
  }
  void StartGrouping(const QString& characters) {
    auto& ways = In<QComboBox>(*groups_, "cboGroupBy");
    ways.setCurrentIndex(6);
    emit ways.activated(6);
    auto& line = In<QLineEdit>(*groups_, "txtGroupBy");
    line.setText(characters);
    emit line.editingFinished();
  }
  void GroupBy(const QString& characters) {
    StartGrouping(characters);
    QVERIFY(IsReady(*groups_));
  }
  void SelectRows(int from, int to) {
    auto& table = In<QTableWidget>(*groups_, "grdGroups");
    table.clearSelection();
    table.setRangeSelected({from, 0, to, table.columnCount() - 1}, true);
  }
  /// Opens the window of a button; it is `form_` then.
  bool OpenBy(const QString& button, const QString& name) {
    velorix::Press(*groups_, button);
    form_ = W().Shown<QWidget>(name);
    return form_ && IsReady(*form_);
  }
  QTableView& Table() { return The<QTableView>("grdComparison"); }
  QString PairsShown() {
    const QStringList a = ColumnText(Table(), 0).split(' '), b = ColumnText(Table(), 1).split(' ');
    QStringList pairs;
    for (int i = 0; i < a.size(); ++i) pairs += a[i] + "-" + b.value(i);
    return pairs.join(' ');
  }
  QString Status() { return W().Window.statusBar()->currentMessage(); }
  QString File(const char* name) {
    QFile file(ToQString(W().Path(name)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  }
  void Choose(int foliation) {
    auto& list = The<QComboBox>("cboFoliation");
    list.setCurrentIndex(foliation);
    emit list.activated(foliation);
    QVERIFY(IsReady(*form_));
  }

 private slots:
  void init() {
    window_.emplace();
    W().Open(W().WriteFile("s", 12));  // s1 to s12
    OpenForm("mnuGroups", "frmGroups");
    groups_ = form_;
    GroupBy("2");  // s1 with four records, s2 to s9 with one
  }

  void thePairsOfTheRowsSelectedAreComparedAndFollowTheView() {
    SelectRows(0, 0);
    QVERIFY(!OpenBy("cmdCompare", "frmComparison"));
    SelectRows(8, 9);  // a group and the row of all
    QVERIFY(!OpenBy("cmdCompare", "frmComparison"));
    QCOMPARE(Status(), "Select two or more groups.");
    SelectRows(0, 2);
    QVERIFY(OpenBy("cmdCompare", "frmComparison"));
    QCOMPARE(PairsShown(), "s1-s2 s1-s3 s2-s3");
    QVERIFY(Look("lblComparisonOf").startsWith("s.ams, in-phase, geographic, N = 6, 3 groups."));
    QCOMPARE(Look("lblProgress"), "3 pairs");
    // Records that differ by 1 degree of azimuth alone, about a dipping axis.
    const QString angle = CellAt(Table(), 2, 2);
    QVERIFY(angle.toDouble() > 0.5 && angle.toDouble() < 1.5);
    QCOMPARE(CellAt(Table(), 2, 4), "");  // no bootstrap of one record

    Table().sortByColumn(2, Qt::DescendingOrder);
    QCOMPARE(PairsShown(), "s1-s2 s1-s3 s2-s3");
    Table().sortByColumn(1, Qt::DescendingOrder);
    QCOMPARE(PairsShown(), "s1-s3 s2-s3 s1-s2");
    Press("cmdCopy");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QCOMPARE(lines.size(), 7);
    QVERIFY(lines[1].contains("not corrected") && lines[3].startsWith("s1\ts3\t"));
    W().Asked.Files.push_back(FileAnswer{W().Path("c.csv"), 1});
    Press("cmdExport");
    QVERIFY(File("c.csv").contains("\r\ns1,s3,"));

    SelectRecords(W().Program, {3});
    W().Run("mnuSelection(2)");  // s3 is out of view
    QVERIFY(IsReady(*form_));
    QCOMPARE(PairsShown(), "s1-s2");
    QVERIFY(IsReady(*groups_));
    SelectRows(1, 7);  // of those left, in the same window
    QVERIFY(OpenBy("cmdCompare", "frmComparison"));
    QCOMPARE(Look("lblProgress"), "21 pairs");
    W().Run("mnuClose");
    QCOMPARE(Look("lblComparisonOf lblProgress"),
             "|Fewer than two of the groups chosen are in view.");
    QCOMPARE(Table().model()->rowCount(), 0);
  }

  void aLongComparisonIsCancelledAndAClosedWindowStopsIt() {
    W().Program.Bootstrap = {BootMethod::Simple, MostReplicates, 1};
    for (int i = 1; i <= 12; ++i) S().Records[i].Name = "ab" + std::to_string(i % 6);
    GroupBy("3");  // six groups of two
    SelectRows(0, 5);
    velorix::Press(*groups_, "cmdCompare");
    form_ = W().Shown<QWidget>("frmComparison");
    Press("cmdCancel");
    QVERIFY(IsReady(*form_));
    QVERIFY(Look("lblProgress").startsWith("Cancelled: ") &&
            Look("lblProgress").endsWith(" of 15 pairs"));
    velorix::Press(*groups_, "cmdCompare");
    W().Run("mnuGroups");
    QVERIFY(!W().Shown<QWidget>("frmComparison"));
  }

  void theGroupsAreUntiltedByTheFoliationChosen() {
    GivePictures(W().Program.Host, &W().Window);
    for (SpecimenRecord& r : S().Records) {  // all alike as found, on beds that dip all ways
      r.OrientAz = 0;
      r.FoliAz[1] = static_cast<float>(50 * r.RecordNo % 360);
    }
    velorix::Press(*groups_, "cmdUntilt");
    form_ = W().Shown<QWidget>("frmUntilting");
    QCOMPARE(Look("lblUntilting(1,1) lblUntilting(2,6)"), "|");  // while it is computed
    QVERIFY(IsReady(*form_));
    QCOMPARE(Entries(The<QComboBox>("cboFoliation")), "A B");
    QCOMPARE(Look("lblUntilting(1,0) lblUntilting(1,1) lblUntilting(1,2) lblUntilting(1,6)"),
             "Kmax|0 %|0 to 0 %|younger");
    QCOMPARE(Look("lblUntilted"),
             "6 groups, 8 records; 4 records left out. 1000 resamplings, seed 19991231.\n"
             "Groups left out: \"s3\", \"s6\", \"s9\" (no record with this foliation and an "
             "orientation).");
    The<QLineEdit>("txtSeed").setFocus();
    Key(Qt::Key_7);
    Key(Qt::Key_Return);
    QVERIFY(IsReady(*form_));
    QVERIFY(Look("lblUntilted").contains("seed 7."));
    Press("cmdCopy");
    const QString copied = QApplication::clipboard()->text();
    QVERIFY(copied.startsWith("s.ams, in-phase, geographic, N = 12, 9 groups") &&
            copied.contains("\nKmin\t0 %\t0 to 0 %\t1.0000\t"));
    QCOMPARE(copied.split('\n').size(), 7 + 131 + 1);
    W().Asked.Files.push_back(FileAnswer{W().Path("fold.svg"), 7});
    Press("cmdSave");
    QVERIFY(File("fold.svg").contains("Stepwise untilting, A") &&
            File("fold.svg").contains(">s.ams, in-phase, geographic, N = 12, 9 groups, each"));
    Choose(1);
    QCOMPARE(Look("lblUntilting(1,6)"), "none:\nno limits for fewer than five groups");
    QCOMPARE(S().FoliCode, "A");  // that of the view stays
  }

  void whatCannotBeUntiltedIsSaid() {
    for (SpecimenRecord& r : S().Records) r.FoliName[1] = "C";  // but for the lists
    QVERIFY(OpenBy("cmdUntilt", "frmUntilting"));
    QVERIFY(
        Look("lblReason")
            .startsWith(
                "No group can be untilted by the foliation \"A\".\n\nGroups left out: \"s1\", "));
    QVERIFY(!The<QWidget>("picUntilting").isVisible());
    Press("cmdSave");
    QCOMPARE(Status(), "There is no untilting to be saved.");
    W().Run("mnuClose");
    QCOMPARE(Look("lblReason"), "There are no groups to untilt.");
    W().Asked.Files.push_back(FileAnswer{W().WriteFile("many", 9000), 1});
    W().Run("mnuOpen");
    StartGrouping("7");  // some 900 groups
    Press("cmdCancel");
    QVERIFY(IsReady(*form_));
    QCOMPARE(Look("lblReason"), "Cancelled.");
    W().Window.close();  // while the groups are computed, which use the program's data
    QVERIFY(!W().Shown<QWidget>("frmGroups"));
  }
};

QTEST_MAIN(StudyWindowsTest)
#include "study_windows_test.moc"
