#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "app/state/dialogs.h"

namespace velorix {

// The rules for doubtful cells, the same in both editors, and what the user is asked about them.
// Rows and columns count from 1.

/// An angle runs from 0 to `Highest` degrees, both included.
struct AngleRange {
  double Highest;
  const char* Doubt;  // of a value outside
};
inline constexpr AngleRange AzimuthRange = {360, "Azimuths are from 0 to 360."};
/// Kept for agreement with published results: twice the limit of a plunge.
inline constexpr AngleRange DipRange = {180, "Dips of foliations are from 0 to 180."};
inline constexpr AngleRange PlungeRange = {90, "Inclinations and plunges are from 0 to 90."};

/// The value of a cell's text as a 32-bit float, by its numeric prefix; not finite beyond that
/// range.
float AngleIn(const std::string& text);
/// What is doubtful in the text of an angle: a number too large, a text that is no number, a value
/// outside the range. Empty for a good one and for no text.
std::string AngleDoubt(const std::string& text, const AngleRange& range);
/// The doubt of a text that is no number, with the value that it is read as; else empty.
std::string NumberDoubt(const std::string& text);
/// Of a number that has no room in its field.
inline constexpr char TooLarge[] = "This number is too large.";

/// The codes of a sheet's foliations, or of its lineations, in all their spellings.
class CodeSpellings {
 public:
  void Add(const std::string& code);
  /// Another spelling of the code, which differs in the case of letters alone; empty where there is
  /// none, and for the spelling in capitals, the one that the rotation finds.
  std::string OtherOf(const std::string& code) const;

 private:
  std::map<std::string, std::set<std::string>> spellings_;  // by the code in capitals
  std::string last_;
};

/// What the codes of a sheet go by.
struct SheetCodes {
  int Room = 0;  // letters that the file has for a code; 0: no limit
  CodeSpellings Foliations, Lineations;
};
/// Letters for a code in files of this extension, in exactly these letters; 0 for other files.
int CodeRoom(const std::string& extension);
/// What is doubtful in a code: too long for the file, or spelled in two ways. `kind` is one of
/// those of `codes`.
std::string CodeDoubt(const std::string& code, const SheetCodes& codes, const CodeSpellings& kind);

/// The doubtful cells of a sheet: how many, and the first of them.
struct SheetDoubts {
  struct Cell {
    int Row = 0, Column = 0;
    std::string Text;  // "Row 2, Orientation Dec: 12,5 - This is read as 12."
  };
  static constexpr std::size_t Listed = 1000;

  int Count = 0;
  std::vector<Cell> First;  // at most `Listed`

  void Add(int row, int column, const std::string& name, const std::string& text,
           const std::string& doubt);
};

/// "2 cells are marked as doubtful, the first in row 2"; empty without a doubt.
std::string DoubtsLine(const SheetDoubts& doubts);

/// Asks whether to save a sheet with doubtful cells, which the box lists; without a doubt it gives
/// `Save` and asks nothing. `Show` leads to `Cell`, the one that is marked in the list.
struct DoubtAnswer {
  enum class Choice { Save, Show, Cancel } Chosen = Choice::Save;
  SheetDoubts::Cell Cell = {};
};
DoubtAnswer AskAboutDoubts(Dialogs& dialogs, const std::string& title, const SheetDoubts& doubts);

/// Asks whether an editor may close without what was typed. True to discard it.
bool AskToDiscard(Dialogs& dialogs, const std::string& title);

}  // namespace velorix
