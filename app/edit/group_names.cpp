#include "app/edit/group_names.h"

#include <algorithm>
#include <unordered_set>

namespace velorix {
namespace {

/// The first of "Group 1", "Group 2", ... that no group has.
std::string FreeName(const RecordGroupNames& names) {
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

RecordGroupNames NamesByHand(const Session& session, const std::optional<GroupBy>& parting) {
  if (parting) return GroupNames(session, *parting);
  return RecordGroupNames(static_cast<std::size_t>(session.RecordCount()));
}

Outcome NameNewGroup(const RecordArray& records, RecordGroupNames& names) {
  if (std::none_of(records.begin(), records.end(),
                   [](const SpecimenRecord& record) { return record.Selected; }))
    return Outcome::Refused({}, "No records are selected for a new group.");
  const std::string name = FreeName(names);
  std::size_t i = 0;
  for (const SpecimenRecord& record : records) {
    if (record.Selected) names[i] = name;
    ++i;
  }
  return {};
}

Outcome RenameGroup(RecordGroupNames& names, const std::string& from, const std::string& to) {
  const std::string name = CleanName(to);
  if (name.empty()) return Outcome::Refused({}, "A group needs a name.");
  if (name == from) return Outcome::Refused();
  if (std::find(names.begin(), names.end(), name) != names.end())
    return Outcome::Refused(
        {}, "There is a group \"" + name + "\" already. \"Merge\" makes one group of two.");
  std::replace(names.begin(), names.end(), from, name);
  return {};
}

Outcome MergeGroups(RecordGroupNames& names, const std::vector<std::string>& merged) {
  if (merged.size() < 2)
    return Outcome::Refused({}, "Two or more groups are needed; select their rows.");
  const std::unordered_set<std::string> all(merged.begin(), merged.end());
  for (std::string& name : names)
    if (all.contains(name)) name = merged.front();
  return {};
}

}  // namespace velorix
