#include "app/state/refusals.h"

namespace velorix {

void ReportRefusal(Views& views, DebugLog& log, std::string text) {
  while (text.ends_with('\n')) text.pop_back();
  for (std::size_t at; (at = text.find('\n')) != text.npos;)
    text.replace(at, text.find_first_not_of('\n', at) - at,
                 text.substr(0, at).ends_with(':') ? " " : ": ");
  log.DebugPrint("Error: " + text);
  views.ShowStatus(text);
}

void ReportBoxes(Dialogs& dialogs, Views& views, DebugLog& log) {
  dialogs.OnRefusal = [&](const std::string& title, const std::string& text) {
    ReportRefusal(views, log, title + ": " + text);
  };
}

}  // namespace velorix
