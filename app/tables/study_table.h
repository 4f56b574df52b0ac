#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "stats/study/study.h"
#include "store/settings.h"

namespace velorix {

// The table of groups as a window shows it: a row a group. Angles are degrees.

/// A cell: what stands there, and the number that it is sorted by. Without one it is sorted by its
/// text.
struct StudyCell {
  std::string Text;
  std::optional<double> Value;
};

/// The headers: group, N, the three directions with their errors at a level, mean susceptibility,
/// factors of the mean tensor, Hext's F.
std::vector<std::string> StudyHeader(const Settings& settings, ErrorLevel level);
/// The cells of a group. One that isn't defined is empty.
std::vector<StudyCell> StudyCells(const GroupRow& row, ErrorLevel level);
/// Rows as tab-separated text, under the headers and a line that says what they are of.
std::string StudyText(const std::vector<const GroupRow*>& rows, const Settings& settings,
                      ErrorLevel level, const std::string& heading);

/// "1 group", "12 groups".
std::string GroupCount(std::size_t groups);

/// Why a group is left out.
struct GroupReason {
  std::string Group, Reason;
};
/// Names the groups with their reasons, `most` at the most of each reason; empty without groups.
std::string GroupsLeftOut(std::span<const GroupReason> reasons, std::size_t most);

/// Names the groups whose statistics failed by causes, three at most of each; empty when none did.
std::string FailuresText(const std::vector<GroupRow>& rows);

}  // namespace velorix
