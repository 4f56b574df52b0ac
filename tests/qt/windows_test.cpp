#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "platform/qt/about_window.h"
#include "platform/qt/picture_widget.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/start_up.h"
#include "tests/qt/on_modal.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

/// Where a widget lies on the screen.
QRect Place(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }

}  // namespace

class WindowsTest : public QObject {
  Q_OBJECT

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
  void nothingOverlapsAndNoTextIsClipped() {
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
        if (qobject_cast<const QLabel*>(a) || qobject_cast<const QAbstractButton*>(a))
          QVERIFY2(a->width() >= a->sizeHint().width(), qPrintable(name));
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
        QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
  }

  void everyListIsReachedByTheTabKey() {
    TestWindow w;
    w.Grid().setFocus();
    QSet<QString> reached;
    for (int i = 0; i < 120; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      reached += QApplication::focusWidget()->objectName();
    }
    for (const char* name :
         {"cboCoor(1)", "cboCoor(3)", "odclFoli", "odclLine", "scgAnisoView", "chkK(2)", "lstFoli",
          "cmdExpand", "cmdStereoProperties", "cmdColumnPlots", "Toolbar1(1)", "Toolbar1(35)"})
      QVERIFY2(reached.contains(name), name);
  }

  void theSplashShowsVersionAndReleaseLine() {
    frmSplash splash;
    splash.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splash));
    QCOMPARE(splash.findChild<QLabel*>("lblVersion")->text(), QString("Version ") + Version);
    QCOMPARE(splash.findChild<QLabel*>("lblRelease")->text(), "06-April-2018");
    QVERIFY(!splash.isModal());
  }

  void theMainWindowComesAfterTheSplash() {
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
    QCOMPARE(QApplication::activeWindow(), &window);
    const double seconds = window.findChild<QLabel*>("picStat(2)")->text().toDouble();
    QVERIFY2(seconds >= 2.0 && seconds < 10.0, qPrintable(QString::number(seconds)));
    QCOMPARE(program.GaussTable.size(), 2000000u);
    QVERIFY(QDir(folder.filePath("data/RawData")).exists());
    QVERIFY(QFile::exists(folder.filePath("program/MarloAniso.sav")));
  }

  void aboutShowsTheVersion() {
    TestWindow w;
    QString shown;
    OnModal<QDialog>([&](QDialog& about) {
      shown = about.findChild<QLabel*>("lblVersion")->text();
      about.accept();
    });
    w.The<QAction>("mnuAbout").trigger();
    QCOMPARE(shown, QString("Version ") + Version);
  }

  void filtersMatchExtensionsInAnyCase() {
    const auto filters = SplitFilters("AMS-file(s) (*.ams)|*.ams|AMSSpin-file(s) (*.txt)|*.txt");
    QCOMPARE(filters.size(), 2);
    QCOMPARE(filters[0].ForDialog(), "AMS-file(s) (*.ams) (*.ams *.AMS)");
    QCOMPARE(filters[1].Suffix(), "txt");
  }

  void severalFilesAreJoinedByZeros() {
    using namespace std::string_literals;
    QCOMPARE(JoinFileList({"/d/a.ams"}), "/d/a.ams"s);
    QCOMPARE(JoinFileList({"/d/a.ams", "/d/b c.ams"}), "/d\0a.ams\0b c.ams\0"s);
    QCOMPARE(JoinFileList({"/d/a.ams", "/e/b.ams"}), "/d\0a.ams\0/e/b.ams\0"s);
    QCOMPARE(JoinFileList({}), ""s);
  }

  void theOpenDialogGivesFilesAndFilter() {
    using namespace std::string_literals;
    TestWindow w;
    w.WriteFile("a", 1);
    w.WriteFile("b", 1);
    const std::string folder = w.Folder.path().toStdString();
    QtDialogs dialogs;
    const FileQuestion question = {
        "Open File(s)", "One (*.ams)|*.ams|Two (*.ran)|*.ran|", folder, "", true, 32767};
    const auto choose = [](QFileDialog& dialog) {
      dialog.selectNameFilter(dialog.nameFilters()[1]);
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText("\"a.ams\" \"b.ams\"");
      QMetaObject::invokeMethod(&dialog, "accept");
    };
    OnModal<QFileDialog>(choose);
    const auto answer = dialogs.ShowOpen(question);
    QVERIFY(answer);
    QCOMPARE(answer->Filename, folder + "\0a.ams\0b.ams\0"s);
    QCOMPARE(answer->FilterIndex, 2);

    OnModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(!dialogs.ShowOpen(question));
  }

  void anAnswerThatIsTooLongIsToldAndAskedAgain() {
    TestWindow w;
    w.WriteFile("a", 1);
    QtDialogs dialogs;
    QString told;
    OnModal<QFileDialog>([&](QFileDialog& dialog) {
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText("a.ams");
      OnModal<QMessageBox>([&](QMessageBox& box) {
        told = box.text();
        OnModal<QFileDialog>([](QFileDialog& again) { again.reject(); });
        box.reject();
      });
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    QVERIFY(!dialogs.ShowOpen(
        {"Open", "A (*.ams)|*.ams|", w.Folder.path().toStdString(), "", true, 5}));
    QVERIFY2(told.contains("5 are allowed"), qPrintable(told));
  }

  void theSaveDialogAddsTheFiltersExtensionAndDoesNotAskItself() {
    TestWindow w;
    w.WriteFile("a", 1);
    QtDialogs dialogs;
    OnModal<QFileDialog>([](QFileDialog& dialog) {
      QCOMPARE(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "a");
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    const auto answer =
        dialogs.ShowSave({"Save", "A (*.ams)|*.ams|", w.Folder.path().toStdString(), "a"});
    QVERIFY(answer);
    QCOMPARE(answer->Filename, w.Path("a.ams"));
  }

  void theSaveDialogStartsAtHomeWhereNothingCanBeSaved() {
    TestWindow w;
    const QString folder = w.Folder.path();
    QString start;
    const auto startOf = [&](const QString& asked) {
      OnModal<QFileDialog>([&](QFileDialog& dialog) {
        start = dialog.directory().path();
        dialog.reject();
      });
      QtDialogs().ShowSave({"Save", "A (*.ams)|*.ams|", asked.toStdString(), "a"});
      return start;
    };
    QCOMPARE(startOf(folder), folder);
    QCOMPARE(startOf(folder + "/gone"), QDir::homePath());  // root can write where others can't
  }

  void aBoxGivesThePressedButtonAndClosingItTheLast() {
    QtDialogs dialogs;
    QStringList captions;
    OnModal<QMessageBox>([&](QMessageBox& box) {
      for (QAbstractButton* button : box.buttons()) captions += button->text();
      box.buttons()[1]->click();
    });
    QCOMPARE(dialogs.Ask("Title", "Text", {"&Append", "&Overwrite", "&Cancel"}, 0), 1);
    QCOMPARE(captions, (QStringList{"&Append", "&Overwrite", "&Cancel"}));
    OnModal<QMessageBox>([](QMessageBox& box) { box.close(); });
    QCOMPARE(dialogs.Ask("Title", "Text", {"&Append", "&Overwrite", "&Cancel"}, 0), 2);
  }
};

QTEST_MAIN(WindowsTest)
#include "windows_test.moc"
