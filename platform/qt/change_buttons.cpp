#include "platform/qt/change_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "platform/qt/busy_cursor.h"
#include "platform/qt/widgets.h"

namespace velorix {
namespace {

constexpr Colour ReadyColour = 0x80FF80;
constexpr int ButtonWidth = 96;

QPushButton* MakeButton(const char* name, const char* caption, const char* tip, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setMinimumWidth(ButtonWidth);
  return button;
}

/// Locked controls are there to be read.
void KeepLockedReadable(QDialog& dialog) {
  QPalette palette = dialog.palette();
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x50, 0x50, 0x50));
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

QHBoxLayout* MakeChangeButtons(Velorix& velorix, QDialog& dialog, std::function<void()> unlock,
                               std::function<void()> take) {
  KeepLockedReadable(dialog);
  auto* ok = MakeButton("cmdOK", "CHANGE", "(Enter)", &dialog);
  auto* cancel = MakeButton("cmdCancel", "CANCEL", "Close without saving (Esc)", &dialog);
  cancel->setAutoDefault(false);
  ok->setFocus();
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  QObject::connect(ok, &QPushButton::clicked, &dialog, [&velorix, &dialog, ok, unlock, take] {
    if (ok->text() == "CHANGE") {
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
  row->addStretch(1);
  row->addWidget(ok);
  row->addWidget(cancel);
  return row;
}

}  // namespace velorix
