#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/session.h"

namespace velorix {

// The data table: every value of the records in view, formatted. Columns count from 0; -1 is the
// record's number.

inline constexpr int DataTableColumns = 32;

/// Header of a column from -1 on: the upper row (-2) or the lower one (-1). The factor columns
/// carry the names that the settings give them in both.
std::string DataTableHeader(int row, int column, const Settings& settings);

/// Text of the cell of `record` in a column from -1 on. Empty for a number that is not finite and
/// for a factor that could not be computed.
std::string DataTableCell(int column, const SpecimenRecord& record, TensorBlock reImMode);

/// Numbers of the records in view, the table's rows before it is sorted.
std::vector<int> DataTableRows(const Session& session);

/// Sorts `rows` by a column: column 0 as text, any other by its cells' numbers. Rows of one key
/// keep their order; empty cells come last, upward and downward.
void SortDataTable(std::vector<int>& rows, int column, bool downward, const Session& session);

/// Lines of `rows`, their cells between tabs, each ended by `lineEnd`.
std::string DataTableText(const std::vector<int>& rows, const Session& session,
                          const char* lineEnd = "\n");

/// The whole table: the two header rows, then the rows.
std::string DataTableText(const Session& session, const char* lineEnd = "\n");

/// The numbers in the cells of a parameter (plot/axes/parameters.h, from the fourth, "Kmean", on),
/// in the records' order: what the histogram counts. An empty cell is 0.
std::vector<double> DataTableValues(int parameter, const Session& session);

}  // namespace velorix
