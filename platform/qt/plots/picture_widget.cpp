#include "platform/qt/plots/picture_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <utility>

#include "plot/drawing/recorder.h"

namespace velorix {

namespace {

constexpr int Margin = 4;  // between picture and border, in the window system's units

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
    PainterTarget target(painter, FitInside(plane_, image.size(), ratio));
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
  Compose(picture_, [this](Target& target) {
    CallMarks marks(plane_, &target);
    draw_(marks);
    marks_ = std::move(marks.Marks);
  });
}

/// A composition that fails leaves no marks, so that the next one is drawn whole.
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

void PictureWidget::Report(const MouseFunction& function, const QMouseEvent& event) {
  if (!function) return;
  const QPointF p = FitInside(plane_, size(), 1).ToLogical(event.position());
  function({p.x(), p.y(), event.button(), event.buttons(), event.modifiers()});
}

void PictureWidget::mousePressEvent(QMouseEvent* event) { Report(OnPress, *event); }
void PictureWidget::mouseMoveEvent(QMouseEvent* event) { Report(OnMove, *event); }
void PictureWidget::mouseReleaseEvent(QMouseEvent* event) { Report(OnRelease, *event); }

void PictureWidget::leaveEvent(QEvent*) {
  if (OnLeave) OnLeave();
}

}  // namespace velorix
