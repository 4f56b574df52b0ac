#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "store/record_array.h"

namespace velorix {

struct StereoOptions;

/// Item data of a code found in the data.
inline constexpr int FromData = 1;

/// One entry of a list of codes. A code found in the data goes with the next reset of the lists.
struct CodeEntry {
  std::string Text;
  int ItemData = 0;
  unsigned Colour = 0xFFFFFF;  // 0x00BBGGRR
  bool Selected = false;       // of the check lists
};

/// A list of upper-case codes. A combo list has one selection, `ListIndex`; a check list has
/// `Selected` in each entry.
struct CodeList {
  std::vector<CodeEntry> Entries;
  int ListIndex = -1;  // from 0; -1 none

  bool Has(const std::string& code) const { return known_.contains(code); }
  void Add(CodeEntry entry);
  /// Takes the entries with `itemData` away; a selection that goes with them is gone.
  void Remove(int itemData);
  /// The selected code of a combo list, empty when there is none.
  std::string Text() const;
  /// The selected codes of a check list, in list order.
  std::vector<std::string> SelectedCodes() const;

 private:
  std::unordered_set<std::string> known_;
};

/// The lists of the main window that name the foliations and lineations found in the data: those
/// of which the rotation uses one code each, and those whose ticked codes the stereonet shows.
struct CodeLists {
  CodeList foliationsInUse, lineationsInUse;
  CodeList foliationsShown, lineationsShown;
};

/// Adds the codes of slots 1 and 2 to the lists of codes shown; a list that got a code selects
/// its first entry.
void ListAddCodes(CodeLists& lists, const SpecimenRecord& record, int itemData);

/// Adds the codes of slots 1 and 2 to the lists of codes in use. A lineation list that stays empty
/// gets "0", the code for the strike of the foliation. A list without a selection that got an entry
/// selects the first.
void ComboAddCodes(CodeLists& lists, const SpecimenRecord& record, int itemData);

/// Takes the codes found in the data away.
void ResetCodes(CodeLists& lists);

/// `foliCode` and `lineCode` become the codes that the lists of codes in use show; a list that
/// shows nothing gives an empty code.
void TakeCodesInUse(const CodeLists& lists, std::string& foliCode, std::string& lineCode);
/// The net shows the codes that are ticked.
void TakeCodesShown(const CodeLists& lists, StereoOptions& net);

/// Fills the lists with the codes of changed records. What was chosen or ticked and still exists
/// stays so; a list that has nothing left of it chooses or ticks its first entry. `foliCode` and
/// `lineCode` become what the lists of codes in use show.
void RefillCodes(CodeLists& lists, const RecordArray& records, std::string& foliCode,
                 std::string& lineCode);

}  // namespace velorix
