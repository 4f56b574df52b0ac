#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QScreen>
#include <QStyleFactory>
#include <QTimer>

#include "app/startup.h"
#include "platform/host/host.h"
#include "platform/qt/about_window.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/velorix_window.h"
#include "text/timer.h"

namespace {

using namespace velorix;

constexpr int SplashTime = 2000;  // milliseconds that the splash stands behind the tables

/// The program's objects, each behind those that it refers to.
struct Program {
  explicit Program(Host host) : Running{Asked, Window, std::move(host)} { Asked.Owner = &Window; }

  QtDialogs Asked;
  frmVelorix Window;
  Velorix Running;
};

/// Builds the tables behind the splash and shows the main window.
void Start(Program& program) {
  const auto yield = [] { QApplication::processEvents(); };
  PrepareSession(program.Running);
  program.Window.Load(program.Running);

  frmSplash splash;
  splash.move(splash.screen()->availableGeometry().center() - splash.rect().center());
  splash.show();
  const float start = Timer();
  yield();
  BuildTables(program.Running, yield);
  QEventLoop pause;  // events run while it stands
  QTimer::singleShot(SplashTime, &pause, &QEventLoop::quit);
  pause.exec();
  splash.close();

  const QSize room = program.Window.screen()->availableSize();
  program.Window.resize(program.Window.size().boundedTo(room));
  program.Window.show();
  program.Window.activateWindow();
  yield();
  program.Window.ShowStartTime(Elapsed(start));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("velorix");
  QApplication::setDesktopFileName("velorix");
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  try {
    Program program(MakeHost(QApplication::applicationFilePath().toStdString()));
    Start(program);
    return QApplication::exec();
  } catch (const std::exception& error) {
    QMessageBox::critical(nullptr, ProgramTitle, QString::fromUtf8(error.what()));
    return 1;
  }
}
