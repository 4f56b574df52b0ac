#include "platform/qt/tables/edit_model.h"

#include "app/edit/orientation_parameters.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"
#include "text/numbers.h"

namespace velorix {

void EditModel::Refresh() {
  CollectCodes(editor_);
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
  if (const std::string doubt = CellDoubt(grid, row, column, editor_.Codes); !doubt.empty())
    return ToQString(doubt);
  if (EditColumnAt(column).Kind != EditKind::Parameter) return ToQString(grid.Cell(row, column));
  const auto value = static_cast<std::int16_t>(NumberOf(grid.Cell(row, column)));
  return ToQString(OrientationValueMeaning(column - ParameterColumn(0), value));
}

QVariant EditModel::Back(int row, int column) const {
  if (!CellDoubt(editor_.Shown(), row, column, editor_.Codes).empty())
    return MarkColour(Mark::Doubt);
  const auto at = static_cast<std::size_t>(row - 1);
  if (!editor_.ShowsSamples && at < editor_.Matched.size() && editor_.Matched[at])
    return MarkColour(Mark::Matched);
  if (EditColumnAt(column).Kind == EditKind::Fixed || editor_.ShowsSamples)
    return MarkColour(Mark::Fixed);
  return {};
}

QString EditModel::HeaderTip(int column) const {
  const EditColumn& caption = EditColumnAt(column);
  const bool inFile = editor_.ShowsSamples;
  if (caption.Kind == EditKind::Parameter) {
    const int parameter = column - ParameterColumn(0);
    const bool isDipHere = parameter == 4 && !inFile;
    return ToQString(OrientationMeaning(parameter)) +
           (isDipHere ? ", in the file: here foliations have dip directions" : "");
  }
  if (caption.Kind != EditKind::Angle || column < FoliationColumn(1)) return caption.Group;
  const auto isOf = [column](int first) { return column > first && column <= first + 2; };
  const char* what = isOf(LineationColumn(1)) || isOf(LineationColumn(2)) ? "Trend and plunge"
                     : inFile ? "Azimuth and dip as in the file: with OP4 = 90 a strike"
                              : "Dip direction and dip, whatever OP4 says";
  return QString(what) + "; degrees, read by their beginning, with a decimal point";
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
      return HeaderTip(section + 1);
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
