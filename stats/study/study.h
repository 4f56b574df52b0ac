#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/fault.h"
#include "stats/group/group_statistics.h"
#include "stats/study/grouping.h"

namespace velorix {

/// A group with its statistics.
struct GroupRow {
  std::string Name;
  GroupStats Stats;
  std::optional<Fault> Failure;  // why the statistics end at `Stats.Reached`, where they do
};

/// Gets the rows in the order of the groups, on the caller's thread.
using TakeRow = std::function<void(GroupRow row)>;
/// Hears how many groups are done, on the caller's thread; false stops the work.
using StudyProgress = std::function<bool(std::size_t done)>;

/// The statistics of each group, on several threads. Each is to the last digit what
/// `GroupStatistics` gives for a store of the group's records alone; a group that fails leaves the
/// others. The caller's thread takes its share. False when `progress`, which may be empty, stopped
/// it. `threads`: 0 for as many as the machine has.
bool StudyStatistics(const Session& session, std::span<const RecordGroup> groups,
                     const BootChoice& boot, std::span<const float> gaussTable, const TakeRow& take,
                     const StudyProgress& progress = {}, int threads = 0);

/// The row "All", of all records in view.
GroupRow AllRow(const Session& session, const BootChoice& boot, std::span<const float> gaussTable);

}  // namespace velorix
