#pragma once

#include <QFrame>
#include <functional>

#include "platform/qt/record_table.h"

class QToolButton;

namespace velorix {

/// The frame `fraAnisoView` with the record grid `scgAnisoView` and the button that widens it.
class GridPanel : public QFrame {
 public:
  static constexpr int Narrow = 177, Wide = 993;  // pixels

  GridPanel(Velorix& velorix, QWidget* parent);

  RecordTable* Grid;

  /// Called with the width that the frame wants when the button has been pressed.
  std::function<void(int width)> OnWiden;

 private:
  void ShowWidth();

  Velorix& velorix_;
  QToolButton* cmdExpand_;
  bool wide_ = false;
};

}  // namespace velorix
