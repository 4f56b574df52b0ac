// make_images FOLDER [light|dark [WIDTHxHEIGHT [POINTS]]]: the pictures of the manual, grabbed from
// the real program with the example files; or all of them in another theme, with the main window in
// another size, with a larger system font. Run it after a change of the windows: tools/make-images.

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <algorithm>

#include "app/commands/commands.h"
#include "app/commands/file_commands.h"
#include "app/files/losses.h"
#include "datafiles/settings/autosave_file.h"
#include "platform/qt/parts/qt_dialogs.h"
#include "platform/qt/parts/theme.h"
#include "stats/density/contour_grid.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

/// A picture: the file opened ("" for none), what is done then, and what is grabbed. A step is a
/// command's name, "+box" or "-box" for a check box or an option, "list=index", "field=text",
/// "row*number" for a click there, "group*number" to add a row to those selected there, "file:name"
/// for the answer to the next file dialog, "!button" to press one,
/// "!window/item" for a menu of a window of its own. The steps behind "?command" are done in the
/// modal window that this command opens.
struct Image {
  const char *Name, *Example;
  QSize Size;  // of the main window
  std::vector<const char*> Steps;
  const char* Grabbed;  // object name of a control or window
};

// clang-format off
const Image Images[] = {
    {"empty-window", "", {1280, 800}, {}, "frmVelorix"},
    {"main-window", "granite.ams", {1280, 800}, {}, "frmVelorix"},
    {"large-window", "u1359b.ams", {1280, 800}, {"mnuView(2)", "odclHisto=3", "+chkDataEllipses", "+chkStereoColorCoding", "row*3"}, "frmVelorix"},
    {"geology", "granite.ams", {1030, 720}, {"-cmdColumnPlots", "mnuView(3)", "+chkFoli(0)", "+chkFoli(4)"}, "picStereo"},
    {"bootstrap", "jelinek1978.ams", {1030, 720}, {"-cmdColumnPlots", "+chkBootStrap", "+chkBootstrapEllips", "-chkMeanEllipses"}, "picStereo"},
    {"colours-per-axis", "u1359b.ams", {1030, 720}, {"-cmdColumnPlots", "+chkStereoColorCoding", "odclStereoColorCoding=6"}, "picStereo"},
    {"colours-one-ramp", "u1359b.ams", {1030, 720}, {"-cmdColumnPlots", "+chkStereoColorCoding", "odclStereoColorCoding=12", "+optStereoColorCoding(1)"}, "picStereo"},
    {"ellipses", "granite.ams", {1030, 720}, {"-cmdColumnPlots", "+chkDataEllipses", "-chkMean", "-chkMeanEllipses"}, "picStereo"},
    {"histogram", "u1359b.ams", {1600, 1200}, {"odclHisto=3"}, "picHisto"},
    {"xy-plot", "u1359b.ams", {1600, 1200}, {"+chkXYPlot2ColorCoding", "odclXYPlot2(3)=11", "row*3"}, "picXYPlot2"},
    {"data-table", "granite.ams", {1280, 640}, {"mnuDataTable"}, "frmDataTable"},
    {"group-statistics", "granite.ams", {1280, 800}, {"mnuAnalysis(1)"}, "frmGroupStatistics"},
    {"groups", "granite.ams", {1280, 800}, {"mnuGroups", "cboGroupBy=6"}, "frmGroups"},
    {"groups-in-plots", "fold/after.ams", {1030, 720}, {"-cmdColumnPlots", "mnuGroups", "cboGroupBy=2", "cboGroupMarks=1", "+chkGroupMeans", "-chkMean", "-chkMeanEllipses"}, "picStereo"},
    {"comparison", "fold/before.ams", {1280, 800}, {"mnuView(3)", "mnuGroups", "cboGroupBy=1", "group*1", "group*7", "!cmdCompare"}, "frmComparison"},
    {"untilting", "fold/before.ams", {1280, 800}, {"mnuGroups", "cboGroupBy=1", "!cmdUntilt"}, "frmUntilting"},
    {"contour-curves", "granite.ams", {1280, 800}, {"mnuAnalysis(3)", "!optDisplay(3)", "!cmdCount", "+chkCurves"}, "frmContour"},
    {"contour-window", "granite.ams", {1280, 800}, {"mnuAnalysis(3)", "!optDisplay(3)", "!cmdCount"}, "frmContour"},
    {"plane-from-lineations", "granite.ams", {1280, 800}, {"mnuFoliLine"}, "frmFoliLine"},
    {"orientation-parameters", "granite.ams", {1280, 800}, {"?mnuOPAR"}, "frmOPAR"},
    {"axes", "granite.ams", {760, 260}, {"?mnuAxes", "txtLower(1)=1e-6", "txtUpper(1)=1e-2", "+chkLog(1)", "txtStep(2)=0.005"}, "frmAxes"},
    {"figure-options", "granite.ams", {1280, 800}, {"?mnuFigure", "style-width=0", "style-layout=1", "style-captions=1", "style-colours=2", "+style-panel-letters", "+style-halo"}, "frmFigure"},
    {"factor-choice", "granite.ams", {1280, 800}, {"?mnuAnisoFac"}, "frmAnisoFac"},
    {"edit-orientations", "granite_unoriented.ams", {1280, 800}, {"file:granite.ged", "?mnuEdit(1)", "!cmdOpenGED", "!cmdGEDASSign"}, "frmEditData"},
    {"ged-editor", "granite.ams", {1280, 800}, {"file:granite.ged", "mnuGedEditor", "!frmGEDEditor/mnuOpen"}, "frmGEDEditor"},
    {"about", "", {1280, 800}, {"?mnuAbout"}, "frmAbout"},
};
// clang-format on

std::string Example(const QString& name) {
  return VELORIX_SOURCE_DIR "/examples/" + name.toStdString();
}

/// The control or window of a name in `root`, or `root` itself.
template <class Control>
Control& Find(QWidget& root, const QString& name) {
  if (auto* self = qobject_cast<Control*>(&root); self && root.objectName() == name) return *self;
  auto* control = root.findChild<Control*>(name);
  if (!control) qFatal("no control %s", qPrintable(name));
  return *control;
}

void Do(TestWindow& window, QWidget& root, const QString& step) {
  if (step.startsWith('+') || step.startsWith('-')) {
    Find<QAbstractButton>(root, step.mid(1)).setChecked(step[0] == '+');
  } else if (step.startsWith('!') && step.contains('/')) {
    auto& owner = Find<QWidget>(root, step.section('/', 0, 0).mid(1));
    owner.findChild<QAction*>(step.section('/', 1))->trigger();
  } else if (step.startsWith('!')) {
    Find<QAbstractButton>(root, step.mid(1)).click();
  } else if (step.startsWith("file:")) {
    window.Asked.Files.push_back(FileAnswer{Example(step.mid(5)), 1});
  } else if (step.startsWith("row*")) {
    window.ClickRow(step.mid(4).toInt() - 1);
  } else if (step.startsWith("group*")) {
    auto& table = Find<QTableWidget>(root, "grdGroups");
    table.selectionModel()->select(table.model()->index(step.mid(6).toInt() - 1, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
  } else if (step.startsWith("txt")) {
    Find<QLineEdit>(root, step.section('=', 0, 0)).setText(step.section('=', 1));
  } else if (step.contains('=')) {
    auto& list = Find<QComboBox>(root, step.section('=', 0, 0));
    list.setCurrentIndex(step.section('=', 1).toInt());
    emit list.activated(list.currentIndex());
  } else {
    RunMenu(window.Program, CommandNamed(step.toStdString()));
  }
  QTest::qWait(20);               // for layout and timers
  const auto isReady = [&root] {  // what is computed beside a window stands there
    const auto buttons = root.findChildren<QPushButton*>("cmdCancel");
    return std::none_of(buttons.begin(), buttons.end(), [](const QPushButton* button) {
      return button->isVisible() && button->isEnabled() && button->text().remove("&") == "Cancel";
    });
  };
  if (!QTest::qWaitFor(isReady)) qFatal("%s: still at work", qPrintable(step));
}

/// Does the steps from `step` on and saves what is grabbed then.
void Take(TestWindow& window, QWidget& root, const Image& image, std::size_t step,
          const QString& path) {
  for (; step < image.Steps.size(); ++step) {
    const QString what = image.Steps[step];
    if (what.startsWith('?')) {
      OnModal<QDialog>([&, step](QDialog& modal) {
        Take(window, modal, image, step + 1, path);
        modal.close();
      });
      RunMenu(window.Program, CommandNamed(what.mid(1).toStdString()));
      return;
    }
    Do(window, root, what);
  }
  if (!Find<QWidget>(root, image.Grabbed).grab().save(path)) qFatal("%s", qPrintable(path));
}

/// A box over the main window: `ask` asks its question.
void TakeBox(TestWindow& window, const QString& path, const std::function<void(Dialogs&)>& ask) {
  QtDialogs dialogs;
  dialogs.Owner = &window.Window;
  OnModal<QDialog>([&path](QDialog& box) {
    if (!box.grab().save(path)) qFatal("%s", qPrintable(path));
    box.reject();
  });
  ask(dialogs);
}

/// The question of the orientation editor before doubtful cells are saved.
void TakeDoubtsQuestion(const QString& path) {
  TestWindow window;
  window.Asked.Files.push_back(FileAnswer{Example("granite.ams"), 1});
  RunMenu(window.Program, CommandNamed("mnuOpen"));
  OrientationEditor editor;
  LoadEditor(editor, window.Program.Session);
  EditCells(editor, {{2, OrientationColumn, "12,5"},
                     {5, OrientationColumn + 1, "95"},
                     {7, FoliationColumn(1), "s0"},
                     {9, FoliationColumn(1), "S01"}});
  TakeBox(window, path, [&editor](Dialogs& dialogs) {
    AskAboutDoubts(dialogs, "Edit Orientation Data", DoubtsToSave(editor));
  });
}

/// The question before a save that would lose something of the file.
void TakeSaveQuestion(const QString& path) {
  TestWindow window;
  Session& session = window.Program.Session;
  window.Asked.Files.push_back(FileAnswer{Example("granite.ams"), 1});
  RunMenu(window.Program, CommandNamed("mnuOpen"));
  RunMenu(window.Program, CommandNamed("mnuReload"));
  const Losses losses =
      FindLosses(session, session.CurrentFile, KindToSave(1), session.Records, true);
  TakeBox(window, path, [&losses](Dialogs& dialogs) {
    AskAboutLosses(dialogs, "Save Record(s) As", "/home/anna/granite.ams", losses);
  });
}

/// The question at a start behind a crash.
void TakeRestoreQuestion(const QString& path) {
  TestWindow window;
  Velorix& program = window.Program;
  window.Asked.Files.push_back(FileAnswer{Example("granite.ams"), 1});
  RunMenu(program, CommandNamed("mnuOpen"));
  OrientationEditor editor;
  LoadEditor(editor, program.Session);
  EditCells(editor, {{2, OrientationColumn, "77"}, {3, OrientationColumn, "81"}});
  const std::string left = window.Path("left.txt");
  Autosave own(left);
  own.Update(program.Session, &editor, program.Views, program.Log);
  AutosavedWork work = AutosaveOfText(BytesOf(left)).value();
  work.Time = "2026-11-22 09:05";
  PutFile(left, AutosaveText(work));
  TakeBox(window, path, [&](Dialogs& dialogs) {
    Velorix next{dialogs, window.Window, window.Window, {}};
    OfferAutosave(next, left, own);
  });
}

void UseDarkTheme() {
  QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2B, 0x2B, 0x2B));
  dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
  dark.setColor(QPalette::Highlight, QColor(0x2A, 0x6F, 0xB5));
  QApplication::setPalette(dark);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(new Theme);
  if (argc < 2 || argc > 5) qFatal("make_images FOLDER [light|dark [WIDTHxHEIGHT [POINTS]]]");
  if (argc > 2 && QString(argv[2]) == "dark") UseDarkTheme();
  const QStringList size = argc > 3 ? QString(argv[3]).split('x') : QStringList();
  if (argc > 4) {
    QFont font = QApplication::font();
    font.setPointSizeF(QString(argv[4]).toDouble());
    QApplication::setFont(font);
  }
  QDir().mkpath(argv[1]);
  for (const Image& image : Images) {
    TestWindow window;
    BuildContourGrid(window.Program.Contour.Grid, 0, 300, 3);
    window.Window.resize(size.size() == 2 ? QSize(size[0].toInt(), size[1].toInt()) : image.Size);
    if (*image.Example) {
      window.Asked.Files.push_back(FileAnswer{Example(image.Example), 1});
      RunMenu(window.Program, CommandNamed("mnuOpen"));
    }
    QTest::qWait(20);
    Take(window, window.Window, image, 0, QString("%1/%2.png").arg(argv[1], image.Name));
  }
  TakeSaveQuestion(QString("%1/save-question.png").arg(argv[1]));
  TakeRestoreQuestion(QString("%1/restore-question.png").arg(argv[1]));
  TakeDoubtsQuestion(QString("%1/doubts-question.png").arg(argv[1]));
}
