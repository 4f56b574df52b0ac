// The questions for files with the real dialogs, as a user types and chooses in them.

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

#include "app/commands/picture_commands.h"
#include "app/edit/ged_editor.h"
#include "app/files/export_grid.h"
#include "app/files/open_flow.h"
#include "app/files/save.h"
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

/// The folder, the name and the type that a file dialog shows, "data|a.ams|1", or a box's texts.
QString Shown(QDialog& dialog) {
  if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) return box->text();
  return QString("%1|%2|%3")
      .arg(static_cast<QFileDialog&>(dialog).directory().dirName(), NameOf(dialog).text())
      .arg(In<QComboBox>(dialog, "fileTypeCombo").currentIndex() + 1);
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

/// The real dialogs; the first answer of the last question is kept.
struct KeptAnswer : QtDialogs {
  std::optional<FileAnswer> Kept;
  std::optional<FileAnswer> ShowSave(const FileQuestion& question) override {
    return Kept = QtDialogs::ShowSave(question);
  }
};

/// A program without a window over the real dialogs, with a folder "data".
struct Asker {
  Asker() {
    std::filesystem::create_directories(PathOf(Path("")));
    Program.Session.DataFolder = FolderOf(Path("x"));
    Program.Session.Records.Grow(1);
    Sheet.Rows.emplace_back().Cells[0] = "sample";
  }
  std::string Path(const std::string& name) const {
    return Temp.filePath("data/").toStdString() + name;
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
      const std::size_t number = static_cast<std::size_t>(story.size());
      story += Shown(*dialog);
      if (number < acts.size()) acts[number](*dialog);
      if (dialog->isVisible()) dialog->reject();
      next.start();
    });
    next.start();
    ask();
    if (acts.size() != static_cast<std::size_t>(story.size())) story += "another number of them";
    return story;
  }
  void Open() {
    OpenDataFiles(Program.Session, Program.History, Program.Dialogs, Program.Host,
                  FileAction::Open);
  }

  /// The program's own questions for a file to save.
  const std::map<QString, std::function<void()>> Save = {
      {"export",
       [this] { ExportData(Program.Session, Program.Dialogs, Program.Views, Program.Log); }},
      {"save", [this] { SaveAs(Program.Session, Program.Dialogs, Program.Views); }},
      {"page", [this] { SaveGraphics(Program); }},
      {"ged", [this] { SaveGedFile(Program.Session, Program.Dialogs, Sheet); }}};
  GedSheet Sheet;
  QTemporaryDir Temp;
  RecordedViews Seen;
  KeptAnswer Dialogs;
  Velorix Program{
      Dialogs, Seen, Seen, {"", "", [](auto&, auto&) { return std::vector<std::string>(); }}};
};

}  // namespace

class FileDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void theNameHasTheExtensionOfTheTypeAndTheTypeFollowsATypedOne() {
    const struct {
      const char *dialog, *proposed, *steps;  // of the user: a type's number, a name typed
      const char *shown, *answer;
    } rows[] = {
        // A type that has the extension stays.
        {"export", "site", "4 x.TXT", "x.TXT|4", "x.TXT|4"},
        // Otherwise the first type that has it.
        {"export", "site", "x.txt", "x.txt|2", "x.txt|2"},
        {"export", "site", "4 x.csv", "x.csv|1", "x.csv|1"},
        {"page", "granite", "gnome.pdf", "gnome.pdf|8", "gnome.pdf|8"},
        // It is the user's type again when the extension goes.
        {"export", "site", "4 x.csv x", "x|4", "x.txt|4"},
        // The proposed name shows the type's extension.
        {"save", "HR5.2", "2", "HR5.2.ran|2", "HR5.2.ran|2"},
        {"export", "site", "4", "site.txt|4", "site.txt|4"},
        {"page", "HR5.png", "", "HR5.png.wmf|1", "HR5.png.wmf|1"},
        {"page", "", "5", "|5", "none"},
        // Any other typed name gets one, but for that of a page.
        {"save", "site", "HR5.2 2 1", "HR5.2|1", "HR5.2.ams|1"},
        {"ged", "hill", "x.ams", "x.ams|1", "x.ams.ged|1"},
        {"page", "granite", "name 6", "name|6", "name|6"},
        {"page", "granite", "gnome.pdf 5", "gnome.png|5", "gnome.png|5"},
    };
    for (const auto& row : rows) {
      Asker asker;
      asker.Program.Session.CurrentFile = *row.proposed ? row.proposed + std::string(".ams") : "";
      asker.Sheet.Base = row.proposed;
      asker.Program.Host.WritePicture = [](auto&&...) { return Outcome(); };
      QString shown;
      asker.Ask(asker.Save.at(row.dialog), {[&](QDialog& file) {
                  for (const QString& step : QString(row.steps).split(' ', Qt::SkipEmptyParts))
                    step.toInt() ? Choose(file, step.toInt()) : Type(file, step);
                  shown = Shown(file);
                  Accept(file);
                }});
      const auto& kept = asker.Dialogs.Kept;
      const QString name = kept ? ToQString(kept->Filename).section('/', -1) : "";
      const QString answer = kept ? QString("%1|%2").arg(name).arg(kept->FilterIndex) : "none";
      QCOMPARE(shown + " " + answer, QString("data|%1 %2").arg(row.shown, row.answer));
    }
  }

  // The desktop's own dialogs show what they are given and let name and type go their own ways.
  void anAnswerOfTheDesktopsDialogIsBroughtIntoAgreement() {
    const auto filters = SplitFilters("A (*.ams)|*.ams|B (*.txt)|*.txt|C (*.txt)|*.txt|");
    QCOMPARE(filters[0].ForDialog(), "A (*.ams) (*.ams *.AMS)");
    const std::tuple<const char*, const char*, int, bool, const char*> rows[] = {
        {"/d/site.ams", "site.ams", 2, true, "/d/site.txt|3"},
        {"/d/site.ams", "other.ams", 2, true, "/d/site.ams|1"},
        {"/d/site.txt", "", 2, false, "/d/site.txt|3"},
        {"/d/site.txt", "", 0, false, "/d/site.txt|2"},
        {"/d.txt/HR5.2", "HR5.2.ams", 1, true, "/d.txt/HR5.2.txt|2"},
        {"/d.txt/HR5.2", "HR5.2.ams", 1, false, "/d.txt/HR5.2|2"}};
    for (const auto& [path, proposed, chosen, adds, expected] : rows) {
      const FileAnswer answer = SaveAnswer(path, chosen, filters, proposed, adds);
      QCOMPARE(answer.Filename + "|" + std::to_string(answer.FilterIndex), expected);
    }
  }

  void aFileThatDoesNotExistIsTheProgramsMatter() {
    Asker asker;
    asker.WriteFile("a.ams", "a");
    asker.WriteFile("b.ams", "b");
    const auto open = [&] { asker.Open(); };
    // The same dialog comes back; the next one begins with its type.
    const QString gone = "gone.ams\nThis file does not exist.",
                  nowhere = asker.Path("nowhere/x.ran").c_str();
    QCOMPARE(asker.Ask(open, {Answer(2, "gone.ams"), Press("&Retry"), Answer(2, "nowhere/x.ran"),
                              Press("&Retry"), Cancel}),
             QStringList({"data||1", gone, "data|gone.ams|2", "x.ran\nThis file does not exist.",
                          "data|" + nowhere + "|2"}));
    QCOMPARE(asker.Ask(open, {Answer(1, "\"gone.ams\" \"b.ams\""), Press("&Retry"),
                              Answer(1, "\"b.ams\" \"a.ams\"")}),
             QStringList({"data||2", gone, "data|\"gone.ams\" \"b.ams\"|1"}));
    QCOMPARE(asker.Names(), "b a ");

    // A folder is gone into, and its name goes from the field.
    std::filesystem::create_directories(PathOf(asker.Path("sub")));
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
    asker.Ask([&] { asker.Open(); }, {[](QDialog& dialog) {
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
    using namespace std::string_literals;
    QCOMPARE(JoinFileList({"/d/a.ams", "/e/b.ams"}), "/d\0a.ams\0/e/b.ams\0"s);
  }

  void aSaveThatIsNotToOverwriteAsksAgainAsItStood() {
    Asker asker;
    for (const auto& [ask, name, no] : {std::tuple{"save", "old.ran|2", "&No"},
                                        {"page", "old.png|5", "&No"},
                                        {"ged", "old.ged|1", "&No"},
                                        {"export", "old.csv|1", "&Cancel"}}) {
      const QStringList typed = QString(name).split('|');
      asker.WriteFile(typed[0].toStdString(), "old");
      const Act answer = Answer(typed[1].toInt(), typed[0]);
      const QStringList story = asker.Ask(asker.Save.at(ask), {answer, Press(no), Cancel});
      QCOMPARE(story.mid(2), QStringList(QString("data|") + name));
    }
  }

  void anEntryOfAListIsChosenByAButtonAKeyOrADoubleClick() {
    QtDialogs dialogs;
    const std::vector<std::string> entries = {"first", "second", "third"};
    const auto mark = [](QDialog& box, int row) {
      auto& list = In<QListWidget>(box, "lstEntries");
      list.setCurrentRow(row);
      return list.visualItemRect(list.item(row)).center();
    };
    const std::tuple<std::function<void(QDialog&)>, int, int> ways[] = {
        {[&](QDialog& box) {
           mark(box, 2);
           for (QPushButton* button : box.findChildren<QPushButton*>())
             if (button->text() == "&Save") return button->click();
         },
         0, 2},
        {[&](QDialog& box) {
           auto* view = In<QListWidget>(box, "lstEntries").viewport();
           const QPoint at = mark(box, 1);
           QTest::mouseClick(view, Qt::LeftButton, {}, at);
           QTest::mouseDClick(view, Qt::LeftButton, {}, at);
         },
         1, 1},
        {[&](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); }, 1, 0},
        {[&](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2, 0}};
    for (const auto& [act, button, entry] : ways) {
      OnModal<QDialog>(act);
      const ListAnswer answer =
          dialogs.AskList("Sheet", "Save?", entries, {"&Save", "S&how", "&Cancel"}, 1);
      QCOMPARE(answer.Button, button);
      QCOMPARE(answer.Entry, entry);
    }
  }

  void boxesInARowBelongToTheWindowThatAsked() {
    QWidget main, editor;
    main.show();
    editor.show();
    QVERIFY(Activate(editor));
    QtDialogs dialogs;
    dialogs.Owner = &main;
    for (int box = 0; box < 3; ++box) {
      OnModal<QMessageBox>([&](QMessageBox& shown) {
        QCOMPARE(shown.parentWidget(), &editor);
        shown.buttons().front()->click();
      });
      dialogs.Ask("Save", "Write over it?", {"&Yes", "&No"}, 0);
      QApplication::setActiveWindow(nullptr);  // as a desktop does between two boxes
    }
    editor.hide();
    QCOMPARE(dialogs.OwnerNow(), &main);
  }
};

QTEST_MAIN(FileDialogsTest)
#include "file_dialogs_test.moc"
