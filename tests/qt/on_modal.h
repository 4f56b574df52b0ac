#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

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

}  // namespace velorix
