// The editor of geological files, driven by the names of its controls.

#include <QLineEdit>

#include "datafiles/formats/ged_file.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class GedEditorWindowTest : public WindowTest {
  Q_OBJECT

  QTableView& Grid() { return The<QTableView>("scgEditAniso"); }
  QString Names() { return ColumnText(Grid(), 0); }
  /// Types into a cell, counted from 0, as a user does; the cell is still open then.
  void Begin(int row, int column, const QString& text) {
    Grid().setCurrentIndex(Grid().model()->index(row, column));
    QTest::keyClicks(&Grid(), text.left(1));  // opens the cell's editor
    QVERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), text.mid(1));
  }
  void Type(int row, int column, const QString& text) {
    Begin(row, column, text);
    Key(Qt::Key_Return);
  }
  std::string WriteGed(const std::string& name, int count) {
    RecordArray records;
    for (int i = 1; i <= count; ++i) {
      SpecimenRecord r;
      r.Name = name + std::to_string(i);
      r.OP = {5, 90, 3, 90};
      records.Add(r);
    }
    std::string path = W().Path((name + ".ged").c_str());
    if (!WriteGedFile(path, records)) qFatal("no test file");
    return path;
  }
  void Answer(const std::string& path) { W().Asked.Files.push_back(FileAnswer{path, 1}); }
  void Open(const std::string& path) {
    OpenForm("mnuGedEditor", "frmGEDEditor");
    Answer(path);
    The<QAction>("mnuOpen").trigger();
  }
  /// The samples of a file, which is removed.
  QString Taken(const std::string& path) {
    RecordArray records;
    QString names = ReadGedFile(path, records) ? "" : "none";
    for (const SpecimenRecord& r : records) names += QString::fromStdString(r.Name + " ");
    QFile::remove(QString::fromStdString(path));
    return names.trimmed();
  }

 private slots:
  void init() { window_.emplace(); }

  void aFileCanBeTypedFromNothing() {
    OpenForm("mnuGedEditor", "frmGEDEditor");
    QCOMPARE(form_->windowTitle(), "Geological file editor");
    QCOMPARE(HeaderTexts(Grid()),
             "Sample name|Orientation|Inc|Foliation1|Azimuth|Dip|Lineation1|Trend|Plunge|"
             "Foliation2|Azimuth|Dip|Lineation2|Trend|Plunge");
    QCOMPARE(Look("cmdRestore cmdCopy1stRow"), "RESTORE ALL|COPY 1ST ROW TO ALL");
    The<QLineEdit>("txtSite").setText("hill");
    for (int i = 0; i < 3; ++i) Type(i, 0, QString("a%1").arg(i));
    Type(1, 5, "170");
    Press("cmdCopy1stRow");  // which has no action
    The<QComboBox>("cboOP(2)").setCurrentText("90");
    Answer(W().Path("new.ged"));
    Press("cmdOK");
    RecordArray records;
    QVERIFY(ReadGedFile(W().Path("new.ged"), records));
    QVERIFY(records.Count() == 3 && records[1].Name == "a0" && records[2].Name == "a1");
    QVERIFY(records[1].FoliDip[1] == 0 && records[2].FoliDip[1] == 170);
    QVERIFY(records[1].Site == "hill" && records[1].OP[2] == 90);
    QTRY_VERIFY(!form_);
  }

  void everyWayOutOfACellEndsTheTypingFirst() {
    const std::string path = WriteGed("hill", 3), out = W().Path("out.ged");
    const auto ctrl = [this](Qt::Key key) { Key(key, Qt::ControlModifier); };
    const std::pair<bool, std::function<void()>> ways[] = {
        // which of them save
        {false, [&] { ctrl(Qt::Key_R); }},
        {false, [&] { ctrl(Qt::Key_O); }},  // cancelled
        {false, [this] { The<QAction>("mnuOpen").trigger(); }},
        {false, [this] { W().Window.activateWindow(); }},
        {true, [this] { Press("cmdOK"); }},
        {true, [&] { ctrl(Qt::Key_S); }}};
    for (const auto& [saves, leave] : ways) {
      Open(path);
      Begin(1, 0, "typed");
      if (saves) Answer(out);
      leave();
      QTRY_VERIFY(saves ? !form_ : Names() == "hill1 typed hill3");
      if (saves) QCOMPARE(Taken(out), "hill1 typed hill3");
    }
  }

  void aRefusedCellIsNotSavedAndGoesBack() {
    Open(WriteGed("hill", 2));
    Type(0, 8, "45");
    const auto questions = W().Asked.FileQuestions.size();
    const std::function<void()> ways[] = {[this] { Key(Qt::Key_Return); },
                                          [this] { Press("cmdOK"); },
                                          [this] { Key(Qt::Key_S, Qt::ControlModifier); }};
    for (const auto& leave : ways) {
      Boxes().clear();
      Begin(0, 8, "120");
      leave();
      QTRY_COMPARE(Boxes(), std::vector<std::string>{"Edit aniso|Input out of limits!|OK"});
      QVERIFY(form_ && form_->isVisible() && W().Asked.FileQuestions.size() == questions);
      QCOMPARE(CellAt(Grid(), 0, 8), "45");
    }
    Type(2, 8, "120");  // the empty row stays empty
    QTRY_COMPARE(Boxes().size(), 2u);
    QCOMPARE(Grid().model()->rowCount(), 3);
  }

  void rowsTakenOutComeBackOrAreNotSaved() {
    Open(WriteGed("hill", 4));
    for (const char* button : {"cmdRestore", "cmdOK"}) {
      QCOMPARE(Names(), "hill1 hill2 hill3 hill4");
      Grid().selectRow(1);
      Grid().selectionModel()->select(Grid().model()->index(3, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
      Press("cmdDelete");
      QCOMPARE(Names(), "hill1 hill3");
      QVERIFY(!Grid().selectionModel()->hasSelection());
      QVERIFY(Grid().findChild<QTableView*>()->isRowHidden(3));  // the names held in view follow
      Answer(W().Path("out.ged"));
      Press(button);
    }
    QCOMPARE(Taken(W().Path("out.ged")), "hill1 hill3");
  }

  void doubtfulCellsAreMarkedAndAskedAboutAndEscapeAsksBeforeItDiscards() {
    Open(WriteGed("hill", 2));
    Key(Qt::Key_Escape);  // nothing was typed
    QTRY_VERIFY(!form_);
    Open(WriteGed("hill", 2));
    Type(1, 7, "12,5");
    const QModelIndex cell = Grid().model()->index(1, 7);
    QCOMPARE(cell.data().toString(), "12,5");
    QCOMPARE(cell.data(Qt::BackgroundRole).value<QColor>(), QColor(0xFFC0C0));
    QVERIFY(cell.data(Qt::ToolTipRole).toString().endsWith("This is read as 12."));
    QCOMPARE(Look("lblDoubts"), "1 cell is marked as doubtful, in row 2");
    Grid().setCurrentIndex(Grid().model()->index(0, 0));
    W().Asked.Buttons = {1};
    Press("cmdOK");
    QVERIFY(Boxes().back().starts_with(
        "Geological file editor|1 cell is doubtful. Save the sheet as it stands?\n\nRow 2, "
        "Lineation1 Trend: 12,5 - A comma"));
    QCOMPARE(Grid().currentIndex(), cell);
    W().Asked.Buttons = {1};
    Key(Qt::Key_Escape);
    QCOMPARE(Boxes().back(),
             "Geological file editor|Discard what was typed?|&Discard|&Keep editing");
    QVERIFY(form_ && form_->isVisible());
    Answer(W().Path("out.ged"));
    Press("cmdOK");  // and Save in the box
    RecordArray records;
    QVERIFY(ReadGedFile(W().Path("out.ged"), records) && records[2].LineTrend[1] == 12);
  }

  void nothingIsSavedWithoutAFileOrAfterCancelAndClose() {
    const std::string path = WriteGed("hill", 2);
    for (const bool cancel : {true, false}) {
      Open(path);
      Type(0, 0, "typed");
      Answer(W().Path("no folder/out.ged"));
      Press("cmdOK");
      QVERIFY(Boxes().back().starts_with("Velorix5|") && form_ && form_->isVisible());
      QCOMPARE(Names(), "typed hill2");
      cancel ? Press("cmdCancel") : The<QAction>("mnuClose").trigger();
      QTRY_VERIFY(!form_);
    }
    QCOMPARE(Taken(path), "hill1 hill2");
  }
};

QTEST_MAIN(GedEditorWindowTest)
#include "ged_editor_window_test.moc"
