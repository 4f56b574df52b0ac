// The window of the orientation editor, driven by the names of its controls.

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

#include "app/edit/edit_grid.h"
#include "app/files/open_flow.h"
#include "datafiles/ged_file.h"
#include "tests/qt/on_modal.h"

using namespace velorix;

class EditDataWindowTest : public QObject {
  Q_OBJECT

  std::optional<TestWindow> window_;
  QDialog* dialog_ = nullptr;
  TestWindow& W() { return *window_; }
  const SpecimenRecord& Record(int i) { return W().Program.Session.Records[i]; }
  std::vector<std::string>& Boxes() { return W().Asked.Boxes; }

  void Show(const std::function<void()>& act) {
    ShowDialog(W(), "mnuEdit(1)", [&](QDialog& dialog) {
      dialog_ = &dialog;
      act();
    });
  }
  QTableView& Table() { return In<QTableView>(*dialog_, "scgDataTable"); }
  QModelIndex At(int row, int column) { return Table().model()->index(row - 1, column - 1); }
  QString Cell(int row, int column) { return At(row, column).data().toString(); }
  QColor Back(int row, int column) {
    return At(row, column).data(Qt::BackgroundRole).value<QColor>();
  }
  QString Line() { return In<QLabel>(*dialog_, "lblAssigned").text(); }
  QString Doubts() { return In<QLabel>(*dialog_, "lblDoubts").text(); }
  void Press(const char* button) {
    QTest::mouseClick(&In<QPushButton>(*dialog_, button), Qt::LeftButton);
  }
  void Select(int row, int column, int rows = 1, int columns = 1) {
    Table().setCurrentIndex(At(row, column));
    Table().selectionModel()->select(
        QItemSelection(At(row, column), At(row + rows - 1, column + columns - 1)),
        QItemSelectionModel::ClearAndSelect);
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Table(), static_cast<Qt::Key>(key), modifiers);
  }
  /// Types a text over a cell, without an end.
  void Type(int row, int column, const QString& text) {
    Select(row, column);
    Key(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), text);
  }
  void TypeAndEnter(int row, int column, const QString& text) {
    Type(row, column, text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
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
      QCOMPARE(dialog_->objectName(), "frmEditData");
      QVERIFY(dialog_->isModal());
      QCOMPARE(Table().model()->rowCount(), 3);
      QStringList row;
      for (int c = 1; c <= EditColumns; ++c) row += Cell(2, c);
      QCOMPARE(row.join('|'), "2|site2|2|20|A|120|40|L|150|30|||||||6|0|6|0");
      const auto groups = HeaderTexts(Table(), Qt::UserRole).split('|');
      const auto captions = HeaderTexts(Table()).split('|');
      for (const auto& [column, caption] :
           {std::pair{4, "Foliation1 Code"}, std::pair{15, "Lineation2 Inc"},
            std::pair{19, "Orientation Parameters OP4"}})
        QCOMPARE(groups[column] + " " + captions[column], caption);
      for (const auto& [button, caption] :
           {std::pair{"cmdOpenGED", "OpenGED"}, std::pair{"cmdGEDASSign", "AssignGED"},
            std::pair{"cmdWrite", "Write"}, std::pair{"cmdRead", "SAVE"},
            std::pair{"cmdCancel", "CANCEL"}})
        QCOMPARE(In<QPushButton>(*dialog_, button).text(), caption);
    });
  }

  void saveWritesFileAndStoreAndRedraws() {
    const std::string path = W().Path("site.ams");
    const QString before = W().Cell(0, 14);
    Show([this] {
      TypeAndEnter(1, 3, "200");
      QCOMPARE(Table().currentIndex(), At(2, 3));  // the next one of the column
      Select(2, 3, 1, 2);
      Key(Qt::Key_Delete);
      QCOMPARE(Cell(2, 3) + Cell(2, 4), "");
      Type(1, 4, "70.5");  // SAVE takes what is still being typed
      Press("cmdRead");
      QVERIFY(!dialog_->isVisible());
    });
    QVERIFY(Boxes().empty());
    RecordArray written;
    QVERIFY(ReadAmsFile(path, written));
    QCOMPARE(written.Count(), 3);
    QCOMPARE(written[1].OrientAz, 200.0f);
    QCOMPARE(written[1].OrientInc, 70.5f);
    QCOMPARE(Record(1).OrientInc, 70.5f);
    QVERIFY(W().Cell(0, 14) != before);
    QCOMPARE(W().Specimens(), "site1 site3");  // without an orientation it has left the system
  }

  void cancelEscapeAndTitleBarChangeNothing() {
    for (int way = 0; way < 3; ++way)
      Show([this, way] {
        TypeAndEnter(1, 3, "200");
        if (way == 0) Press("cmdCancel");
        if (way == 1) Key(Qt::Key_Escape);
        if (way == 2) dialog_->close();
        QVERIFY(!dialog_->isVisible());
      });
    QCOMPARE(Record(1).OrientAz, 1.0f);
    QVERIFY(Record(1).HasCoor[2]);
  }

  void everyWayOutOfACellEndsTheTypingFirst() {
    for (int way = 0; way < 3; ++way)
      Show([&] {
        Type(1, 3, "200");
        QWidget* cell = QApplication::focusWidget();
        if (way == 0) QTest::keyClick(cell, Qt::Key_Tab);
        if (way == 1) QTest::keyClick(cell, Qt::Key_G, Qt::ControlModifier);
        if (way == 2) W().Window.activateWindow();
        QTRY_COMPARE(Cell(1, 3), "200");
      });
    Show([this] {
      Select(1, ParameterColumn(3));
      Key(Qt::Key_1);
      PressInList({Qt::Key_Escape});  // the list stays behind its entries
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
      QTRY_VERIFY(!dialog_->isVisible());
    });
    QCOMPARE(Record(1).OP[3], 12);
  }

  void listsTicksAndCodesStayThroughCancelAndThroughSaveAsFarAsTheyCan() {
    Velorix& program = W().Program;
    const auto state = [&program] {
      std::string text;
      for (const CodeList* list :
           {&program.Lists.foliationsInUse, &program.Lists.foliationsShown,
            &program.Lists.lineationsInUse, &program.Lists.lineationsShown}) {
        for (const CodeEntry& entry : list->Entries)
          text += entry.Text + (entry.Selected ? "+" : "");
        text += " ";
      }
      return QString::fromStdString(text + program.Session.FoliCode + program.Session.LineCode);
    };
    const auto showB = [&program] {  // not the first ones
      ChooseFoliation(program, 1);
      ShowFoliation(program, 0, false);
      ShowFoliation(program, 1, true);
    };
    const auto save = [this](int row, const char* code) {
      Show([=, this] {
        TypeAndEnter(row, FoliationColumn(1), code);
        Press("cmdRead");
      });
    };
    QCOMPARE(state(), "AB A+B L L+ AL");
    showB();
    QCOMPARE(state(), "AB AB+ L L+ BL");
    Show([this] { TypeAndEnter(1, FoliationColumn(1), "C"); });  // and CANCEL
    QCOMPARE(state(), "AB AB+ L L+ BL");
    save(1, "A");
    QCOMPARE(state(), "AB AB+ L L+ BL");
    save(1, "C");
    QCOMPARE(state(), "CAB CAB+ L L+ BL");
    QCOMPARE(W().The<QComboBox>("odclFoli").currentText(), "B");
    save(3, "A");  // the last B
    QCOMPARE(state(), "CA C+A L L+ CL");
    ShowFoliation(program, 0, false);
    Show([] {});
    QCOMPARE(state(), "CA CA L L+ CL");
    save(2, "B");
    ChooseFoliation(program, 1);
    QCOMPARE(state(), "CBA C+BA L L+ BL");
    OnModal<QDialog>([](QDialog& dialog) { dialog.reject(); });
    W().Press("Toolbar1(12)");
    QCOMPARE(state(), "CBA C+BA L L+ CL");
  }

  void writeFillsFromTheStoreAgainAndCanBeUndone() {
    Show([this] {
      TypeAndEnter(1, 3, "200");
      Press("cmdWrite");
      QCOMPARE(Cell(1, 3), "1");
      QCOMPARE(Line(), "What was typed is discarded; Ctrl+Z brings it back.");
      for (const auto& [key, text] :
           {std::pair{Qt::Key_Z, "200"}, std::pair{Qt::Key_Z, "1"}, std::pair{Qt::Key_Y, "200"}}) {
        Key(key, Qt::ControlModifier);
        QCOMPARE(Cell(1, 3), text);
      }
    });
  }

  void blocksGoToAndFromASpreadsheet() {
    W().Open(W().WriteFile("site", 4));
    Show([this] {
      QApplication::clipboard()->setText("10\t11\r\n20\t21\r\n30\t31\r\n");
      Select(2, 3);
      Key(Qt::Key_V, Qt::ControlModifier);
      QCOMPARE(Cell(1, 3), "1");
      QCOMPARE(Cell(2, 3) + " " + Cell(3, 4) + " " + Cell(4, 4), "10 21 31");
      QCOMPARE(Line(), "");
      Select(2, 2, 2, 3);
      Key(Qt::Key_C, Qt::ControlModifier);
      QCOMPARE(QApplication::clipboard()->text(), "site2\t10\t11\nsite3\t20\t21\n");
      Select(2, 3, 2, 2);
      Key(Qt::Key_X, Qt::ControlModifier);
      QCOMPARE(Cell(2, 3) + Cell(3, 4), "");
      QCOMPARE(QApplication::clipboard()->text(), "10\t11\n20\t21\n");
    });
  }

  void aFullStoreTakesAPasteOfAllItsCells() {
    W().Open(W().WriteFile("s", RecordArray::Limit));
    Show([this] {
      QString lines;
      for (int i = 0; i < RecordArray::Limit + 10; ++i)
        lines += QString("%1\t20\tS\t1\t2\tL\t3\t4\tC\t5\t6\tM\t7\t8\t6\t0\t6\t0\n").arg(i % 360);
      QApplication::clipboard()->setText(lines);
      Select(1, 3);
      Key(Qt::Key_V, Qt::ControlModifier);
      QCOMPARE(Cell(RecordArray::Limit, 16), "8");
      QCOMPARE(Line(), "180 pasted cell(s) found no place.");
    });
  }

  void parametersAreChosenFromTheirLists() {
    const char* values[] = {"3 6 9 12", "0 90", "3 6 9 12", "0 90"};
    for (int p = 1; p <= 4; ++p)
      Show([&] {
        Table().edit(At(1, ParameterColumn(p)));
        auto& list = In<QComboBox>(Table(), "cboOP");
        const QString offered = Entries(list), last = list.itemText(list.count() - 1);
        QCOMPARE(offered, values[p - 1]);
        QCOMPARE(list.currentText(), Cell(1, ParameterColumn(p)));
        PressInList({Qt::Key_End, Qt::Key_Return});
        QTRY_COMPARE(Cell(1, ParameterColumn(p)), last);
      });
    Show([this] {
      Select(2, ParameterColumn(3));
      Key(Qt::Key_1);  // opens the list at its value
      PressInList({Qt::Key_Return});
      QTRY_COMPARE(Cell(2, ParameterColumn(3)), "12");
      QCOMPARE(Cell(1, ParameterColumn(3)), "6");
    });
  }

  void doubtfulCellsAreMarkedAndCounted() {
    Show([this] {
      QCOMPARE(Doubts(), "");
      TypeAndEnter(2, 3, "12,5");
      QCOMPARE(Back(2, 3), QColor(0xFF, 0xC0, 0xC0));
      QCOMPARE(At(2, 3).data(Qt::ToolTipRole).toString(),
               "A comma is no decimal point. This is read as 12.");
      QCOMPARE(Doubts(), "1 cell is marked as doubtful, in row 2");
      TypeAndEnter(3, 3, "12a");
      QCOMPARE(Doubts(), "2 cells are marked as doubtful, the first in row 2");
    });
  }

  void aNumberTooLargeKeepsItOpenAndTheStoreAsItWas() {
    Show([this] {
      TypeAndEnter(1, 3, "200");
      TypeAndEnter(2, 3, "1E400");
      Press("cmdRead");
      QVERIFY(dialog_->isVisible());
      QCOMPARE(Boxes(), std::vector<std::string>{"Velorix5|Row 2, Orientation Dec: Overflow|&OK"});
      QCOMPARE(Cell(2, 3), "1E400");
    });
    QCOMPARE(Record(1).OrientAz, 1.0f);
  }

  void aDiskThatRefusesKeepsItOpenWithTheEdits() {
#ifndef Q_OS_UNIX
    QSKIP("no limit of file sizes to set");
#else
    const std::string path = W().Path("site.ams");
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead, as on a full disk
    Show([&] {
      TypeAndEnter(1, 3, "200");
      setrlimit(RLIMIT_FSIZE, &small);
      Press("cmdRead");
      setrlimit(RLIMIT_FSIZE, &limit);
      QVERIFY(dialog_->isVisible());
      QCOMPARE(Boxes().size(), 1u);
      QVERIFY2(Boxes()[0].starts_with("Velorix5|" + path), Boxes()[0].c_str());
      QCOMPARE(Cell(1, 3), "200");
      RecordArray old;
      QVERIFY(ReadAmsFile(path, old) && old.Count() == 3);
      QCOMPARE(old[1].OrientAz, 1.0f);
      Press("cmdRead");  // there is room again
      QVERIFY(!dialog_->isVisible());
    });
#endif
  }

  void theNamesStayInViewWhenScrolledSideways() {
    W().Open(W().WriteFile("site", 40));
    Show([this] {
      dialog_->resize(700, 400);
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
      QTRY_COMPARE(Cell(1, 3), "1");
      Key(Qt::Key_G, Qt::ControlModifier);
      QTRY_COMPARE(Line(), "No geological file is open: OpenGED reads one.");
      Key(Qt::Key_O, Qt::ControlModifier);
      QTRY_VERIFY(W().Asked.FileQuestions.back().Filter.starts_with("GED"));
      Key(Qt::Key_S, Qt::ControlModifier);
      QTRY_VERIFY(!dialog_->isVisible());
    });
  }

  void openGedShowsTheSamplesAndAssignGedMarksWhatItMatched() {
    const std::string path = W().Path("site.ams"), ged = W().Path("site.ged");
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
    QVERIFY(WriteGedFile(ged, samples));
    W().Asked.Files.push_back(FileAnswer{ged, 1});
    Show([this] {
      TypeAndEnter(2, 3, "77");
      Press("cmdOpenGED");
      QCOMPARE(Boxes(), std::vector<std::string>{"Open File(s)|site1\nSITE2\nsite3|&OK"});
      QCOMPARE(Cell(2, 2) + " " + Cell(2, 3) + " " + Cell(2, 5) + Cell(2, 6), "SITE2 200 Q250");
      QVERIFY(!(Table().model()->flags(At(2, 3)) & Qt::ItemIsEditable));
      QCOMPARE(Line(),
               "The geological file has 3 sample(s). AssignGED gives them to the records, Ctrl+Z "
               "shows the records again.");
      Press("cmdGEDASSign");
      QCOMPARE(Cell(1, 2) + " " + Cell(1, 3) + " " + Cell(1, 5) + Cell(1, 6), "site1 100 Q340");
      QCOMPARE(Cell(2, 2) + " " + Cell(2, 3), "site2 77");
      QCOMPARE(Back(1, 3), QColor(0xC0, 0xFF, 0xC0));
      QVERIFY(Back(2, 3) != Back(1, 3));
      QCOMPARE(Line(),
               "2 of 3 record(s) matched. 2 strike(s) entered as dip directions. Without a sample: "
               "site2. Only the case of letters differs: site2.");
      TypeAndEnter(2, 3, "78");
      QVERIFY(Back(1, 3) != QColor(0xC0, 0xFF, 0xC0));
      QCOMPARE(Line(), "");
      QCOMPARE(Record(1).OrientAz, 1.0f);  // nothing reaches the store before SAVE
      Press("cmdRead");
    });
    RecordArray written;
    QVERIFY(ReadAmsFile(path, written));
    QCOMPARE(written[1].OrientAz, 100.0f);
    QCOMPARE(written[2].OrientAz, 78.0f);
    QCOMPARE(written[3].FoliName[1], "Q");
    QCOMPARE(written[3].OP[2], 0);
  }

  void anEmptyStoreIsAnEmptyGrid() {
    CloseFile(W().Program);
    Show([this] {
      QCOMPARE(Table().model()->rowCount(), 0);
      Key(Qt::Key_V, Qt::ControlModifier);
      Key(Qt::Key_Delete);
      Press("cmdGEDASSign");
      QCOMPARE(Line(), "No geological file is open: OpenGED reads one.");
      Press("cmdRead");
      QVERIFY(!dialog_->isVisible());
    });
    QVERIFY(Boxes().empty());
  }
};

QTEST_MAIN(EditDataWindowTest)
#include "edit_data_window_test.moc"
