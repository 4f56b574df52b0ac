// The questions for files with the real dialogs, as a user types and chooses in them.

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

#include "app/edit/ged_editor.h"
#include "app/edit/orientation_editor.h"
#include "app/files/export_grid.h"
#include "app/files/graphics_page.h"
#include "app/files/open_flow.h"
#include "app/files/save.h"
#include "datafiles/ged_file.h"
#include "platform/qt/output/page_output.h"
#include "platform/qt/parts/qt_dialogs.h"
#include "platform/qt/parts/widgets.h"
#include "tests/qt/test_window.h"

using namespace velorix;

namespace {

QLineEdit& NameOf(QDialog& dialog) { return In<QLineEdit>(dialog, "fileNameEdit"); }

/// The button that takes the answer, pressed.
void Accept(QDialog& dialog) {
  auto& buttons = In<QDialogButtonBox>(dialog, "buttonBox");
  for (QAbstractButton* button : buttons.buttons())
    if (buttons.buttonRole(button) == QDialogButtonBox::AcceptRole)
      return QTest::mouseClick(button, Qt::LeftButton);
}

/// Types a name over what stands there.
void Type(QDialog& dialog, const QString& name) {
  dialog.activateWindow();
  NameOf(dialog).setFocus();
  QTRY_VERIFY(NameOf(dialog).hasFocus());
  NameOf(dialog).selectAll();
  QTest::keyClicks(&NameOf(dialog), name);
}

/// Goes through the types, from 1, by the arrow keys.
void Choose(QDialog& dialog, int type) {
  auto& types = In<QComboBox>(dialog, "fileTypeCombo");
  while (types.currentIndex() != type - 1)
    QTest::keyClick(&types, types.currentIndex() < type - 1 ? Qt::Key_Down : Qt::Key_Up);
}

/// The folder, the name and the type that a file dialog shows: "data|a.ams|1".
QString Shown(QDialog& dialog) {
  return QString("%1|%2|%3")
      .arg(static_cast<QFileDialog&>(dialog).directory().dirName(), NameOf(dialog).text())
      .arg(In<QComboBox>(dialog, "fileTypeCombo").currentIndex() + 1);
}

QString TextOf(const QMessageBox& box) {
  QString text = box.windowTitle() + "|" + box.text();
  for (const QAbstractButton* button : box.buttons()) text += "|" + button->text();
  return text;
}

/// What is done to a dialog or box.
using Act = std::function<void(QDialog&)>;

Act Answer(int type, const QString& name) {
  return [type, name](QDialog& dialog) {
    Choose(dialog, type);
    Type(dialog, name);
    Accept(dialog);
  };
}

Act Press(const char* caption) {
  return [caption](QDialog& box) {
    for (QAbstractButton* button : static_cast<QMessageBox&>(box).buttons())
      if (button->text() == caption) QTest::mouseClick(button, Qt::LeftButton);
  };
}

const Act Cancel = [](QDialog& dialog) { dialog.reject(); };

/// A program without a window over the real dialogs, with a folder "data".
struct Asker {
  Asker() {
    std::filesystem::create_directories(PathOf(Path("")));
    Program.Session.DataFolder = FolderOf(Path("x"));
    GivePictures(Program.Host, nullptr);
  }
  std::string Path(const std::string& name) const {
    return Temp.filePath("data/").toStdString() + name;
  }
  QString Data() const { return ToQString(Path("")); }
  QByteArray Bytes(const std::string& name) const {
    QFile file(ToQString(Path(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  /// A file with a record of this name.
  void WriteFile(const std::string& file, const char* name) const {
    RecordArray records;
    records.Grow(1);
    records[1].Name = name;
    if (!WriteAmsFile(Path(file), records, false, true)) qFatal("no test file");
  }
  QString Names() const {
    QString names;
    for (const SpecimenRecord& record : Program.Session.Records)
      names += ToQString(record.Name) + " ";
    return names;
  }
  /// Does each act to one of the dialogs and boxes that `ask` shows, in turn; there must be no more
  /// and no fewer of them. Gives what they showed at first.
  QStringList Ask(const std::function<void()>& ask, const std::vector<Act>& acts) {
    QStringList story;
    QTimer next;
    QObject::connect(&next, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      next.stop();
      const auto* box = qobject_cast<const QMessageBox*>(dialog);
      const std::size_t number = static_cast<std::size_t>(story.size());
      story += box ? TextOf(*box) : Shown(*dialog);
      if (number < acts.size()) acts[number](*dialog);
      if (dialog->isVisible()) dialog->reject();
      next.start();
    });
    next.start();
    ask();
    if (acts.size() != static_cast<std::size_t>(story.size())) story += "another number of them";
    return story;
  }

  QTemporaryDir Temp;
  RecordedViews Seen;
  QtDialogs Dialogs;
  Velorix Program{
      Dialogs, Seen, Seen, {"", "", [](auto&, auto&) { return std::vector<std::string>(); }}};
};

}  // namespace

class FileDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void theNameHasTheExtensionOfTheTypeAndTheTypeFollowsATypedOne_data() {
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("proposed");
    QTest::addColumn<QString>("steps");  // of the user: a type's number, a name typed
    QTest::addColumn<QString>("shown");  // then
    QTest::addColumn<QString>("answer");
    const struct {
      const char *dialog, *proposed, *steps, *shown, *answer;
    } rows[] = {
        // A type that has the extension stays.
        {"export", "site", "3 x.txt", "x.txt|3", "x.txt|3"},
        {"export", "site", "4 x.txt", "x.txt|4", "x.txt|4"},
        {"export", "site", "3 x.TXT", "x.TXT|3", "x.TXT|3"},
        // Otherwise the first type that has it.
        {"export", "site", "x.txt", "x.txt|2", "x.txt|2"},
        {"export", "site", "4 x.csv", "x.csv|1", "x.csv|1"},
        {"page", "granite", "gnome.pdf", "gnome.pdf|8", "gnome.pdf|8"},
        {"save", "site", "x.RAN", "x.RAN|2", "x.RAN|2"},
        // It is the user's type again when the extension goes.
        {"export", "site", "4 x.csv x", "x|4", "x.txt|4"},
        // The proposed name shows the type's extension.
        {"save", "HR5.2", "", "HR5.2.ams|1", "HR5.2.ams|1"},
        {"save", "HR5.2", "2", "HR5.2.ran|2", "HR5.2.ran|2"},
        {"export", "site", "4", "site.txt|4", "site.txt|4"},
        {"page", "granite", "5", "granite.png|5", "granite.png|5"},
        {"page", "HR5.png", "", "HR5.png.wmf|1", "HR5.png.wmf|1"},
        {"page", "", "5", "|5", "none"},
        // Any other typed name gets one, but for that of a page.
        {"save", "site", "HR5.2", "HR5.2|1", "HR5.2.ams|1"},
        {"save", "site", "HR5.2 2", "HR5.2|2", "HR5.2.ran|2"},
        {"save", "site", "HR5.2 2 1", "HR5.2|1", "HR5.2.ams|1"},
        {"ged", "hill", "x.ams", "x.ams|1", "x.ams.ged|1"},
        {"page", "granite", "6 name", "name|6", "name|6"},
        {"page", "granite", "name 6", "name|6", "name|6"},
        {"page", "granite", "typed.name", "typed.name|1", "typed.name|1"},
        {"page", "granite", "gnome.pdf 5", "gnome.png|5", "gnome.png|5"},
    };
    for (const auto& row : rows)
      QTest::addRow("%s %s %s", row.dialog, row.proposed, row.steps)
          << row.dialog << row.proposed << row.steps << row.shown << row.answer;
  }
  void theNameHasTheExtensionOfTheTypeAndTheTypeFollowsATypedOne() {
    QFETCH(const QString, dialog);
    QFETCH(const QString, proposed);
    QFETCH(const QString, steps);
    QFETCH(const QString, shown);
    QFETCH(const QString, answer);
    // The question is the program's own; its first answer is kept and nothing is written.
    struct FirstAnswer : QtDialogs {
      std::optional<FileAnswer> Given;
      std::optional<FileAnswer> ShowSave(const FileQuestion& question) override {
        Given = QtDialogs::ShowSave(question);
        return std::nullopt;
      }
    } dialogs;
    Asker asker;
    Velorix program{dialogs, asker.Seen, asker.Seen, {}};
    program.Session.DataFolder = asker.Program.Session.DataFolder;
    program.Session.CurrentFile = proposed.isEmpty() ? "" : (proposed + ".ams").toStdString();
    program.Session.Records.Grow(1);
    GedSheet sheet;
    sheet.Base = proposed.toStdString();
    sheet.Rows.emplace_back().Cells[0] = "sample";
    const std::map<QString, std::function<void()>> questions = {
        {"export",
         [&] { ExportData(program.Session, program.Dialogs, program.Views, program.Log); }},
        {"save", [&] { SaveAs(program.Session, program.Dialogs, program.Views); }},
        {"page", [&] { SaveGraphics(program); }},
        {"ged", [&] { SaveGedFile(program.Session, program.Dialogs, sheet); }}};
    asker.Ask(questions.at(dialog), {[&](QDialog& file) {
                for (const QString& step : steps.split(' ', Qt::SkipEmptyParts))
                  if (const int type = step.toInt())
                    Choose(file, type);
                  else
                    Type(file, step);
                QCOMPARE(Shown(file), "data|" + shown);
                Accept(file);
              }});
    QString given = "none";
    if (dialogs.Given)
      given = QString("%1|%2")
                  .arg(ToQString(dialogs.Given->Filename).section('/', -1))
                  .arg(dialogs.Given->FilterIndex);
    QCOMPARE(given, answer);
  }

  // The desktop's own dialogs show what they are given and let name and type go their own ways.
  void anAnswerOfTheDesktopsDialogIsBroughtIntoAgreement() {
    const auto filters = SplitFilters("A (*.ams)|*.ams|B (*.txt)|*.txt|C (*.txt)|*.txt|");
    const struct {
      const char *path, *proposed;
      int chosen;
      bool adds;
      const char* answer;
    } rows[] = {{"/d/site.ams", "site.ams", 2, true, "/d/site.txt|3"},
                {"/d/site.ams", "other.ams", 2, true, "/d/site.ams|1"},
                {"/d/site.txt", "", 2, false, "/d/site.txt|3"},
                {"/d/site.txt", "", 0, false, "/d/site.txt|2"},
                {"/d.txt/HR5.2", "HR5.2.ams", 1, true, "/d.txt/HR5.2.txt|2"},
                {"/d.txt/HR5.2", "HR5.2.ams", 1, false, "/d.txt/HR5.2|2"}};
    for (const auto& row : rows) {
      const FileAnswer answer = SaveAnswer(row.path, row.chosen, filters, row.proposed, row.adds);
      QCOMPARE(QString("%1|%2").arg(ToQString(answer.Filename)).arg(answer.FilterIndex),
               row.answer);
    }
  }

  void theExportedTextHasTheChosenDelimiter() {
    Asker asker;
    for (const int type : {2, 3, 4})
      asker.Ask(
          [&] {
            ExportData(asker.Program.Session, asker.Program.Dialogs, asker.Program.Views,
                       asker.Program.Log);
          },
          {Answer(type, QString("%1.txt").arg(type))});
    QVERIFY(asker.Bytes("2.txt").startsWith("ID            Specimen"));
    QVERIFY(asker.Bytes("3.txt").startsWith("ID ;Specimen ;"));
    QVERIFY(asker.Bytes("4.txt").startsWith("ID \tSpecimen \t"));
  }

  void aPageNeedsAnExtension() {
    Asker asker;
    const auto save = [&] { SaveGraphics(asker.Program); };
    const QString told = "Export graphics|" + asker.Data() + "name\nFile was not saved!|&OK";
    QCOMPARE(asker.Ask(save, {Answer(6, "name"), Press("&OK")}), QStringList({"data||1", told}));
    QVERIFY(QDir(asker.Data()).isEmpty());
    const struct {
      const char* name;
      int type;
      const char* start;
    } rows[] = {{"name", 1, "\xD7\xCD\xC6\x9A"}, {"typed.pdf", 1, "%PDF"}};
    for (const auto& row : rows) {
      asker.Ask(save, {Answer(row.type, row.name)});
      QVERIFY2(asker.Bytes(row.name).startsWith(row.start), row.name);
    }
  }

  void aFileThatDoesNotExistIsTheProgramsMatter() {
    Asker asker;
    asker.WriteFile("a.ams", "a");
    asker.WriteFile("b.ams", "b");
    const auto open = [&] {
      OpenDataFiles(asker.Program.Session, asker.Program.Dialogs, asker.Program.Host,
                    FileAction::Open);
    };
    const auto told = [](const QString& name) {
      return "Open File(s)|" + name + "\nThis file does not exist.|&Retry";
    };
    // The same dialog comes back; the next one begins with its type.
    QCOMPARE(asker.Ask(open, {Answer(2, "gone.ams"), Press("&Retry"), Answer(2, "nowhere/x.ran"),
                              Press("&Retry"), Cancel}),
             QStringList({"data||1", told("gone.ams"), "data|gone.ams|2", told("x.ran"),
                          "data|" + asker.Data() + "nowhere/x.ran|2"}));
    QCOMPARE(asker.Ask(open, {Answer(1, "\"gone.ams\" \"b.ams\""), Press("&Retry"),
                              Answer(1, "\"b.ams\" \"a.ams\"")}),
             QStringList({"data||2", told("gone.ams"), "data|\"gone.ams\" \"b.ams\"|1"}));
    QCOMPARE(asker.Names(), "b a ");

    // A folder is gone into, and its name goes from the field.
    QVERIFY(QDir(asker.Data()).mkdir("sub"));
    asker.WriteFile("sub/c.ams", "c");
    asker.Ask(open, {[&](QDialog& dialog) {
                Type(dialog, "sub");
                Accept(dialog);
                QCOMPARE(Shown(dialog), "sub||1");
                Type(dialog, "c.ams");
                Accept(dialog);
              }});
    QCOMPARE(asker.Program.Session.CurrentFile, asker.Path("sub/c.ams"));
  }

  void severalFilesAreChosenInTheList() {
    Asker asker;
    for (const char* name : {"a", "b", "c"}) asker.WriteFile(name + std::string(".ams"), name);
    asker.Ask(
        [&] {
          OpenDataFiles(asker.Program.Session, asker.Program.Dialogs, asker.Program.Host,
                        FileAction::Open);
        },
        {[](QDialog& dialog) {
          auto& list = In<QTreeView>(dialog, "treeView");
          QTRY_COMPARE(list.model()->rowCount(list.rootIndex()), 3);
          const auto place = [&](int row) {
            return list.visualRect(list.model()->index(row, 0, list.rootIndex())).center();
          };
          QTRY_VERIFY(!place(2).isNull());
          QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place(0));
          QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, place(2));
          Accept(dialog);
        }});
    QCOMPARE(asker.Names(), "a c ");
  }

  void aNewGeologicalFileStartsFromNothing() {
    Asker asker;
    asker.Program.Session.Records.Grow(1);
    OrientationEditor editor;
    LoadEditor(editor, asker.Program.Session);
    const QString told = "|new.ged\nThis file does not exist.\nCreate new file?|";
    QCOMPARE(asker.Ask(
                 [&] {
                   OpenGed(editor, asker.Program.Session, asker.Program.Lists,
                           asker.Program.Dialogs, FileAction::Open);
                 },
                 {Answer(1, "new.ged"), Press("&No"), Accept, Press("&Yes")}),
             QStringList({"data||1", "Open File(s)" + told + "&Yes|&No", "data|new.ged|1",
                          "Open File(s)" + told + "&Yes|&No"}));
    QCOMPARE(asker.Program.Session.RecordCount(), 0);
    GedSheet sheet;
    QCOMPARE(asker.Ask([&] { OpenGedFiles(asker.Program.Session, asker.Program.Dialogs, sheet); },
                       {Answer(1, "new.ged"), Press("&Retry"), Cancel}),
             QStringList({"data||1", "Open GED file(s)" + told + "&Retry", "data|new.ged|1"}));
  }

  void aSaveThatIsNotToOverwriteAsksAgainAsItStood() {
    Asker asker;
    asker.Program.Session.Records.Grow(1);
    GedSheet sheet;
    sheet.Rows.emplace_back().Cells[0] = "sample";
    const std::tuple<std::function<void()>, int, const char*, const char*> rows[] = {
        {[&] { SaveAs(asker.Program.Session, asker.Program.Dialogs, asker.Program.Views); }, 2,
         "old.ran", "&No"},
        {[&] { SaveGraphics(asker.Program); }, 5, "old.png", "&No"},
        {[&] { SaveGedFile(asker.Program.Session, asker.Program.Dialogs, sheet); }, 1, "old.ged",
         "&No"},
        {[&] {
           ExportData(asker.Program.Session, asker.Program.Dialogs, asker.Program.Views,
                      asker.Program.Log);
         },
         1, "old.csv", "&Cancel"}};
    for (const auto& [ask, type, name, no] : rows) {
      asker.WriteFile(name, "old");
      const QStringList story = asker.Ask(ask, {Answer(type, name), Press(no), Cancel});
      QCOMPARE(story.size(), 3);
      QCOMPARE(story[2], QString("data|%1|%2").arg(name).arg(type));
    }
  }

  void filtersMatchExtensionsInAnyCase() {
    const auto filters = SplitFilters("AMS-file(s) (*.ams)|*.ams|AMSSpin-file(s) (*.txt)|*.txt");
    QCOMPARE(filters.size(), 2);
    QCOMPARE(filters[0].ForDialog(), "AMS-file(s) (*.ams) (*.ams *.AMS)");
    QCOMPARE(filters[1].Suffix(), "txt");
  }

  void severalFilesAreJoinedByZeros() {
    using namespace std::string_literals;
    QCOMPARE(JoinFileList({"/d/a.ams"}), "/d/a.ams"s);
    QCOMPARE(JoinFileList({"/d/a.ams", "/e/b.ams"}), "/d\0a.ams\0/e/b.ams\0"s);
    QCOMPARE(JoinFileList({}), ""s);
  }

  void anAnswerThatIsTooLongIsToldAndAskedAgain() {
    Asker asker;
    const FileQuestion question = {
        "Open", "A (*.ams)|*.ams|", asker.Program.Session.DataFolder, "", true, 5};
    const QStringList story =
        asker.Ask([&] { asker.Dialogs.ShowOpen(question); }, {Answer(1, "a.ams"), Cancel, Cancel});
    QVERIFY2(story[1].contains("5 are allowed"), qPrintable(story[1]));
    QCOMPARE(story[2], "data|a.ams|1");
  }

  void aSaveDialogStartsAtHomeWhereNothingCanBeSaved() {
    Asker asker;
    const FileQuestion question = {"Save", "A (*.ams)|*.ams|", asker.Path("gone"), "a"};
    QCOMPARE(
        asker.Ask([&] { asker.Dialogs.ShowSave(question); }, {Cancel}),
        QStringList(QDir::home().dirName() + "|a.ams|1"));  // root can write where others can't
  }
};

QTEST_MAIN(FileDialogsTest)
#include "file_dialogs_test.moc"
