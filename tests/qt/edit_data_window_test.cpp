// The window of the orientation editor, driven by the names of its controls.

#include <QClipboard>

#include "app/edit/edit_grid.h"
#include "app/files/open_flow.h"
#include "datafiles/ged_file.h"
#include "tests/qt/test_window.h"

using namespace velorix;

class EditDataWindowTest : public WindowTest {
  Q_OBJECT

  const SpecimenRecord& Record(int i) { return S().Records[i]; }
  RecordArray Written() {
    RecordArray records;
    if (!ReadAmsFile(W().Path("site.ams"), records)) qFatal("no file");
    return records;
  }

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

  void showsTheStoreUnderItsCaptions() {
    Show([this] {
      QVERIFY(form_->objectName() == "frmEditData" && form_->isModal());
      QCOMPARE(Table().model()->rowCount(), 3);
      QStringList row;
      for (int c = 1; c <= EditColumns; ++c) row += Cells(2, {c});
      QCOMPARE(row.join('|'), "2|site2|2|20|A|120|40|L|150|30|||||||6|0|6|0");
      QStringList captions;
      const QStringList groups = HeaderTexts(Table(), Qt::UserRole).split('|');
      for (const int c : {4, 15, 19})
        captions += groups[c] + " " + HeaderTexts(Table()).section('|', c, c);
      QCOMPARE(captions.join('|'), "Foliation1 Code|Lineation2 Inc|Orientation Parameters OP4");
      QCOMPARE(Look("cmdOpenGED cmdGEDASSign cmdWrite cmdRead cmdCancel"),
               "OpenGED|AssignGED|Write|SAVE|CANCEL");
    });
  }

  void saveWritesFileAndStoreAndRedraws() {
    const QString before = W().Cell(0, 14);
    Show([this] {
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
    const RecordArray written = Written();
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
    Show([&] {
      Type(1, 3, "200");
      Ctrl(Qt::Key_G);
      QTRY_COMPARE(Cells(1, {3}), "200");
    });
    Show([this] {
      Select(1, ParameterColumn(3));
      Key(Qt::Key_1);
      PressInList({Qt::Key_Escape});  // the list stays behind its entries
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
      QTRY_VERIFY(!form_->isVisible());
    });
    QCOMPARE(Record(1).OP[3], 12);
  }

  void chosenAndShownCodesStayAsFarAsTheyCan() {
    Velorix& program = W().Program;
    const auto state = [&program] {
      std::string text;
      for (const CodeList* list : {&program.Lists.foliationsInUse, &program.Lists.foliationsShown})
        for (const CodeEntry& entry : list->Entries)
          text +=
              (&entry == &list->Entries[0] ? " " : "") + entry.Text + (entry.Selected ? "+" : "");
      return QString::fromStdString(program.Session.FoliCode + text);
    };
    const auto edit = [this](int row, const char* code, const char* button) {
      Show([=, this] {
        TypeAndEnter(row, FoliationColumn(1), code);
        Press(button);
      });
    };
    QCOMPARE(state(), "A AB A+B");
    ChooseFoliation(program, 1);
    ShowFoliation(program, 0, false);
    ShowFoliation(program, 1, true);
    const struct {
      int row;
      const char *code, *button, *state;
    } rows[] = {{1, "C", "cmdCancel", "B AB AB+"},
                {1, "C", "cmdRead", "B CAB CAB+"},
                {3, "A", "cmdRead", "C CA C+A"}};  // the last B
    for (const auto& row : rows) {
      edit(row.row, row.code, row.button);
      QCOMPARE(state(), row.state);
      QCOMPARE(velorix::Look(W().Window, "odclFoli"), QString(row.state).left(1));
    }
    ShowFoliation(program, 0, false);
    Show([] {});
    QCOMPARE(state(), "C CA CA");
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
      Select(2, 3, 2, 2);
      Ctrl(Qt::Key_X);
      QCOMPARE(Cells(2, {3, 4}) + Cells(3, {3, 4}), "  ");
      QCOMPARE(clipboard.text(), "10\t11\n20\t21\n");
      Ctrl(Qt::Key_Z);
      QCOMPARE(Cells(2, {3}), "10");
      Ctrl(Qt::Key_Y);
      QCOMPARE(Cells(2, {3}), "");
    });
  }

  void parametersAreChosenFromTheirLists() {
    const char* values[] = {"3 6 9 12", "0 90", "3 6 9 12", "0 90"};
    for (int p = 1; p <= 4; ++p)
      Show([&] {
        Table().edit(At(1, ParameterColumn(p)));
        const auto& list = The<QComboBox>("cboOP");
        QCOMPARE(Entries(list), values[p - 1]);
        QCOMPARE(list.currentText(), Cells(1, {ParameterColumn(p)}));
        PressInList({Qt::Key_End, Qt::Key_Return});
        QTRY_COMPARE(Cells(1, {ParameterColumn(p)}), p % 2 ? "12" : "90");
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
      QCOMPARE(At(2, 3).data(Qt::ToolTipRole).toString(),
               "A comma is no decimal point. This is read as 12.");
      QCOMPARE(Look("lblDoubts"), "1 cell is marked as doubtful, in row 2");
      TypeAndEnter(3, 3, "12a");
      QCOMPARE(Look("lblDoubts"), "2 cells are marked as doubtful, the first in row 2");
    });
  }

  void whatCannotBeSavedKeepsItOpenWithTheEdits() {
    Show([this] {
      TypeAndEnter(1, 3, "200");
      TypeAndEnter(2, 3, "1E400");
      Press("cmdRead");
      QVERIFY(form_->isVisible());
      QCOMPARE(Boxes(), std::vector<std::string>{"Velorix5|Row 2, Orientation Dec: Overflow|&OK"});
      QCOMPARE(Cells(2, {3}), "1E400");
      QCOMPARE(Record(1).OrientAz, 1.0f);
      TypeAndEnter(2, 3, "2");
      S().CurrentFile = W().Path("no folder/site.ams");
      Press("cmdRead");
      QVERIFY(form_->isVisible() && Boxes().size() == 2);
      QVERIFY(Boxes()[1].starts_with("Velorix5|" + S().CurrentFile));
      QCOMPARE(Cells(1, {3}), "200");
    });
  }

  void theNamesStayInViewWhenScrolledSideways() {
    W().Open(W().WriteFile("site", 40));
    Show([this] {
      form_->resize(700, 400);
      const auto* held = Table().findChild<QTableView*>();
      Select(30, EditColumns);
      QVERIFY(held->isVisible());
      const QRect name = held->visualRect(At(30, 2));
      QVERIFY(held->viewport()->rect().contains(name));
      QCOMPARE(name.top(), Table().visualRect(At(30, EditColumns)).top());
      for (int column = EditColumns; column > OrientationColumn; --column) {
        Key(Qt::Key_Left);  // no cell gets under the names
        const QRect cell = Table().visualRect(Table().currentIndex());
        QVERIFY(!held->isVisible() || cell.left() >= name.right());
      }
      Key(Qt::Key_Home);
      QVERIFY(!held->isVisible());
    });
  }

  void theButtonsHaveKeysSinceTabGoesFromCellToCell() {
    Show([this] {
      TypeAndEnter(1, 3, "200");
      Key(Qt::Key_F5);
      QTRY_COMPARE(Cells(1, {3}), "1");
      QCOMPARE(Line(), "What was typed is discarded; Ctrl+Z brings it back.");
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
      QTRY_VERIFY(!form_->isVisible());
    });
    QVERIFY(Boxes().empty());
  }

  void openGedShowsTheSamplesAndAssignGedMarksWhatItMatched() {
    RecordArray samples;
    for (const char* name : {"site1", "SITE2", "site3"}) {
      SpecimenRecord s;
      s.Name = name;
      s.OrientAz = static_cast<float>(100 * (samples.Count() + 1));
      s.FoliName[1] = "Q";
      s.FoliAz[1] = 250;  // a strike
      s.OP = {12, 90, 12, 90};
      samples.Add(s);
    }
    QVERIFY(WriteGedFile(W().Path("site.ged"), samples));
    W().Asked.Files.push_back(FileAnswer{W().Path("site.ged"), 1});
    Show([this] {
      TypeAndEnter(2, 3, "77");
      Press("cmdOpenGED");
      QCOMPARE(Boxes(), std::vector<std::string>{"Open File(s)|site1\nSITE2\nsite3|&OK"});
      QCOMPARE(Cells(2, {2, 3, 5, 6}), "SITE2 200 Q 250");
      QVERIFY(!(Table().model()->flags(At(2, 3)) & Qt::ItemIsEditable));
      QCOMPARE(Line(),
               "The geological file has 3 sample(s). AssignGED gives them to the records, Ctrl+Z "
               "shows the records again.");
      Press("cmdGEDASSign");
      QCOMPARE(Cells(1, {2, 3, 5, 6}) + "|" + Cells(2, {2, 3}), "site1 100 Q 340|site2 77");
      QVERIFY(Back(1, 3) == QColor(0xC0FFC0) && Back(2, 3) != Back(1, 3));
      QCOMPARE(Line(),
               "2 of 3 record(s) matched. 2 strike(s) entered as dip directions. Without a sample: "
               "site2. Only the case of letters differs: site2.");
      TypeAndEnter(2, 3, "78");
      QVERIFY(Back(1, 3) != QColor(0xC0FFC0) && Line().isEmpty());
      QCOMPARE(Record(1).OrientAz, 1.0f);  // nothing reaches the store before SAVE
      Press("cmdRead");
    });
    const RecordArray written = Written();
    QVERIFY(written[1].OrientAz == 100 && written[2].OrientAz == 78);
    QVERIFY(written[3].FoliName[1] == "Q" && written[3].OP[2] == 0);
  }
};

QTEST_MAIN(EditDataWindowTest)
#include "edit_data_window_test.moc"
