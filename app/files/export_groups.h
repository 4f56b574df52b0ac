#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/state/debug_log.h"
#include "app/state/dialogs.h"
#include "app/state/views.h"
#include "app/tables/comparison_table.h"
#include "stats/study/study.h"
#include "store/session.h"

namespace velorix {

/// Asks for a file and writes the table of groups there, as comma-separated text with a row of
/// headers and, where there is an `origin`, columns of what the numbers are of. A file that can't
/// be written is reported in the status line and the log, and stays as it was.
void ExportGroups(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log,
                  const std::vector<const GroupRow*>& rows,
                  const std::optional<StudyOrigin>& origin);

/// The same for comparisons of the groups.
void ExportComparisons(const Session& session, Dialogs& dialogs, Views& views, DebugLog& log,
                       std::span<const ComparedPair* const> pairs,
                       std::span<const std::string> names, const StudyOrigin& origin);

}  // namespace velorix
