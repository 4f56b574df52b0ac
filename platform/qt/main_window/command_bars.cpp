#include "platform/qt/main_window/command_bars.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

/// The keys that switch views and windows work from the program's other windows, too: the function
/// keys, and that of the groups.
bool WorksEverywhere(const std::string& key) {
  return key == "Ctrl+G" || (key.size() > 1 && key[0] == 'F' && key[1] >= '1' && key[1] <= '9');
}

constexpr int IconSize = 24;

/// Puts runs of neighbouring choices into one exclusive group each, so that they look like one.
struct ChoiceGroups {
  QObject* owner;
  QActionGroup* group = nullptr;

  void Add(QAction* action, const Command& command, bool first) {
    if (command.Look != Command::Radio || first) group = nullptr;
    if (command.Look != Command::Radio) return;
    if (!group) group = new QActionGroup(owner);
    group->addAction(action);
  }
};

/// The keys between bars. The toolkit's own keys of a command are not taken: among those to undo is
/// one that restores the records here.
QList<QKeySequence> KeysOf(const char* keys) {
  QList<QKeySequence> sequences;
  for (const QString& key : QString(keys).split('|', Qt::SkipEmptyParts))
    sequences.push_back(QKeySequence(key));
  return sequences;
}

/// A button without an item goes by its tip.
QString TextOf(const Command& command) { return *command.Caption ? command.Caption : command.Tip; }

}  // namespace

QAction* CommandBars::MakeAction(QMainWindow& window, const Command& command,
                                 void (*run)(Velorix&, const Command&)) {
  auto* action = new QAction(OwnIcon(command.Icon), TextOf(command), &window);
  action->setCheckable(command.Look != Command::Action);
  action->setEnabled(command.Run && !command.Hidden);
  action->setVisible(!command.Hidden);
  QObject::connect(action, &QAction::triggered, &window, [this, &window, &command, run] {
    BusyCursor cursor;
    if (velorix_->Session.RecordCount() > 0) window.statusBar()->clearMessage();
    run(*velorix_, command);
    ShowChoices();  // a click has turned the mark, whether the command did its work or not
  });
  entries_.push_back({action, &command});
  return action;
}

void CommandBars::Build(QMainWindow& window, Velorix& velorix) {
  velorix_ = &velorix;
  for (const Menu& menu : Menus()) {
    QMenu* item = window.menuBar()->addMenu(menu.Caption);
    item->setObjectName(menu.Name);
    item->setToolTipsVisible(true);
  }
  QToolBar* bar = window.addToolBar("Tool bar");
  bar->setObjectName("Toolbar1");
  bar->setMovable(false);
  bar->setIconSize(QSize(IconSize, IconSize));
  bar->setContextMenuPolicy(Qt::PreventContextMenu);

  ChoiceGroups items{&window}, buttons{&window};
  int last = 0;
  for (const Command& command : Commands()) {
    if (*command.Menu) {
      auto* menu = window.menuBar()->findChild<QMenu*>(command.Menu);
      if (command.SeparatorBefore) menu->addSeparator();
      QAction* action = MakeAction(window, command, RunMenu);
      action->setObjectName(command.Name);
      action->setShortcuts(KeysOf(command.Key));
      if (WorksEverywhere(command.Key)) action->setShortcutContext(Qt::ApplicationShortcut);
      menu->addAction(action);
      items.Add(action, command, command.SeparatorBefore);
    }
    if (command.Button) {
      const bool gap = command.Button != last + 1;
      if (gap && last) bar->addSeparator();
      last = command.Button;
      QAction* action = MakeAction(window, command, RunButton);
      action->setObjectName(QString("Toolbar1(%1)").arg(command.Button));
      action->setToolTip(command.Tip);
      if (!*command.Tip) action->setStatusTip(action->text());
      bar->addAction(action);
      QWidget* button = bar->widgetForAction(action);
      button->setObjectName(action->objectName());
      if (!*command.Tip) {
        button->setToolTip({});  // else the action's text
        button->setAccessibleName(action->text());
      }
      button->setFocusPolicy(Qt::TabFocus);
      buttons.Add(action, command, gap);
    }
  }
}

void CommandBars::ShowChoices() {
  for (const Entry& entry : entries_) {
    if (entry.action->isCheckable())
      entry.action->setChecked(entry.command->Checked && entry.command->Checked(*velorix_));
    if (!entry.command->CaptionNow) continue;
    const std::string caption = entry.command->CaptionNow(*velorix_);
    entry.action->setText(caption.empty() ? entry.command->Caption : ToQString(caption));
    entry.action->setEnabled(!caption.empty());
  }
}

}  // namespace velorix
