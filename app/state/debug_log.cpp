#include "app/state/debug_log.h"

#include <cerrno>

#include "base/timer.h"
#include "datafiles/file_faults.h"
#include "text/dates.h"
#include "text/paths.h"

namespace velorix {

void DebugLog::Open(const std::string& path) {
  errno = 0;
  file_ = std::ofstream(PathOf(path), std::ios::binary | std::ios::trunc);
  if (!file_) FailOnFile(path);
}

void DebugLog::DebugPrint(std::string_view text, bool noNewline, bool asIs) {
  if (!ToFile || !file_.is_open()) return;
  if (!asIs && !text.empty()) {
    const int indent = Indent > 0 ? 2 * Indent : 0;
    file_ << TimeText(Timer()) << ' ' << std::string(static_cast<std::size_t>(indent), ' ');
  }
  file_ << text;
  if (!noNewline) file_ << '\n';
  file_.flush();  // the last words before a crash are the ones looked for
  file_.clear();
}

}  // namespace velorix
