#include "platform/qt/windows/ged_editor_window.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>

#include "app/edit/orientation_parameters.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/change_buttons.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/tables/frozen_table.h"

namespace velorix {
namespace {

/// A cell takes no more characters than its column says.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    auto* box = new QLineEdit(parent);
    box->setMaxLength(GedColumnAt(index.column()).Characters);
    return box;
  }

 protected:
  /// A doubtful cell keeps its ground in the selected row.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(Qt::BackgroundRole).value<QColor>() == MarkColour(Mark::Doubt))
      option->state &= ~QStyle::State_Selected;
  }
};

struct SiteField {
  const char *Name, *Caption, *Tip;
  int Characters;
  std::string GedSite::*Text;
};
// clang-format off
constexpr SiteField SiteFields[] = {
    {"txtSite",  "&Site",         "Name of the site",                  16, &GedSite::Site},
    {"txtLon",   "Lo&ngitude",    "Longitude of the site, degrees",     7, &GedSite::Lon},
    {"txtLat",   "L&atitude",     "Latitude of the site, degrees",      7, &GedSite::Lat},
    {"txtRock",  "&Rock",         "Code of the rock type",              4, &GedSite::Rock},
    {"txtStrat", "S&tratigraphy", "Code of the stratigraphic unit",   4, &GedSite::Strat},
    {"txtLitho", "&Lithology",    "Code of the lithology",              4, &GedSite::Litho},
    {"txtRegio", "Re&gion",       "Code of the region",                 4, &GedSite::Regio},
};
// clang-format on

/// A number in the corner of a table's headers, "#".
void CaptionCorner(QTableView& table) {
  auto* corner = table.findChild<QAbstractButton*>();
  if (!corner) return;
  auto* row = new QHBoxLayout(corner);
  row->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel("#", corner);
  label->setAlignment(Qt::AlignCenter);
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  row->addWidget(label);
}

}  // namespace

frmGEDEditor::frmGEDEditor(Velorix& velorix, QWidget* owner)
    : QMainWindow(owner, Qt::Window),
      velorix_(velorix),
      sheet_(NewGedSheet(velorix.Session.Settings)),
      model_(sheet_) {
  setObjectName("frmGEDEditor");
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_QuitOnClose, false);
  model_.OnRefused = [this] {
    refused_ = true;
    QTimer::singleShot(0, this, [this] {  // when the cell's editor is gone
      refused_ = false;
      RefuseGedCell(velorix_.Dialogs);
    });
  };
  MakeMenu();
  auto* centre = new QWidget(this);
  auto* column = new QVBoxLayout(centre);
  column->addLayout(MakeSite());
  column->addWidget(MakeGrid(), 1);
  column->addLayout(MakeButtons());
  setCentralWidget(centre);
  const int width = grid_->horizontalHeader()->length() + 6 * fontMetrics().height();
  const int height = 20 * grid_->verticalHeader()->defaultSectionSize() + 180;
  resize(QSize(width, height).boundedTo(screen()->availableSize() * 0.95));
  ShowCaption();
  ShowSite();
  connect(&model_, &QAbstractItemModel::dataChanged, this, [this] { ShowDoubts(); });
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { ShowDoubts(); });
}

void frmGEDEditor::MakeMenu() {
  QMenu* file = menuBar()->addMenu("&File");
  const auto add = [&](const char* name, const char* caption, const QKeySequence& key, auto act) {
    QAction* item = file->addAction(caption);
    item->setObjectName(name);
    item->setShortcut(key);
    connect(item, &QAction::triggered, this, act);
  };
  add("mnuOpen", "Open", QKeySequence::Open, [this] { Open(); });
  add("mnuClose", "Close", QKeySequence::Close, [this] { close(); });
}

QLayout* frmGEDEditor::MakeSite() {
  auto* table = new QGridLayout;
  table->setVerticalSpacing(2);
  const auto add = [&](const QString& caption, QWidget* control, int stretch) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(control);
    const int column = table->columnCount();
    table->addWidget(label, 0, column);
    table->addWidget(control, 1, column);
    table->setColumnStretch(column, stretch);
  };
  for (const SiteField& field : SiteFields) {
    auto* box = new QLineEdit(this);
    box->setObjectName(field.Name);
    box->setToolTip(field.Tip);
    box->setMaxLength(field.Characters);
    box->setMinimumWidth(field.Characters * box->fontMetrics().averageCharWidth() + 16);
    add(field.Caption, box, field.Characters);
    fields_.push_back({box, field.Text});
  }
  for (int i = 1; i <= 4; ++i) {
    parameters_[i] =
        MakeList(QString("cboOP(%1)").arg(i), ToQString(OrientationMeaning(i)), 3, this);
    add(QString("OP&%1").arg(i), parameters_[i], 0);
  }
  return table;
}

QWidget* frmGEDEditor::MakeGrid() {
  grid_ = new FrozenTable(this);
  grid_->setObjectName("scgEditAniso");
  grid_->setAccessibleName("Samples");
  grid_->setToolTip("Type over a cell to change it, in the last row to add a sample");
  grid_->setModel(&model_);
  grid_->setItemDelegate(new CellDelegate(grid_));
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                         QAbstractItemView::EditKeyPressed);
  const int line = grid_->fontMetrics().height() + 6;
  grid_->verticalHeader()->setDefaultSectionSize(line);
  grid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid_->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
  QHeaderView& header = *grid_->horizontalHeader();
  header.setHighlightSections(false);
  const int digit = grid_->fontMetrics().horizontalAdvance('0');
  for (int column = 0; column < GedColumnCount; ++column)
    grid_->setColumnWidth(
        column, std::max(header.sectionSizeHint(column) + 4, (column == 0 ? 13 : 6) * digit + 12));
  CaptionCorner(*grid_);
  grid_->Freeze(1, new QHeaderView(Qt::Horizontal, grid_));
  return grid_;
}

QLayout* frmGEDEditor::MakeButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* name, const char* caption, const char* tip, const char* key,
                       auto act) {
    QPushButton* button = MakeDialogButton(name, caption, tip, this);
    button->setShortcut(QKeySequence(key));  // Tab goes from cell to cell
    connect(button, &QPushButton::clicked, this, act);
    row->addWidget(button);
  };
  add("cmdDelete", "DELETE", "Take the selected rows out (Ctrl+Del)", "Ctrl+Del",
      [this] { Delete(); });
  add("cmdRestore", "RESTORE ALL", "Bring all rows back (Ctrl+R)", "Ctrl+R", [this] { Restore(); });
  // Kept for agreement with published results: an entry without an action.
  add("cmdCopy1stRow", "COPY 1ST ROW TO ALL", "This button has no action", "", [] {});
  doubts_ = new QLabel(this);
  doubts_->setObjectName("lblDoubts");
  doubts_->setToolTip("A cell's tip says what is wrong with it");
  doubts_->setAlignment(Qt::AlignCenter);
  doubts_->setMinimumWidth(1);  // the buttons alone decide on the window's width
  row->addWidget(doubts_, 1);
  add("cmdOK", "OK", "Save to a file and close (Ctrl+S)", "Ctrl+S", [this] { Save(); });
  add("cmdCancel", "CANCEL", "Close without saving (Ctrl+W)", "", [this] { close(); });
  return row;
}

void frmGEDEditor::ShowCaption() {
  constexpr int Buttons = 160, Rest = 50;  // pixels for the frame's buttons; title and count
  const int room = (width() - Buttons) / fontMetrics().averageCharWidth() - Rest;
  setWindowTitle(ToQString(GedCaption(sheet_, std::max(20, room))).replace("[*]", "[*][*]"));
}

void frmGEDEditor::ShowSite() {
  for (const Field& field : fields_) field.Box->setText(ToQString(sheet_.Site.*field.Text));
  for (int i = 1; i <= 4; ++i) {
    QComboBox& list = *parameters_[i];
    list.clear();
    for (const std::int16_t value : OrientationValues(i)) list.addItem(QString::number(value));
    const QString shown = QString::number(sheet_.Site.OP[i]);
    if (list.findText(shown) < 0) list.addItem(shown);  // a file may have any value
    list.setCurrentText(shown);
  }
  TakeSite();  // as the fields have room for it, so that what is typed differs from it
  read_ = sheet_;
}

void frmGEDEditor::TakeSite() {
  for (const Field& field : fields_) sheet_.Site.*field.Text = field.Box->text().toStdString();
  for (int i = 1; i <= 4; ++i)
    sheet_.Site.OP[i] = static_cast<std::int16_t>(parameters_[i]->currentText().toInt());
}

/// Takes over what is being typed in a cell: a key reaches menus and buttons past the cell's
/// editor. False when the cell was refused; what is going on ends then, since it would go on
/// without it.
bool frmGEDEditor::EndTyping() {
  if (grid_->isAncestorOf(focusWidget())) grid_->setFocus();
  return !refused_;
}

void frmGEDEditor::ShowDoubts() {
  doubts_->setText(ToQString(DoubtsLine(FindDoubts(sheet_, model_.Codes()))));
}

bool frmGEDEditor::HasUnsaved() {
  TakeSite();
  return sheet_ != read_;
}

void frmGEDEditor::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Cancel)) return QMainWindow::keyPressEvent(event);
  if (!HasUnsaved() || AskToDiscard(velorix_.Dialogs, "Geological file editor")) close();
}

void frmGEDEditor::Open() {
  if (!EndTyping()) return;
  Work(velorix_, [this] {
    if (!OpenGedFiles(velorix_.Session, velorix_.Dialogs, sheet_)) return;
    model_.Refresh();
    ShowAllRows();
    ShowSite();
    ShowCaption();
  });
}

void frmGEDEditor::Save() {
  if (!EndTyping()) return;
  TakeSite();
  const SheetDoubts doubts = FindDoubts(sheet_, model_.Codes());
  const DoubtAnswer answer = AskAboutDoubts(velorix_.Dialogs, "Geological file editor", doubts);
  if (answer.Chosen == DoubtAnswer::Choice::Show) {
    grid_->setCurrentIndex(model_.index(answer.Cell.Row - 1, answer.Cell.Column - 1));
    grid_->setFocus();
  }
  if (answer.Chosen != DoubtAnswer::Choice::Save) return;
  bool saved = false;
  Work(velorix_, [&] { saved = SaveGedFile(velorix_.Session, velorix_.Dialogs, sheet_); });
  if (saved) close();
}

void frmGEDEditor::Delete() {
  if (!EndTyping()) return;
  grid_->setUpdatesEnabled(false);
  for (const QModelIndex& index : grid_->selectionModel()->selectedRows()) {
    if (model_.IsNew(index.row())) continue;
    sheet_.Rows[static_cast<std::size_t>(index.row())].TakenOut = true;
    grid_->setRowHidden(index.row(), true);
  }
  grid_->clearSelection();
  model_.RefreshDoubts();
  grid_->setUpdatesEnabled(true);
}

void frmGEDEditor::Restore() {
  if (!EndTyping()) return;
  for (GedRow& row : sheet_.Rows) row.TakenOut = false;
  model_.RefreshDoubts();
  ShowAllRows();
}

void frmGEDEditor::ShowAllRows() {
  grid_->setUpdatesEnabled(false);
  for (int row = 0; row < model_.rowCount(); ++row) grid_->setRowHidden(row, false);
  grid_->setUpdatesEnabled(true);
}

void frmGEDEditor::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  ShowCaption();
}

}  // namespace velorix
