#include "app/tables/data_table.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "text/numbers.h"

namespace velorix {
namespace {

/// Sorts by keys that are made once a row; a row without one comes last.
template <class MakeKey>
void SortByKey(std::vector<int>& rows, bool downward, MakeKey makeKey) {
  std::vector<std::pair<decltype(makeKey(0)), int>> keyed;
  keyed.reserve(rows.size());
  for (const int id : rows) keyed.emplace_back(makeKey(id), id);
  std::stable_sort(keyed.begin(), keyed.end(), [downward](const auto& a, const auto& b) {
    if (!a.first || !b.first) return a.first && !b.first;
    return downward ? *b.first < *a.first : *a.first < *b.first;
  });
  std::transform(keyed.begin(), keyed.end(), rows.begin(),
                 [](const auto& row) { return row.second; });
}

void AppendCells(std::string& text, const char* lineEnd, auto cell) {
  for (const Column column : DataTableColumns) {
    if (column != DataTableColumns.front()) text += '\t';
    text += cell(column);
  }
  text += lineEnd;
}

}  // namespace

std::string DataTableHeader(HeaderRow row, Column column, const Settings& settings) {
  const ColumnInfo& c = InfoOf(column);
  if (c.slot > 0) return ColumnName(column, settings);
  return row == HeaderRow::Upper ? c.upper : c.lower;
}

std::string DataTableCell(Column column, const SpecimenRecord& record, TensorBlock reImMode) {
  const ColumnInfo& c = InfoOf(column);
  if (c.text) return std::string(c.text(record));
  const Number value = c.value(record, reImMode == OutOfPhase);
  if (c.picture.empty()) return PlainText(value);
  if (c.picture == FourDigits) return SignificantText(value, 4);
  if (c.slot > 0 && !record.Fac[c.slot].IsComputed()) return "";
  return FormatNumber(value, c.picture);
}

std::vector<int> DataTableRows(const Session& session) {
  std::vector<int> rows;
  ForEachActive(session, [&](const SpecimenRecord& record) { rows.push_back(record.RecordNo); });
  return rows;
}

void SortDataTable(std::vector<int>& rows, Column column, bool downward, const Session& session) {
  const auto cell = [&](int id) {
    return DataTableCell(column, session.Records[id], session.ReImMode);
  };
  if (column == Column::Specimen)
    SortByKey(rows, downward, [&](int id) { return std::optional(cell(id)); });
  else
    SortByKey(rows, downward, [&](int id) {
      const std::string text = cell(id);
      return text.empty() ? std::nullopt : std::optional(NumberOf(text));
    });
}

std::string DataTableText(const std::vector<int>& rows, const Session& session,
                          const char* lineEnd) {
  std::string text;
  for (const int id : rows)
    AppendCells(text, lineEnd, [&](Column column) {
      return DataTableCell(column, session.Records[id], session.ReImMode);
    });
  return text;
}

std::string DataTableText(const Session& session, const char* lineEnd) {
  std::string text;
  for (const HeaderRow row : {HeaderRow::Upper, HeaderRow::Lower})
    AppendCells(text, lineEnd,
                [&](Column column) { return DataTableHeader(row, column, session.Settings); });
  return text + DataTableText(DataTableRows(session), session, lineEnd);
}

std::vector<double> DataTableValues(Column column, const Session& session) {
  std::vector<double> values;
  ForEachActive(session, [&](const SpecimenRecord& record) {
    values.push_back(NumberOf(DataTableCell(column, record, session.ReImMode)));
  });
  return values;
}

}  // namespace velorix
