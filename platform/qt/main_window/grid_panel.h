#pragma once

#include <QFrame>
#include <functional>

#include "platform/qt/tables/record_table.h"

class QToolButton;

namespace velorix {

/// The frame `fraAnisoView` with the record grid `scgAnisoView` and the button that widens it.
class GridPanel : public QFrame {
 public:
  GridPanel(Velorix& velorix, QWidget* parent);

  /// Pixels that the frame wants as it is, narrow or wide; more where the desktop's texts are
  /// larger.
  int WantedWidth() const;
  bool IsWide() const { return wide_; }

  RecordTable* Grid;

  /// Called when the button has been pressed.
  std::function<void()> OnWiden;

 private:
  void ShowWidth();

  Velorix& velorix_;
  QToolButton* cmdExpand_;
  bool wide_ = false;
};

}  // namespace velorix
