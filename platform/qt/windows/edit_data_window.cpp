#include "platform/qt/windows/edit_data_window.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/tables/edit_table.h"

namespace velorix {

constexpr char Title[] = "Edit Orientation Data";

frmEditData::frmEditData(Velorix& velorix, QWidget* owner) : QDialog(owner), velorix_(velorix) {
  setObjectName("frmEditData");
  setWindowTitle(Title);
  LoadEditor(editor_, velorix_.Session);
  table_ = new EditTable(editor_, this);
  line_ = new QLabel(this);
  line_->setObjectName("lblAssigned");
  line_->setWordWrap(true);
  line_->setTextFormat(Qt::PlainText);
  line_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  line_->setMinimumHeight(2 * line_->fontMetrics().lineSpacing());  // the grid keeps its height
  line_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  doubts_ = new QLabel(this);
  doubts_->setObjectName("lblDoubts");
  doubts_->setToolTip("A cell's tip says what is wrong with it");

  auto* column = new QVBoxLayout(this);
  column->addWidget(table_, 1);
  auto* lines = new QHBoxLayout;
  lines->addWidget(line_, 1);
  lines->addWidget(doubts_, 0, Qt::AlignTop);
  column->addLayout(lines);
  column->addLayout(MakeButtons());

  connect(&table_->Cells(), &QAbstractItemModel::dataChanged, this, [this] { ShowLines(); });
  connect(&table_->Cells(), &QAbstractItemModel::modelReset, this, [this] { ShowLines(); });
  table_->Refresh();
  table_->setCurrentIndex(table_->Cells().index(0, OrientationColumn - 1));
  const QMargins margins = column->contentsMargins();
  const int height = 20 * table_->verticalHeader()->defaultSectionSize() + 150;
  const QSize room = screen()->availableSize() * 0.95;
  resize(QSize(table_->FullWidth() + margins.left() + margins.right(), height).boundedTo(room));
  table_->setFocus();
}

/// A button whose work is a command; the table follows the editor then.
void frmEditData::AddButton(QHBoxLayout& row, const char* name, const char* caption,
                            const char* tip, const QKeySequence& key,
                            const std::function<void()>& work) {
  QPushButton* button = MakeDialogButton(name, caption, tip, this);
  button->setShortcut(key);       // Tab goes from cell to cell
  button->setAutoDefault(false);  // Return belongs to the cells
  connect(button, &QPushButton::clicked, this, [this, work] {
    table_->EndTyping();
    PauseBusyCursor();  // this is a command of its own within the one that opened the window
    Work(velorix_, work);
    PauseBusyCursor();
    table_->Refresh();
    ShowLines();
    table_->setFocus();
  });
  row.addWidget(button);
}

QHBoxLayout* frmEditData::MakeButtons() {
  auto* row = new QHBoxLayout;
  AddButton(*row, "cmdOpenGED", "OpenGED",
            "Read geological file(s) and show their samples (Ctrl+O)", QKeySequence("Ctrl+O"),
            [this] {
              OpenGed(editor_, velorix_.Session, velorix_.History, velorix_.Lists, velorix_.Dialogs,
                      FileAction::Open);
            });
  AddButton(*row, "cmdGEDASSign", "AssignGED",
            "Give each record the orientation, foliations and lineations of the sample of its name "
            "(Ctrl+G)",
            QKeySequence("Ctrl+G"), [this] { AssignGed(editor_, velorix_.Session); });
  AddButton(*row, "cmdWrite", "Write",
            "Show the records as they are, without what was typed here (F5)", QKeySequence("F5"),
            [this] { WriteGrid(editor_, velorix_.Session); });
  row->addStretch(1);
  AddButton(
      *row, "cmdRead", "SAVE",
      "Put the grid into the records and write the open file (.ams, .ran); then close (Ctrl+S)",
      QKeySequence("Ctrl+S"), [this] { Save(); });
  AddButton(*row, "cmdCancel", "CANCEL", "Close without saving (Esc asks before)", {},
            [this] { reject(); });
  return row;
}

void frmEditData::Save() {
  const SheetDoubts doubts = DoubtsToSave(editor_);
  const DoubtAnswer answer = AskAboutDoubts(velorix_.Dialogs, Title, doubts);
  if (answer.Chosen == DoubtAnswer::Choice::Show) {
    if (editor_.ShowsSamples) ShowStoreRows(editor_);
    table_->Refresh();
    table_->setCurrentIndex(table_->Cells().index(answer.Cell.Row - 1, answer.Cell.Column - 1));
  } else if (answer.Chosen == DoubtAnswer::Choice::Save &&
             SaveGrid(editor_, velorix_.Session, velorix_.History, velorix_.Lists, velorix_.Dialogs,
                      velorix_.Views)) {
    accept();
  }
}

void frmEditData::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && HasUnsavedCells(editor_, velorix_.Session) &&
      !AskToDiscard(velorix_.Dialogs, Title))
    return event->accept();
  QDialog::keyPressEvent(event);
}

void frmEditData::ShowLines() {
  line_->setText(ToQString(editor_.Line));
  doubts_->setText(ToQString(DoubtsLine(FindDoubts(editor_.Shown(), editor_.Codes))));
}

}  // namespace velorix
