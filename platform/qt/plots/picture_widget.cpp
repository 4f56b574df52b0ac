#include "platform/qt/plots/picture_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "plot/drawing/recorder.h"

namespace velorix {

namespace {

constexpr int Margin = 4;  // between picture and border, in the window system's units
constexpr double LargestZoom = 40, ZoomStep = 1.25;  // of one notch of the wheel
constexpr double MoveStep = 0.1;                     // of the widget

/// How the plane lies in a widget of that size, in pixels of which a unit has `ratio`.
PlaneFit FitInside(PlaneSize plane, const QSizeF& size, double ratio) {
  const double margin = Margin * ratio;
  PlaneFit fit = FitPlane(plane, size - QSizeF(2 * margin, 2 * margin));
  fit.dx += margin;
  fit.dy += margin;
  return fit;
}

}  // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);  // the picture covers all of the widget
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureWidget::SetPicture(PlaneSize plane, DrawFunction draw) {
  draw_ = std::move(draw);
  picture_ = QImage();
  SetPlane(plane);
  update();
}

void PictureWidget::SetPlane(PlaneSize plane) {
  if (plane == plane_) return;
  plane_ = plane;
  picture_ = QImage();
  updateGeometry();
  update();
}

void PictureWidget::Redraw() {
  stale_ = true;
  update();
}

void PictureWidget::SetOverlay(DrawFunction overlay) {
  overlay_ = std::move(overlay);
  update();
}

QSize PictureWidget::sizeHint() const {
  return {plane_.width + 2 * Margin, plane_.height + 2 * Margin};
}

// Half the plane: letters can just be read.
QSize PictureWidget::minimumSizeHint() const { return sizeHint() / 2; }

void PictureWidget::AllowZoom() {
  whole_ = new QAction("Whole Plot", this);
  whole_->setObjectName("mnuWholePlot");
  whole_->setShortcut(QKeySequence(WholePlotKey));
  whole_->setShortcutContext(Qt::WidgetShortcut);  // of the menu; the window's own key does it
  whole_->setShortcutVisibleInContextMenu(true);
  whole_->setEnabled(false);
  connect(whole_, &QAction::triggered, this, &PictureWidget::ShowWhole);
  addAction(whole_);
  setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PictureWidget::ShowWhole() {
  if (whole_) Show(1, {});
}

/// How the plane lies in the widget, or in an image of it with `ratio` pixels a unit of the window
/// system. An enlarged picture shows nothing that the whole one doesn't show.
PlaneFit PictureWidget::Fit(const QSizeF& size, double ratio) const {
  PlaneFit fit = FitInside(plane_, size, ratio);
  if (zoom_ == 1 || fit.scale <= 0) return fit;
  const auto middle = [&](double centre, int plane, double room) {
    const double most = (1 - 1 / zoom_) * room / fit.scale / 2;
    return std::clamp(centre, plane / 2.0 - most, plane / 2.0 + most);
  };
  const double x = middle(centre_.x(), plane_.width, size.width());
  const double y = middle(centre_.y(), plane_.height, size.height());
  const double scale = fit.scale * zoom_;
  return {scale, size.width() / 2 - x * scale, size.height() / 2 - y * scale};
}

void PictureWidget::Show(double zoom, const QPointF& centre) {
  if (zoom < 1.001) zoom = 1;  // notches back and forth leave a rounding error
  if (zoom == 1 && zoom_ == 1) return;
  zoom_ = zoom;
  centre_ = centre;
  // Kept within its limits, so that moving it back begins where it stands.
  centre_ = Fit(size(), 1).ToLogical(QRectF(rect()).center());
  whole_->setEnabled(zoom_ > 1);
  picture_ = QImage();
  update();
}

/// Draws on the image, whose pixels are the target's for the time being.
void PictureWidget::Compose(QImage& image, const DrawFunction& draw, const QRegion& clip) {
  const qreal ratio = image.devicePixelRatio();
  image.setDevicePixelRatio(1);
  {
    QPainter painter(&image);
    if (!clip.isEmpty()) {
      painter.setClipRegion(clip);
      painter.fillRect(image.rect(), Qt::white);
    }
    const PlaneFit fit = Fit(image.size(), ratio);
    PainterTarget target =
        zoom_ > 1 ? PainterTarget(painter, fit, zoom_) : PainterTarget(painter, fit);
    try {
      draw(target);
    } catch (const Fault& fault) {
      if (OnFault) OnFault(fault);
    }
  }
  image.setDevicePixelRatio(ratio);
}

void PictureWidget::DrawAll() {
  picture_.fill(Qt::white);
  marks_ = {};
  if (!draw_) return;
  if (zoom_ > 1) return Compose(picture_, draw_);
  Compose(picture_, [this](Target& target) {
    CallMarks marks(plane_, &target);
    draw_(marks);
    marks_ = std::move(marks.Marks);
  });
}

/// A composition that fails leaves no marks, so that the next one is drawn whole; an enlarged one
/// leaves none either.
void PictureWidget::DrawChanges() {
  if (!draw_ || marks_.calls.empty() || !marks_.complete) return DrawAll();
  Recorder now;
  try {
    draw_(now);
  } catch (const Fault&) {
    return DrawAll();
  }
  CallMarks marks(plane_);
  Replay(now.calls, marks);
  const std::optional<Tiles> tiles =
      marks.Marks.complete ? ChangedTiles(marks_, marks.Marks, plane_) : std::nullopt;
  marks_ = std::move(marks.Marks);
  if (!tiles || tiles->AreMost()) {
    picture_.fill(Qt::white);
    Compose(picture_, [&](Target& target) { Replay(now.calls, target); });
  } else if (!tiles->IsEmpty()) {
    const PlaneFit fit = FitInside(plane_, picture_.size(), picture_.devicePixelRatio());
    Compose(
        picture_,
        [&](Target& target) {
          TileTarget changed(target, *tiles);
          Replay(now.calls, changed);
        },
        tiles->OnDevice(fit, picture_.size()));
  }
}

void PictureWidget::paintEvent(QPaintEvent*) {
  const qreal ratio = devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(width() * ratio)),
                     static_cast<int>(std::ceil(height() * ratio)));
  if (picture_.size() != pixels || picture_.devicePixelRatio() != ratio) {
    picture_ = QImage(pixels, QImage::Format_RGB32);
    picture_.setDevicePixelRatio(ratio);
    DrawAll();
  } else if (stale_) {
    DrawChanges();
  }
  stale_ = false;
  QPainter painter(this);
  if (overlay_) {
    QImage both = picture_;
    Compose(both, overlay_);
    painter.drawImage(0, 0, both);
  } else {
    painter.drawImage(0, 0, picture_);
  }
}

void PictureWidget::Report(const MouseFunction& function, const QSinglePointEvent& event) {
  if (!function) return;
  const QPointF p = Fit(size(), 1).ToLogical(event.position());
  function({p.x(), p.y(), event.button(), event.buttons(), event.modifiers(), zoom_});
}

void PictureWidget::mousePressEvent(QMouseEvent* event) { Report(OnPress, *event); }
void PictureWidget::mouseMoveEvent(QMouseEvent* event) { Report(OnMove, *event); }
void PictureWidget::mouseReleaseEvent(QMouseEvent* event) { Report(OnRelease, *event); }

void PictureWidget::leaveEvent(QEvent*) {
  if (OnLeave) OnLeave();
}

void PictureWidget::wheelEvent(QWheelEvent* event) {
  if (!whole_ || !draw_) return event->ignore();
  event->accept();
  const QPoint turn = event->angleDelta();
  if (turn.isNull()) return;  // a finger is put down or taken off
  const double notches = (turn.y() ? turn.y() : turn.x()) / 120.0;
  const bool sideways = event->modifiers() & Qt::ShiftModifier || turn.y() == 0;
  const bool upright = event->modifiers() & Qt::ControlModifier;
  const PlaneFit fit = Fit(size(), 1);
  const QPointF middle = QRectF(rect()).center();
  if (sideways || upright) {
    const QPointF step = sideways ? QPointF(width(), 0) : QPointF(0, height());
    Show(zoom_, fit.ToLogical(middle - notches * MoveStep * step));
  } else {
    const double zoom = std::clamp(zoom_ * std::pow(ZoomStep, notches), 1.0, LargestZoom);
    const QPointF under = fit.ToLogical(event->position());
    Show(zoom, under + zoom_ / zoom * (fit.ToLogical(middle) - under));
  }
  Report(OnMove, *event);  // another place may be under the mouse
}

}  // namespace velorix
