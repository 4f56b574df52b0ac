#pragma once

#include <QAbstractTableModel>
#include <deque>
#include <span>
#include <string>
#include <vector>

#include "app/tables/comparison_table.h"

namespace velorix {

/// The rows of the table of comparisons, sorted by a column: cells that are empty last.
class ComparisonModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// An empty table of pairs of these groups.
  void Begin(std::vector<std::string> names);
  /// Some rows more, at the end.
  void Add(std::span<const ComparedPair> pairs);

  const std::vector<std::string>& Names() const { return names_; }
  /// In the order of the table.
  const std::vector<const ComparedPair*>& Pairs() const { return order_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// By column -1 in the order of the groups.
  void sort(int column, Qt::SortOrder order) override;

 private:
  std::vector<std::string> names_;
  std::deque<ComparedPair> pairs_;  // which stay where they are
  std::vector<const ComparedPair*> order_;
};

}  // namespace velorix
