#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "app/velorix.h"

namespace velorix {

/// Light tint of a grid column (1 to 25), which the lists of columns take over: the bar colour that
/// the column has in the histogram, mixed with white.
Colour GridColumnColour(int column);

/// The records that the view shows as rows of the record grid. A cell's text is made when it is
/// looked at.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(const Velorix& velorix) : velorix_(velorix) {}

  /// Takes the rows from the store again.
  void Fill();
  void RefreshHeader();
  /// `RecordNo` of a row, both from the grid's point of view: row from 0, number from 1.
  int IdOf(int row) const { return rows_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Velorix& velorix_;
  std::vector<int> rows_;
};

}  // namespace velorix
