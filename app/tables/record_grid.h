#pragma once

#include <cstdint>
#include <string>

#include "plot/axes/columns.h"

namespace velorix {

/// Text of the cell of `record` in a column of `GridColumns`: the plain text of the number,
/// shortest for its own width; empty for a number that is not finite. Km, the F tests and the
/// angles are those of the block in view.
std::string GridCell(Column column, const SpecimenRecord& record, TensorBlock reImMode);
/// The same behind `text`.
void AppendGridCell(std::string& text, Column column, const SpecimenRecord& record,
                    TensorBlock reImMode);

}  // namespace velorix
