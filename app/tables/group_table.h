#pragma once

#include <string>

#include "stats/group_statistics.h"
#include "store/settings.h"

namespace velorix {

// The texts of the group statistics window, label by label. A text is empty when the group is too
// small, or too large, for what the label shows, and where the statistics failed before it.

/// Value label `lblJelinek(index)`: mean tensor, errors, factors, averages, deviations.
std::string JelinekText(int index, const GroupStats& stats);
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

/// The whole table as tab-separated text with its headings.
std::string GroupTableText(const GroupStats& stats, const Settings& settings);

}  // namespace velorix
