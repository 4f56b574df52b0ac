#include "platform/qt/parts/change_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

constexpr Colour ReadyColour = 0x80FF80;

QColor Mixed(const QColor& a, const QColor& b, double part) {
  const auto mix = [part](float x, float y) { return static_cast<float>(x + part * (y - x)); };
  return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                          mix(a.blueF(), b.blueF()));
}

/// Locked controls are there to be read.
void KeepLockedReadable(QDialog& dialog) {
  QPalette palette = dialog.palette();
  const QColor text = Mixed(palette.color(QPalette::Active, QPalette::WindowText),
                            palette.color(QPalette::Active, QPalette::Window), 0.33);
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, text);
  dialog.setPalette(palette);
}

void MakeReady(QPushButton& button) {
  button.setText("OK");
  button.setDefault(true);
  QPalette palette = button.palette();
  palette.setColor(QPalette::Button, ToQColor(ReadyColour));
  palette.setColor(QPalette::ButtonText, Qt::black);
  button.setPalette(palette);
}

}  // namespace

QPushButton* MakeDialogButton(const char* name, const char* caption, const char* tip,
                              QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  const QFontMetrics font = button->fontMetrics();
  const int text = std::max(font.horizontalAdvance(caption), font.horizontalAdvance("AssignGED"));
  button->setMinimumWidth(text + 2 * font.averageCharWidth() + 16);
  return button;
}

QHBoxLayout* MakeChangeButtons(Velorix& velorix, QDialog& dialog,
                               const std::function<void()>& unlock,
                               const std::function<void()>& take) {
  KeepLockedReadable(dialog);
  auto* ok = MakeDialogButton("cmdOK", "CHANGE", "(Enter)", &dialog);
  auto* cancel = MakeDialogButton("cmdCancel", "CANCEL", "Close without saving (Esc)", &dialog);
  cancel->setAutoDefault(false);
  ok->setFocus();
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  QObject::connect(ok, &QPushButton::clicked, &dialog,
                   [&velorix, &dialog, ok, unlock, take, locked = true]() mutable {
                     if (locked) {
                       locked = false;
                       MakeReady(*ok);
                       unlock();
                       return;
                     }
                     bool done = false;
                     PauseBusyCursor();
                     Work(velorix, [&] {
                       take();
                       done = true;
                     });
                     PauseBusyCursor();
                     if (done) dialog.accept();
                   });
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  row->addStretch(1);
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

}  // namespace velorix
