// The table of groups, driven by the names of its controls.

#include <QClipboard>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>

#include "app/commands/view_choices.h"
#include "platform/qt/output/page_output.h"
#include "platform/qt/parts/widgets.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class GroupsWindowTest : public WindowTest {
  Q_OBJECT

  QTableWidget& Table() { return The<QTableWidget>("grdGroups"); }
  /// The first two columns, "a1:1 a2:1 All:2", once everything is computed.
  QString Rows() {
    if (!QTest::qWaitFor([this] { return The<QPushButton>("cmdCancel").isHidden(); }))
      return "late";
    QStringList rows;
    for (int row = 0; row < Table().rowCount(); ++row)
      rows += Table().item(row, 0)->text() + ":" + Table().item(row, 1)->text();
    return rows.join(' ');
  }
  void GroupBy(int way, const QString& detail) {
    auto& ways = The<QComboBox>("cboGroupBy");
    ways.setCurrentIndex(way);
    emit ways.activated(way);
    auto& line = The<QLineEdit>("txtGroupBy");
    line.setText(detail);
    emit line.editingFinished();
  }
  QString Status() { return W().Window.statusBar()->currentMessage(); }
  QString Selected() const {
    QString ids;
    for (const SpecimenRecord& r : window_->Program.Session.Records)
      if (r.Selected) ids += QString::number(r.RecordNo) + " ";
    return ids;
  }

 private slots:
  void init() {
    window_.emplace();
    W().Open(W().WriteFile("s", 12));  // s1 to s12
    OpenForm("mnuGroups", "frmGroups");
    GroupBy(6, "2");
  }

  void theRowsAreTheGroupsOfTheViewAndFollowIt() {
    QCOMPARE(Rows(), "s1:4 s2:1 s3:1 s4:1 s5:1 s6:1 s7:1 s8:1 s9:1 All:12");
    QVERIFY(Look("lblGroupsOf").startsWith("s.ams, in-phase, geographic, N = 12, 9 groups."));
    GroupBy(0, "");
    QCOMPARE(Rows(), "s:12 All:12");
    QVERIFY(!Table().item(0, 4)->text().isEmpty());
    SelectRecords(W().Program, {1, 2});
    W().Run("mnuSelection(2)");
    QCOMPARE(Rows(), "s:10 All:10");
    GroupBy(6, "x");
    QCOMPARE(Rows(), "");
    QVERIFY(Look("lblProgress").contains("needed"));
    W().Run("mnuClose");
    QCOMPARE(Rows(), "");
  }

  void aRowSelectsItsRecordsAndAHeaderSorts() {
    Rows();
    Table().selectRow(0);
    QCOMPARE(Selected(), "1 10 11 12 ");
    emit Table().horizontalHeader()->sectionClicked(1);
    Table().sortItems(1, Qt::DescendingOrder);
    QVERIFY(Rows().startsWith("s1:4 s") && Rows().endsWith(" All:12"));
    Table().selectRow(9);
    QCOMPARE(Selected(), "1 2 3 4 5 6 7 8 9 10 11 12 ");
    ChooseCoorSys(W().Program, Specimen);  // a new table leaves the selection and the order
    QVERIFY(Rows().startsWith("s1:4 s") && Rows().endsWith(" All:12"));
    QCOMPARE(Selected(), "1 2 3 4 5 6 7 8 9 10 11 12 ");
  }

  void theRowOfAllStaysLastAndASortedHeaderIsWhole() {
    ChooseLevel(W().Program, ErrorLevel::Confidence95);
    Rows();
    const QHeaderView& header = *Table().horizontalHeader();
    for (const int column : {0, 1, 4})  // names, numbers, and empty cells above that of all
      for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        Table().horizontalHeader()->setSortIndicator(column, order);
        QVERIFY2(Rows().endsWith(" All:12"), qPrintable(Rows()));
        QVERIFY(header.sectionSize(column) >= header.sectionSizeHint(column));
      }
    ChooseCoorSys(W().Program, Specimen);
    Rows();
    QVERIFY(header.sectionSize(4) >= header.sectionSizeHint(4));
  }

  void theKeyOfTheGroupsWorksFromTheOtherWindows() {
    W().Run("mnuGroups");  // shuts it
    OpenForm("mnuAnalysis(1)", "frmGroupStatistics");
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QTest::keyClick(form_, Qt::Key_G, Qt::ControlModifier);
    QVERIFY(W().Shown<QWidget>("frmGroups"));
  }

  void theTableIsCopiedAndExportedWithHeaders() {
    Rows();
    Press("cmdCopy");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QCOMPARE(lines.size(), 13);  // heading, headers, ten rows, the end
    QVERIFY(lines[1].startsWith("Group\tN\tK1 Dec\t") && lines[2].startsWith("s1\t4\t"));
    W().Asked.Files.push_back(FileAnswer{W().Path("g.csv"), 1});
    Press("cmdExport");
    QFile file(ToQString(W().Path("g.csv")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList written = QString::fromUtf8(file.readAll()).split("\r\n");
    QCOMPARE(written.size(), 12);
    QVERIFY(written[0].startsWith("Group,N,K1_Dec,") && written[1].startsWith("s1,4,"));
  }

  void thePageOfPanelsShowsTheGroupsInTheOrderOfTheTable() {
    GivePictures(W().Program.Host, &W().Window);
    Rows();
    Table().sortItems(1, Qt::DescendingOrder);  // "All" comes first and has no panel
    Table().sortItems(0, Qt::DescendingOrder);
    const auto save = [this](const char* name) {
      W().Asked.Files.push_back(FileAnswer{W().Path(name), 7});
      Press("cmdPanels");
      QFile file(ToQString(W().Path(name)));
      return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray svg = save("p.svg");
    QCOMPARE(svg.count(">N = "), 9);
    QVERIFY(svg.indexOf(">s9<") > 0 && svg.indexOf(">s9<") < svg.indexOf(">s1<"));
    QCOMPARE(svg.indexOf(">N = 4<"), svg.lastIndexOf(">N = "));  // that of s1, the last
    QVERIFY(svg.contains("s.ams, in-phase, geographic, N = 12, 9 groups."));
    QVERIFY(Status().startsWith("Written: ") && save("none/p.svg").isEmpty());
    QVERIFY(Status().contains("could not be written") && !Boxes().empty());
    W().Asked.Files.push_back(FileAnswer{W().WriteFile("many", 601), 1});
    W().Run("mnuOpen");
    GroupBy(6, "9");
    Rows();
    Press("cmdPanels");  // refused before a file is asked for
    QCOMPARE(Status(), "One page has room for 600 groups; these are 601.");
  }

  void groupsAreMadeByHandAndShownInThePlots() {
    QCOMPARE(Look("cboGroupMarks chkGroupMeans chkGroupLegend"), "Off|(Mean&s)|(&Legend+)");
    The<QComboBox>("cboGroupMarks").setCurrentIndex(1);
    emit The<QComboBox>("cboGroupMarks").activated(1);
    Press("chkGroupMeans");
    Rows();
    Table().selectRow(0);
    Press("cmdMergeGroups");
    QCOMPARE(Status(), "Two or more groups are needed; select their rows.");
    QCOMPARE(The<QComboBox>("cboGroupBy").currentIndex(), 6);
    Press("cmdNewGroup");
    QCOMPARE(The<QComboBox>("cboGroupBy").currentText(), "By hand");
    QCOMPARE(Rows(), "Group 1:4 s2:1 s3:1 s4:1 s5:1 s6:1 s7:1 s8:1 s9:1 All:12");
    Table().sortItems(0, Qt::DescendingOrder);  // s9, s8 and so on
    Table().setSelectionMode(QAbstractItemView::MultiSelection);
    Table().selectRow(1);
    Table().selectRow(0);
    Press("cmdRenameGroup");
    QVERIFY(Status().contains("one group"));
    Press("cmdMergeGroups");
    Rows();
    Table().sortItems(0, Qt::DescendingOrder);
    QVERIFY(Rows().startsWith("s9:2 s7:1 "));
    Table().selectRow(0);
    OnModal<QInputDialog>([](QInputDialog& dialog) {
      QCOMPARE(dialog.textValue(), "s9");
      dialog.setTextValue("last");
      dialog.accept();
    });
    Press("cmdRenameGroup");
    QVERIFY(Rows().contains("last:2"));
    Table().selectAll();
    Press("cmdMergeGroups");
    QCOMPARE(Status(), "The row of all records is no group.");
    W().Run("mnuUndo");
    QVERIFY(Rows().contains("s9:2"));
    QCOMPARE(W().Program.Plots.Marks.Means.size(), std::size_t{8});
    W().Run("mnuGroups");
    OpenForm("mnuGroups", "frmGroups");
    QCOMPARE(Look("cboGroupMarks chkGroupMeans chkGroupLegend cboGroupBy"),
             "Colour|Mean&s+|&Legend+|By hand");
  }

  void aLongComputationIsCancelledAndAClosedWindowStopsIt() {
    W().Program.Bootstrap = {BootMethod::Parametric, MostReplicates, 1};
    W().Asked.Files.push_back(FileAnswer{W().WriteFile("long", 9000), 1});
    W().Run("mnuOpen");
    GroupBy(6, "7");  // some 900 groups of 10
    Press("cmdCancel");
    QVERIFY(QTest::qWaitFor([this] { return The<QPushButton>("cmdCancel").isHidden(); }, 60'000));
    QVERIFY(Look("lblProgress").startsWith("Cancelled: "));
    GroupBy(6, "7");
    W().Run("mnuGroups");
    QVERIFY(!W().Program.Windows.Groups);
  }
};

QTEST_MAIN(GroupsWindowTest)
#include "groups_window_test.moc"
