#pragma once

#include <functional>
#include <span>
#include <string>

#include "app/commands/velorix.h"

namespace velorix {

/// A menu of the main window's menu bar.
struct Menu {
  const char* Name;
  const char* Caption;  // "&" before the letter that opens it with Alt
};
std::span<const Menu> Menus();

/// One command: its menu item, its tool-bar button, or both.
struct Command {
  enum Kind { Action, Check, Radio };

  const char* Name;       // of the menu item, "mnuOpen"
  const char* Menu;       // name of its menu; empty: tool bar only
  const char* Caption;    // of the menu item; without one, what a button without a tip does
  const char* Key;        // short-cut, "Ctrl+O", several between bars, or empty
  int Button;             // index in the tool bar, 0: none; a missing index is a separator
  const char* Tip;        // of the button
  const char* Icon;       // name of the picture for button and menu item
  Kind Look;              // Radio: exclusive among the neighbours in the table that are Radio too
  bool Hidden;            // present, but neither visible nor enabled
  void (*Run)(Velorix&);  // null only for hidden ones, which do nothing
  bool (*Checked)(const Velorix&);  // null: never checked
  bool SeparatorBefore;             // in the menu
  /// What the caption says now, where that changes; empty: there is nothing to do. Null: `Caption`.
  std::string (*CaptionNow)(const Velorix&) = nullptr;
};
std::span<const Command> Commands();

/// The command with this name; a programming fault when there is none.
const Command& CommandNamed(const std::string& name);

/// Runs a menu item: its routine under `Guarded`, and `DisplayData` behind a choice of view.
void RunMenu(Velorix& velorix, const Command& command);
/// Runs a tool-bar button: its routine, then `DisplayData` with the lists reset, whatever the
/// button.
void RunButton(Velorix& velorix, const Command& command);

/// The handler around every command and every control: a failure is shown with the system's text in
/// a box (one of the group statistics in the status line alone), the views are refreshed, and the
/// program goes on. True when nothing failed.
bool Guarded(Velorix& velorix, const std::function<void()>& work);

/// Turns the tensors of every record by 90 degrees about the vertical axis, a diagnostic.
void RotateAllNinety(RecordArray& records);

/// Asks whether to leave; what is unsaved stands below. True for "&Yes".
bool ConfirmExit(Dialogs& dialogs, const Session& session, const History& history);

}  // namespace velorix
