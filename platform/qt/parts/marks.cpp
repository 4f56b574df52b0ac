#include "platform/qt/parts/marks.h"

#include <QApplication>
#include <QLabel>
#include <QPalette>

namespace velorix {

QColor MarkColour(Mark mark) {
  const bool dark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
  switch (mark) {
    case Mark::Doubt:
      return dark ? QColor(0x78, 0x28, 0x28) : QColor(0xFF, 0xC0, 0xC0);
    case Mark::Matched:
      return dark ? QColor(0x1E, 0x55, 0x2C) : QColor(0xC0, 0xFF, 0xC0);
    case Mark::Fixed:
      return dark ? QColor(0x3A, 0x3A, 0x3A) : QColor(0xEE, 0xEE, 0xEE);
    case Mark::Group:
      return dark ? QColor(0x26, 0x30, 0x3C) : QColor(0xEE, 0xF3, 0xF8);
  }
  return {};
}

void MarkLabel(QLabel& label, bool marked) {
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::Window, MarkColour(Mark::Doubt));
  palette.setColor(QPalette::WindowText, palette.color(QPalette::Text));
  label.setPalette(palette);
  label.setAutoFillBackground(marked);
}

}  // namespace velorix
