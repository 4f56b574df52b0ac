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

/// The box round all that is not white; empty for a white picture.
inline QRect Ink(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != QColor(Qt::white).rgb()) ink |= QRect(x, y, 1, 1);
  return ink;
}

}  // namespace velorix
