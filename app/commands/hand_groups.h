#pragma once

#include <string>
#include <vector>

#include "app/commands/velorix.h"

namespace velorix {

// Groups by hand. Each change begins with the groups as they are parted now, of all records of the
// store, and leaves the records parted by hand. It can be undone. The status line says what is
// refused, and then nothing changes.

/// The selected records become a group of their own, named "Group" with the next free number.
void NewHandGroup(Velorix& velorix);

/// Another name for a group, without control characters and without blanks at its ends. Empty
/// names and those of other groups are refused.
void RenameHandGroup(Velorix& velorix, const std::string& from, const std::string& to);

/// The records of all groups of `merged` come to the first of them; at least two.
void MergeHandGroups(Velorix& velorix, const std::vector<std::string>& merged);

}  // namespace velorix
