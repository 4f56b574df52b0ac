#include "platform/batch/progress.h"

#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace velorix {

bool IsTerminal() {
#ifdef _WIN32
  return _isatty(2) != 0;
#else
  return isatty(2) != 0;
#endif
}

Progress::Progress(std::string work, int total, bool shown)
    : work_(std::move(work)), total_(total), shown_(shown) {}

Progress::~Progress() {
  if (written_) std::cerr << '\r' << std::string(work_.size() + 24, ' ') << '\r';
}

void Progress::Tell(int done) {
  if (!shown_ || Clock::now() < next_) return;
  next_ = Clock::now() + std::chrono::milliseconds(200);
  std::cerr << '\r' << work_ << ": " << done << " of " << total_ << std::flush;
  written_ = true;
}

}  // namespace velorix
