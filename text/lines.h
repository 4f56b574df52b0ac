#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/fault.h"

namespace velorix {

/// The parts of a line, counted from 1. They look into the line, which must outlive them.
class Tokens {
 public:
  int Count() const { return static_cast<int>(parts_.size()); }

  /// Part `i`; "Subscript out of range" outside 1 to `Count()`.
  std::string_view Token(int i) const {
    if (i < 1 || i > Count()) FailSubscript();
    return parts_[static_cast<std::size_t>(i - 1)];
  }

  void Clear() { parts_.clear(); }
  void Add(std::string_view part) { parts_.push_back(part); }

 private:
  std::vector<std::string_view> parts_;
};

/// Strips blanks at both ends and splits at runs of blanks; tabs are part of a token. A line with
/// nothing but blanks gives one empty token. `tokens` keeps its memory from line to line.
void SplitBlanks(std::string_view line, Tokens& tokens);
Tokens SplitBlanks(std::string_view line);

/// Strips the separator at both ends and splits at runs of it. There are always 100 tokens, the
/// last ones empty: a caller may ask for a part that the text lacks. More than 100 parts are
/// "Subscript out of range".
Tokens SplitAtChar(std::string_view text, char separator);

/// `text` stripped of blanks at both ends, then without the characters with a code below 30; a
/// blank next to one of these stays.
std::string CleanName(std::string_view text);

/// `text` without the characters with a code below 32; blanks stay.
std::string StripControls(std::string_view text);

}  // namespace velorix
