#pragma once

#include <QAction>
#include <QImage>
#include <QWidget>
#include <functional>

#include "base/fault.h"
#include "platform/painting/painter_target.h"
#include "platform/qt/plots/picture_changes.h"
#include "plot/drawing/target.h"

class QSinglePointEvent;

namespace velorix {

/// A mouse event on a picture, in the units of its plane; outside the plane too.
struct PictureMouse {
  double x = 0, y = 0;
  Qt::MouseButton button = Qt::NoButton;  // the one that went down or up
  Qt::MouseButtons buttons;               // those that are down
  Qt::KeyboardModifiers keys;
  double zoom = 1;  // of the picture
};

/// The key that shows enlarged plots whole again.
inline constexpr char WholePlotKey[] = "Ctrl+0";

/// Shows a picture of a fixed logical plane, whole and undistorted in whatever room it has and
/// crisp on every screen. What was drawn is kept until `Redraw`, which draws only what has changed,
/// or until size or screen change.
///
/// A picture that can be zoomed is enlarged up to 40 times by the wheel, the place under the mouse
/// staying where it is. With Shift the wheel moves it sideways, with Ctrl up and down. Curves are
/// then drawn finer; symbols, lines and letters keep their size. Size, screen and picture may
/// change meanwhile. An enlarged picture is drawn whole each time.
class PictureWidget : public QWidget {
 public:
  using DrawFunction = std::function<void(Target&)>;
  using MouseFunction = std::function<void(const PictureMouse&)>;

  explicit PictureWidget(QWidget* parent = nullptr);

  /// The plane and what draws on it. Set again where the plane changes its size.
  void SetPicture(PlaneSize plane, DrawFunction draw);
  /// The plane alone; the picture is drawn again if it is another one than before.
  void SetPlane(PlaneSize plane);
  /// Draws the picture again when it is next seen.
  void Redraw();
  /// What lies over the kept picture for a while, such as a rubber band: drawn at each repaint, in
  /// the same plane. An empty function takes it away.
  void SetOverlay(DrawFunction overlay);
  /// Lets the wheel zoom, with "Whole Plot" in a context menu.
  void AllowZoom();
  /// Shows all of the plane again.
  void ShowWhole();

  MouseFunction OnPress, OnMove, OnRelease;  // moves come without a button held, too
  std::function<void()> OnLeave;             // the mouse has left the widget
  /// A composition that ended with a fault; what it had drawn until then stays.
  std::function<void(const Fault&)> OnFault;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  PlaneFit Fit(const QSizeF& size, double ratio) const;
  void Show(double zoom, const QPointF& centre);
  void Compose(QImage& image, const DrawFunction& draw, const QRegion& clip = {});
  void DrawAll();
  void DrawChanges();
  void Report(const MouseFunction& function, const QSinglePointEvent& event);

  PlaneSize plane_ = {360, 366};
  double zoom_ = 1;
  QPointF centre_;  // the plane's place in the middle of an enlarged picture, as far as it may be
  QAction* whole_ = nullptr;  // null: cannot be zoomed
  DrawFunction draw_, overlay_;
  QImage picture_;  // null: to be drawn whole
  bool stale_ = false;
  Marks marks_;  // of the calls that made the picture
};

}  // namespace velorix
