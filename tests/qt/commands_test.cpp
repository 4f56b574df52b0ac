// Every item of the menus and every button of the tool bar, as a user reads them.

#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "tests/qt/test_window.h"

using namespace velorix;

class CommandsTest : public WindowTest {
  Q_OBJECT

 private slots:
  void init() { window_.emplace(); }

  void menusHaveTheseItemsAndKeys() {
    const QStringList menus =
        QString(
            "File: New, Open Ctrl+O, Open Previous Ctrl+P, Open Next Ctrl+N, Reload Ctrl+R, "
            "(Save), -, "
            "Save As Ctrl+S, Save Select Record(s) As Ctrl+A, Export Ctrl+E, -, Close Ctrl+X, -, "
            "Exit Program Ctrl+Q\n"
            "Graphics: Copy To Clipboard Ctrl+C, Save To File Ctrl+F, (Redraw), -, Print "
            "Ctrl+Shift+P, -, Figure Options Ctrl+Shift+F, Axes, -, Lasso\n"
            "Edit: Edit Orientation Data F2, (Rotate Data), Geological File Editor, -, Undo "
            "Ctrl+Z, "
            "Redo Ctrl+Shift+Z\n"
            "Analysis: Group Statistics F9, (Bootstrap Statistics F11), Contour Plot F12, "
            "(Calculate Field Independent Tensor Ctrl+I), -, Plane from Lineations, "
            "Groups Ctrl+G\n"
            "View: Data Table F1, -, Kre F3, Kim F4, -, Specimen F5, Geographic F6, "
            "Paleogeographic F7, Tectonic F8, -, Invert Selection Ctrl+Ins, "
            "Disregard Selected Record(s) Del, Restore All Records Alt+Backspace, -, "
            "Clear Selection Ctrl+Shift+F12\n"
            "Settings: Orientation Parameters, Anisotropy Quantitative Factors, -, "
            "Keep Former File as NAME~\n"
            "About: About, Manual Shift+F1")
            .split('\n');
    QStringList shown;
    for (const QAction* menu : W().Window.menuBar()->actions()) {
      QStringList items;
      for (const QAction* item : menu->menu()->actions()) {
        const bool idle = item->text() == "Undo" || item->text() == "Redo";  // nothing was done yet
        QCOMPARE(item->isEnabled(), item->isVisible() && !idle);
        const QString text = (item->text() + " " + item->shortcut().toString()).trimmed();
        items += item->isSeparator() ? "-" : item->isVisible() ? text : "(" + text + ")";
      }
      shown += menu->text().remove('&') + ": " + items.join(", ");
    }
    for (int i = 0; i < menus.size(); ++i) QCOMPARE(shown.value(i), menus[i]);
    QCOMPARE(shown.size(), menus.size());
  }

  void buttonsHaveThesePlacesAndTips() {
    const QString buttons =
        "1 Open Data File(s) [Crtl+O], 2 Open Previous Data File [Crtl+P], "
        "3 Open Next Data File [Crtl+N], 4 Reload Current Data File [Crtl+R], "
        "5 Save Current Data File As [Crtl+S], 6 Save Selected Record(s) As [Crtl+A], "
        "7 Export Data [Crtl+E], -, 9 Copy Graphics To Clipboard [Crtl+C], "
        "10 Save Graphics To File [Crtl+F], -, 12 Edit Orientation Data [F2], -, "
        "14 Group Statistics [F9], 15 Contour Plot [F12], -, 17 View Data Table [F1], -, "
        "19 Show In-Phase AMS [F3], 20 Show Out-Of-Phase AMS [F4], -, "
        "22 Specimen Coordinate System [F5], 23 Geographic Coordinate System [F6], "
        "24 Paleogeographic Coordinate System [F7], 25 Tectonic Coordinate System [F8], -, "
        "27 Paleohorizontal, 28 Paleovertical, -, 30 Invert Selection [Ctrl + Ins], "
        "31 Disregard Selected Record(s) [Del], 32 Restore All Records  [Alt + Bksp], "
        "33 Clear Selection [Shift + Ctrl +F12], -, 35 ";
    auto& bar = W().The<QToolBar>("Toolbar1");
    QStringList shown;
    for (QAction* action : bar.actions()) {
      const auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
      if (action->isSeparator()) shown += "-";
      if (!button) continue;
      shown += action->objectName().section('(', 1).chopped(1) + " " + button->toolTip();
      QVERIFY2(button->isVisible() && button->isEnabled() && !button->icon().isNull(),
               qPrintable(shown.back()));
    }
    QCOMPARE(shown.join(", "), buttons);
    // Without a tip, the status line and the name for a screen reader say what it does.
    const auto& rotate = W().The<QToolButton>("Toolbar1(35)");
    const QString does = "Rotate the tensors of all records by 90 degrees about the vertical axis";
    QCOMPARE(rotate.accessibleName(), does);
    QCOMPARE(rotate.statusTip(), does);
  }

  void theManualHasTheLettersOfListsAndMenus() {
    const auto page = [](const char* name) {
      QFile file(QString(VELORIX_SOURCE_DIR "/docs/manual/") + name);
      return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    };
    const auto letter = [](const QString& text) { return text[text.indexOf('&') + 1].toUpper(); };
    QStringList lists, menus;
    for (const char* name : {"cboCoor(1)", "cboCoor(2)", "cboCoor(3)", "odclFoli", "odclLine"})
      for (const QLabel* label : W().Window.findChildren<QLabel*>())
        if (label->buddy() && label->buddy()->objectName() == name) {
          lists += letter(label->text());
          const QString row = "\n| " + label->text().remove('&') + " | " + lists.back() + " |";
          QVERIFY2(page("windows.md").contains(row), qPrintable(row));
        }
    for (const QAction* menu : W().Window.menuBar()->actions()) menus += letter(menu->text());
    QVERIFY(page("keyboard.md").contains("| Alt+" + lists.join(", ") + " | the lists"));
    QVERIFY(page("keyboard.md").contains("| Alt+" + menus.join(", ") + " | the menus"));
  }
};

QTEST_MAIN(CommandsTest)
#include "commands_test.moc"
