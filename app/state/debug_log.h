#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace velorix {

/// The diary of a run, a UTF-8 text file. Without `Open` every entry goes nowhere.
class DebugLog {
 public:
  bool ToFile = true;
  int Indent = 0;  // steps of two blanks

  /// Starts the file at `path` (UTF-8) empty. A `FileFault` when it can't be
  /// written.
  void Open(const std::string& path);

  /// One entry: the time, the indent and `text`. An empty `text`, or any with `asIs`, is printed
  /// bare; `noNewline` leaves the line open for the next entry. A failure to write is ignored.
  void DebugPrint(std::string_view text, bool noNewline = false, bool asIs = false);

 private:
  std::ofstream file_;
};

}  // namespace velorix
