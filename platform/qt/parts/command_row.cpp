#include "platform/qt/parts/command_row.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "platform/qt/parts/change_buttons.h"

namespace velorix {

QHBoxLayout* MakeCommandRow(QWidget& window, const char* closeTip,
                            const std::vector<WindowCommand>& left,
                            const std::vector<WindowCommand>& right) {
  auto* row = new QHBoxLayout;
  const auto add = [&](const WindowCommand& command) {
    QPushButton* button = MakeDialogButton(command.Name, command.Caption, command.Tip, &window);
    QObject::connect(button, &QPushButton::clicked, &window, command.Do);
    row->addWidget(button);
    if (*command.Key)
      QObject::connect(new QShortcut(QKeySequence(command.Key), &window), &QShortcut::activated,
                       &window, command.Do);
  };
  for (const WindowCommand& command : left) add(command);
  row->addStretch(1);
  for (const WindowCommand& command : right) add(command);
  add({"cmdCLOSE", "Close", closeTip, [&window] { window.close(); }});
  QObject::connect(new QShortcut(Qt::Key_Escape, &window), &QShortcut::activated, &window,
                   &QWidget::close);
  return row;
}

}  // namespace velorix
