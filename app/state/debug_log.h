#pragma once

#include <fstream>
#include <functional>
#include <string>
#include <string_view>

namespace velorix {

/// The log of a run, a UTF-8 text file. Without `Open` every entry goes nowhere.
class DebugLog {
 public:
  bool ToFile = true;
  int Indent = 0;  // steps of two blanks
  /// Called with path and reason at the first entry that could not be written.
  std::function<void(const std::string& text)> OnRefusal = {};

  /// Starts the file at `path` (UTF-8) empty. A `FileFault` when it can't be
  /// written.
  void Open(const std::string& path);

  /// One entry: the time, the indent and `text`. An empty `text`, or any with `asIs`, is printed
  /// bare; `noNewline` leaves the line open for the next entry. A log that can't be written stops
  /// no command.
  void DebugPrint(std::string_view text, bool noNewline = false, bool asIs = false);

 private:
  std::ofstream file_;
  std::string path_;
  bool refused_ = false;
};

}  // namespace velorix
