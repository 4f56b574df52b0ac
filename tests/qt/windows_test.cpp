// Where the windows stand and what they show of each other.

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>

#include "app/state/program.h"
#include "platform/qt/plots/picture_widget.h"
#include "platform/qt/start_up.h"
#include "platform/qt/windows/about_window.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class WindowsTest : public WindowTest {
  Q_OBJECT

  /// Where a widget lies on the screen.
  static QRect Place(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
  }
  /// All that a user reads or touches in the main window and that is in view.
  QList<QWidget*> Controls() {
    QList<QWidget*> controls;
    for (QWidget* w : W().Window.findChildren<QWidget*>()) {
      const bool control = qobject_cast<QLabel*>(w) || qobject_cast<QComboBox*>(w) ||
                           qobject_cast<QAbstractButton*>(w) || qobject_cast<QTableView*>(w) ||
                           qobject_cast<QListWidget*>(w) || dynamic_cast<PictureWidget*>(w);
      // Parts of a list or a tool bar's spare button are not ours, nor is what is scrolled away.
      const bool own = !w->objectName().startsWith("qt_") || qobject_cast<QLabel*>(w);
      if (control && own && w->isVisible() && !w->visibleRegion().isEmpty()) controls += w;
    }
    return controls;
  }

 private slots:
  void init() {
    window_.emplace();
    form_ = &W().Window;
  }

  void nothingOverlapsOrLeavesTheMainWindow() {
    W().Open(W().WriteFile("site", 40));
    W().Window.resize(1280, 800);
    for (const char* step : {"", "cmdExpand", "cmdExpand", "cmdColumnPlots", "cmdPairPlots"}) {
      if (*step) Press(step);
      QCoreApplication::processEvents();
      QCOMPARE(W().Window.size(), QSize(1280, 800));
      const QList<QWidget*> controls = Controls();
      QVERIFY(controls.size() > 40);
      for (const QWidget* a : controls) {
        const QString name = a->objectName() + " after " + step;
        QVERIFY2(Place(W().Window).contains(Place(*a)), qPrintable(name));
        for (const QWidget* b : controls)
          if (a != b && !a->isAncestorOf(b) && !b->isAncestorOf(a))
            QVERIFY2(!Place(*a).intersects(Place(*b)) || a->parent() != b->parent(),
                     qPrintable(name + " and " + b->objectName()));
      }
      const auto& net = The<QWidget>("picStereo");
      QVERIFY(net.width() >= 180 && net.height() >= 180);
    }
  }

  void theMainWindowComesAfterTheSplashWithinTheScreen() {
    ScriptedDialogs asked;
    frmVelorix window;
    Velorix program{asked, window, window, {}};
    program.Host.AppFolder = W().Path("program");
    program.Host.DataRoot = W().Path("data");
    bool splashAlone = false;
    QTimer::singleShot(1000, &window, [&] {  // events run while the splash stands
      for (const QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == "frmSplash" && top->isVisible())
          splashAlone = !window.isVisible() && velorix::Look(*top, "lblVersion lblRelease") ==
                                                   QString("Version ") + Version + "|06-April-2018";
    });
    StartUp(program, window);
    QVERIFY(splashAlone && window.isVisible() && window.isMaximized());
    QVERIFY(window.width() < 1280);  // this screen has less than the window wants
    QVERIFY(window.screen()->availableGeometry().contains(window.geometry()));
    QCOMPARE(QApplication::activeWindow(), &window);
    const double seconds = velorix::Look(window, "picStat(2)").toDouble();
    QVERIFY2(seconds >= 2.0 && seconds < 10.0, qPrintable(QString::number(seconds)));
    QCOMPARE(program.GaussTable.size(), 2000000u);
    QVERIFY(QDir(W().Folder.filePath("data/RawData")).exists());
    QVERIFY(QFile::exists(W().Folder.filePath("program/MarloAniso.sav")));
    ShowDialog("mnuAbout", [this] { QCOMPARE(Look("lblVersion"), QString("Version ") + Version); });
  }

  void windowsBesideTheMainOneStayAboveItAndCloseInFourWays() {
    W().Window.move(0, 0);
    for (const auto& [command, name] : {std::pair{"mnuDataTable", "frmDataTable"},
                                        {"mnuAnalysis(1)", "frmGroupStatistics"},
                                        {"mnuAnalysis(3)", "frmContour"},
                                        {"mnuFoliLine", "frmFoliLine"}}) {
      const QAction& item = W().The<QAction>(command);
      const int number = CommandNamed(command).Button;
      for (const int way : {1, 2, 3, 4}) {
        OpenForm(command, name);
        QVERIFY2(item.isChecked() && form_->windowType() == Qt::Dialog, name);
        QVERIFY(form_->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
        const QPoint place = form_->frameGeometry().topLeft();
        if (name == QString("frmDataTable")) QVERIFY(place.y() >= 0 && place.x() > 0);
        if (way == 1) number ? W().Press(QString("Toolbar1(%1)").arg(number)) : W().Run(command);
        if (way == 2) W().Run(command);
        if (way == 3) Key(Qt::Key_Escape);
        if (way == 4) form_->close();
        QVERIFY2(!item.isChecked() && !W().Shown<QWidget>(name), name);
      }
    }
  }

  void theGridWidensAndShrinks() {
    W().Open(W().WriteFile("site", 5));
    const auto& grid = The<QFrame>("fraAnisoView");
    const auto& histogram = The<QWidget>("picHisto");
    const auto& options = The<QWidget>("fraStereoProperties");
    for (const bool chosen : {true, false}) {
      QCOMPARE(The<QWidget>("cmdExpand").toolTip(), "Expand ->");
      Press("cmdExpand");
      QCOMPARE(The<QWidget>("cmdExpand").toolTip(), "<- Shrink");
      for (const int width : {1900, 1450, 1280}) {  // there is room for both in 1900
        W().Window.resize(width, 800);
        QTRY_COMPARE(histogram.isVisible(), width == 1900 && chosen);
        QCOMPARE(options.isVisible(), width > 1280);
        QTRY_COMPARE(grid.width(), 993);  // 14895 twips
      }
      W().Grid().horizontalScrollBar()->setValue(W().Grid().horizontalScrollBar()->maximum());
      Press("cmdExpand");
      QVERIFY(grid.width() == 177 && options.isVisible());     // 2655 twips
      QCOMPARE(histogram.isVisible(), chosen);                 // as the user left it
      QCOMPARE(W().Grid().horizontalScrollBar()->value(), 0);  // where the names are
      QCOMPARE(W().Window.size(), QSize(1280, 800));           // which has room for all of it
      Press("cmdColumnPlots");
    }
  }

  void numberAndNameStayInSight() {
    W().Open(W().WriteFile("site", 60));
    // The narrow grid has room for the number alone; the table comes last, since it sorts.
    for (const QString button : {"", "cmdExpand", "Toolbar1(17)"}) {
      const bool isTable = button == "Toolbar1(17)";
      if (!button.isEmpty()) Press(button);
      QTableView& table =
          isTable ? In<QTableView>(The<QWidget>("frmDataTable"), "scgAnisoView") : W().Grid();
      table.verticalScrollBar()->setValue(20);
      QScrollBar& across = *table.horizontalScrollBar();
      across.setValue(across.maximum());
      QVERIFY(across.maximum() > 300);

      // What a user sees at the left edge, from where the mouse finds it.
      const int line = table.rowHeight(0), wide = table.columnWidth(0);
      const auto at = [&](int x) {
        return qobject_cast<QTableView*>(
            table.childAt(table.viewport()->mapTo(&table, QPoint(x, line / 2)))->parentWidget());
      };
      QTableView* seen = at(5);
      QVERIFY(seen && seen != &table && (at(wide + 5) == seen) == !button.isEmpty());
      const auto textAt = [&](int x) {
        return seen->indexAt(QPoint(x, line / 2)).data().toString();
      };
      QCOMPARE(textAt(5) + " " + textAt(wide + 5), button.isEmpty() ? "21 " : "21 site21");
      QCOMPARE(seen->rowHeight(0), line);
      QCOMPARE(seen->horizontalHeader()->height(), table.horizontalHeader()->height());

      // It is of the table: a click selects and leaves the place, one on the header sorts or
      // clears.
      QTest::mouseClick(seen->viewport(), Qt::LeftButton, {}, QPoint(5, line / 2));
      QCOMPARE(W().Selected(), QList<int>{21});
      QTest::keyClick(&table, Qt::Key_Down);
      QCOMPARE(W().Selected(), QList<int>{22});
      QCOMPARE(across.value(), across.maximum());
      for (const char* first : {"21", "40"}) {  // the header sorts upward, then downward
        QTest::mouseClick(seen->horizontalHeader()->viewport(), Qt::LeftButton, {}, {8, 8});
        QVERIFY(W().Selected().isEmpty());
        QCOMPARE(textAt(5), isTable ? first : "21");
        QCOMPARE(seen->horizontalHeader()->isSortIndicatorShown(), isTable);
      }
      W().Key(Qt::Key_F5);  // the order of the store again
      QCOMPARE(textAt(5), "21");
      QVERIFY(!seen->horizontalHeader()->isSortIndicatorShown());
      across.setValue(0);
      QVERIFY(at(5) == &table);
    }
  }
};

QTEST_MAIN(WindowsTest)
#include "windows_test.moc"
