#include "platform/qt/column_plots.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSplitter>

#include "app/display.h"
#include "app/record_grid.h"
#include "platform/qt/grid_model.h"
#include "platform/qt/widgets.h"

namespace velorix {
namespace {

// clang-format off
constexpr PlotNames HistoNames = {"Histogram", "picHisto", "cmdHistoProperties", "fraHistoProperties",
    "Histogram of one column; drawn in a later version", "Options of the histogram"};
constexpr PlotNames XYNames[] = {
    {"XY plot 1", "picXYPlot1", "cmdXYPlot1", "fraXYPlot1", "One column against another; drawn in a later version", "Options of XY plot 1"},
    {"XY plot 2", "picXYPlot2", "cmdXYPlot2", "fraXYPlot2", "One column against another; drawn in a later version", "Options of XY plot 2"}};
// These two pictures stay blank whatever their lists say, and this is wanted.
constexpr PlotNames PairNames[] = {
    {"Plot 1", "picPlot1", "cmdPlot1Properties", "fraPlot1Properties", "Plot of a pair of parameters", "Options of plot 1"},
    {"Plot 2", "picPlot2", "cmdPlot2Properties", "fraPlot2Properties", "Plot of a pair of parameters", "Options of plot 2"}};
// clang-format on

constexpr PlaneSize PlotPlane = {400, 300};
constexpr int FirstOfHisto = 5, FirstOfXY = 3;  // "Kmean", "Field"

QCheckBox* AddCheck(PlotPanel& panel, const QString& name, const char* caption, const char* tip) {
  auto* box = new QCheckBox(caption, panel.Frame);
  box->setObjectName(name);
  box->setToolTip(tip);
  panel.Options->addWidget(box);
  return box;
}

void AddLabelled(PlotPanel& panel, const char* text, QWidget* control) {
  auto* row = new QHBoxLayout;
  auto* label = new QLabel(text, panel.Frame);
  label->setBuddy(control);
  label->setToolTip(control->toolTip());
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance("Column"));
  row->addWidget(label);
  row->addWidget(control, 1);
  panel.Options->addLayout(row);
}

PlotPanel* MakePanel(const PlotNames& names, const Velorix& velorix, QWidget* parent) {
  auto* panel = new PlotPanel(names, velorix.Host.AppFolder, parent);
  panel->Picture->SetPicture(PlotPlane, {});
  panel->Picture->setMinimumSize(80, 60);
  return panel;
}

}  // namespace

ColumnPlots::ColumnPlots(Velorix& velorix, QWidget* column, QWidget* pairs) : velorix_(velorix) {
  MakeHisto(column);
  for (int plot : {1, 2}) MakeXYPlot(plot, column);
  for (int plot : {1, 2}) MakePairs(plot, pairs);
  ShowGridHeader();
}

PlotPanel* ColumnPlots::MakeHisto(QWidget* parent) {
  PlotPanel* panel = MakePanel(HistoNames, velorix_, parent);
  AddColumns(*panel, "Column", "odclHisto", "Column whose distribution is shown", FirstOfHisto);
  panel->Options->addStretch(1);
  return panel;
}

PlotPanel* ColumnPlots::MakeXYPlot(int plot, QWidget* parent) {
  PlotPanel* panel = MakePanel(XYNames[plot - 1], velorix_, parent);
  const auto name = [plot](const char* pattern) { return QString(pattern).arg(plot); };
  AddColumns(*panel, "X axis", name("odclXYPlot%1(1)"), "Column along the X axis", FirstOfXY);
  AddColumns(*panel, "Y axis", name("odclXYPlot%1(2)"), "Column along the Y axis", FirstOfXY);
  auto* colour = AddColumns(*panel, "Colour", name("odclXYPlot%1(3)"),
                            "Column that colours the symbols", FirstOfXY);
  auto* coding = AddCheck(*panel, name("chkXYPlot%1ColorCoding"), "Colour coding",
                          "Colour the symbols by a column");
  AddCheck(*panel, name("chkXYPLot%1Lines"), "Lines", "Connect the symbols in store order");
  colour->setEnabled(false);
  QObject::connect(coding, &QCheckBox::toggled, colour, &QWidget::setEnabled);
  panel->Options->addStretch(1);
  return panel;
}

PlotPanel* ColumnPlots::MakePairs(int plot, QWidget* parent) {
  PlotPanel* panel = MakePanel(PairNames[plot - 1], velorix_, parent);
  QComboBox* list = MakeList(QString("cboPlot%1").arg(plot), "Pair of parameters", 9, panel->Frame);
  if (plot == 1)
    for (const char* name : Plot1Names) list->addItem(name);
  else
    for (const char* name : Plot2Names) list->addItem(name);
  AddLabelled(*panel, "Pair", list);
  AddCheck(*panel, QString("chkPlot%1Lines").arg(plot), "Lines",
           "Connect the symbols in store order");
  panel->Options->addStretch(1);
  return panel;
}

QComboBox* ColumnPlots::AddColumns(PlotPanel& panel, const char* label, const QString& name,
                                   const char* tip, int first) {
  QComboBox* list = MakeList(name, tip, 9, panel.Frame);
  lists_.push_back({list, first});
  AddLabelled(panel, label, list);
  return list;
}

void ColumnPlots::ShowGridHeader() {
  for (const ColumnList& columns : lists_) {
    const int chosen = std::max(columns.list->currentIndex(), 0);
    columns.list->clear();
    for (int c = columns.first; c <= GridColumns; ++c)
      AddEntry(*columns.list, ToQString(GridHeader(c, velorix_.Session.Settings)),
               GridColumnColour(c));
    columns.list->setCurrentIndex(chosen);
  }
}

}  // namespace velorix
