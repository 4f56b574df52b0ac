#include "app/tables/record_grid.h"

#include "text/numbers.h"

namespace velorix {

std::string GridCell(Column column, const SpecimenRecord& record, TensorBlock reImMode) {
  std::string text;
  AppendGridCell(text, column, record, reImMode);
  return text;
}

void AppendGridCell(std::string& text, Column column, const SpecimenRecord& record,
                    TensorBlock reImMode) {
  const ColumnInfo& c = InfoOf(column);
  if (c.text)
    text += c.text(record);
  else
    AppendPlainText(text, c.value(record, reImMode == OutOfPhase));
}

}  // namespace velorix
