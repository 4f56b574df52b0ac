#include "platform/qt/grid_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

#include "app/display.h"
#include "app/record_grid.h"
#include "platform/qt/busy_cursor.h"
#include "platform/qt/plot_panel.h"
#include "platform/qt/widgets.h"

namespace velorix {
namespace {

/// Characters that a column has room for: the usual longest number of its width. A longer one is
/// shown cut off, with dots; the tip has it whole.
int CharactersOf(int column) {
  if (column == 1) return 5;
  if (column == 2) return 13;
  if (column <= 4) return 9;
  if (column == 5) return 22;
  if (column <= 13) return 12;
  if (column <= 19) return 18;
  return 12;
}

QTableView* MakeGrid(QWidget* parent) {
  auto* grid = new QTableView(parent);
  grid->setObjectName("scgAnisoView");
  grid->setToolTip(
      "The records in view. Shift and Ctrl select several; a click on the header clears the "
      "selection");
  grid->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->setAlternatingRowColors(true);
  grid->setTabKeyNavigation(false);
  grid->setWordWrap(false);
  grid->setCornerButtonEnabled(false);
  grid->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  grid->verticalHeader()->hide();
  grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid->verticalHeader()->setMinimumSectionSize(1);
  grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 5);
  grid->horizontalHeader()->setHighlightSections(false);
  grid->horizontalHeader()->setSectionsClickable(true);
  // Selected records are yellow, here as on the plots.
  QPalette palette = grid->palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::Highlight, QColor(0xFF, 0xEE, 0x70));
    palette.setColor(group, QPalette::HighlightedText, Qt::black);
  }
  grid->setPalette(palette);
  return grid;
}

}  // namespace

GridPanel::GridPanel(Velorix& velorix, QWidget* parent)
    : QFrame(parent), velorix_(velorix), model_(velorix) {
  setObjectName("fraAnisoView");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(3);
  QHBoxLayout* title = MakeTitleRow("Records", this);
  cmdExpand_ = MakeFlatButton("cmdExpand", this);
  title->addWidget(cmdExpand_);
  column->addLayout(title);

  scgAnisoView_ = MakeGrid(this);
  scgAnisoView_->setModel(&model_);
  const int digit = fontMetrics().horizontalAdvance('0');
  for (int c = 1; c <= GridColumns; ++c)
    scgAnisoView_->setColumnWidth(c - 1, CharactersOf(c) * digit + 12);
  column->addWidget(scgAnisoView_, 1);
  setMinimumWidth(120);

  connect(cmdExpand_, &QToolButton::clicked, this, [this] {
    wide_ = !wide_;
    ShowWidth();
    if (OnWiden) OnWiden(wide_ ? Wide : Narrow);
  });
  connect(scgAnisoView_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { TellSelection(); });
  connect(scgAnisoView_->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this] { scgAnisoView_->clearSelection(); });
  ShowWidth();
  scgAnisoView_->setFocus();
}

void GridPanel::ShowWidth() {
  const char* picture = wide_ ? "arw01lt16.ico" : "arw01rt16.ico";
  cmdExpand_->setIcon(LoadPicture(velorix_.Host.AppFolder, picture));
  cmdExpand_->setToolTip(wide_ ? "<- Shrink" : "Expand ->");
}

void GridPanel::FillGrid() {
  // The grid stays where the user has scrolled it; when it got shorter, its last row stays in view.
  QScrollBar* bar = scgAnisoView_->verticalScrollBar();
  const int top = bar->value(), current = scgAnisoView_->currentIndex().row();
  filling_ = true;
  scgAnisoView_->setUpdatesEnabled(false);
  model_.Fill();
  SelectFromStore();
  if (const int rows = model_.rowCount(); current >= 0 && rows > 0) {
    scgAnisoView_->setAutoScroll(false);
    scgAnisoView_->selectionModel()->setCurrentIndex(model_.index(std::min(current, rows - 1), 0),
                                                     QItemSelectionModel::NoUpdate);
    scgAnisoView_->setAutoScroll(true);
  }
  scgAnisoView_->doItemsLayout();
  bar->setValue(top);
  scgAnisoView_->setUpdatesEnabled(true);
  filling_ = false;
}

/// Selects the rows of the selected records, a range for each run of neighbours.
void GridPanel::SelectFromStore() {
  QItemSelection selection;
  const int rows = model_.rowCount();
  const auto selected = [&](int row) {
    return velorix_.Session.Records[model_.IdOf(row)].Selected;
  };
  for (int row = 0; row < rows; ++row) {
    if (!selected(row)) continue;
    const int first = row;
    while (row + 1 < rows && selected(row + 1)) ++row;
    selection.append({model_.index(first, 0), model_.index(row, GridColumns - 1)});
  }
  scgAnisoView_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

std::vector<int> GridPanel::SelectedIds() const {
  std::vector<int> ids;
  for (const QItemSelectionRange& range : scgAnisoView_->selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) ids.push_back(model_.IdOf(row));
  return ids;
}

void GridPanel::TellSelection() {
  if (!filling_) Work(velorix_, [&] { SelectRecords(velorix_, SelectedIds()); });
}

}  // namespace velorix
