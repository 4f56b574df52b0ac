// make_images FOLDER: the pictures of the manual, grabbed from the real program with the example
// files. Run it after a change of the windows: tools/make-images.

#include <QApplication>
#include <QLabel>
#include <QScreen>

#include "app/commands.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

/// A picture: the file opened, what is done then, and what is grabbed. A step is a command's name,
/// "+box" or "-box" for a check box or an option, "list=index", or "row*number" for a click there.
struct Image {
  const char *Name, *Example;
  QSize Size;  // of the main window
  std::vector<const char*> Steps;
  const char* Grabbed;  // object name of a control or window
};

// clang-format off
const Image Images[] = {
    {"main-window", "granite.ams", {1280, 800}, {}, "frmVelorix"},
    {"geology", "granite.ams", {1030, 720}, {"-cmdColumnPlots", "mnuView(3)", "+chkFoli(0)", "+chkFoli(4)"}, "picStereo"},
    {"bootstrap", "jelinek1978.ams", {1030, 720}, {"-cmdColumnPlots", "+chkBootStrap", "+chkBootstrapEllips", "-chkMeanEllipses"}, "picStereo"},
    {"colours-per-axis", "u1359b.ams", {1030, 720}, {"-cmdColumnPlots", "+chkStereoColorCoding", "odclStereoColorCoding=6"}, "picStereo"},
    {"colours-one-ramp", "u1359b.ams", {1030, 720}, {"-cmdColumnPlots", "+chkStereoColorCoding", "odclStereoColorCoding=12", "+optStereoColorCoding(1)"}, "picStereo"},
    {"ellipses", "granite.ams", {1030, 720}, {"-cmdColumnPlots", "+chkDataEllipses", "-chkMean", "-chkMeanEllipses"}, "picStereo"},
    {"histogram", "u1359b.ams", {1600, 1200}, {"odclHisto=3"}, "picHisto"},
    {"xy-plot", "u1359b.ams", {1600, 1200}, {"+chkXYPlot2ColorCoding", "odclXYPlot2(3)=11", "row*3"}, "picXYPlot2"},
    {"data-table", "granite.ams", {1280, 640}, {"mnuDataTable"}, "frmDataTable"},
    {"group-statistics", "granite.ams", {1280, 800}, {"mnuAnalysis(1)"}, "frmGroupStatistics"},
};
// clang-format on

void Do(TestWindow& window, const QString& step) {
  if (step.startsWith('+') || step.startsWith('-')) {
    window.The<QAbstractButton>(step.mid(1)).setChecked(step[0] == '+');
  } else if (step.contains('=')) {
    auto& list = window.The<QComboBox>(step.section('=', 0, 0));
    list.setCurrentIndex(step.section('=', 1).toInt());
    emit list.activated(list.currentIndex());
  } else if (step.startsWith("row*")) {
    window.ClickRow(step.mid(4).toInt() - 1);
  } else {
    RunMenu(window.Program, CommandNamed(step.toStdString()));
  }
  QTest::qWait(20);  // for layout and timers
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) qFatal("make_images FOLDER");
  for (const Image& image : Images) {
    TestWindow window;
    window.Window.resize(image.Size);
    window.Asked.Files.push_back(
        FileAnswer{std::string(VELORIX_SOURCE_DIR "/examples/") + image.Example, 1});
    RunMenu(window.Program, CommandNamed("mnuOpen"));
    QTest::qWait(20);
    for (const char* step : image.Steps) Do(window, step);
    QWidget* grabbed = &window.Window;
    if (grabbed->objectName() != image.Grabbed) grabbed = &window.The<QWidget>(image.Grabbed);
    const QString path = QString("%1/%2.png").arg(argv[1], image.Name);
    if (!grabbed->grab().save(path)) qFatal("%s", qPrintable(path));
  }
}
