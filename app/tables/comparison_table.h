#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "app/tables/study_origin.h"
#include "app/tables/study_table.h"
#include "stats/study/comparison.h"

namespace velorix {

// The table of comparisons as a window shows it: a row a pair of groups A and B. Angles are
// degrees.

/// A pair by the places of its groups in the list of names.
struct ComparedPair {
  std::size_t A = 0, B = 0;
  GroupComparison Comparison;
};

/// More groups have more pairs than anyone reads, and memory for.
inline constexpr std::size_t MostCompared = 1000;
/// Why so many groups are not compared; empty for up to `MostCompared`.
std::string TooManyCompared(std::size_t groups);

/// What one cell shows. The values of an axis: angle between the means, whether the regions
/// overlap, whether the axes differ, the difference of the principal values (A minus B) with its
/// 95 % limits, whether it differs from 0.
enum class ComparedValue { Angle, Overlap, AxisDiffers, Difference, Lower, Upper, ValueDiffers };
inline constexpr int ComparedValues = 7, ComparisonColumns = 2 + 3 * ComparedValues;

/// The axis of a column, 1 Kmax to 3 Kmin; 0 for the columns of A and B.
int ComparedAxis(int column);

/// Whether its cells say "yes" or "no".
bool IsYesOrNo(int column);

/// A header in lines, "Kmax\nangle"; "A" and "B" in one. Columns count from 0.
std::string ComparisonHeader(int column);
/// A cell: "yes" and "no" are sorted as 1 and 0. Empty where the groups are too small for it.
StudyCell ComparisonCell(const ComparedPair& pair, std::span<const std::string> names, int column);
/// Whether a cell says that a test found a difference.
bool IsFound(const ComparedPair& pair, int column);

/// What the columns mean and what they don't.
extern const char ComparisonNote[];

/// The pairs as tab-separated text, under the headers, a line that says what they are of, and the
/// note.
std::string ComparisonText(std::span<const ComparedPair* const> pairs,
                           std::span<const std::string> names, const std::string& heading);

/// The pairs as comma-separated text with all digits: headers "A", "B", "Kmax_Angle" and so on,
/// behind them what the numbers are of.
std::string ComparisonCsvHeader();
std::string ComparisonCsvRow(const ComparedPair& pair, std::span<const std::string> names,
                             const StudyOrigin& origin);

}  // namespace velorix
