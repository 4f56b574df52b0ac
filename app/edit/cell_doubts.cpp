#include "app/edit/cell_doubts.h"

#include <cmath>

#include "app/files/file_kinds.h"
#include "base/rounding.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace velorix {

float AngleIn(const std::string& text) { return static_cast<float>(Round32(NumberOf(text))); }

std::string NumberDoubt(const std::string& text) {
  if (IsNumberText(text)) return {};
  const char* comma = text.find(',') == text.npos ? "" : "A comma is no decimal point. ";
  return std::string(comma) + "This is read as " + PlainText(AngleIn(text)) + ".";
}

std::string AngleDoubt(const std::string& text, const AngleRange& range) {
  if (text.empty()) return {};
  const float value = AngleIn(text);
  if (!std::isfinite(value)) return TooLarge;
  std::string doubt = NumberDoubt(text);
  if (doubt.empty() && (value < 0 || value > range.Highest)) doubt = range.Doubt;
  return doubt;
}

void CodeSpellings::Add(const std::string& code) {
  if (code.empty() || code == last_) return;  // most rows have the code of the row before
  last_ = code;
  spellings_[UpperCase(code)].insert(code);
}

std::string CodeSpellings::OtherOf(const std::string& code) const {
  const auto found = spellings_.find(UpperCase(code));
  if (found == spellings_.end() || code == found->first) return {};
  const std::set<std::string>& spellings = found->second;
  if (spellings.contains(found->first)) return found->first;
  for (const std::string& other : spellings)
    if (other != code) return other;
  return {};
}

int CodeRoom(const std::string& extension) {
  const FileKind* const kind = KindToWrite(extension);
  return kind ? kind->CodeLetters : 0;
}

std::string CodeDoubt(const std::string& code, const SheetCodes& codes, const CodeSpellings& kind) {
  if (code.empty()) return {};
  const bool isLong =
      codes.Room > 0 && ToCodePage(code).size() > static_cast<std::size_t>(codes.Room);
  if (isLong)
    return "The file has " + std::to_string(codes.Room) +
           (codes.Room == 1 ? " letter" : " letters") + " for a code.";
  const std::string other = kind.OtherOf(code);
  return other.empty() ? "" : "Another cell has " + other + "; the rotation finds capitals alone.";
}

void SheetDoubts::Add(int row, int column, const std::string& name, const std::string& text,
                      const std::string& doubt) {
  ++Count;
  if (First.size() < Listed) First.push_back({row, column, name + ": " + text + " - " + doubt});
}

std::string DoubtsLine(const SheetDoubts& doubts) {
  if (doubts.Count == 0) return {};
  const std::string row = std::to_string(doubts.First.front().Row);
  return doubts.Count == 1 ? "1 cell is marked as doubtful, in row " + row
                           : std::to_string(doubts.Count) +
                                 " cells are marked as doubtful, the first in row " + row;
}

DoubtAnswer AskAboutDoubts(Dialogs& dialogs, const std::string& title, const SheetDoubts& doubts) {
  if (doubts.Count == 0) return {};
  std::string text = doubts.Count == 1 ? "1 cell is doubtful."
                                       : std::to_string(doubts.Count) + " cells are doubtful.";
  const std::size_t listed = doubts.First.size();
  if (static_cast<std::size_t>(doubts.Count) > listed)
    text += " The first " + std::to_string(listed) + " are listed.";
  std::vector<std::string> entries;
  for (const SheetDoubts::Cell& cell : doubts.First) entries.push_back(cell.Text);
  const ListAnswer answer = dialogs.AskList(title, text + " Save the sheet as it stands?", entries,
                                            {"&Save", "S&how", "&Cancel"}, 1);
  return {static_cast<DoubtAnswer::Choice>(answer.Button),
          doubts.First[static_cast<std::size_t>(answer.Entry)]};
}

bool AskToDiscard(Dialogs& dialogs, const std::string& title) {
  return dialogs.Ask(title, "Discard what was typed?", {"&Discard", "&Keep editing"}, 1) == 0;
}

}  // namespace velorix
