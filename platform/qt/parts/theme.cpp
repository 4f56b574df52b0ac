#include "platform/qt/parts/theme.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace velorix {
namespace {

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

}  // namespace

Theme::Theme() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void Theme::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
  const bool round = element == PE_IndicatorRadioButton;
  if (!(box || round) || !IsDark(option->palette)) return;
  QColor frame = option->palette.color(QPalette::Text);
  frame.setAlphaF(option->state & State_Enabled ? 0.6F : 0.25F);
  painter->save();
  painter->setPen(frame);
  painter->setBrush(Qt::NoBrush);
  painter->setRenderHint(QPainter::Antialiasing);
  const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (box)
    painter->drawRoundedRect(edge, 1.5, 1.5);
  else
    painter->drawEllipse(edge);
  painter->restore();
}

}  // namespace velorix
