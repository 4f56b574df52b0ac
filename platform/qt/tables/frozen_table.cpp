#include "platform/qt/tables/frozen_table.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

namespace velorix {

FrozenTable::FrozenTable(QWidget* parent) : QTableView(parent) {
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
}

void FrozenTable::Freeze(int columns, QHeaderView* header) {
  columns_ = columns;
  held_ = new QTableView(this);
  held_->setHorizontalHeader(header);
  held_->setModel(model());
  held_->setSelectionModel(selectionModel());
  held_->setSelectionBehavior(selectionBehavior());
  held_->setSelectionMode(selectionMode());
  held_->setEditTriggers(NoEditTriggers);  // a click scrolls back to the cell itself
  held_->setFocusPolicy(Qt::NoFocus);
  held_->setFrameStyle(QFrame::NoFrame);
  held_->setWordWrap(wordWrap());
  held_->setAlternatingRowColors(alternatingRowColors());
  held_->setAutoScroll(false);
  held_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  held_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  held_->setVerticalScrollMode(verticalScrollMode());
  held_->verticalHeader()->hide();
  held_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  held_->verticalHeader()->setMinimumSectionSize(verticalHeader()->minimumSectionSize());
  held_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
  header->setHighlightSections(false);
  header->setSectionResizeMode(QHeaderView::Fixed);
  header->setSectionsClickable(horizontalHeader()->sectionsClickable());

  edge_ = new QWidget(this);
  edge_->setAutoFillBackground(true);
  edge_->setBackgroundRole(QPalette::WindowText);

  QScrollBar *bar = verticalScrollBar(), *heldBar = held_->verticalScrollBar();
  const auto follow = [bar, heldBar] { heldBar->setValue(bar->value()); };
  connect(bar, &QScrollBar::valueChanged, held_, follow);
  connect(heldBar, &QScrollBar::rangeChanged, held_, follow);
  connect(heldBar, &QScrollBar::valueChanged, bar, [this, bar](int row) {
    if (held_->isVisible()) bar->setValue(row);  // else its range may be stale
  });
  connect(header, &QHeaderView::sectionClicked, horizontalHeader(), &QHeaderView::sectionClicked);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { PlaceHeld(); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { PlaceHeld(); });
  connect(verticalHeader(), &QHeaderView::sectionResized, held_,
          [this](int row, int, int height) { held_->setRowHidden(row, height == 0); });
  PlaceHeld();
}

/// A column that the held ones would cover comes out from under them. One of those is in view
/// already; a table whose cells can be edited goes back to it, since they are edited at their own
/// place.
void FrozenTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar* across = horizontalScrollBar();
  const int left = across->value();
  QTableView::scrollTo(index, hint);
  if (!index.isValid()) return;
  if (index.column() >= HeldColumns())
    across->setValue(across->value() -
                     std::max(HeldWidth() - columnViewportPosition(index.column()), 0));
  else if (editTriggers() == NoEditTriggers)
    across->setValue(left);
}

void FrozenTable::updateGeometries() {
  QTableView::updateGeometries();
  if (held_) PlaceHeld();
}

/// In a narrow table all of them would leave no room for the others.
int FrozenTable::HeldColumns() const {
  int count = 0;
  for (int width = 0; count < columns_; ++count) {
    width += columnWidth(count);
    if (2 * width >= viewport()->width()) break;
  }
  return count;
}

int FrozenTable::HeldWidth() const {
  int width = 0;
  for (int c = 0; c < HeldColumns(); ++c) width += columnWidth(c);
  return width;
}

void FrozenTable::PlaceHeld() {
  const int count = HeldColumns(), width = HeldWidth();
  for (int c = 0; c < held_->horizontalHeader()->count(); ++c) {
    held_->setColumnHidden(c, c >= count);
    if (c < count) held_->setColumnWidth(c, columnWidth(c));
  }
  const int head = horizontalHeader()->height();
  held_->horizontalHeader()->setFixedHeight(head);
  const QRect cells = viewport()->geometry();
  held_->setGeometry(cells.left(), cells.top() - head, width, cells.height() + head);
  edge_->setGeometry(cells.left() + width, cells.top() - head, 1, cells.height() + head);
  const bool shown = horizontalScrollBar()->value() > 0 && count > 0;
  held_->setVisible(shown);
  edge_->setVisible(shown);
}

}  // namespace velorix
