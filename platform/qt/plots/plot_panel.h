#pragma once

#include <QFrame>

#include "platform/qt/plots/picture_widget.h"

class QHBoxLayout;
class QLabel;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

namespace velorix {

/// The names and texts of one plot of the main window.
struct PlotNames {
  const char *Title, *Picture, *Button, *Frame, *PictureTip, *ButtonTip;
};

/// A plot with its property frame, which a button opens and shuts; the button's picture shows
/// the state.
class PlotPanel : public QFrame {
 public:
  /// `appFolder` is where the button's pictures are looked for first.
  PlotPanel(const PlotNames& names, const std::string& appFolder, QWidget* parent);

  /// Opens or shuts the property frame.
  void SetOpen(bool open);
  bool IsOpen() const;
  /// A label in the title's row for what the mouse reads off the plot.
  QLabel* AddReadOut(const QString& name, const QString& tip);
  /// A check box in the title's row that puts the plot on the graphics page.
  void AddPageBox(const char* name, bool& onPage);

  PictureWidget* Picture;
  QFrame* Frame;         // of the properties
  QVBoxLayout* Options;  // within the frame

 private:
  QHBoxLayout* title_;
  QToolButton* button_;
  QScrollArea* scroll_;
  QIcon up_, down_;
};

/// A key of the window shows all its plots whole again.
void AddWholePlotKey(QWidget& window);

/// The row at the top of a panel: its title, room, and what the caller adds.
QHBoxLayout* MakeTitleRow(const char* title, QWidget* parent);

/// A small flat button that shows only its picture.
QToolButton* MakeFlatButton(const char* name, QWidget* parent);

}  // namespace velorix
