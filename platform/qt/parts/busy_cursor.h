#pragma once

#include <QElapsedTimer>
#include <functional>

#include "app/commands/velorix.h"

namespace velorix {

/// The busy cursor for one command. A command blocks the thread, so the views, which it calls
/// between its steps, look at the clock: `ShowBusyCursor` turns the cursor once 0.3 s have passed.
class BusyCursor {
 public:
  BusyCursor();
  ~BusyCursor();
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
};

/// Looks at the clock of the command in hand; nothing happens when there is none.
void ShowBusyCursor();
/// Takes the busy cursor away and starts the clock again: the user is asked something.
void PauseBusyCursor();

/// Runs what a control of a window decides, as a command.
void Work(Velorix& velorix, const std::function<void()>& work);

}  // namespace velorix
