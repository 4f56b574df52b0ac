#include "app/state/debug_log.h"

#include <cerrno>
#include <utility>

#include "base/timer.h"
#include "datafiles/bytes/file_faults.h"
#include "text/dates.h"
#include "text/paths.h"

namespace velorix {

void DebugLog::Open(const std::string& path) {
  errno = 0;
  file_ = std::ofstream(PathOf(path), std::ios::binary | std::ios::trunc);
  if (!file_) FailOnFile(path);
  path_ = path;
  refused_ = false;
}

void DebugLog::DebugPrint(std::string_view text, bool noNewline, bool asIs) {
  if (!ToFile || !file_.is_open()) return;
  errno = 0;
  if (!asIs && !text.empty()) {
    const int indent = Indent > 0 ? 2 * Indent : 0;
    file_ << TimeText(Timer()) << ' ' << std::string(static_cast<std::size_t>(indent), ' ');
  }
  file_ << text;
  if (!noNewline) file_ << '\n';
  file_.flush();  // the last words before a crash are the ones looked for
  const std::error_code reason(errno != 0 ? errno : EIO, std::generic_category());
  if (!file_ && !std::exchange(refused_, true) && OnRefusal)
    OnRefusal(path_ + ": The log could not be written: " + reason.message());
  file_.clear();
}

}  // namespace velorix
