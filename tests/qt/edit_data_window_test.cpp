// The window of the orientation editor, driven by the names of its controls.

#include <QClipboard>

#include "app/commands/file_commands.h"
#include "app/edit/edit_grid.h"
#include "datafiles/formats/ged_file.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class EditDataWindowTest : public WindowTest {
  Q_OBJECT

  const SpecimenRecord& Record(int i) { return S().Records[i]; }
  void Show(const std::function<void()>& act) { ShowDialog("mnuEdit(1)", act); }
  QTableView& Table() { return The<QTableView>("scgDataTable"); }
  QModelIndex At(int row, int column) { return Table().model()->index(row - 1, column - 1); }
  /// Cells of a row, with blanks between.
  QString Cells(int row, std::initializer_list<int> columns) {
    QStringList texts;
    for (const int column : columns) texts += At(row, column).data().toString();
    return texts.join(' ');
  }
  QColor Back(int row, int column) {
    return At(row, column).data(Qt::BackgroundRole).value<QColor>();
  }
  QString Line() { return Look("lblAssigned"); }
  void Select(int row, int column, int rows = 1, int columns = 1) {
    Table().setCurrentIndex(At(row, column));
    Table().selectionModel()->select(
        QItemSelection(At(row, column), At(row + rows - 1, column + columns - 1)),
        QItemSelectionModel::ClearAndSelect);
  }
  void Ctrl(Qt::Key key) { Key(key, Qt::ControlModifier); }
  /// Types a text over a cell, without an end.
  void Type(int row, int column, const QString& text) {
    Select(row, column);
    QTest::keyClick(&Table(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), text);
  }
  void TypeAndEnter(int row, int column, const QString& text) {
    Type(row, column, text);
    Key(Qt::Key_Return);
  }
  void PressInList(std::initializer_list<Qt::Key> keys) {
    QTRY_VERIFY(QApplication::activePopupWidget());
    auto* choices = QApplication::activePopupWidget()->findChild<QAbstractItemView*>();
    for (const Qt::Key key : keys) QTest::keyClick(choices, key);
  }

 private slots:
  void init() {
    window_.emplace();
    W().Open(W().WriteFile("site", 3));
  }

  void saveWritesFileAndStoreAndRedraws() {
    const QString before = W().Cell(0, 14);
    Show([this] {
      QCOMPARE(Look("cmdOpenGED cmdGEDASSign cmdWrite cmdRead cmdCancel"),
               "OpenGED|AssignGED|Write|SAVE|CANCEL");
      QVERIFY(HeaderTexts(Table(), Qt::UserRole).contains("|Lineation2|Orientation Parameters|"));
      TypeAndEnter(1, 3, "200");
      QCOMPARE(Table().currentIndex(), At(2, 3));  // the next one of the column
      Select(2, 3, 1, 2);
      Key(Qt::Key_Delete);
      QCOMPARE(Cells(2, {3, 4}), " ");
      Type(1, 4, "70.5");  // SAVE takes what is still being typed
      Press("cmdRead");
      QVERIFY(!form_->isVisible());
    });
    QVERIFY(Boxes().empty());
    RecordArray written;
    QVERIFY(ReadAmsFile(W().Path("site.ams"), written));
    QVERIFY(written.Count() == 3 && written[1].OrientAz == 200 && written[1].OrientInc == 70.5f);
    QCOMPARE(Record(1).OrientInc, 70.5f);
    QVERIFY(W().Cell(0, 14) != before);
    QCOMPARE(W().Specimens(), "site1 site3");  // without an orientation it has left the system
  }

  void cancelEscapeAndTitleBarChangeNothing() {
    const std::function<void()> ways[] = {[this] { Press("cmdCancel"); },
                                          [this] { Key(Qt::Key_Escape); },
                                          [this] { form_->close(); }};
    for (const auto& leave : ways)
      Show([&] {
        TypeAndEnter(1, 3, "200");
        leave();
        QVERIFY(!form_->isVisible());
      });
    QVERIFY(Record(1).OrientAz == 1 && Record(1).HasCoor[2]);
  }

  void everyWayOutOfACellEndsTheTypingFirst() {
    Show([this] {
      Type(1, 3, "200");
      Ctrl(Qt::Key_G);
      QTRY_COMPARE(Cells(1, {3}), "200");
      Select(1, ParameterColumn(3));
      Key(Qt::Key_1);
      PressInList({Qt::Key_Escape});  // the list stays behind its entries
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
      QTRY_VERIFY(!form_->isVisible());
    });
    QCOMPARE(Record(1).OP[3], 12);
  }

  void chosenAndShownCodesStayAsFarAsTheyCan() {
    ChooseFoliation(W().Program, 1);
    ShowFoliation(W().Program, 0, false);
    ShowFoliation(W().Program, 1, true);
    const std::tuple<int, const char*, const char*, const char*> rows[] = {
        {1, "C", "cmdCancel", "B of A B, shown: A B+"},
        {1, "C", "cmdRead", "B of C A B, shown: C A B+"},
        {3, "A", "cmdRead", "C of C A, shown: C+ A"}};  // the last B
    for (const auto& [row, code, button, state] : rows) {
      Show([&, row = row, code = code, button = button] {
        TypeAndEnter(row, FoliationColumn(1), code);
        Press(button);
      });
      std::string text = S().FoliCode + " of";
      for (const CodeEntry& entry : W().Program.Lists.foliationsInUse.Entries)
        text += " " + entry.Text;
      text += ", shown:";
      for (const CodeEntry& entry : W().Program.Lists.foliationsShown.Entries)
        text += " " + entry.Text + (entry.Selected ? "+" : "");
      QCOMPARE(text, state);
      QCOMPARE(velorix::Look(W().Window, "odclFoli"), QString(state).left(1));
    }
  }

  void keysWorkOnTheSelectedBlock() {
    QClipboard& clipboard = *QApplication::clipboard();
    Show([&] {
      clipboard.setText("10\t11\r\n20\t21\r\n30\t31\r\n");
      Select(2, 3);
      Ctrl(Qt::Key_V);
      QCOMPARE(Cells(1, {3}) + "|" + Cells(2, {3, 4}) + "|" + Cells(3, {3, 4}), "1|10 11|20 21");
      QCOMPARE(Line(), "2 pasted cell(s) found no place.");
      Select(2, 2, 2, 2);
      Ctrl(Qt::Key_C);
      QCOMPARE(clipboard.text(), "site2\t10\nsite3\t20\n");
      const std::pair<Qt::Key, const char*> steps[] = {
          {Qt::Key_X, "|21"}, {Qt::Key_Z, "10|21"}, {Qt::Key_Y, "|21"}};
      for (const auto& [key, cells] : steps) {
        Ctrl(key);
        QCOMPARE(Cells(2, {3}) + "|" + Cells(3, {4}), cells);
      }
    });
  }

  void parametersAreChosenFromTheirLists() {
    Show([this] {
      Table().edit(At(1, ParameterColumn(4)));
      const auto& list = The<QComboBox>("cboOP");
      QCOMPARE(Entries(list) + ": " + list.currentText(), "0 90: 0");
      PressInList({Qt::Key_End, Qt::Key_Return});
      QTRY_COMPARE(Cells(1, {ParameterColumn(4)}), "90");
    });
    Show([this] {
      Select(2, ParameterColumn(3));
      Key(Qt::Key_1);  // opens the list at its value
      PressInList({Qt::Key_Return});
      QTRY_COMPARE(Cells(2, {ParameterColumn(3)}), "12");
    });
  }

  void doubtfulCellsAreMarkedAndCounted() {
    Show([this] {
      QCOMPARE(Look("lblDoubts"), "");
      TypeAndEnter(2, 3, "12,5");
      QCOMPARE(Back(2, 3), QColor(0xFFC0C0));
      QVERIFY(At(2, 3).data(Qt::ToolTipRole).toString().startsWith("A comma is no decimal point"));
      QCOMPARE(Look("lblDoubts"), "1 cell is marked as doubtful, in row 2");
      TypeAndEnter(3, 3, "12a");
      QCOMPARE(Look("lblDoubts"), "2 cells are marked as doubtful, the first in row 2");
    });
  }

  void saveAsksAboutDoubtfulCellsAndLeadsToTheMarkedOne() {
    Show([this] {
      TypeAndEnter(2, 10, "95");
      TypeAndEnter(2, FoliationColumn(1), "a");  // beside the "A" of row 1
      QCOMPARE(Look("lblDoubts"), "2 cells are marked as doubtful, the first in row 2");
      QCOMPARE(Back(2, FoliationColumn(1)), QColor(0xFFC0C0));
      W().Asked.Buttons = {1};
      W().Asked.Entry = 1;
      Press("cmdRead");
      QCOMPARE(Table().currentIndex(), At(2, 10));
      W().Asked.Entry = 0;
      TypeAndEnter(2, FoliationColumn(1), "A");
      for (const int answer : {1, 2, 0}) {  // Show, Cancel, Save
        Select(1, 3);
        Boxes().clear();
        W().Asked.Buttons = {answer};
        Press("cmdRead");
        QCOMPARE(
            Boxes(),
            std::vector<std::string>{
                "Edit Orientation Data|1 cell is doubtful. Save the sheet as it stands?\n\nRow "
                "2, Lineation1 Inc: 95 - Inclinations and plunges are from 0 to "
                "90.|&Save|S&how|&Cancel"});
        QCOMPARE(form_->isVisible(), answer != 0);
        QCOMPARE(Table().currentIndex(), answer == 1 ? At(2, 10) : At(1, 3));
        QCOMPARE(Record(2).LinePlunge[1], answer == 0 ? 95.0f : 30.0f);
      }
    });
  }

  void escapeAsksOnlyBeforeItDiscards() {
    Show([this] {
      TypeAndEnter(1, 3, "200");
      W().Asked.Buttons = {1};
      Key(Qt::Key_Escape);
      QCOMPARE(Boxes(), std::vector<std::string>{"Edit Orientation Data|Discard what was typed?|"
                                                 "&Discard|&Keep editing"});
      QVERIFY(form_->isVisible() && Cells(1, {3}) == "200");
      Ctrl(Qt::Key_Z);
      Key(Qt::Key_Escape);
      QVERIFY(!form_->isVisible() && Boxes().size() == 1);
    });
  }

  void whatCannotBeSavedKeepsItOpenWithTheEdits() {
    Show([this] {
      TypeAndEnter(2, 3, "1E400");
      Press("cmdRead");
      QVERIFY(form_->isVisible());
      QVERIFY(Boxes().front().starts_with("Edit Orientation Data|1 cell is doubtful."));
      Boxes().erase(Boxes().begin());
      QCOMPARE(Boxes(), std::vector<std::string>{"Velorix5|Row 2, Orientation Dec: Overflow|&OK"});
      TypeAndEnter(2, 3, "200");
      S().CurrentFile = W().Path("no folder/site.ams");
      Press("cmdRead");
      QVERIFY(form_->isVisible() && Boxes().size() == 2);
      QVERIFY(Boxes()[1].starts_with("Velorix5|" + S().CurrentFile));
      QCOMPARE(Cells(2, {3}), "200");
    });
  }

  void noCellGetsUnderTheNamesWhenScrolledSideways() {
    Show([this] {
      form_->resize(700, 400);
      const auto* names = Table().findChild<QTableView*>();
      Select(3, EditColumns);
      QVERIFY(names->isVisible());
      for (int column = EditColumns; column > OrientationColumn; --column) {
        Key(Qt::Key_Left);
        const int left = Table().visualRect(Table().currentIndex()).left();
        QVERIFY(!names->isVisible() || left >= names->visualRect(At(3, 2)).right());
      }
      Key(Qt::Key_Home);
      QVERIFY(!names->isVisible());
    });
  }

  void theButtonsHaveKeysSinceTabGoesFromCellToCell() {
    Show([this] {
      TypeAndEnter(1, 3, "200");
      Key(Qt::Key_F5);
      QTRY_COMPARE(Cells(1, {3}), "1");
      Ctrl(Qt::Key_G);
      QTRY_COMPARE(Line(), "No geological file is open: OpenGED reads one.");
      Ctrl(Qt::Key_O);
      QTRY_VERIFY(W().Asked.FileQuestions.back().Filter.starts_with("GED"));
      Ctrl(Qt::Key_S);
      QTRY_VERIFY(!form_->isVisible());
    });
    CloseFile(W().Program);
    Show([this] {  // without a record they do nothing
      for (const Qt::Key key : {Qt::Key_V, Qt::Key_G, Qt::Key_S}) Ctrl(key);
      QTRY_VERIFY(!form_->isVisible() && Boxes().empty());
    });
  }

  void openGedShowsTheSamplesAndAssignGedMarksWhatItMatched() {
    RecordArray samples;
    samples.Grow(1);
    samples[1].Name = "site1";
    samples[1].OrientAz = 100;
    QVERIFY(WriteGedFile(W().Path("site.ged"), samples));
    W().Asked.Files.push_back(FileAnswer{W().Path("site.ged"), 1});
    Show([this] {
      Press("cmdOpenGED");
      QCOMPARE(Cells(1, {2, 3, 4}), "site1 100 0");
      QVERIFY(!(Table().model()->flags(At(1, 3)) & Qt::ItemIsEditable));
      QVERIFY(Line().startsWith("The geological file has 1 sample(s)."));
      Press("cmdGEDASSign");
      QVERIFY(Back(1, 3) == QColor(0xC0FFC0) && Back(2, 3) != Back(1, 3));
      QVERIFY(Line().startsWith("1 of 3 record(s) matched."));
      TypeAndEnter(2, 3, "78");
      QVERIFY(Back(1, 3) != QColor(0xC0FFC0) && Line().isEmpty());
      QCOMPARE(Record(1).OrientAz, 1.0f);  // nothing reaches the store before SAVE
      Press("cmdRead");
    });
    QVERIFY(Record(1).OrientAz == 100 && Record(2).OrientAz == 78);
  }
};

QTEST_MAIN(EditDataWindowTest)
#include "edit_data_window_test.moc"
