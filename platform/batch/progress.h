#pragma once

#include <chrono>
#include <string>

namespace velorix {

/// Whether standard error is a terminal.
bool IsTerminal();

/// A line on standard error that says how far long work is, written over and over and wiped at the
/// end. Work that is done within a second shows none.
class Progress {
 public:
  /// Nothing is ever written unless `shown`.
  Progress(std::string work, int total, bool shown);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Tell(int done);

 private:
  using Clock = std::chrono::steady_clock;

  std::string work_;
  int total_;
  bool shown_, written_ = false;
  Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
};

}  // namespace velorix
