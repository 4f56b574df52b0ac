#include "platform/qt/frozen_table.h"

#include <QHeaderView>
#include <QScrollBar>

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
  held_->setAutoScroll(false);
  held_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  held_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  held_->setVerticalScrollMode(verticalScrollMode());
  held_->verticalHeader()->hide();
  held_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  held_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
  header->setHighlightSections(false);
  header->setSectionResizeMode(QHeaderView::Fixed);
  for (int c = columns; c < model()->columnCount(); ++c) held_->setColumnHidden(c, true);

  edge_ = new QWidget(this);
  edge_->setAutoFillBackground(true);
  edge_->setBackgroundRole(QPalette::WindowText);

  QScrollBar *bar = verticalScrollBar(), *heldBar = held_->verticalScrollBar();
  connect(bar, &QScrollBar::valueChanged, heldBar, &QScrollBar::setValue);
  connect(heldBar, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { PlaceHeld(); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { PlaceHeld(); });
  connect(verticalHeader(), &QHeaderView::sectionResized, held_,
          [this](int row, int, int height) { held_->setRowHidden(row, height == 0); });
  PlaceHeld();
}

/// A column that the held ones would cover comes out from under them.
void FrozenTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QTableView::scrollTo(index, hint);
  if (!index.isValid() || index.column() < columns_) return;
  const int covered = HeldWidth() - columnViewportPosition(index.column());
  if (covered > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
}

void FrozenTable::updateGeometries() {
  QTableView::updateGeometries();
  if (held_) PlaceHeld();
}

int FrozenTable::HeldWidth() const {
  int width = 0;
  for (int c = 0; c < columns_; ++c) width += columnWidth(c);
  return width;
}

void FrozenTable::PlaceHeld() {
  for (int c = 0; c < columns_; ++c) held_->setColumnWidth(c, columnWidth(c));
  const int head = horizontalHeader()->height(), width = HeldWidth();
  held_->horizontalHeader()->setFixedHeight(head);
  const QRect cells = viewport()->geometry();
  held_->setGeometry(cells.left(), cells.top() - head, width, cells.height() + head);
  // In a narrow table they would leave no room for the others.
  const bool shown = horizontalScrollBar()->value() > 0 && 2 * width < cells.width();
  held_->setVisible(shown);
  edge_->setGeometry(cells.left() + width, cells.top() - head, 1, cells.height() + head);
  edge_->setVisible(shown);
}

}  // namespace velorix
