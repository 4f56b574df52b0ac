#pragma once

#include <QLockFile>
#include <QTimer>
#include <memory>

#include "app/commands/velorix.h"
#include "app/edit/autosave.h"

namespace velorix {

/// Keeps unsaved orientation data every few minutes, in a file that no other running program has:
/// a lock beside the file says whether the program that wrote it still runs.
class Autosaver {
 public:
  /// Takes a file in the program's folder. Without one, which status line and log say, nothing is
  /// kept or offered.
  explicit Autosaver(Velorix& velorix);

  /// Offers what runs that have ended left, the newest first, until something is restored.
  void OfferLeft();
  /// The orientation editor that is open; null when it is closed.
  void Follow(const OrientationEditor* editor) { editor_ = editor; }
  /// After commands: what is saved is kept no longer.
  void Forget();
  /// The program ends as the user asked: nothing is kept any more.
  void End();

 private:
  void Update();

  Velorix& velorix_;
  const OrientationEditor* editor_ = nullptr;
  std::unique_ptr<QLockFile> lock_;
  std::unique_ptr<Autosave> own_;
  QTimer timer_;
};

}  // namespace velorix
