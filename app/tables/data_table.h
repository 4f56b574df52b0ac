#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plot/axes/columns.h"

namespace velorix {

// The data table: every value of the records in view, formatted, in `DataTableColumns`.

/// The rows of a column's header.
enum class HeaderRow { Upper, Lower };

/// Header of a column. The factor columns carry the names that the settings give them in both rows.
std::string DataTableHeader(HeaderRow row, Column column, const Settings& settings);

/// Text of the cell of `record`. Empty for a number that is not finite and for a factor that could
/// not be computed.
std::string DataTableCell(Column column, const SpecimenRecord& record, TensorBlock reImMode);

/// Numbers of the records in view, the table's rows before it is sorted.
std::vector<int> DataTableRows(const Session& session);

/// Sorts `rows` by a column: the specimens' names as text, any other by its cells' numbers. Rows of
/// one key keep their order; empty cells come last, upward and downward.
void SortDataTable(std::vector<int>& rows, Column column, bool downward, const Session& session);

/// Lines of `rows`, their cells between tabs, each ended by `lineEnd`.
std::string DataTableText(const std::vector<int>& rows, const Session& session,
                          const char* lineEnd = "\n");

/// The whole table: the two header rows, then the rows.
std::string DataTableText(const Session& session, const char* lineEnd = "\n");

/// The numbers in the cells of a column, in the records' order: what the histogram counts. An empty
/// cell is 0.
std::vector<double> DataTableValues(Column column, const Session& session);

}  // namespace velorix
