#include "app/state/refusals.h"

namespace velorix {

void ReportRefusal(Views& views, DebugLog& log, std::string text) {
  for (std::size_t end; (end = text.find('\n')) != text.npos;) text.replace(end, 1, ": ");
  log.DebugPrint("Error: " + text);
  views.ShowStatus(text);
}

}  // namespace velorix
