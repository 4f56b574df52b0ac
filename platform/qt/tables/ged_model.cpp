#include "platform/qt/tables/ged_model.h"

#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"
#include "store/record_array.h"

namespace velorix {

void GedModel::Refresh() {
  beginResetModel();
  codes_ = CodesOf(sheet_);
  endResetModel();
}

void GedModel::RefreshDoubts() {
  codes_ = CodesOf(sheet_);
  emit dataChanged(index(0, 0), index(rowCount() - 1, GedColumnCount - 1));
}

std::string GedModel::Doubt(const QModelIndex& index) const {
  return IsNew(index.row()) ? "" : GedCellDoubt(sheet_, index.row(), index.column(), codes_);
}

int GedModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  const int rows = static_cast<int>(sheet_.Rows.size());
  return rows < RecordArray::Limit ? rows + 1 : rows;
}

int GedModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : GedColumnCount;
}

Qt::ItemFlags GedModel::flags(const QModelIndex& index) const {
  return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

QVariant GedModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const bool number = GedColumnAt(index.column()).Range;
  if (role == Qt::TextAlignmentRole) {
    const auto side = number                ? Qt::AlignRight
                      : index.column() == 0 ? Qt::AlignLeft
                                            : Qt::AlignHCenter;  // a code
    return QVariant(side | Qt::AlignVCenter);
  }
  if (role == Qt::ToolTipRole) return ToQString(Doubt(index));
  if (role == Qt::BackgroundRole) {
    if (!Doubt(index).empty()) return MarkColour(Mark::Doubt);
    // Every other three columns belong together.
    return index.column() / 3 % 2 == 1 ? MarkColour(Mark::Group) : QVariant();
  }
  if ((role != Qt::DisplayRole && role != Qt::EditRole) || IsNew(index.row())) return {};
  const GedRow& row = sheet_.Rows[static_cast<std::size_t>(index.row())];
  return ToQString(row.Cells[static_cast<std::size_t>(index.column())]);
}

bool GedModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const auto text = AcceptedGedText(index.column(), value.toString().toStdString());
  if (!text) {
    if (OnRefused) OnRefused();
    return false;
  }
  if (IsNew(index.row())) {
    if (text->empty()) return false;
    const bool room = index.row() + 1 < RecordArray::Limit;
    if (room) beginInsertRows({}, index.row() + 1, index.row() + 1);
    sheet_.Rows.emplace_back();
    if (room) endInsertRows();
  }
  GedRow& row = sheet_.Rows[static_cast<std::size_t>(index.row())];
  row.Cells[static_cast<std::size_t>(index.column())] = *text;
  RefreshDoubts();  // a code decides on others, too
  return true;
}

QVariant GedModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal) {
    const GedColumn& column = GedColumnAt(section);
    if (role == Qt::ToolTipRole && column.Range)
      return QString("Degrees, 0 to %1").arg(column.Range->Highest);
    if (role == Qt::ToolTipRole) return QString("At most %1 character(s)").arg(column.Characters);
    return role == Qt::DisplayRole ? QString(column.Caption) : QVariant();
  }
  if (role != Qt::DisplayRole) return {};
  return IsNew(section) ? QString("*") : QString::number(section + 1);
}

}  // namespace velorix
