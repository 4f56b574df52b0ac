#include "platform/qt/tables/record_model.h"

#include <QBrush>
#include <algorithm>

#include "app/tables/data_table.h"
#include "app/tables/record_grid.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
const RecordColumns GridRecordColumns = {GridColumns, ColumnName, GridCell,
                                         [](Column column) { return InfoOf(column).gridWidth; }};

const RecordColumns DataTableRecordColumns = {
    DataTableColumns,
    [](Column column, const Settings& settings) {
      return DataTableHeader(HeaderRow::Upper, column, settings) + "\n" +
             DataTableHeader(HeaderRow::Lower, column, settings);
    },
    DataTableCell, [](Column column) { return InfoOf(column).tableWidth; }};

int RecordColumns::NameColumn() const {
  return static_cast<int>(std::ranges::find(Columns, Column::Specimen) - Columns.begin());
}

void RecordModel::Fill() {
  beginResetModel();
  rows_ = DataTableRows(velorix_.Session);
  endResetModel();
}

void RecordModel::SortRows(int column, bool downward) {
  emit layoutAboutToBeChanged();
  SortDataTable(rows_, columns_[column], downward, velorix_.Session);
  emit layoutChanged();
}

void RecordModel::RefreshHeader() {
  emit headerDataChanged(Qt::Horizontal, 0, columns_.Count() - 1);
}

int RecordModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RecordModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_.Count();
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
  const Column column = columns_[index.column()];
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::Alignment(
        (column == Column::Specimen ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter));
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const int id = IdOf(index.row());
  // Between a change of the store and the next fill the rows may be those of the store before.
  if (id > velorix_.Session.RecordCount()) return {};
  return ToQString(columns_.Cell(column, velorix_.Session.Records[id], velorix_.Session.ReImMode));
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return ToQString(columns_.Header(columns_[section], velorix_.Session.Settings));
    case Qt::BackgroundRole:
      return QBrush(ToQColor(TintOf(columns_[section])));
    case Qt::ForegroundRole:
      return QBrush(Qt::black);
    default:
      return {};
  }
}

}  // namespace velorix
