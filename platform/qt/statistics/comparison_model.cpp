#include "platform/qt/statistics/comparison_model.h"

#include <QFont>
#include <algorithm>
#include <unordered_map>
#include <utility>

#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {

void ComparisonModel::Begin(std::vector<std::string> names) {
  beginResetModel();
  names_ = std::move(names);
  order_.clear();
  pairs_.clear();
  endResetModel();
}

void ComparisonModel::Add(std::span<const ComparedPair> pairs) {
  if (pairs.empty()) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(pairs.size()) - 1);
  for (const ComparedPair& pair : pairs) order_.push_back(&pairs_.emplace_back(pair));
  endInsertRows();
}

int ComparisonModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int ComparisonModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ComparisonColumns;
}

QVariant ComparisonModel::data(const QModelIndex& index, int role) const {
  const ComparedPair& pair = *order_[static_cast<std::size_t>(index.row())];
  const int column = index.column();
  const bool isName = ComparedAxis(column) == 0;
  if (role == Qt::DisplayRole) return ToQString(ComparisonCell(pair, names_, column).Text);
  if (role == Qt::TextAlignmentRole)
    return QVariant((isName              ? Qt::AlignLeft
                     : IsYesOrNo(column) ? Qt::AlignHCenter
                                         : Qt::AlignRight) |
                    Qt::AlignVCenter);
  if (role == Qt::BackgroundRole && ComparedAxis(column) == 2) return MarkColour(Mark::Group);
  if (role == Qt::FontRole && IsFound(pair, column)) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return ToQString(ComparisonHeader(section));
}

void ComparisonModel::sort(int column, Qt::SortOrder order) {
  emit layoutAboutToBeChanged();
  std::vector<const ComparedPair*> before = order_;
  std::transform(pairs_.begin(), pairs_.end(), order_.begin(),
                 [](const ComparedPair& pair) { return &pair; });
  if (column >= 0) {
    std::vector<std::pair<StudyCell, const ComparedPair*>> keys;
    keys.reserve(order_.size());
    for (const ComparedPair* pair : order_)
      keys.emplace_back(ComparisonCell(*pair, names_, column), pair);
    const bool up = order == Qt::AscendingOrder, byText = ComparedAxis(column) == 0;
    std::stable_sort(keys.begin(), keys.end(), [&](const auto& first, const auto& second) {
      const StudyCell &a = first.first, &b = second.first;
      if (byText) return up ? a.Text < b.Text : b.Text < a.Text;
      if (!a.Value || !b.Value) return a.Value.has_value() && !b.Value;
      return up ? *a.Value < *b.Value : *b.Value < *a.Value;
    });
    std::transform(keys.begin(), keys.end(), order_.begin(),
                   [](const auto& key) { return key.second; });
  }
  const QModelIndexList former = persistentIndexList();
  if (!former.isEmpty()) {
    std::unordered_map<const ComparedPair*, int> rows;
    for (const ComparedPair* pair : order_) rows.emplace(pair, static_cast<int>(rows.size()));
    for (const QModelIndex& index : former)
      changePersistentIndex(
          index, createIndex(rows[before[static_cast<std::size_t>(index.row())]], index.column()));
  }
  emit layoutChanged();
}

}  // namespace velorix
