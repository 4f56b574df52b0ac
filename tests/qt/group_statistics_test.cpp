// The window of the group statistics, driven by the names of its labels.

#include <QClipboard>
#include <QLabel>

#include "tests/qt/test_window.h"

using namespace velorix;

class GroupStatisticsTest : public WindowTest {
  Q_OBJECT

  bool Shows(const char* name, int index) {
    return !Look(QString("%1(%2)").arg(name).arg(index)).isEmpty();
  }

 private slots:
  void init() {
    window_.emplace();
    OpenForm("mnuAnalysis(1)", "frmGroupStatistics");
    QVERIFY(Activate(W().Window));  // which takes the keys
  }

  void showsWhatTheGroupIsLargeEnoughForAndFollowsTheDisplay() {
    const struct {
      int count;
      bool deviations, errors, boot;
    } cases[] = {{1, false, false, false},
                 {4, true, false, false},
                 {5, true, true, true},
                 {100, true, true, true},
                 {101, true, true, false}};
    QCOMPARE(Look("lblJelinek(60)"), "");
    for (const auto& c : cases) {
      W().Open(W().WriteFile("n" + std::to_string(c.count), c.count));
      QCOMPARE(Look("lblJelinek(60)"), QString("N = %1").arg(c.count));
      for (int index : {2, 3, 16, 34, 41, 42, 50}) QVERIFY(Shows("lblJelinek", index));
      for (int index : {51, 52, 59}) QCOMPARE(Shows("lblJelinek", index), c.deviations);
      for (int index : {5, 6, 11, 18}) QCOMPARE(Shows("lblJelinek", index), c.errors);
      for (int index : {1, 2, 3, 4, 5, 6}) QCOMPARE(Shows("lblBootStat", index), c.boot);
    }
    QCOMPARE(Look("lblJelinek(33)"), "N/A");
    W().Run("mnuClose");
    QCOMPARE(Look("lblJelinek(2) lblJelinek(33) lblJelinek(42) lblJelinek(60)"), "|||");
  }

  void copiesItsNumbersAsTextAndNamesTheErrorsUnderTheirHeading() {
    W().Open(W().WriteFile("a", 6));
    Press("cmdCopy");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QCOMPARE(lines.size(), 15);  // two headings, three directions, Km, eight factors, the end
    QVERIFY(lines[0].startsWith("N = 6\tMean Tensor") && lines[6].startsWith("L\t"));
    const auto place = [this](const QString& text) {
      for (const QLabel* label : form_->findChildren<QLabel*>())
        if (label->text() == text) return label->geometry();
      return QRect();
    };
    const QRect heading = place("Confidence Ellipses"), unit = place("Std. Err. [deg]");
    QVERIFY(unit.top() > heading.bottom() && unit.left() == heading.left());
  }
};

QTEST_MAIN(GroupStatisticsTest)
#include "group_statistics_test.moc"
