#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>

#include "platform/qt/plots/picture_widget.h"
#include "platform/qt/start_up.h"
#include "platform/qt/windows/about_window.h"
#include "tests/qt/on_modal.h"

using namespace velorix;

class WindowsTest : public QObject {
  Q_OBJECT

  /// Where a widget lies on the screen.
  static QRect Place(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
  }
  /// All that a user reads or touches in the main window and that is in view.
  static QList<QWidget*> Controls(QWidget& window) {
    QList<QWidget*> controls;
    for (QWidget* w : window.findChildren<QWidget*>()) {
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
  void nothingOverlapsOrLeavesTheWindow() {
    TestWindow w;
    w.Open(w.WriteFile("site", 40));
    w.Window.resize(1280, 800);
    for (const char* step : {"", "cmdExpand", "cmdExpand", "cmdColumnPlots", "cmdPairPlots"}) {
      if (*step) w.Press(step);
      QCoreApplication::processEvents();
      QCOMPARE(w.Window.size(), QSize(1280, 800));
      const QList<QWidget*> controls = Controls(w.Window);
      QVERIFY(controls.size() > 40);
      for (const QWidget* a : controls) {
        const QString name = a->objectName() + " after " + step;
        QVERIFY2(Place(w.Window).contains(Place(*a)), qPrintable(name));
        for (const QWidget* b : controls)
          if (a != b && !a->isAncestorOf(b) && !b->isAncestorOf(a))
            QVERIFY2(!Place(*a).intersects(Place(*b)) || a->parent() != b->parent(),
                     qPrintable(name + " and " + b->objectName()));
      }
      const auto& net = *w.Window.findChild<PictureWidget*>("picStereo");
      QVERIFY(net.width() >= 180 && net.height() >= 180);
    }
  }

  void everyControlHasATip() {
    TestWindow w;
    w.Press("cmdColumnPlots");
    w.Press("cmdPairPlots");
    for (const QWidget* control : Controls(w.Window))
      if (!qobject_cast<const QLabel*>(control))
        QVERIFY2(!(control->toolTip() + control->statusTip()).isEmpty(),
                 qPrintable(control->objectName()));
  }

  void theSplashShowsVersionAndReleaseLine() {
    frmSplash splash;
    splash.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splash));
    QCOMPARE(splash.findChild<QLabel*>("lblVersion")->text(), QString("Version ") + Version);
    QCOMPARE(splash.findChild<QLabel*>("lblRelease")->text(), "06-April-2018");
    QVERIFY(!splash.isModal());
  }

  void theMainWindowComesAfterTheSplashWithinTheScreen() {
    const QTemporaryDir folder;
    ScriptedDialogs asked;
    frmVelorix window;
    Velorix program{asked, window, {}};
    program.Host.AppFolder = folder.filePath("program").toStdString();
    program.Host.DataRoot = folder.filePath("data").toStdString();
    bool splashAlone = false;
    QTimer::singleShot(1000, &window, [&] {  // events run while the splash stands
      for (const QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == "frmSplash" && top->isVisible()) splashAlone = !window.isVisible();
    });
    StartUp(program, window);
    QVERIFY(splashAlone);
    QVERIFY(window.isVisible());
    QVERIFY(window.width() < 1280);  // this screen has less than the window wants
    QVERIFY(window.isMaximized());
    QVERIFY(window.screen()->availableGeometry().contains(window.geometry()));
    QCOMPARE(QApplication::activeWindow(), &window);
    const double seconds = window.findChild<QLabel*>("picStat(2)")->text().toDouble();
    QVERIFY2(seconds >= 2.0 && seconds < 10.0, qPrintable(QString::number(seconds)));
    QCOMPARE(program.GaussTable.size(), 2000000u);
    QVERIFY(QDir(folder.filePath("data/RawData")).exists());
    QVERIFY(QFile::exists(folder.filePath("program/MarloAniso.sav")));
  }

  void commandButtonAndOwnCloseToggleTheWindowsBeside() {
    TestWindow w;
    for (const auto& [command, name] :
         {std::pair{"mnuAnalysis(1)", "frmGroupStatistics"},
          std::pair{"mnuAnalysis(3)", "frmContour"}, std::pair{"mnuFoliLine", "frmFoliLine"}}) {
      QAction& item = w.The<QAction>(command);
      const int button = CommandNamed(command).Button;
      const auto isOpen = [&] { return item.isChecked() && w.Shown<QWidget>(name); };
      const auto isShut = [&] { return !item.isChecked() && !w.Shown<QWidget>(name); };
      QVERIFY2(isShut(), name);
      item.trigger();
      QVERIFY2(isOpen(), name);
      button ? w.Press(QString("Toolbar1(%1)").arg(button)) : item.trigger();
      QVERIFY2(isShut(), name);
      item.trigger();
      w.Shown<QWidget>(name)->close();
      QVERIFY2(isShut(), name);
    }
  }

  void aboutShowsTheVersion() {
    TestWindow w;
    ShowDialog(w, "mnuAbout", [](QDialog& about) {
      QCOMPARE(In<QLabel>(about, "lblVersion").text(), QString("Version ") + Version);
    });
  }
};

QTEST_MAIN(WindowsTest)
#include "windows_test.moc"
