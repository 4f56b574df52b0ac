#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "platform/qt/grid_model.h"

class QTableView;
class QToolButton;

namespace velorix {

/// The frame `fraAnisoView` with the record grid `scgAnisoView` and the button that widens it.
class GridPanel : public QFrame {
 public:
  static constexpr int Narrow = 177, Wide = 993;  // pixels

  GridPanel(Velorix& velorix, QWidget* parent);

  void FillGrid();
  void ShowHeader() { model_.RefreshHeader(); }
  int RowCount() const { return model_.rowCount(); }

  /// Called with the width that the frame wants when the button has been pressed.
  std::function<void(int width)> OnWiden;

 private:
  void ShowWidth();
  void SelectFromStore();
  std::vector<int> SelectedIds() const;
  void TellSelection();

  Velorix& velorix_;
  GridModel model_;
  QTableView* scgAnisoView_;
  QToolButton* cmdExpand_;
  bool wide_ = false;
  bool filling_ = false;  // the store selects rows, not the user
};

}  // namespace velorix
