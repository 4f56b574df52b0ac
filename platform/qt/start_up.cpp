#include "platform/qt/start_up.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>

#include "app/commands/picture_commands.h"
#include "app/commands/startup.h"
#include "base/timer.h"
#include "platform/qt/main_window/velorix_window.h"
#include "platform/qt/windows/about_window.h"

namespace velorix {

constexpr int SplashTime = 2000;   // milliseconds that the splash stands behind the tables
constexpr int StatusTime = 10000;  // that the message of a command stands, before that of the log

/// In the window's own size, or filling the screen where that size leaves no room for its frame:
/// the line at the bottom must not be beyond the edge.
static void ShowWithFrame(QWidget& window) {
  constexpr QSize Frame(16, 48);  // generous: no system gives it before the window is shown
  const QSize natural = window.size();
  window.resize(natural.boundedTo(window.screen()->availableSize() - Frame));
  window.size() == natural ? window.show() : window.showMaximized();
}

void StartUp(Velorix& velorix, frmVelorix& window) {
  const auto yield = [] { QApplication::processEvents(); };
  const std::string notice = PrepareSession(velorix.Session, velorix.Log, velorix.Host);
  velorix.Log.OnRefusal = [&window](const std::string& text) {
    QTimer::singleShot(StatusTime, &window, [&window, text] { window.ShowStatus(text); });
  };
  window.Load(velorix);
  LoadAxes(velorix);

  frmSplash splash;
  splash.move(splash.screen()->availableGeometry().center() - splash.rect().center());
  splash.show();
  const float start = Timer();
  yield();
  BuildTables(velorix.Contour.Grid, velorix.GaussTable, yield);
  QEventLoop pause;  // events run while it stands
  QTimer::singleShot(SplashTime, &pause, &QEventLoop::quit);
  pause.exec();
  splash.close();

  ShowWithFrame(window);
  window.activateWindow();
  yield();
  window.ShowStartTime(Elapsed(start));
  if (!notice.empty()) window.ShowStatus(notice);
  window.StartAutosave();
}

}  // namespace velorix
