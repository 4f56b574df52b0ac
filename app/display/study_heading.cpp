#include "app/display/study_heading.h"

#include <algorithm>

#include "app/display/shown_group.h"
#include "app/tables/study_table.h"

namespace velorix {
namespace {

std::int64_t CountInView(const Session& session, std::span<const RecordGroup> groups) {
  std::int64_t n = 0;
  for (const RecordGroup& group : groups) n += CountInView(session, group.Records);
  return n;
}

std::string HeadingOf(const Session& session, const GroupSubject& subject, std::int64_t n,
                      std::size_t groups) {
  const std::string heading = GroupHeading(session, subject, static_cast<int>(n));
  return heading + (heading.empty() ? "" : ", ") + GroupCount(groups);
}

std::string StudyHeading(const Session& session, std::span<const RecordGroup> groups) {
  return StudyHeading(session, CountInView(session, groups), groups.size());
}

}  // namespace

std::int64_t CountInView(const Session& session, std::span<const int> records) {
  return std::count_if(records.begin(), records.end(), [&session](int record) {
    return IsShown(session.Records[record], session.CoorSys, session.ReImMode);
  });
}

std::string StudyHeading(const Session& session, std::int64_t n, std::size_t groups) {
  return HeadingOf(session, GroupInView(session), n, groups);
}

std::string GroupsHeading(const Session& session, std::span<const RecordGroup> groups,
                          ErrorLevel level, const BootChoice& boot) {
  const bool large = boot.Method != BootMethod::None &&
                     std::any_of(groups.begin(), groups.end(), [&](const auto& group) {
                       return CountInView(session, group.Records) > BootMaxN;
                     });
  return StudyHeading(session, groups) + ". Ellipses: " + LevelText(level) +
         ". Bootstrap: " + TextOf(boot) +
         (large ? "; none of groups above " + std::to_string(BootMaxN) + " records" : "");
}

std::string ComparisonHeading(const Session& session, std::span<const RecordGroup> groups,
                              const BootChoice& boot) {
  return StudyHeading(session, groups) + ". Regions: " + LevelText(ErrorLevel::Confidence95) +
         ". Bootstrap: " + TextOf(boot);
}

std::string UntiltingHeading(const Session& session, std::span<const RecordGroup> groups) {
  GroupSubject subject = GroupInView(session);
  subject.CoorSys = Geographic;
  subject.Turned.clear();
  return HeadingOf(session, subject, CountInView(session, groups), groups.size()) +
         ", each record untilted by its own foliation.";
}

std::optional<StudyOrigin> OriginOfGroups(const Session& session,
                                          std::span<const RecordGroup> groups, ErrorLevel level,
                                          const BootChoice& boot) {
  if (level == ErrorLevel::StandardError && boot == BootChoice()) return std::nullopt;
  return StudyOrigin{StudyHeading(session, groups), level, boot};
}

StudyOrigin OriginOfComparisons(const Session& session, std::span<const RecordGroup> groups,
                                const BootChoice& boot) {
  return {StudyHeading(session, groups), ErrorLevel::Confidence95, boot};
}

}  // namespace velorix
