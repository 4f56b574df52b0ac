#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "stats/group/bootstrap.h"
#include "stats/study/grouping.h"

namespace velorix {

// Stepwise untilting: the attitude at which the axes of a study's groups agree best (after L. Tauxe
// and G.S. Watson, 1994, Earth and Planetary Science Letters 122, 331-341).

inline constexpr int FirstUntiltStep = -10, LastUntiltStep = 120;  // per cent of the dip
inline constexpr int UntiltSteps = LastUntiltStep - FirstUntiltStep + 1;
inline constexpr int UntiltResamplings = 1000;
inline constexpr std::size_t LeastUntiltGroups = 5;  // for intervals

/// What a group gives to the untilting.
struct UntiltedGroup {
  std::string Name;
  /// Records that count. Nothing where a tensor's trace isn't positive or a number isn't finite:
  /// then the group doesn't count.
  std::optional<int> Used = 0;
  int LeftOut = 0;  // without the foliation, or without an orientation
};

/// A step. P and T are those of the mean of the groups' mean tensors; tau is the largest eigenvalue
/// of the orientation matrix of their axes, 1/3 for axes that are scattered evenly and 1 for equal
/// ones. Nothing where no group counts.
struct UntiltStep {
  int Percent = 0;
  std::optional<double> P, T, TauMax, TauMin;
};

/// Where tau of an axis is largest, in per cent.
struct UntiltBest {
  std::optional<int> Step;         // the first such step; nothing where tau is the same at each
  std::optional<Interval> Limits;  // 95 % limits; nothing for fewer than five groups
  int Resamplings = 0;             // those behind the limits
  std::string Verdict;             // in words, empty without limits
};

struct Untilting {
  std::string Foliation;
  std::vector<UntiltedGroup> Groups;
  int LeftOut = 0;  // records of all groups
  std::uint32_t Seed = 0;
  std::vector<UntiltStep> Steps;
  UntiltBest Kmax, Kmin;

  /// Groups and records that count.
  int UsedGroups() const;
  int UsedRecords() const;
};

/// Untilts the groups by the foliation of the session's code: each geographic tensor of the block
/// in view, divided by its trace, is turned about the strike of its own foliation by a share of the
/// dip, -10 to 120 % in steps of 1; at 100 % the foliation is horizontal. Of two foliations with
/// one code the second counts, as in the paleogeographic system. Each group counts once.
///
/// The limits are the 2.5 and 97.5 % points of the best step over resamplings of the groups with
/// replacement, numbers from `seed`, without one from `GaussSeed` (C. Constable and L. Tauxe, 1990,
/// Journal of Geophysical Research 95, 8383-8395). A resampling whose groups all turn alike has no
/// best step and doesn't count. Memory grows with the groups, time with groups times resamplings.
///
/// Nothing when `progress`, which may be empty and hears how many steps are done, stopped it.
std::optional<Untilting> UntiltGroups(const Session& session, std::span<const RecordGroup> groups,
                                      std::optional<std::uint32_t> seed,
                                      const std::function<bool(int done)>& progress = {});

/// What limits of the best step say of the axes' age, in words.
std::string UntiltVerdict(const Interval& limits);

}  // namespace velorix
