#pragma once

#include <QAbstractTableModel>
#include <string>
#include <vector>

#include "app/state/velorix.h"

namespace velorix {

/// The columns of a table of records, counted from 0.
struct RecordColumns {
  int Count;
  std::string (*Header)(int column, const Settings& settings);
  std::string (*Cell)(int column, const SpecimenRecord& record, TensorBlock reImMode);
  velorix::Colour (*Colour)(int column);  // of the header
  int (*Characters)(int column);  // room: a longer text is cut off with dots, its tip has it whole
  int NameColumn;                 // the one that reads from the left
};

/// The record grid and the data table.
extern const RecordColumns GridRecordColumns, DataTableRecordColumns;

/// Light tint of a column (1 to 25) of the record grid, which the lists of columns take over: the
/// bar colour that the column has in the histogram, mixed with white.
Colour GridColumnColour(int column);

/// The records that the view shows as rows of a table. A cell's text is made when it is looked at.
class RecordModel : public QAbstractTableModel {
 public:
  RecordModel(const Velorix& velorix, const RecordColumns& columns)
      : velorix_(velorix), columns_(columns) {}

  /// Takes the rows from the store again, in its order.
  void Fill();
  /// Sorts the rows by a column of the data table.
  void SortRows(int column, bool downward);
  void RefreshHeader();
  /// `RecordNo` of a row, which counts from 0.
  int IdOf(int row) const { return rows_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Velorix& velorix_;
  const RecordColumns& columns_;
  std::vector<int> rows_;
};

}  // namespace velorix
