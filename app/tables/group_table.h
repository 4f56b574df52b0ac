#pragma once

#include <span>
#include <string>

#include "stats/group/group_statistics.h"
#include "store/settings.h"

namespace velorix {

// The table of the group statistics, which the window shows and copies. A text is empty where the
// group is too small, or too large, for it, and where the statistics failed before it.

/// What the table shows.
struct GroupTableContent {
  const GroupStats& Stats;
  const velorix::Settings& Settings;
  ErrorLevel Level;
};

/// A column of the principal directions, rows 1 to 3 for K1, K2, K3, or of the factors, row 0 for
/// Km and a row a slot below it.
struct GroupColumn {
  const char *Heading, *Tip;
  std::string (*Text)(const GroupTableContent& content, int row);
  bool IsOfKm = true;
};

/// Value, declination and inclination of the mean, its errors at the level, semi-axes and limits by
/// the bootstrap.
std::span<const GroupColumn> DirectionColumns();

/// Mean tensor, average, deviation, limits by the bootstrap.
std::span<const GroupColumn> FactorColumns();

/// A row of Hext's statistics. A half-angle has no critical value.
struct HextRow {
  const char *Name, *Tip;
  std::string (*Value)(const HextStats& hext);
  std::string (*Critical)(const HextStats& hext);  // null: none
  bool IsWords = false;                            // the value is no number
};
std::span<const HextRow> HextRows();

/// A value of a row, or its critical value; empty where the statistics are not defined.
std::string HextText(std::string (*value)(const HextStats& hext), const GroupStats& stats);

/// "N = 12": the records in the mean tensor.
std::string CountText(const GroupStats& stats);

/// The row label of a factor slot; empty for a slot named "0".
std::string FactorLabel(int slot, const Settings& settings);

/// The whole table as tab-separated text with its headings. With 95 % angles, or another bootstrap
/// than the default one, a line in front says so, and what they are of.
std::string GroupTableText(const GroupStats& stats, const Settings& settings, ErrorLevel level,
                           const std::string& heading);

}  // namespace velorix
