#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "app/commands/velorix.h"
#include "app/pictures/graphics_page.h"
#include "stats/study/grouping.h"

namespace velorix {

/// How the table of groups is written.
enum class GroupsForm { Json, Csv };
/// That of an output, by its extension; "-" is JSON. Nothing for another extension.
std::optional<GroupsForm> GroupsFormOf(const std::string& output);

/// The statistics of each group and of all records in view. Standard error names each group whose
/// statistics fail; progress goes there, too, when it is `shown`.
void WriteGroups(std::ostream& out, const Velorix& velorix, const GroupBy& by, GroupsForm form,
                 bool shown);

/// One page with a small net a group, as a picture of the extension's type. Standard error has
/// failures and progress as above, the failures only when `saysFailures`. False when it couldn't be
/// written; the status line says why.
bool WritePanels(Velorix& velorix, const GroupBy& by, const PictureAnswer& to, bool saysFailures,
                 bool shown);

/// Every pair of groups as JSON, under what the numbers are of. Standard error names each group
/// that can't be compared; progress as above.
void WriteComparisons(std::ostream& out, const Velorix& velorix, const GroupBy& by, bool shown);

}  // namespace velorix
