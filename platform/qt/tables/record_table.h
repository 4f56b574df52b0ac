#pragma once

#include <vector>

#include "platform/qt/tables/frozen_table.h"
#include "platform/qt/tables/record_model.h"

namespace velorix {

/// A table of the records in view whose selected rows are the selected records. Number and name
/// stay in view when it is scrolled sideways.
class RecordTable : public FrozenTable {
 public:
  RecordTable(Velorix& velorix, const RecordColumns& columns, QWidget* parent);

  /// Takes the rows from the store again; the table stays where the user has scrolled it.
  void Fill();
  /// Selects the rows of the selected records. Nothing happens when they are selected already.
  void ShowSelection();
  void ShowHeader() { model_.RefreshHeader(); }
  /// Sorts by a column of the data table, upward, or the other way round if it was sorted by it.
  /// The next `Fill` brings back the store's order.
  void SortBy(int column);
  /// Record numbers of the selected rows, in the order of the rows.
  std::vector<int> SelectedIds() const;

  const RecordModel& Rows() const { return model_; }

 protected:
  /// An empty table says what to do.
  void paintEvent(QPaintEvent* event) override;

 private:
  void SelectFromStore();
  void TellSelection();
  void ShowOrder();

  Velorix& velorix_;
  RecordModel model_;
  QHeaderView* heldHeader_;  // of the columns that stay in view
  int sortedBy_ = -1;        // column, or none
  bool downward_ = false;
  bool filling_ = false;  // the store selects rows, not the user
};

}  // namespace velorix
