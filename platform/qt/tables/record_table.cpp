#include "platform/qt/tables/record_table.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "app/commands/view_choices.h"
#include "platform/qt/parts/busy_cursor.h"

namespace velorix {

RecordTable::RecordTable(Velorix& velorix, const RecordColumns& columns, QWidget* parent)
    : FrozenTable(parent), velorix_(velorix), model_(velorix, columns) {
  setObjectName("scgAnisoView");
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 5);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(true);
  // Selected records are yellow, here as on the plots.
  QPalette colours = palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    colours.setColor(group, QPalette::Highlight, QColor(0xFF, 0xEE, 0x70));
    colours.setColor(group, QPalette::HighlightedText, Qt::black);
  }
  setPalette(colours);

  setModel(&model_);
  const int digit = fontMetrics().horizontalAdvance('0');
  for (int c = 0; c < columns.Count(); ++c)
    setColumnWidth(c, columns.Characters(columns[c]) * digit + 12);
  heldHeader_ = new QHeaderView(Qt::Horizontal, this);
  Freeze(columns.NameColumn() + 1, heldHeader_);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { TellSelection(); });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this] { clearSelection(); });
}

void RecordTable::Fill() {
  // When the table got shorter, its last row stays in view.
  QScrollBar* bar = verticalScrollBar();
  const int top = bar->value(), current = currentIndex().row();
  const int column = std::max(currentIndex().column(), 0);
  filling_ = true;
  setUpdatesEnabled(false);
  sortedBy_ = -1;
  ShowOrder();
  model_.Fill();
  SelectFromStore();
  if (const int rows = model_.rowCount(); current >= 0 && rows > 0) {
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(model_.index(std::min(current, rows - 1), column),
                                      QItemSelectionModel::NoUpdate);
    setAutoScroll(true);
  }
  doItemsLayout();
  bar->setValue(top);
  setUpdatesEnabled(true);
  filling_ = false;
}

void RecordTable::ShowSelection() {
  filling_ = true;
  SelectFromStore();
  filling_ = false;
}

void RecordTable::SortBy(int column) {
  downward_ = sortedBy_ == column && !downward_;
  sortedBy_ = column;
  model_.SortRows(column, downward_);
  ShowOrder();
  ShowSelection();
}

/// An arrow in the header of the column that the rows are sorted by.
void RecordTable::ShowOrder() {
  for (QHeaderView* header : {horizontalHeader(), heldHeader_}) {
    header->setSortIndicatorShown(sortedBy_ >= 0);
    if (sortedBy_ >= 0)
      header->setSortIndicator(sortedBy_, downward_ ? Qt::DescendingOrder : Qt::AscendingOrder);
  }
}

/// Selects a range for each run of neighbours, if the ranges aren't selected as they are: a
/// selection in the making stays untouched.
void RecordTable::SelectFromStore() {
  QItemSelection selection;
  const int rows = model_.rowCount();
  std::size_t count = 0;
  const auto selected = [&](int row) {
    return velorix_.Session.Records[model_.IdOf(row)].Selected;
  };
  for (int row = 0; row < rows; ++row) {
    if (!selected(row)) continue;
    const int first = row;
    while (row + 1 < rows && selected(row + 1)) ++row;
    count += static_cast<std::size_t>(row - first + 1);
    selection.append({model_.index(first, 0), model_.index(row, model_.columnCount() - 1)});
  }
  const std::vector<int> ids = SelectedIds();
  const bool same = ids.size() == count && std::all_of(ids.begin(), ids.end(), [&](int id) {
                      return velorix_.Session.Records[id].Selected;
                    });
  if (!same) selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

std::vector<int> RecordTable::SelectedIds() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  std::sort(rows.begin(), rows.end());
  for (int& row : rows) row = model_.IdOf(row);
  return rows;
}

void RecordTable::paintEvent(QPaintEvent* event) {
  FrozenTable::paintEvent(event);
  if (model_.rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(8, 12, -8, -8),
                   Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap,
                   velorix_.Session.RecordCount() == 0
                       ? "Open a data file (Ctrl+O) or drop one here"
                       : "No record of the file has this view. F5 shows specimen coordinates.");
}

void RecordTable::TellSelection() {
  if (!filling_) Work(velorix_, [&] { SelectRecords(velorix_, SelectedIds()); });
}

}  // namespace velorix
