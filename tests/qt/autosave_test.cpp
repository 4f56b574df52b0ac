// A program that is killed at work, and the next start.

#include <QLabel>
#include <QMessageBox>
#include <QProcess>

#include "platform/qt/parts/qt_dialogs.h"
#include "platform/qt/start_up.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

/// The started program with its folders below `folder`; files are chosen from a script.
struct Started {
  explicit Started(const QString& folder) {
    Program.Host.AppFolder = Program.Host.DataRoot = folder.toStdString();
    Program.Host.ListFolder = ListFolder;
    StartUp(Program, Window);
  }

  struct : QtDialogs {
    std::string File;
    std::optional<FileAnswer> ShowOpen(const FileQuestion&) override { return FileAnswer{File, 1}; }
  } Asked;
  frmVelorix Window;
  Velorix Program{Asked, Window, Window, {}};
};

constexpr char ChildFolder[] = "VELORIX_TEST_FOLDER";

/// Types a cell into the orientation editor and leaves it open.
int WorkOn(const QString& folder) {
  Started started(folder);
  started.Asked.File = (folder + "/site.ams").toStdString();
  RunMenu(started.Program, CommandNamed("mnuOpen"));
  OnModal<QDialog>([](QDialog& editor) {
    auto* cells = editor.findChild<QTableView*>();
    cells->model()->setData(cells->model()->index(1, 2), "77");
  });
  RunMenu(started.Program, CommandNamed("mnuEdit(1)"));
  return 1;
}

}  // namespace

class AutosaveTest : public WindowTest {
  Q_OBJECT

 private slots:
  void whatAKilledProgramHadIsOfferedAtTheNextStart() {
    window_.emplace();
    W().WriteFile("site", 3);
    const QString folder = W().Folder.path(), kept = folder + "/Autosave/Unsaved-1.txt";
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("VELORIX_AUTOSAVE_SECONDS", "1");
    environment.insert(ChildFolder, folder);
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {});
    QVERIFY(QTest::qWaitFor([&] { return QFile::exists(kept); }, 60000));
    {  // another one leaves a running program's alone, and does not write over it
      Started second(folder);
      QVERIFY(QFile::exists(folder + "/Autosave/Unsaved-2.txt.lock"));
      QVERIFY(second.Program.Session.Records.Empty());
    }
    child.kill();
    QVERIFY(child.waitForFinished());

    QString question;
    OnModal<QMessageBox>([&](QMessageBox& box) {
      question = box.text();
      box.buttons().first()->click();
    });
    Started next(folder);
    QVERIFY2(question.contains("File: site.ams\nSpecimens: 1 of 3\n"), qPrintable(question));
    QCOMPARE(next.Program.Session.Records[2].OrientAz, 77.0f);
    QCOMPARE(In<QLabel>(next.Window, "lblUnsaved").text(), "Not saved");
    QVERIFY(!QFile::exists(kept));
    QVERIFY(QFile::exists(folder + "/Autosave/Unsaved-2.txt"));  // until the user has seen to it

    OnModal<QMessageBox>([](QMessageBox& box) { box.buttons().first()->click(); });
    QVERIFY(next.Window.close());
    QVERIFY(QDir(folder + "/Autosave").entryList({"*.txt"}, QDir::Files).isEmpty());
  }
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (const QString folder = qEnvironmentVariable(ChildFolder); !folder.isEmpty())
    return WorkOn(folder);
  AutosaveTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "autosave_test.moc"
