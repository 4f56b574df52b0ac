#include "app/commands/hand_groups.h"

#include <utility>

#include "app/commands/display.h"
#include "app/edit/group_names.h"

namespace velorix {
namespace {

/// Parts the records by hand, into the groups that `change` makes of those of now.
template <class Change>
void Put(Velorix& velorix, const char* what, const Change& change) {
  RecordGroupNames names = NamesByHand(velorix.Session, velorix.Plots.Groups.Parting);
  if (const Outcome outcome = change(names); !outcome) {
    if (!outcome.Text.empty()) velorix.Views.ShowStatus(outcome.Text);
    return;
  }
  Step step{what, {HeldHandGroups{std::exchange(velorix.Session.HandGroups, std::move(names))}}};
  velorix.History.Add(velorix.Session, std::move(step));
  velorix.Plots.Groups.Parting = ByHand();
  RefreshViews(velorix);
}

}  // namespace

void NewHandGroup(Velorix& velorix) {
  Put(velorix, "New group",
      [&](RecordGroupNames& names) { return NameNewGroup(velorix.Session.Records, names); });
}

void RenameHandGroup(Velorix& velorix, const std::string& from, const std::string& to) {
  Put(velorix, "Rename group",
      [&](RecordGroupNames& names) { return RenameGroup(names, from, to); });
}

void MergeHandGroups(Velorix& velorix, const std::vector<std::string>& merged) {
  Put(velorix, "Merge groups", [&](RecordGroupNames& names) { return MergeGroups(names, merged); });
}

}  // namespace velorix
