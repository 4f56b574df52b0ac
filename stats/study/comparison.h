#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "stats/group/bootstrap.h"
#include "stats/study/grouping.h"

namespace velorix {

/// How two groups A and B of tensors differ, axis by axis, Kmax first. What a group is too small
/// for is nothing.
struct GroupComparison {
  std::optional<Array1<double, 3>> Angle;  // between the mean axes, 0 to 90 degrees
  /// Whether the 95 % regions of the mean axes (V. Jelinek, 1978) overlap: a description, no test.
  std::optional<Array1<bool, 3>> Overlap;
  Array1<std::optional<bool>, 3> AxisDiffers;  // by the bootstrap, at the 95 % level
  std::optional<BootLimits> ValueDifference;   // 95 % limits of A's principal values minus B's
  std::optional<Array1<double, 3>> ValueGap;   // these values' difference itself
};

/// Gets the places of both groups, A before B.
using TakeComparison =
    std::function<void(std::size_t a, std::size_t b, const GroupComparison& comparison)>;

/// Why a group has no comparison with any other; empty where it has.
std::string NotComparedReason(const Session& session, const RecordGroup& group);

/// Compares every pair of groups by the tensors that the session's view shows, each divided by its
/// trace. Angles need one tensor in each group, regions five, the bootstrap two, and any number is
/// let in. B's replicates take their numbers on from where those of A end, so that no number serves
/// both. Replicate axes are turned to the hemisphere of their mean axis, the mean axis of B to that
/// of A; an axis differs where 0 lies outside the 95 % ellipse of the differences across the sum of
/// the mean axes (after C. Constable and L. Tauxe, 1990, Journal of Geophysical Research 95,
/// 8383-8395). The six tests of a pair are not corrected for their number. A group with a trace
/// that isn't positive, or a number that isn't finite, has no comparison. False when `progress`,
/// which may be empty and hears how many pairs are done, stopped it.
bool CompareGroups(const Session& session, std::span<const RecordGroup> groups,
                   const BootChoice& boot, std::span<const float> gaussTable,
                   const TakeComparison& take,
                   const std::function<bool(std::size_t done)>& progress = {});

}  // namespace velorix
