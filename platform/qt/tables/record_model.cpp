#include "platform/qt/tables/record_model.h"

#include <QBrush>

#include "app/tables/data_table.h"
#include "app/tables/record_grid.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

constexpr Colour PlainTint = 0xC0FFFF, KmTint = 0xFFC0FF, FactorTint = 0xFFFFC0, MaxTint = 0xC0C0FF,
                 IntTint = 0xC0FFC0, MinTint = 0xFFC0C0, TestTint = 0xE0E0E0;

/// The usual longest number of a column's width, plain.
int GridCharacters(int column) {
  if (column == 0) return 5;
  if (column == 1) return 13;
  if (column <= 3) return 9;
  if (column == 4) return 22;
  if (column <= 12) return 12;
  if (column <= 18) return 18;
  return 12;
}

/// Columns of the data table, after the record's number.
Colour DataTableColour(int column) {
  if (column <= 4) return PlainTint;
  if (column <= 6) return KmTint;
  if (column <= 8) return MaxTint;
  if (column <= 10) return IntTint;
  if (column <= 12) return MinTint;
  if (column <= 14) return MaxTint;
  if (column <= 16) return IntTint;
  if (column <= 18) return MinTint;
  return column <= 26 ? FactorTint : TestTint;
}

}  // namespace

const RecordColumns GridRecordColumns = {
    GridColumns,
    [](int column, const Settings& settings) { return GridHeader(column + 1, settings); },
    [](int column, const SpecimenRecord& record, TensorBlock reImMode) {
      return GridCell(column + 1, record, reImMode);
    },
    [](int column) { return GridColumnColour(column + 1); },
    GridCharacters,
    1};

const RecordColumns DataTableRecordColumns = {
    DataTableColumns + 1,
    [](int column, const Settings& settings) {
      return DataTableHeader(-2, column - 1, settings) + "\n" +
             DataTableHeader(-1, column - 1, settings);
    },
    [](int column, const SpecimenRecord& record, TensorBlock reImMode) {
      return DataTableCell(column - 1, record, reImMode);
    },
    DataTableColour,
    [](int column) { return column == 0   ? 5
                            : column == 1 ? 13
                                          : 10; },
    1};

Colour GridColumnColour(int column) {
  if (column <= 4) return PlainTint;  // what the record is and how it was measured
  if (column == 5) return KmTint;
  if (column <= 13) return FactorTint;
  if (column <= 15) return MaxTint;
  if (column <= 17) return IntTint;
  if (column <= 19) return MinTint;
  return TestTint;
}

void RecordModel::Fill() {
  beginResetModel();
  rows_ = DataTableRows(velorix_.Session);
  endResetModel();
}

void RecordModel::SortRows(int column, bool downward) {
  emit layoutAboutToBeChanged();
  SortDataTable(rows_, column - 1, downward, velorix_.Session);
  emit layoutChanged();
}

void RecordModel::RefreshHeader() { emit headerDataChanged(Qt::Horizontal, 0, columns_.Count - 1); }

int RecordModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RecordModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_.Count;
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
  const int column = index.column();
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::Alignment(
        (column == columns_.NameColumn ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter));
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const int id = IdOf(index.row());
  // Between a change of the store and the next fill the rows may be of yesterday.
  if (id > velorix_.Session.RecordCount()) return {};
  return ToQString(columns_.Cell(column, velorix_.Session.Records[id], velorix_.Session.ReImMode));
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return ToQString(columns_.Header(section, velorix_.Session.Settings));
    case Qt::BackgroundRole:
      return QBrush(ToQColor(columns_.Colour(section)));
    case Qt::ForegroundRole:
      return QBrush(Qt::black);
    default:
      return {};
  }
}

}  // namespace velorix
