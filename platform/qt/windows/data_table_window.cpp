#include "platform/qt/windows/data_table_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>

#include "app/tables/data_table.h"
#include "platform/qt/parts/command_row.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {

frmDataTable::frmDataTable(Velorix& velorix, QWidget* owner)
    : QWidget(owner, Qt::Window), velorix_(velorix) {
  setObjectName("frmDataTable");
  setWindowTitle("Data Table");
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  Table = new RecordTable(velorix, DataTableRecordColumns, this);
  Table->setToolTip(
      "Every value of the records in view. A click on a header sorts by its column, Ctrl+C copies "
      "the selected rows");
  Table->setAccessibleName("Data table");
  column->addWidget(Table, 1);

  column->addLayout(
      MakeCommandRow(*this, "Close the data table [Esc, F1]", {},
                     {{"cmdSort", "&Sort",
                       "Sort by the column of the current cell, to which the arrow "
                       "keys go; again for the other way round",
                       [this] { SortByCurrent(); }},
                      {"cmdCopy", "&Copy", "Copy the selected rows as tab-separated text [Ctrl+C]",
                       [this] { Copy(); }, "Ctrl+C"}}));
  connect(Table->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int section) { Table->SortBy(section); });

  // Over the main window, a little smaller, so that its edges stay in reach.
  constexpr int Inset = 3, Narrower = 7, Lower = 87;
  const QWidget* main = owner->window();
  resize(main->width() - Narrower, main->height() - Lower);
  move(main->x() + Inset, main->y());  // of the frame: the title must not be above the screen
  Table->Fill();
  Table->setFocus();
}

/// What a click on the header of the current cell does.
void frmDataTable::SortByCurrent() {
  const int row = std::max(0, Table->currentIndex().row());
  const int column = std::max(0, Table->currentIndex().column());
  Table->clearSelection();
  Table->SortBy(column);
  Table->selectionModel()->setCurrentIndex(Table->model()->index(row, column),
                                           QItemSelectionModel::NoUpdate);
}

void frmDataTable::Copy() {
  const std::vector<int> ids = Table->SelectedIds();
  if (ids.empty()) return velorix_.Views.ShowStatus("No row of the data table is selected.");
  QApplication::clipboard()->setText(ToQString(DataTableText(ids, velorix_.Session)));
}

void frmDataTable::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
