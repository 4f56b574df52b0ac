#pragma once

#include <cstdint>
#include <string>

#include "store/session.h"

namespace velorix {

inline constexpr int GridColumns = 25;

/// Header of a column of the record grid, from 1 to 25. The factor columns carry the names that the
/// settings give them.
std::string GridHeader(int column, const Settings& settings);

/// Text of the cell of `record` in a column from 1 to 25: the plain text of the number, shortest
/// for its own width; empty for a number that is not finite. Km, the F tests and the angles are
/// those of the block in view.
std::string GridCell(int column, const SpecimenRecord& record, TensorBlock reImMode);
/// The same behind `text`.
void AppendGridCell(std::string& text, int column, const SpecimenRecord& record,
                    TensorBlock reImMode);

}  // namespace velorix
