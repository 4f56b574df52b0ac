#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

#include "tests/qt/test_window.h"

namespace velorix {

/// Does `act` to the next modal window of a kind, once it is up.
template <class Modal>
void OnModal(std::function<void(Modal&)> act) {
  QTimer::singleShot(0, [act] {
    auto* window = qobject_cast<Modal*>(QApplication::activeModalWidget());
    if (!window) return OnModal<Modal>(act);
    act(*window);
  });
}

/// Opens a dialog by its command, lets `act` use it, and returns when it is closed.
inline void ShowDialog(TestWindow& window, const char* command,
                       const std::function<void(QDialog&)>& act) {
  bool seen = false;
  OnModal<QDialog>([&](QDialog& dialog) {
    QTRY_COMPARE(QApplication::activeWindow(), &dialog);
    act(dialog);
    seen = true;
    if (dialog.isVisible()) dialog.reject();
  });
  window.The<QAction>(command).trigger();
  QVERIFY(seen);
}

}  // namespace velorix
