#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "stats/study/grouping.h"
#include "store/session.h"

namespace velorix {

// The rules for groups by hand. What is refused leaves the names as they were.

/// The name of each record's group, of all records of the store.
using RecordGroupNames = std::vector<std::string>;

/// The groups as they are parted; without a parting the names are empty.
RecordGroupNames NamesByHand(const Session& session, const std::optional<GroupBy>& parting);

/// The selected records get the first of "Group 1", "Group 2", ... that no group has. Refused
/// without selected records.
Outcome NameNewGroup(const RecordArray& records, RecordGroupNames& names);

/// Another name for a group, without control characters and without blanks at its ends. Empty
/// names and those of other groups are refused; the same name is refused silently.
Outcome RenameGroup(RecordGroupNames& names, const std::string& from, const std::string& to);

/// All groups of `merged` get the name of the first. Refused for less than two.
Outcome MergeGroups(RecordGroupNames& names, const std::vector<std::string>& merged);

}  // namespace velorix
