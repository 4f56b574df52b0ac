#pragma once

#include <QProxyStyle>

namespace velorix {

/// The look of the program's windows on every desktop, in the light or dark colours that it has:
/// Fusion, with frames around check boxes and options that also a dark desktop shows.
class Theme : public QProxyStyle {
 public:
  Theme();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace velorix
