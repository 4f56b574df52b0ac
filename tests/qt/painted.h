#pragma once

#include <QImage>
#include <QPainter>

#include "platform/painting/painter_target.h"

namespace velorix {

/// A white picture, drawn on by `draw` through the painter's target.
template <class Draw>
QImage Painted(QSize size, PlaneFit fit, Draw draw, Surface surface = Surface::Pixels) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PainterTarget target(painter, fit, surface);
  draw(target);
  return image;
}

/// A picture with what a renderer of vectors has to show on a ground.
template <class Renderer>
QImage Rendered(Renderer& renderer, QSize size, QColor ground = Qt::white) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(ground);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

}  // namespace velorix
