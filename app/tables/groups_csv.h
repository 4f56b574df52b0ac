#pragma once

#include <optional>
#include <string>

#include "app/tables/study_origin.h"
#include "stats/study/study.h"
#include "store/settings.h"

namespace velorix {

// The table of groups as comma-separated text (RFC 4180: lines end with CR LF, texts with commas,
// quotes or line ends stand in quotes), a point as decimal mark. What isn't defined is empty.
// Angles are degrees.

/// The row of headers: group, N, directions with their standard errors and 95 % angles, mean
/// susceptibility, factors of the mean tensor, Hext's F; behind them what the numbers are of, where
/// there is an `origin`.
std::string GroupsCsvHeader(const Settings& settings, const std::optional<StudyOrigin>& origin);
/// A group's row, numbers with every digit that they need to be read back.
std::string GroupsCsvRow(const GroupRow& row, const std::optional<StudyOrigin>& origin);

}  // namespace velorix
