#include "platform/qt/main_window/autosaver.h"

#include <QDir>
#include <algorithm>

#include "app/commands/file_commands.h"
#include "app/state/refusals.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

constexpr int UsualSeconds = 180, MostSeconds = 86400, MostPrograms = 100;

int Seconds() {
  const int seconds = qEnvironmentVariableIntValue("VELORIX_AUTOSAVE_SECONDS");
  return seconds > 0 ? std::min(seconds, MostSeconds) : UsualSeconds;
}

QDir Folder(const Velorix& velorix) {
  return QDir(ToQString(velorix.Host.AppFolder) + "/Autosave");
}

/// The lock of a file, held until it goes; null while another running program has it.
std::unique_ptr<QLockFile> LockOf(const QString& file) {
  auto lock = std::make_unique<QLockFile>(file + ".lock");
  lock->setStaleLockTime(0);  // however long a program runs, the file is its own
  return lock->tryLock(0) ? std::move(lock) : nullptr;
}

}  // namespace

Autosaver::Autosaver(Velorix& velorix) : velorix_(velorix) {
  const QDir folder = Folder(velorix);
  folder.mkpath(".");
  for (int i = 1; i <= MostPrograms && !lock_; ++i) {
    const QString file = folder.filePath(QString("Unsaved-%1.txt").arg(i));
    if (QFileInfo::exists(file)) continue;
    lock_ = LockOf(file);
    if (lock_) own_ = std::make_unique<Autosave>(QDir::toNativeSeparators(file).toStdString());
  }
  if (!lock_) {
    ReportRefusal(velorix_.Views, velorix_.Log,
                  folder.path().toStdString() + ": Unsaved data cannot be kept here.");
    return;
  }
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Update(); });
  timer_.start(1000 * Seconds());
}

void Autosaver::OfferLeft() {
  if (!own_) return;
  for (const QFileInfo& left : Folder(velorix_).entryInfoList({"*.txt"}, QDir::Files, QDir::Time)) {
    const auto lock = LockOf(left.filePath());
    if (!lock) continue;
    bool restored = false;
    Work(velorix_, [&] {
      const std::string path = QDir::toNativeSeparators(left.filePath()).toStdString();
      restored = OfferAutosave(velorix_, path, *own_);
    });
    if (restored || own_->IsKept()) return;  // its display may have failed
  }
}

void Autosaver::Forget() {
  if (own_ && !editor_ && !velorix_.Session.IsUnsaved()) own_->Remove();
}

void Autosaver::End() {
  timer_.stop();
  if (own_) own_->Remove();
}

void Autosaver::Update() {
  try {
    own_->Update(velorix_.Session, editor_, velorix_.Views, velorix_.Log);
  } catch (const std::exception& error) {  // no box while the user is at work
    ReportRefusal(velorix_.Views, velorix_.Log, error.what());
  }
}

}  // namespace velorix
