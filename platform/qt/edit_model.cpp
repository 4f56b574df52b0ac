#include "platform/qt/edit_model.h"

#include "app/orientation_parameters.h"
#include "platform/qt/marks.h"
#include "platform/qt/widgets.h"
#include "text/numbers.h"

namespace velorix {
namespace {

bool IsPair(int column) { return column >= FoliationColumn(1) && column < ParameterColumn(1); }

}  // namespace

void EditModel::Refresh() {
  const int rows = editor_.Shown().RowCount();
  if (rows != rows_ || editor_.ShowsSamples != showsSamples_) {
    beginResetModel();
    rows_ = rows;
    showsSamples_ = editor_.ShowsSamples;
    endResetModel();
  }
  if (rows > 0) emit dataChanged(index(0, 0), index(rows - 1, EditColumns - 1));
}

int EditModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int EditModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : EditColumns;
}

QVariant EditModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1, column = index.column() + 1;
  if (row > editor_.Shown().RowCount()) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return ToQString(editor_.Shown().Cell(row, column));
    case Qt::ToolTipRole:
      return Tip(row, column);
    case Qt::BackgroundRole:
      return Back(row, column);
    case Qt::TextAlignmentRole: {
      const EditKind kind = EditColumnAt(column).Kind;
      const auto side = kind == EditKind::Angle || column == 1 ? Qt::AlignRight
                        : column == 2                          ? Qt::AlignLeft
                                                               : Qt::AlignHCenter;
      return QVariant::fromValue(Qt::Alignment(side | Qt::AlignVCenter));
    }
    default:
      return {};
  }
}

/// What is doubtful in a cell, else what a parameter's value means.
QVariant EditModel::Tip(int row, int column) const {
  const EditGrid& grid = editor_.Shown();
  if (const std::string doubt = CellDoubt(grid, row, column); !doubt.empty())
    return ToQString(doubt);
  if (EditColumnAt(column).Kind != EditKind::Parameter) return ToQString(grid.Cell(row, column));
  const auto value = static_cast<std::int16_t>(NumberOf(grid.Cell(row, column)));
  return ToQString(OrientationValueMeaning(column - ParameterColumn(0), value));
}

QVariant EditModel::Back(int row, int column) const {
  if (!CellDoubt(editor_.Shown(), row, column).empty()) return MarkColour(Mark::Doubt);
  const auto at = static_cast<std::size_t>(row - 1);
  if (!editor_.ShowsSamples && at < editor_.Matched.size() && editor_.Matched[at])
    return MarkColour(Mark::Matched);
  if (EditColumnAt(column).Kind == EditKind::Fixed || editor_.ShowsSamples)
    return MarkColour(Mark::Fixed);
  return {};
}

QVariant EditModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const EditColumn& column = EditColumnAt(section + 1);
  switch (role) {
    case Qt::DisplayRole:
      return column.Header;
    case GroupRole:
      return column.Group;
    case Qt::ToolTipRole:
      if (column.Kind == EditKind::Parameter)
        return ToQString(OrientationMeaning(section + 1 - ParameterColumn(0)));
      if (column.Kind == EditKind::Angle && IsPair(section + 1))
        return "Azimuth and dip or plunge, degrees; read by their beginning, with a decimal point";
      return column.Group;
    default:
      return {};
  }
}

Qt::ItemFlags EditModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (!editor_.ShowsSamples && EditColumnAt(index.column() + 1).Kind != EditKind::Fixed)
    flags |= Qt::ItemIsEditable;
  return flags;
}

bool EditModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole) return false;
  EditCells(editor_, {{index.row() + 1, index.column() + 1, value.toString().toStdString()}});
  Refresh();
  return true;
}

}  // namespace velorix
