#pragma once

#include <QAbstractTableModel>
#include <span>
#include <string>
#include <vector>

#include "app/commands/velorix.h"

namespace velorix {

/// The columns of a table of records, from left to right.
struct RecordColumns {
  std::span<const Column> Columns;
  std::string (*Header)(Column column, const Settings& settings);
  std::string (*Cell)(Column column, const SpecimenRecord& record, TensorBlock reImMode);
  // Room: a longer text is cut off with dots, its tip has it whole.
  int (*Characters)(Column column);

  int Count() const { return static_cast<int>(Columns.size()); }
  /// The key of a column, counted from 0.
  Column operator[](int column) const { return Columns[static_cast<std::size_t>(column)]; }
  /// The place of the specimens' names.
  int NameColumn() const;
};

/// The record grid and the data table.
extern const RecordColumns GridRecordColumns, DataTableRecordColumns;

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
