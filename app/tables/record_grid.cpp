#include "app/tables/record_grid.h"

#include "text/numbers.h"

namespace velorix {

std::string GridCell(Column column, const SpecimenRecord& record, std::int16_t reImMode) {
  std::string text;
  AppendGridCell(text, column, record, reImMode);
  return text;
}

void AppendGridCell(std::string& text, Column column, const SpecimenRecord& record,
                    std::int16_t reImMode) {
  const CellValue value = CellOf(column, record, reImMode);
  if (const auto* number = std::get_if<Number>(&value))
    AppendPlainText(text, *number);
  else if (const auto* words = std::get_if<std::string_view>(&value))
    text += *words;
  else
    AppendPlainText(text, *std::get_if<std::int16_t>(&value));
}

}  // namespace velorix
