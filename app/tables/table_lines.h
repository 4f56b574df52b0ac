#pragma once

#include <string>
#include <vector>

namespace velorix {

// Lines of tables that other programs read. There is a cell at least.

/// A line of comma-separated text (RFC 4180).
std::string CsvLine(const std::vector<std::string>& cells);

/// A line of tab-separated text; control characters of a cell, which would end it, are left out.
std::string TabbedLine(const std::vector<std::string>& cells);

}  // namespace velorix
