#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "app/tables/study_origin.h"
#include "stats/study/grouping.h"
#include "store/session.h"

namespace velorix {

// What the numbers of a study's groups are of, one wording for windows, figures and files.

/// How many of the records, by their places in the store, the view shows.
std::int64_t CountInView(const Session& session, std::span<const int> records);

/// File, block, system, records in view and groups: "granite.ams, in-phase, geographic, N = 21,
/// 3 groups".
std::string StudyHeading(const Session& session, std::int64_t n, std::size_t groups);

/// The same with the errors that the ellipses show, and the bootstrap.
std::string GroupsHeading(const Session& session, std::span<const RecordGroup> groups,
                          ErrorLevel level, const BootChoice& boot);
/// The same for comparisons: their regions are those of 95 % at any level of the ellipses.
std::string ComparisonHeading(const Session& session, std::span<const RecordGroup> groups,
                              const BootChoice& boot);
/// The same for an untilting, which starts from the geographic system in any view.
std::string UntiltingHeading(const Session& session, std::span<const RecordGroup> groups);

/// What a file's table of groups says of itself: nothing for standard errors and the default
/// bootstrap.
std::optional<StudyOrigin> OriginOfGroups(const Session& session,
                                          std::span<const RecordGroup> groups, ErrorLevel level,
                                          const BootChoice& boot);
/// The same of comparisons, always.
StudyOrigin OriginOfComparisons(const Session& session, std::span<const RecordGroup> groups,
                                const BootChoice& boot);

}  // namespace velorix
