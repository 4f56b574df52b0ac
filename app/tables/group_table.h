#pragma once

#include <array>
#include <string>

#include "stats/group/group_statistics.h"
#include "store/settings.h"

namespace velorix {

// The texts of the group statistics window, label by label. A text is empty when the group is too
// small, or too large, for what the label shows, and where the statistics failed before it.

/// Value label `lblJelinek(index)`: mean tensor, errors at a level, factors, averages, deviations.
std::string JelinekText(int index, const GroupStats& stats, ErrorLevel level);
/// Value label `lblBootStat(index)`, 1 to 6: the bootstrap semi-axes.
std::string BootStatText(int index, const GroupStats& stats);
/// The row label of a factor slot; empty for a slot named "0".
std::string FactorLabel(int slot, const Settings& settings);

/// Labels of the table's cells. Directions: rows 1 to 3 for Kmax, Kint, Kmin, columns 1 to 5 for
/// value, declination, inclination and the two errors. Factors: row 0 is Km, the others are the
/// slots, columns 1 to 3 for mean tensor, average, deviation. `CountLabel` is "N = ".
constexpr int DirectionLabel(int row, int column) { return 6 * row - 5 + column; }
constexpr int FactorValueLabel(int row, int column) {
  return 24 + (FactorSlots + 1) * column + row;
}
inline constexpr int CountLabel = FactorValueLabel(0, 4);

/// Hext's statistics: a row of headings, a row each for F, F12, F23 and the three half-angles, and
/// the verdict; columns for name, value and critical value. Values are empty where they are not
/// defined, and angles have no critical value.
inline constexpr int HextRows = 8, HextColumns = 3;
using HextCells = std::array<std::array<std::string, HextColumns>, HextRows>;
HextCells HextTable(const GroupStats& stats);

/// The text of row 1 to 3 or, below them, of a factor slot: the 95 % limits by the bootstrap,
/// "1.021 - 1.043". Empty for a factor without them.
std::string PrincipalLimitsText(int row, const GroupStats& stats);
std::string FactorLimitsText(int slot, const GroupStats& stats, const Settings& settings);

/// The whole table as tab-separated text with its headings. With 95 % angles, or another bootstrap
/// than the default one, a line in front says so, and what they are of.
std::string GroupTableText(const GroupStats& stats, const Settings& settings, ErrorLevel level,
                           const std::string& heading);

}  // namespace velorix
