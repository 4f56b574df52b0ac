// What every window of the program promises to those who use it without a mouse, by ear, with large
// letters or on a dark desktop.

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStyleOptionComboBox>
#include <QTextEdit>

#include "app/commands/commands.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/qt_dialogs.h"
#include "tests/qt/test_window.h"

namespace velorix {
namespace {

template <class... Kinds>
bool IsOneOf(const QWidget& widget) {
  return (qobject_cast<const Kinds*>(&widget) || ...);
}

bool IsControl(const QWidget& widget) {
  return !IsOneOf<QHeaderView>(widget) && IsOneOf<QAbstractButton, QComboBox, QAbstractSpinBox,
                                                  QLineEdit, QAbstractItemView, QTextEdit>(widget);
}

/// A part of another control, such as the field of a spin box, comes with it.
bool IsPart(const QWidget& widget) {
  for (const QWidget* w = widget.parentWidget(); w && !w->isWindow(); w = w->parentWidget())
    if (IsControl(*w) || IsOneOf<QScrollBar, QHeaderView>(*w)) return true;
  return false;
}

/// Whatever of a window can be used now.
QList<QWidget*> Controls(const QWidget& window) {
  QList<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->window() == &window && widget->isVisible() && widget->isEnabled() &&
        (IsControl(*widget) || widget->focusPolicy() & Qt::TabFocus) && !IsPart(*widget) &&
        !IsOneOf<QScrollArea>(*widget))
      controls += widget;
  return controls;
}

QString Text(const QWidget& widget) { return widget.property("text").toString(); }

/// How a fault names its control.
QString Called(const QWidget& widget) {
  const QString name = widget.objectName(), kind = widget.metaObject()->className();
  return (name.isEmpty() ? kind : name) + " \"" + Text(widget) + "\"";
}

/// What is said of a control: its own text, its name, or the label that leads to it.
bool HasName(const QWidget& widget) {
  if (!widget.accessibleName().isEmpty()) return true;
  if (IsOneOf<QAbstractButton>(widget) && !Text(widget).isEmpty()) return true;
  for (const QLabel* label : widget.window()->findChildren<QLabel*>())
    if (label->buddy() == &widget) return true;
  return false;
}

QStringList NameFaults(const QWidget& window) {
  QStringList faults;
  for (const QWidget* control : Controls(window)) {
    if (!HasName(*control)) faults += "no name: " + Called(*control);
    if ((control->toolTip() + control->statusTip()).isEmpty() &&
        !IsOneOf<QTextEdit, QLabel>(*control) && !IsOneOf<QMessageBox>(window))
      faults += "no tip: " + Called(*control);
  }
  return faults;
}

/// Contrast of two colours, 1 to 21; 4.5 and more is read with ease.
double Contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& c) {
    const auto part = [](float v) {
      return v <= 0.04045f ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.05 + 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF());
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

QStringList ColourFaults(const QWidget& window) {
  QStringList faults;
  for (const QWidget* control : window.findChildren<QWidget*>())
    for (const auto& [text, ground] : {std::pair{QPalette::Text, QPalette::Base},
                                       std::pair{QPalette::ButtonText, QPalette::Button},
                                       std::pair{QPalette::WindowText, QPalette::Window}})
      if (const QPalette& colours = control->palette();
          IsControl(*control) && !IsPart(*control) &&
          (control->isEnabled() || IsOneOf<QDialog>(window)) &&
          Contrast(colours.color(text), colours.color(ground)) <= 3)
        faults += "no contrast: " + Called(*control);
  return faults;
}

/// A key that presses the button, or that its tip names; one without an action needs none.
bool HasOwnKey(const QAbstractButton& button) {
  static const QRegularExpression key("[(\\[](Ctrl\\+|Esc)|no action");
  return !button.shortcut().isEmpty() || key.match(button.toolTip()).hasMatch();
}

/// Tab pressed until it comes round; of choices that exclude each other it finds the one made. A
/// table of cells to be changed keeps Tab: buttons beside it have keys of their own.
QStringList TabFaults(QWidget& window) {
  if (!Activate(window)) return {"not active"};
  QSet<const QWidget*> reached;
  for (int step = 0, known = 0; step - known < 60; ++step) {  // links and cells take steps
    QWidget* at = window.focusWidget();
    if (at && !reached.contains(at)) known = step;
    reached += at;
    QTest::keyClick(at ? at : &window, Qt::Key_Tab);
  }
  const auto* table = qobject_cast<const QAbstractItemView*>(window.focusWidget());
  const bool keepsTab = table && table->tabKeyNavigation();
  QStringList faults;
  for (const QWidget* control : Controls(window)) {
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    const bool otherChoice = button && button->isCheckable() && !button->isChecked() &&
                             (button->group() || button->autoExclusive());
    if (!reached.contains(control) && !otherChoice && !(keepsTab && button && HasOwnKey(*button)))
      faults += "no Tab: " + Called(*control);
  }
  return faults;
}

/// Keys that lead to two things. `everywhere` are those that work in every window.
QStringList KeyFaults(const QWidget& window, const QList<QAction*>& everywhere) {
  QMultiMap<QString, QString> uses;
  const auto use = [&uses](const QKeySequence& key, const QString& by) {
    if (!key.isEmpty() && !uses.contains(key.toString(), by)) uses.insert(key.toString(), by);
  };
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() != &window || !widget->isVisible()) continue;
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (IsOneOf<QAbstractButton>(*widget) || (label && label->buddy()))
      use(QKeySequence::mnemonic(Text(*widget)), Called(*widget));
    use(QKeySequence::mnemonic(widget->property("title").toString()), widget->objectName());
    if (const auto* bar = qobject_cast<const QMenuBar*>(widget))
      for (const QAction* menu : bar->actions())
        use(QKeySequence::mnemonic(menu->text()), menu->text());
  }
  for (const QShortcut* shortcut : window.findChildren<QShortcut*>())
    if (shortcut->context() >= Qt::WindowShortcut &&
        shortcut->context() <= Qt::ApplicationShortcut && shortcut->parent()->isWidgetType() &&
        static_cast<QWidget*>(shortcut->parent())->window() == &window)
      use(shortcut->key(), QString("shortcut %1").arg(uses.size()));
  QList<QAction*> actions = everywhere;
  for (QAction* action : window.findChildren<QAction*>())
    if (action->isVisible() && !actions.contains(action)) actions += action;
  for (const QAction* action : actions)
    if (action->shortcutContext() >= Qt::WindowShortcut)
      for (const QKeySequence& key : action->shortcuts()) use(key, action->objectName());
  QStringList faults;
  for (const QString& key : uses.uniqueKeys())
    if (uses.count(key) > 1) faults += key + ": " + uses.values(key).join(", ");
  return faults;
}

/// The room that a control needs for its text. Of a list it is that of the text it shows.
QSize Wanted(const QWidget& widget) {
  const auto* list = qobject_cast<const QComboBox*>(&widget);
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (button && !button->text().isEmpty()) return button->sizeHint();
  if (!list || list->currentText().isEmpty()) return widget.minimumSizeHint();
  QStyleOptionComboBox option;
  option.initFrom(list);
  const QRect field = list->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, list);
  const int icon = list->itemIcon(list->currentIndex()).isNull() ? 0 : list->iconSize().width() + 4;
  const int text = list->fontMetrics().horizontalAdvance(list->currentText());
  return {list->width() - field.width() + icon + text, list->fontMetrics().height()};
}

/// Texts that the window has no room for.
QStringList ClipFaults(const QWidget& window) {
  QStringList faults;
  const QString size = QString(" at %1 x %2").arg(window.width()).arg(window.height());
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() != &window || !widget->isVisible() || IsPart(*widget)) continue;
    if (!IsOneOf<QLabel, QAbstractButton, QComboBox, QAbstractSpinBox>(*widget)) continue;
    const QSize expected = Wanted(*widget);
    if (widget->width() < expected.width() || widget->height() < expected.height())
      faults += "clipped: " + Called(*widget) + size;
    for (const QWidget* outer = widget->parentWidget(); outer && outer != &window;
         outer = outer->parentWidget()) {
      const auto* scroll = qobject_cast<const QScrollArea*>(outer);
      if (!scroll || scroll->horizontalScrollBar()->isVisible()) continue;
      const int right = widget->mapTo(scroll->viewport(), widget->rect().topRight()).x();
      if (right >= scroll->viewport()->width()) faults += "cut off: " + Called(*widget) + size;
    }
  }
  return faults;
}

QStringList Faults(QWidget& window, const QList<QAction*>& everywhere) {
  QTest::qWait(1);  // for the layout
  QStringList faults = NameFaults(window) + TabFaults(window) + KeyFaults(window, everywhere) +
                       ClipFaults(window) + ColourFaults(window);
  for (const QSize& size : {QSize(1, 1), QSize(1280, 800)}) {
    window.resize(size);
    QTest::qWait(1);
    faults += ClipFaults(window);
    if (window.height() > 800 || window.width() > 1280)
      faults += QString("too large %1 %2").arg(window.width()).arg(window.height());
  }
  return faults;
}

class ReachTest : public WindowTest {
  Q_OBJECT

  const QFont font_ = QApplication::font();

  /// Opens a window by a button of the groups, one of each name.
  void OpenOfGroups(const QString& button, const QString& name) {
    OpenForm("mnuGroups", "frmGroups");
    auto& ways = The<QComboBox>("cboGroupBy");
    ways.setCurrentText("Name up to a character");
    emit ways.activated(ways.currentIndex());
    const auto isReady = [this] { return The<QWidget>("cmdCancel").isHidden(); };
    QVERIFY(QTest::qWaitFor(isReady));
    The<QTableView>("grdGroups").selectAll();
    Press(button);
    form_ = W().Shown<QWidget>(name);
    QVERIFY(form_ && Activate(*form_) && QTest::qWaitFor(isReady));
  }

 private slots:
  void init() { window_.emplace(); }
  void cleanup() { QApplication::setPalette(QPalette()); }

  void everyWindowIsUsedWithoutAMouseAndReadWhole_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("large");
    for (const bool large : {false, true})
      for (const auto& [command, name] :
           {std::pair{"", "frmVelorix"}, std::pair{"mnuDataTable", "frmDataTable"},
            std::pair{"mnuAnalysis(1)", "frmGroupStatistics"},
            std::pair{"mnuAnalysis(3)", "frmContour"}, std::pair{"mnuFoliLine", "frmFoliLine"},
            std::pair{"mnuGroups", "frmGroups"}, std::pair{"cmdCompare", "frmComparison"},
            std::pair{"cmdUntilt", "frmUntilting"}, std::pair{"mnuGedEditor", "frmGEDEditor"},
            std::pair{"mnuManual", "frmManual"}, std::pair{"mnuEdit(1)", "frmEditData"},
            std::pair{"mnuOPAR", "frmOPAR"}, std::pair{"mnuAnisoFac", "frmAnisoFac"},
            std::pair{"mnuFigure", "frmFigure"}, std::pair{"mnuAxes", "frmAxes"},
            std::pair{"mnuAbout", "frmAbout"}})
        QTest::addRow("%s%s", name, large ? ", large and dark" : "") << command << name << large;
  }
  void everyWindowIsUsedWithoutAMouseAndReadWhole() {
    QFETCH(const QString, command);
    QFETCH(const QString, name);
    QFETCH(const bool, large);
    QFont font = font_;
    if (large) font.setPointSize(14);
    QApplication::setFont(font);
    if (large) QApplication::setPalette(QPalette(QColor(0x35, 0x35, 0x35)));
    const QColor text = QApplication::palette().color(QPalette::Text);
    for (const Mark mark : {Mark::Doubt, Mark::Matched, Mark::Fixed, Mark::Group})
      QVERIFY(Contrast(text, MarkColour(mark)) > 4.5);
    window_.emplace();
    W().Open(W().WriteFile("site", 6));
    QStringList faults;
    QList<QAction*> everywhere;
    for (QAction* action : W().Window.findChildren<QAction*>())
      if (action->shortcutContext() == Qt::ApplicationShortcut && action->isVisible())
        everywhere += action;
    const auto dialogs = {"frmEditData", "frmOPAR",   "frmAnisoFac",
                          "frmAbout",    "frmFigure", "frmAxes"};
    if (std::find(dialogs.begin(), dialogs.end(), name) != dialogs.end()) {
      ShowDialog(command.toUtf8(), [&] {
        QCOMPARE(form_->objectName(), name);
        faults = Faults(*form_, {});
      });
    } else {
      form_ = &W().Window;
      if (command.startsWith("cmd"))
        OpenOfGroups(command, name);
      else if (!command.isEmpty())
        OpenForm(command.toUtf8(), name.toUtf8());
      faults = Faults(*form_, everywhere);
    }
    QVERIFY2(faults.isEmpty(), qPrintable("\n" + faults.join('\n')));
  }

  void theDataTableIsSortedByKeys() {
    W().Open(W().WriteFile("site", 3));
    OpenForm("mnuDataTable", "frmDataTable");
    auto& table = The<QTableView>("scgAnisoView");
    QVERIFY(table.hasFocus());
    table.setCurrentIndex(table.model()->index(0, 1));
    for (const char* sorted : {"site1 site2 site3", "site3 site2 site1"}) {
      QTest::keyClick(&table, Qt::Key_S, Qt::AltModifier);  // the button is pressed for a while
      QTRY_VERIFY(table.horizontalHeader()->isSortIndicatorShown() &&
                  ColumnText(table, 1) == sorted);
    }
    QVERIFY(W().Selected().isEmpty());
  }

  void aQuestionIsAnsweredByKeys() {
    QtDialogs dialogs;
    QStringList faults;
    const auto answer = [&faults](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
      OnModal<QMessageBox>([&faults, key, modifiers](QMessageBox& box) {
        faults += Faults(box, {});
        QTest::keyClick(&box, key, modifiers);
      });
    };
    answer(Qt::Key_N, Qt::AltModifier);
    QCOMPARE(dialogs.Ask("Title", "A question?", {"&Yes", "&No", "&Cancel"}, 0), 1);
    answer(Qt::Key_Escape);
    QCOMPARE(dialogs.Ask("Title", "A question?", {"&Yes", "&No", "&Cancel"}, 0), 2);
    OnModal<QMessageBox>([&](QMessageBox& box) {
      QCOMPARE(box.windowTitle() + "|" + box.text() + "|" + box.buttons().value(0)->text(),
               "<<x>>|Line 1\nLine 2|OK");
      QCOMPARE(box.icon(), QMessageBox::Warning);
      QTest::keyClick(&box, Qt::Key_Return);
    });
    dialogs.Warn("<<x>>", "Line 1\nLine 2");
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
  }
};

}  // namespace
}  // namespace velorix

using velorix::ReachTest;
QTEST_MAIN(ReachTest)
#include "reach_test.moc"
