// The editor of geological files, driven by the names of its controls.

#include <QLineEdit>
#include <QPushButton>

#include "datafiles/ged_file.h"
#include "platform/qt/windows/ged_editor_window.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class GedEditorWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;
  TestWindow& W() { return *window_; }

  frmGEDEditor* Editor() { return W().Window.findChild<frmGEDEditor*>("frmGEDEditor"); }
  template <class Control>
  Control& The(const char* name) {
    return In<Control>(*Editor(), name);
  }
  QTableView& Grid() { return The<QTableView>("scgEditAniso"); }
  void Press(const char* name) { QTest::mouseClick(&The<QPushButton>(name), Qt::LeftButton); }
  QString Cell(int row, int column) { return Grid().model()->index(row, column).data().toString(); }
  /// Types into a cell, counted from 0, as a user does; the cell is still open then.
  void Begin(int row, int column, const QString& text) {
    Grid().setCurrentIndex(Grid().model()->index(row, column));
    QTest::keyClicks(&Grid(), text.left(1));  // opens the cell's editor
    auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(box);
    QTest::keyClicks(box, text.mid(1));
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
  }
  void Type(int row, int column, const QString& text) {
    Begin(row, column, text);
    Key(Qt::Key_Return);
  }
  /// Names of the samples in view.
  QString Names() {
    QStringList names;
    for (int row = 0; row + 1 < Grid().model()->rowCount(); ++row)
      if (!Grid().isRowHidden(row)) names += Cell(row, 0);
    return names.join(' ');
  }
  std::string WriteGed(const std::string& name, int count) {
    RecordArray records;
    for (int i = 1; i <= count; ++i) {
      SpecimenRecord r;
      r.Name = name + std::to_string(i);
      r.Site = name;
      r.OP = {5, 90, 3, 90};
      records.Add(r);
    }
    const std::string path = W().Path((name + ".ged").c_str());
    if (!WriteGedFile(path, records)) qFatal("no test file");
    return path;
  }
  void Open(const std::string& path) {
    W().Asked.Files.push_back(FileAnswer{path, 1});
    The<QAction>("mnuOpen").trigger();
  }
  std::string Saved(const std::string& path) {
    RecordArray records;
    std::string names = ReadGedFile(path, records) ? "" : "none";
    for (const SpecimenRecord& r : records) names += r.Name + " ";
    return names;
  }

 private slots:
  void init() {
    window_.emplace();
    W().The<QAction>("mnuGedEditor").trigger();
    QVERIFY(Editor());
    QTRY_COMPARE(QApplication::activeWindow(), Editor());
  }

  void aFileCanBeTypedFromNothing() {
    QCOMPARE(Editor()->windowTitle(), "Geological file editor");
    QCOMPARE(HeaderTexts(Grid()),
             "Sample name|Orientation|Inc|Foliation1|Azimuth|Dip|Lineation1|Trend|Plunge|"
             "Foliation2|Azimuth|Dip|Lineation2|Trend|Plunge");
    QCOMPARE(The<QPushButton>("cmdRestore").text(), "RESTORE ALL");
    QCOMPARE(The<QPushButton>("cmdCopy1stRow").text(), "COPY 1ST ROW TO ALL");
    The<QLineEdit>("txtSite").setText("hill");
    for (int i = 1; i <= 3; ++i) Type(i - 1, 0, QString("a%1").arg(i));
    Type(1, 5, "170");
    The<QComboBox>("cboOP(2)").setCurrentText("90");
    const std::string path = W().Path("new.ged");
    W().Asked.Files.push_back(FileAnswer{path, 1});
    Press("cmdOK");
    RecordArray records;
    QVERIFY(ReadGedFile(path, records));
    QCOMPARE(records.Count(), 3);
    QCOMPARE(records[2].FoliDip[1], 170.0f);
    QCOMPARE(records[1].Site, "hill");
    QCOMPARE(records[1].OP[2], 90);
    QTRY_VERIFY(!Editor());
  }

  void everyWayOutOfACellEndsTheTypingFirst() {
    const std::string path = WriteGed("hill", 3), out = W().Path("out.ged");
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Return", [this] { Key(Qt::Key_Return); }},
        {"Tab", [this] { Key(Qt::Key_Tab); }},
        {"Ctrl+R", [this] { Key(Qt::Key_R, Qt::ControlModifier); }},
        {"Ctrl+O, cancelled", [this] { Key(Qt::Key_O, Qt::ControlModifier); }},
        {"menu", [this] { The<QAction>("mnuOpen").trigger(); }},
        {"another window", [this] { W().Window.activateWindow(); }},
        {"Ctrl+S, cancelled", [this] { Key(Qt::Key_S, Qt::ControlModifier); }},
    };
    for (const auto& [name, leave] : ways) {
      Open(path);
      Begin(1, 0, "typed");
      leave();
      QTRY_VERIFY2(Cell(1, 0) == "typed", name);
      Editor()->activateWindow();
      QTRY_COMPARE(QApplication::activeWindow(), Editor());
    }
    for (const bool mouse : {true, false}) {
      W().The<QAction>("mnuGedEditor").trigger();
      QTRY_COMPARE(QApplication::activeWindow(), Editor());
      Open(path);
      Begin(1, 0, "typed");
      W().Asked.Files.push_back(FileAnswer{out, 1});
      mouse ? Press("cmdOK") : Key(Qt::Key_S, Qt::ControlModifier);
      QTRY_VERIFY(!Editor());
      QCOMPARE(Saved(out), "hill1 typed hill3 ");
      QVERIFY(QFile::remove(QString::fromStdString(out)));
    }
  }

  void aRefusedCellIsNotSavedAroundNorLost() {
    Open(WriteGed("hill", 2));
    const auto questions = W().Asked.FileQuestions.size();
    for (const bool mouse : {false, true}) {
      W().Asked.Boxes.clear();
      Begin(0, 8, "120");
      mouse ? Press("cmdOK") : Key(Qt::Key_S, Qt::ControlModifier);
      QTRY_COMPARE(W().Asked.Boxes, std::vector<std::string>{"Edit aniso|Input out of limits!|OK"});
      QVERIFY(Editor() && Editor()->isVisible());
      QCOMPARE(W().Asked.FileQuestions.size(), questions);
    }
  }

  void aRefusedCellGoesBackToItsFormerValue() {
    Open(WriteGed("hill", 2));
    Type(0, 8, "45");
    Type(0, 8, "120");
    QTRY_COMPARE(W().Asked.Boxes.size(), 1u);
    QCOMPARE(Cell(0, 8), "45");
    Type(0, 1, "360.5");  // as a whole, not what fits the file
    QTRY_COMPARE(W().Asked.Boxes.size(), 2u);
    QCOMPARE(Cell(0, 1), "0");
    Type(2, 8, "120");  // the empty row stays empty
    QTRY_COMPARE(W().Asked.Boxes.size(), 3u);
    QCOMPARE(Grid().model()->rowCount(), 3);
  }

  void rowsTakenOutComeBackOrAreNotSaved() {
    const std::string path = WriteGed("hill", 4);
    Open(path);
    QCOMPARE(Names(), "hill1 hill2 hill3 hill4");
    const auto takeOut = [this] {
      Grid().selectRow(1);
      Grid().selectionModel()->select(Grid().model()->index(3, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
      Press("cmdDelete");
      QCOMPARE(Names(), "hill1 hill3");
      QVERIFY(!Grid().selectionModel()->hasSelection());
      QVERIFY(Grid().findChild<QTableView*>()->isRowHidden(3));  // the names held in view follow
    };
    takeOut();
    Press("cmdRestore");
    QCOMPARE(Names(), "hill1 hill2 hill3 hill4");
    takeOut();
    const std::string out = W().Path("out.ged");
    W().Asked.Files.push_back(FileAnswer{out, 1});
    Press("cmdOK");
    QCOMPARE(Saved(out), "hill1 hill3 ");
  }

  void openingAnotherFileShowsAllItsRows() {
    const std::string two = WriteGed("two", 2), six = WriteGed("six", 6);
    Open(six);
    Grid().selectAll();
    Press("cmdDelete");
    QCOMPARE(Names(), "");
    Open(two);
    QCOMPARE(Names(), "two1 two2");
    QVERIFY(!Grid().isRowHidden(2));  // the row for the next sample
    Open(six);
    QCOMPARE(Names(), "six1 six2 six3 six4 six5 six6");
    QVERIFY(Editor()->windowTitle().endsWith("six.ged] (N = 6)"));
    W().The<QAction>("mnuGedEditor").trigger();  // raises the window that is open
    QCOMPARE(W().Window.findChildren<frmGEDEditor*>().size(), 1);
    QCOMPARE(The<QComboBox>("cboOP(1)").currentText(), "5");  // not on offer, but in the file
  }

  void copyOfTheFirstRowHasNoAction() {
    Open(WriteGed("hill", 2));
    Type(0, 1, "45");
    Press("cmdCopy1stRow");  // wanted
    QCOMPARE(Cell(1, 1), "0");
    QCOMPARE(Cell(1, 0), "hill2");
  }

  void cancelAndCloseSaveNothing() {
    const std::string path = WriteGed("hill", 2);
    for (const bool menu : {false, true}) {
      W().The<QAction>("mnuGedEditor").trigger();
      QTRY_COMPARE(QApplication::activeWindow(), Editor());
      Open(path);
      Type(0, 0, "typed");
      menu ? The<QAction>("mnuClose").trigger() : Press("cmdCancel");
      QTRY_VERIFY(!Editor());
      QCOMPARE(Saved(path), "hill1 hill2 ");
    }
  }

  void aDiskThatRefusesKeepsTheWindowWithTheEdits() {
    Open(WriteGed("hill", 2));
    Type(0, 0, "typed");
    W().Asked.Files.push_back(FileAnswer{W().Path("no folder/out.ged"), 1});
    Press("cmdOK");
    QVERIFY(W().Asked.Boxes.back().starts_with("Velorix5|"));
    QVERIFY(Editor() && Editor()->isVisible());
    QCOMPARE(Cell(0, 0), "typed");
  }
};

QTEST_MAIN(GedEditorWindowTest)
#include "ged_editor_window_test.moc"
