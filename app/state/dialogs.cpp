#include "app/state/dialogs.h"

namespace velorix {

void Show(Dialogs& dialogs, const Outcome& outcome, const char* button) {
  if (outcome || outcome.Text.empty()) return;
  if (outcome.IsWarning)
    dialogs.Warn(outcome.Title, outcome.Text);
  else
    dialogs.Ask(outcome.Title, outcome.Text, {button});
}

}  // namespace velorix
