#pragma once

#include <QTableView>

namespace velorix {

/// A table whose first columns stay in view when it is scrolled sideways: as many of them as take
/// less than half of its width.
class FrozenTable : public QTableView {
 public:
  explicit FrozenTable(QWidget* parent);

  /// Holds the first `columns` with a header of the kind that the table has. The table has its
  /// model and its look then, and keeps them. Clicks on the held header are clicks on the table's.
  void Freeze(int columns, QHeaderView* header);

  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  void updateGeometries() override;

 private:
  int HeldColumns() const;
  int HeldWidth() const;
  void PlaceHeld();

  QTableView* held_ =
      nullptr;               // a view of the first columns, over them while they are scrolled away
  QWidget* edge_ = nullptr;  // a line beside it
  int columns_ = 0;
};

}  // namespace velorix
