#pragma once

#include <string>

#include "app/state/group_subject.h"
#include "store/session.h"

namespace velorix {

// What the group statistics on the screen are of. A list above the grid turns the records and
// leaves the statistics as they were, so that these may belong to another view than the one shown.
// `group` is what they were computed of, `n` the number of its records.

/// The group of the view shown, as the next display computes it.
GroupSubject GroupInView(const Session& session);

/// Whether the group statistics belong to another view than the one shown: another file, tensor or
/// coordinate system, and in the upper two systems other codes, another plane or axis. Never
/// without records.
bool IsGroupOfOtherView(const Session& session, const GroupSubject& group);

/// What the statistics are of, "granite.ams, in-phase, geographic, N = 21"; empty before the first
/// display of a file.
std::string GroupHeading(const Session& session, const GroupSubject& group, int n);

/// "Mean: geographic, N = 21" while the statistics belong to another view, else empty.
std::string MeanLabel(const Session& session, const GroupSubject& group, int n);

/// The same as a sentence for the status line.
std::string MeanNotice(const Session& session, const GroupSubject& group, int n);

/// "3 of 24 disregarded, 21 shown"; empty while no record is disregarded.
std::string DisregardedLabel(const Session& session);

}  // namespace velorix
