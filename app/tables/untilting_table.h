#pragma once

#include <array>
#include <string>
#include <vector>

#include "stats/study/untilting.h"

namespace velorix {

// What an untilting says in words, beside its figure.

/// A row of headers and one for Kmax and Kmin each: best step, its 95 % limits, tau there, as found
/// and untilted, and the verdict, or why there is none.
inline constexpr int UntiltingRows = 3, UntiltingColumns = 7;
using UntiltingCells = std::array<std::array<std::string, UntiltingColumns>, UntiltingRows>;
UntiltingCells UntiltingTable(const Untilting& untilting);

/// "12 groups, 96 records; 4 records left out. 1000 resamplings, seed 7."
std::string UntiltingCounts(const Untilting& untilting);

/// Why a group doesn't count; empty where it does.
std::string NotUntiltedReason(const UntiltedGroup& group);

/// Names the groups that don't count, `most` at the most of each reason; empty without such a one.
std::string UntiltingLeftOut(const Untilting& untilting, std::size_t most);

/// Why there is no untilting at all, as the end of a sentence; empty where there is one.
std::string NothingUntilted(const Untilting& untilting);

/// All of it and the table of steps as tab-separated text, under a line that says what it is of.
std::string UntiltingText(const Untilting& untilting, const std::string& heading);

}  // namespace velorix
