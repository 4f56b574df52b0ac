#include "app/state/dialogs.h"

namespace velorix {

ListAnswer Dialogs::AskList(const std::string& title, const std::string& text,
                            const std::vector<std::string>& entries,
                            const std::vector<std::string>& buttons, int defaultButton) {
  std::string all = text + "\n";
  for (const std::string& entry : entries) all += "\n" + entry;
  return {Ask(title, all, buttons, defaultButton), 0};
}

void Show(Dialogs& dialogs, const Outcome& outcome, const char* button) {
  if (outcome || outcome.Text.empty()) return;
  if (outcome.IsWarning)
    dialogs.Warn(outcome.Title, outcome.Text);
  else
    dialogs.Ask(outcome.Title, outcome.Text, {button});
}

void ShowRefusal(Dialogs& dialogs, const Outcome& outcome, const char* button) {
  Show(dialogs, outcome, button);
  if (!outcome && !outcome.Text.empty() && dialogs.OnRefusal)
    dialogs.OnRefusal(outcome.Title, outcome.Text);
}

void Refuse(Dialogs& dialogs, const std::string& title, const std::string& text,
            const char* button) {
  ShowRefusal(dialogs, Outcome::Refused(title, text), button);
}

}  // namespace velorix
