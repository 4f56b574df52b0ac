#include "platform/qt/parts/busy_cursor.h"

#include <QCursor>
#include <QGuiApplication>

#include "app/commands/commands.h"

namespace velorix {
namespace {

constexpr qint64 Patience = 300;  // milliseconds

struct {
  int commands = 0;  // a dialog within a command runs events, and they may run commands
  bool shown = false;
  QElapsedTimer clock;
} busy;

void Hide() {
  if (busy.shown) QGuiApplication::restoreOverrideCursor();
  busy.shown = false;
}

}  // namespace

BusyCursor::BusyCursor() {
  if (busy.commands++ == 0) busy.clock.start();
}

BusyCursor::~BusyCursor() {
  if (--busy.commands == 0) Hide();
}

void ShowBusyCursor() {
  if (busy.commands == 0 || busy.shown || busy.clock.elapsed() < Patience) return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  busy.shown = true;
}

void PauseBusyCursor() {
  Hide();
  busy.clock.start();
}

void Work(Velorix& velorix, const std::function<void()>& work) {
  BusyCursor cursor;
  Guarded(velorix, work);
}

}  // namespace velorix
