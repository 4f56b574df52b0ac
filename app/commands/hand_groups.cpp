#include "app/commands/hand_groups.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "app/display/display.h"

namespace velorix {
namespace {

using Names = std::vector<std::string>;

Names NamesNow(const Velorix& velorix) {
  const auto& parting = velorix.Plots.Groups.Parting;
  if (parting) return GroupNames(velorix.Session, *parting);
  return Names(static_cast<std::size_t>(velorix.Session.RecordCount()));
}

/// Parts the records by hand, into these groups.
void Put(Velorix& velorix, const char* what, Names names) {
  Step step{what, {HeldHandGroups{std::exchange(velorix.Session.HandGroups, std::move(names))}}};
  velorix.History.Add(velorix.Session, std::move(step));
  velorix.Plots.Groups.Parting = ByHand();
  RefreshViews(velorix);
}

/// The first of "Group 1", "Group 2", ... that no group has.
std::string FreeName(const Names& names) {
  const std::unordered_set<std::string> taken(names.begin(), names.end());
  for (int number = 1;; ++number)
    if (std::string name = "Group " + std::to_string(number); !taken.contains(name)) return name;
}

/// Without control characters, in one byte or in the two of U+0080 to U+009F, and without blanks at
/// the ends.
std::string CleanName(const std::string& text) {
  const auto at = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
  };
  std::string name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (at(i) == 0xC2 && at(i + 1) >= 0x80 && at(i + 1) < 0xA0)
      ++i;
    else if (at(i) >= 0x20 && at(i) != 0x7F)
      name += text[i];
  }
  const std::size_t first = name.find_first_not_of(' ');
  return first == name.npos ? "" : name.substr(first, name.find_last_not_of(' ') - first + 1);
}

}  // namespace

void NewHandGroup(Velorix& velorix) {
  const RecordArray& records = velorix.Session.Records;
  if (std::none_of(records.begin(), records.end(),
                   [](const SpecimenRecord& record) { return record.Selected; }))
    return velorix.Views.ShowStatus("No records are selected for a new group.");
  Names names = NamesNow(velorix);
  const std::string name = FreeName(names);
  std::size_t i = 0;
  for (const SpecimenRecord& record : records) {
    if (record.Selected) names[i] = name;
    ++i;
  }
  Put(velorix, "New group", std::move(names));
}

void RenameHandGroup(Velorix& velorix, const std::string& from, const std::string& to) {
  const std::string name = CleanName(to);
  if (name.empty()) return velorix.Views.ShowStatus("A group needs a name.");
  if (name == from) return;
  Names names = NamesNow(velorix);
  if (std::find(names.begin(), names.end(), name) != names.end())
    return velorix.Views.ShowStatus("There is a group \"" + name +
                                    "\" already. \"Merge\" makes one group of two.");
  std::replace(names.begin(), names.end(), from, name);
  Put(velorix, "Rename group", std::move(names));
}

void MergeHandGroups(Velorix& velorix, const std::vector<std::string>& names) {
  if (names.size() < 2)
    return velorix.Views.ShowStatus("Two or more groups are needed; select their rows.");
  const std::unordered_set<std::string> merged(names.begin(), names.end());
  Names all = NamesNow(velorix);
  for (std::string& name : all)
    if (merged.contains(name)) name = names.front();
  Put(velorix, "Merge groups", std::move(all));
}

}  // namespace velorix
