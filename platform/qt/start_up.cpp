#include "platform/qt/start_up.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>

#include "app/startup.h"
#include "platform/qt/about_window.h"
#include "platform/qt/velorix_window.h"
#include "text/timer.h"

namespace velorix {

constexpr int SplashTime = 2000;  // milliseconds that the splash stands behind the tables

void StartUp(Velorix& velorix, frmVelorix& window) {
  const auto yield = [] { QApplication::processEvents(); };
  PrepareSession(velorix);
  window.Load(velorix);

  frmSplash splash;
  splash.move(splash.screen()->availableGeometry().center() - splash.rect().center());
  splash.show();
  const float start = Timer();
  yield();
  BuildTables(velorix, yield);
  QEventLoop pause;  // events run while it stands
  QTimer::singleShot(SplashTime, &pause, &QEventLoop::quit);
  pause.exec();
  splash.close();

  window.resize(window.size().boundedTo(window.screen()->availableSize()));
  window.show();
  window.activateWindow();
  yield();
  window.ShowStartTime(Elapsed(start));
}

}  // namespace velorix
