#include "text/lines.h"

#include <algorithm>

#include "text/numbers.h"

namespace velorix {

namespace {

constexpr int PartsOfSplit = 100;  // of SplitAtChar, from the start

/// The parts of `line` between runs of `separator`, none of them empty.
void Split(std::string_view line, char separator, Tokens& tokens) {
  for (std::size_t from = 0;;) {
    from = line.find_first_not_of(separator, from);
    if (from == line.npos) return;
    const std::size_t to = std::min(line.find(separator, from), line.size());
    tokens.Add(line.substr(from, to - from));
    from = to;
  }
}

std::string WithoutBelow(std::string_view text, unsigned char limit) {
  std::string result(text);
  std::erase_if(result, [limit](char c) { return static_cast<unsigned char>(c) < limit; });
  return result;
}

}  // namespace

void SplitBlanks(std::string_view line, Tokens& tokens) {
  tokens.Clear();
  Split(line, ' ', tokens);
  if (tokens.Count() == 0) tokens.Add({});
}

Tokens SplitBlanks(std::string_view line) {
  Tokens tokens;
  SplitBlanks(line, tokens);
  return tokens;
}

Tokens SplitAtChar(std::string_view text, char separator) {
  Tokens tokens;
  Split(text, separator, tokens);
  if (tokens.Count() > PartsOfSplit) FailSubscript();
  while (tokens.Count() < PartsOfSplit) tokens.Add({});
  return tokens;
}

// Kept for agreement with published results: 30 here and 32 below, so that the codes 30 and 31
// stay in a name.
std::string CleanName(std::string_view text) { return WithoutBelow(StripBlanks(text), 30); }

std::string StripControls(std::string_view text) { return WithoutBelow(text, 32); }

}  // namespace velorix
