#pragma once

#include <QAction>
#include <vector>

#include "app/commands/commands.h"

class QMainWindow;

namespace velorix {

/// Menu bar and tool bar of the main window, made from the tables of menus and commands. Items and
/// buttons carry their system names ("mnuOpen", "Toolbar1(1)").
class CommandBars {
 public:
  void Build(QMainWindow& window, Velorix& velorix);
  /// The check marks follow the session.
  void ShowChoices();

 private:
  struct Entry {
    QAction* action;
    const Command* command;
  };
  QAction* MakeAction(QMainWindow& window, const Command& command,
                      void (*run)(Velorix&, const Command&));

  Velorix* velorix_ = nullptr;
  std::vector<Entry> entries_;
};

}  // namespace velorix
