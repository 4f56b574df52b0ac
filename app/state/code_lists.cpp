#include "app/state/code_lists.h"

#include <algorithm>
#include <cctype>

#include "plot/net/stereo.h"

namespace velorix {
namespace {

constexpr unsigned FoliationColour = 0xFFFFC0, LineationColour = 0xFFC0FF, StrikeColour = 0x800080;

/// Codes are stored in upper case; only ASCII letters have one here, as in the file formats' codes.
std::string UpperCode(std::string code) {
  for (char& c : code)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return code;
}

/// Adds the codes of both slots that `list` lacks; true when there was one.
bool AddCodes(CodeList& list, const Array1<std::string, 4>& codes, int itemData, unsigned colour) {
  bool added = false;
  for (int slot = 1; slot <= 2; ++slot) {
    if (codes[slot].empty()) continue;
    const std::string code = UpperCode(codes[slot]);
    if (list.Has(code)) continue;
    list.Add({code, itemData, colour});
    added = true;
  }
  return added;
}

void KeepChoice(CodeList& list, const CodeList& before) {
  for (std::size_t i = 0; i < list.Entries.size(); ++i)
    if (before.ListIndex >= 0 && list.Entries[i].Text == before.Text())
      list.ListIndex = static_cast<int>(i);
}

void KeepTicks(CodeList& list, const CodeList& before) {
  const std::vector<std::string> ticked = before.SelectedCodes();
  const auto wasTicked = [&ticked](const CodeEntry& entry) {
    return std::find(ticked.begin(), ticked.end(), entry.Text) != ticked.end();
  };
  if (std::none_of(list.Entries.begin(), list.Entries.end(), wasTicked)) return;
  for (CodeEntry& entry : list.Entries) entry.Selected = wasTicked(entry);
}

}  // namespace

void CodeList::Add(CodeEntry entry) {
  known_.insert(entry.Text);
  Entries.push_back(std::move(entry));
}

void CodeList::Remove(int itemData) {
  const std::string selected = Text();
  std::erase_if(Entries, [&](const CodeEntry& entry) {
    if (entry.ItemData != itemData) return false;
    known_.erase(entry.Text);
    return true;
  });
  const auto kept = std::find_if(Entries.begin(), Entries.end(),
                                 [&](const CodeEntry& e) { return e.Text == selected; });
  ListIndex =
      ListIndex < 0 || kept == Entries.end() ? -1 : static_cast<int>(kept - Entries.begin());
}

std::string CodeList::Text() const {
  return ListIndex < 0 ? std::string() : Entries[static_cast<std::size_t>(ListIndex)].Text;
}

std::vector<std::string> CodeList::SelectedCodes() const {
  std::vector<std::string> codes;
  for (const CodeEntry& entry : Entries)
    if (entry.Selected) codes.push_back(entry.Text);
  return codes;
}

void ListAddCodes(CodeLists& lists, const SpecimenRecord& record, int itemData) {
  if (AddCodes(lists.foliationsShown, record.FoliName, itemData, FoliationColour))
    lists.foliationsShown.Entries.front().Selected = true;
  if (AddCodes(lists.lineationsShown, record.LineName, itemData, LineationColour))
    lists.lineationsShown.Entries.front().Selected = true;
}

void ComboAddCodes(CodeLists& lists, const SpecimenRecord& record, int itemData) {
  const bool foliation =
      AddCodes(lists.foliationsInUse, record.FoliName, itemData, FoliationColour);
  bool lineation = AddCodes(lists.lineationsInUse, record.LineName, itemData, LineationColour);
  if (lists.lineationsInUse.Entries.empty()) {
    lists.lineationsInUse.Add({"0", itemData, StrikeColour});
    lineation = true;
  }
  if (foliation && lists.foliationsInUse.ListIndex < 0) lists.foliationsInUse.ListIndex = 0;
  if (lineation && lists.lineationsInUse.ListIndex < 0) lists.lineationsInUse.ListIndex = 0;
}

void ResetCodes(CodeLists& lists) {
  for (CodeList* list : {&lists.foliationsShown, &lists.lineationsShown, &lists.foliationsInUse,
                         &lists.lineationsInUse})
    list->Remove(FromData);
}

void TakeCodesInUse(const CodeLists& lists, std::string& foliCode, std::string& lineCode) {
  foliCode = lists.foliationsInUse.Text();
  lineCode = lists.lineationsInUse.Text();
}

void TakeCodesShown(const CodeLists& lists, StereoOptions& net) {
  net.foliationCodes = lists.foliationsShown.SelectedCodes();
  net.lineationCodes = lists.lineationsShown.SelectedCodes();
}

void RefillCodes(CodeLists& lists, const RecordArray& records, std::string& foliCode,
                 std::string& lineCode) {
  const CodeLists before = lists;
  ResetCodes(lists);
  for (const SpecimenRecord& record : records) {
    ListAddCodes(lists, record, FromData);
    ComboAddCodes(lists, record, FromData);
  }
  KeepTicks(lists.foliationsShown, before.foliationsShown);
  KeepTicks(lists.lineationsShown, before.lineationsShown);
  KeepChoice(lists.foliationsInUse, before.foliationsInUse);
  KeepChoice(lists.lineationsInUse, before.lineationsInUse);
  TakeCodesInUse(lists, foliCode, lineCode);
}

}  // namespace velorix
