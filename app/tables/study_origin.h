#pragma once

#include <string>
#include <vector>

#include "stats/group/bootstrap.h"
#include "stats/group/tensor_statistics.h"

namespace velorix {

/// What the numbers of a study's table are of.
struct StudyOrigin {
  std::string Heading;  // file, block, system, records and groups
  ErrorLevel Level = ErrorLevel::StandardError;
  BootChoice Boot;
};

/// The same as columns of a file's table, behind the others: their headers, and their cells, alike
/// in each row. Without a bootstrap there are no replicates, and without a seed the cell is empty.
std::vector<std::string> OriginHeader();
std::vector<std::string> OriginCells(const StudyOrigin& origin);

}  // namespace velorix
