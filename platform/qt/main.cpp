#include <QApplication>
#include <QMessageBox>

#include "app/state/program.h"
#include "base/fault.h"
#include "datafiles/bytes/safe_write.h"
#include "platform/host/host.h"
#include "platform/qt/main_window/velorix_window.h"
#include "platform/qt/output/page_output.h"
#include "platform/qt/parts/qt_dialogs.h"
#include "platform/qt/parts/theme.h"
#include "platform/qt/start_up.h"

namespace {

using namespace velorix;

/// The program's objects, each behind those that it refers to.
struct Program {
  explicit Program(Host host) : Running{Asked, Window, Window, std::move(host)} {
    Asked.Owner = &Window;
    GivePictures(Running.Host, &Window);
  }

  QtDialogs Asked;
  frmVelorix Window;
  Velorix Running;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("velorix");
  QApplication::setDesktopFileName("velorix");
  QApplication::setStyle(new Theme);
  SetFlushFile(FlushToDevice);
  try {
    Program program(MakeHost(ExecutablePath(argv[0])));
    StartUp(program.Running, program.Window);
    return QApplication::exec();
  } catch (const Fault& fault) {
    QMessageBox::critical(nullptr, ProgramTitle, QString::fromStdString(FaultText(fault)));
    return 1;
  } catch (const std::exception& error) {
    QMessageBox::critical(nullptr, ProgramTitle, QString::fromUtf8(error.what()));
    return 1;
  }
}
