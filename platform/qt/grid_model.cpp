#include "platform/qt/grid_model.h"

#include "app/record_grid.h"
#include "platform/qt/widgets.h"

namespace velorix {

Colour GridColumnColour(int column) {
  if (column <= 4) return 0xC0FFFF;   // what the record is and how it was measured
  if (column == 5) return 0xFFC0FF;   // Kmean
  if (column <= 13) return 0xFFFFC0;  // factors
  if (column <= 15) return 0xC0C0FF;  // Kmax
  if (column <= 17) return 0xC0FFC0;  // Kint
  if (column <= 19) return 0xFFC0C0;  // Kmin
  return 0xE0E0E0;                    // F tests and angles
}

void GridModel::Fill() {
  beginResetModel();
  rows_.clear();
  ForEachActive(velorix_.Session,
                [&](const SpecimenRecord& record) { rows_.push_back(record.RecordNo); });
  endResetModel();
}

void GridModel::RefreshHeader() { emit headerDataChanged(Qt::Horizontal, 0, GridColumns - 1); }

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : GridColumns;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int column = index.column() + 1;
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(
        Qt::Alignment((column == 2 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter));
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const int id = IdOf(index.row());
  // Between a change of the store and the next fill the rows may be of yesterday.
  if (id > velorix_.Session.RecordCount()) return {};
  return ToQString(GridCell(column, velorix_.Session.Records[id], velorix_.Session.ReImMode));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return ToQString(GridHeader(section + 1, velorix_.Session.Settings));
    case Qt::BackgroundRole:
      return QBrush(ToQColor(GridColumnColour(section + 1)));
    case Qt::ForegroundRole:
      return QBrush(Qt::black);
    default:
      return {};
  }
}

}  // namespace velorix
