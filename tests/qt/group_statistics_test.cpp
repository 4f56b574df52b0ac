// The window of the group statistics, driven by the names of its labels.

#include <QApplication>
#include <QClipboard>
#include <QLabel>

#include "platform/qt/windows/group_statistics_window.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class GroupStatisticsTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;

  frmGroupStatistics* Group() { return window_->Shown<frmGroupStatistics>("frmGroupStatistics"); }
  QString Label(const char* name, int index) {
    return In<QLabel>(*Group(), QString("%1(%2)").arg(name).arg(index)).text();
  }
 private slots:
  void init() { window_.emplace(); }

  void theErrorsAreNamedStandardErrorsUnderTheirHeading() {
    window_->Key(Qt::Key_F9);
    const auto place = [this](const QString& text) {
      for (const QLabel* label : Group()->findChildren<QLabel*>())
        if (label->text() == text) return label->geometry();
      return QRect();
    };
    const QRect heading = place("Confidence Ellipses"), unit = place("Std. Err. [deg]");
    QVERIFY(!heading.isNull() && !unit.isNull());
    QVERIFY(unit.top() > heading.bottom() && unit.left() == heading.left());
  }

  void showsWhatTheGroupIsLargeEnoughForAndFollowsTheDisplay() {
    window_->Key(Qt::Key_F9);
    const struct {
      int count;
      bool mean, deviations, errors, boot;
    } cases[] = {{1, true, false, false, false}, {2, true, true, false, false},
                 {4, true, true, false, false},  {5, true, true, true, true},
                 {100, true, true, true, true},  {101, true, true, true, false}};
    QCOMPARE(Label("lblJelinek", 60), QString());
    for (const auto& c : cases) {
      window_->Open(window_->WriteFile("n" + std::to_string(c.count), c.count));
      QCOMPARE(Label("lblJelinek", 60), QString("N = %1").arg(c.count));
      for (int index : {2, 3, 16, 34, 41, 42, 50})
        QCOMPARE(!Label("lblJelinek", index).isEmpty(), c.mean);
      for (int index : {51, 52, 59}) QCOMPARE(!Label("lblJelinek", index).isEmpty(), c.deviations);
      for (int index : {5, 6, 11, 18}) QCOMPARE(!Label("lblJelinek", index).isEmpty(), c.errors);
      for (int index = 1; index <= 6; ++index)
        QCOMPARE(!Label("lblBootStat", index).isEmpty(), c.boot);
    }
    QCOMPARE(Label("lblJelinek", 33), QString("N/A"));
    window_->Key(Qt::Key_X, Qt::ControlModifier);
    for (int index : {2, 33, 42, 60}) QCOMPARE(Label("lblJelinek", index), QString());
  }

  void copiesItsNumbersAsText() {
    window_->Open(window_->WriteFile("a", 6));
    window_->Key(Qt::Key_F9);
    QTest::mouseClick(&In<QAbstractButton>(*Group(), "cmdCopy"), Qt::LeftButton);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QCOMPARE(lines.size(), 15);  // two headings, three directions, Km, eight factors, the end
    QVERIFY(lines[0].startsWith("N = 6\tMean Tensor"));
    QCOMPARE(lines[1].split('\t').size(), 8);
    QCOMPARE(lines[6].split('\t')[0], QString("L"));
  }
};

QTEST_MAIN(GroupStatisticsTest)
#include "group_statistics_test.moc"
