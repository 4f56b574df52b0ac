#include "platform/qt/main_window/grid_panel.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QToolButton>

#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/plot_panel.h"

namespace velorix {

GridPanel::GridPanel(Velorix& velorix, QWidget* parent) : QFrame(parent), velorix_(velorix) {
  setObjectName("fraAnisoView");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(3);
  QHBoxLayout* title = MakeTitleRow("Records", this);
  cmdExpand_ = MakeFlatButton("cmdExpand", this);
  title->addWidget(cmdExpand_);
  column->addLayout(title);

  Grid = new RecordTable(velorix, GridRecordColumns, this);
  Grid->setAccessibleName("Records");
  Grid->setToolTip(
      "The records in view. Shift and Ctrl select several; a click on the header clears the "
      "selection");
  column->addWidget(Grid, 1);
  setMinimumWidth(120);

  connect(cmdExpand_, &QToolButton::clicked, this, [this] {
    wide_ = !wide_;
    if (!wide_) Grid->horizontalScrollBar()->setValue(0);  // a narrow grid is for the names
    ShowWidth();
    if (OnWiden) OnWiden();
  });
  ShowWidth();
}

int GridPanel::WantedWidth() const {
  constexpr int Narrow = 2655, Wide = 14895, PerInch = 1440;  // twips
  return (wide_ ? Wide : Narrow) * logicalDpiX() / PerInch;
}

void GridPanel::ShowWidth() {
  const char* picture = wide_ ? "arw01lt16.ico" : "arw01rt16.ico";
  cmdExpand_->setIcon(LoadPicture(velorix_.Host.AppFolder, picture));
  cmdExpand_->setToolTip(wide_ ? "<- Shrink" : "Expand ->");
  cmdExpand_->setAccessibleName(wide_ ? "Shrink the grid" : "Expand the grid");
}

}  // namespace velorix
