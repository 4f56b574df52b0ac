#include "platform/qt/plots/column_plots.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSplitter>
#include <algorithm>

#include "app/commands/view_choices.h"
#include "app/display/plot_mouse.h"
#include "app/display/symbol_names.h"
#include "app/display/view_lists.h"
#include "app/tables/data_table.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/plot_mouse.h"
#include "plot/plots/histogram.h"

namespace velorix {
namespace {

// clang-format off
constexpr PlotNames HistoNames = {"Histogram", "picHisto", "cmdHistoProperties", "fraHistoProperties",
    "Histogram of one column. The middle button shows a measuring cross", "Options of the histogram"};
constexpr PlotNames XYNames[] = {
    {"XY plot 1", "picXYPlot1", "cmdXYPlot1", "fraXYPlot1", "One column against another. Draw a box to select records; the middle button shows a measuring cross", "Options of XY plot 1"},
    {"XY plot 2", "picXYPlot2", "cmdXYPlot2", "fraXYPlot2", "One column against another. Draw a box to select records; the middle button shows a measuring cross", "Options of XY plot 2"}};
// Kept for agreement with published results: these two pictures stay blank whatever their lists say.
constexpr PlotNames PairNames[] = {
    {"Plot 1", "picPlot1", "cmdPlot1Properties", "fraPlot1Properties", "Plot of a pair of parameters", "Options of plot 1"},
    {"Plot 2", "picPlot2", "cmdPlot2Properties", "fraPlot2Properties", "Plot of a pair of parameters", "Options of plot 2"}};
// clang-format on

QCheckBox* AddCheck(PlotPanel& panel, const QString& name, const char* caption, const char* tip,
                    const std::function<void(bool)>& change = {}) {
  auto* box = new QCheckBox(caption, panel.Frame);
  box->setObjectName(name);
  box->setToolTip(tip);
  panel.Options->addWidget(box);
  if (change) QObject::connect(box, &QCheckBox::toggled, box, change);
  return box;
}

/// `text` before the control; "" leaves as much room as an axis's letter takes.
void AddLabelled(PlotPanel& panel, const char* text, QWidget* control) {
  auto* row = new QHBoxLayout;
  auto* label = new QLabel(text, panel.Frame);
  label->setBuddy(control);
  label->setToolTip(control->toolTip());
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance("X"));
  row->addWidget(label);
  row->addWidget(control, 1);
  panel.Options->addLayout(row);
}

PlotGeometry ScreenPlot(const PlotChoices& plots) {
  PlotGeometry place;
  place.axes = &plots.Axes;
  return place;
}

PlotPanel* MakePanel(const PlotNames& names, Velorix& velorix, QWidget* parent) {
  auto* panel = new PlotPanel(names, velorix.Host.AppFolder, parent);
  panel->Picture->setMinimumSize(80, 60);
  panel->Picture->OnFault = [&velorix, title = std::string(names.Title)](const Fault& fault) {
    velorix.Log.DebugPrint("Error: " + title + ": " + fault.what());
    velorix.Views.ShowStatus(title + ": " + fault.what());
  };
  return panel;
}

/// Selecting with the mouse on a plot, with its read-out.
void AttachPlotMouse(Velorix& velorix, PlotPanel& panel, const char* label,
                     const std::function<void(const MouseBox&)>& select,
                     const std::function<std::string(double, double)>& read,
                     const std::function<std::string(const Point&, double)>& name = {},
                     const std::function<void(const Lasso&)>& selectIn = {}) {
  QLabel* readOut = panel.AddReadOut(label, "Values under the mouse");
  AttachMouse(*panel.Picture,
              {.ReadOut = [=](double x, double y) { readOut->setText(ToQString(read(x, y))); },
               .Leave = [=] { readOut->clear(); },
               .Name = name,
               .Select = [&velorix, select](const MouseBox& box,
                                            int) { Work(velorix, [&] { select(box); }); },
               .SelectIn = [&velorix, selectIn](const Lasso& lasso,
                                                int) { Work(velorix, [&] { selectIn(lasso); }); },
               .LassoOn = [&velorix, selectIn] { return selectIn && velorix.Plots.Lasso; },
               .Cross = true});
}

}  // namespace

ColumnPlots::ColumnPlots(Velorix& velorix, QWidget* column, QWidget* pairs) : velorix_(velorix) {
  plots_[PlotKind::Histogram] = MakeHisto(column);
  for (int plot : {1, 2}) plots_[XYPlotKind(plot)] = MakeXYPlot(plot, column);
  for (int plot : {1, 2}) MakePairs(plot, pairs);
  ShowGridHeader();
}

ColumnPlots::Shown ColumnPlots::MakeHisto(QWidget* parent) {
  PlotPanel* panel = MakePanel(HistoNames, velorix_, parent);
  AddColumns(*panel, "X", "odclHisto", "Column whose distribution is shown", Column::Km,
             velorix_.Plots.HistoParameter, [this](Column column) {
               ChangePlot(velorix_, PlotKind::Histogram,
                          [&](PlotChoices& plots) { plots.HistoParameter = column; });
             });
  panel->Options->addStretch(1);
  panel->Picture->SetPicture(HistoPlane, [this](Target& target) {
    const PlotChoices& plots = velorix_.Plots;
    velorix_.Drawn.Histogram.clear();  // nothing for the mouse when drawing fails
    velorix_.Drawn.Histogram =
        DrawHisto(target, ScreenPlot(plots),
                  DataTableValues(plots.HistoParameter, velorix_.Session), plots.HistoParameter,
                  velorix_.Session.Settings, ShownGroups(velorix_.Session, plots.Marks));
    DrawLegendBelow(target, HistoPlane, plots.Marks, HistoLegend);
  });
  AttachMouse(*panel->Picture,
              {.Name =
                   [this](const Point& place, double zoom) {
                     return NameInHisto(velorix_.Plots.HistoParameter, velorix_.Session.Settings,
                                        velorix_.Drawn.Histogram, place, zoom);
                   },
               .SelectIn =
                   [this](const Lasso& lasso, int) {
                     Work(velorix_, [&] {
                       SelectRecords(velorix_,
                                     RecordsInHisto(velorix_.Session, velorix_.Plots.HistoParameter,
                                                    velorix_.Drawn.Histogram, lasso));
                     });
                   },
               .LassoOn = [this] { return velorix_.Plots.Lasso; },
               .Cross = true});
  panel->AddPageBox("chkHisto", velorix_.Plots.OnPage[PlotKind::Histogram]);
  return {panel, [] { return HistoPlane; }};
}

ColumnPlots::Shown ColumnPlots::MakeXYPlot(int plot, QWidget* parent) {
  PlotPanel* panel = MakePanel(XYNames[plot - 1], velorix_, parent);
  const auto name = [plot](const char* pattern) { return QString(pattern).arg(plot); };
  const auto change = [this, plot](auto field) {
    return [this, plot, field](auto value) {
      Work(velorix_, [&] {
        ChangePlot(velorix_, XYPlotKind(plot), [&](PlotChoices& plots) {
          plots.XYPlot[plot].*field = value;
          plots.XYLines[plot] = plots.XYPlot[plot].lines;
        });
      });
    };
  };
  const XYPlotOptions& options = velorix_.Plots.XYPlot[plot];
  AddColumns(*panel, "X", name("odclXYPlot%1(1)"), "Column along the X axis", Column::Field,
             options.x, change(&XYPlotOptions::x));
  AddColumns(*panel, "Y", name("odclXYPlot%1(2)"), "Column along the Y axis", Column::Field,
             options.y, change(&XYPlotOptions::y));
  auto* coding = AddCheck(*panel, name("chkXYPlot%1ColorCoding"), "Colour coding",
                          "Colour the symbols by a column", change(&XYPlotOptions::coding));
  auto* colour = AddColumns(*panel, "", name("odclXYPlot%1(3)"), "Column that colours the symbols",
                            Column::Field, options.colour, change(&XYPlotOptions::colour));
  AddCheck(*panel, name("chkXYPLot%1Lines"), "Lines", "Connect the symbols in store order",
           change(&XYPlotOptions::lines));
  colour->setEnabled(false);
  QObject::connect(coding, &QCheckBox::toggled, colour, &QWidget::setEnabled);
  panel->Options->addStretch(1);

  panel->Picture->SetPicture(XYPlotPlane(options), [this, plot](Target& target) {
    velorix_.Drawn.XYPlot[plot].reset();  // nothing for the mouse when drawing fails
    const XYPlotOptions shown = velorix_.Plots.Shown(plot);
    const GroupMarks& marks = velorix_.Plots.Marks;
    velorix_.Drawn.XYPlot[plot] =
        DrawXYPlot(velorix_.Session, target, ScreenPlot(velorix_.Plots), shown, marks);
    DrawLegendBelow(target, XYPlotPlane(shown), marks, XYPlotLegend(shown, marks));
  });
  AttachPlotMouse(
      velorix_, *panel, plot == 1 ? "lblXYPlot1" : "lblXYPlot2",
      [this, plot](const MouseBox& box) {
        SelectRecords(velorix_,
                      RecordsInXYPlot(velorix_.Session, velorix_.Drawn.XYPlot[plot], box));
      },
      [this, plot](double x, double y) { return ReadXYPlot(velorix_.Drawn.XYPlot[plot], x, y); },
      [this, plot](const Point& place, double zoom) {
        return NameInXYPlot(velorix_.Session, velorix_.Plots.XYPlot[plot],
                            velorix_.Drawn.XYPlot[plot], place, zoom);
      },
      [this, plot](const Lasso& lasso) {
        SelectRecords(velorix_,
                      RecordsInXYPlot(velorix_.Session, velorix_.Drawn.XYPlot[plot], lasso));
      });
  panel->AddPageBox(plot == 1 ? "chkXYPLot1" : "chkXYPlot2",
                    velorix_.Plots.OnPage[XYPlotKind(plot)]);
  return {panel, [&options] { return XYPlotPlane(options); }};
}

void ColumnPlots::MakePairs(int plot, QWidget* parent) {
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
  panel->Picture->SetPicture(HistoPlane, {});
  AttachPlotMouse(
      velorix_, *panel, plot == 1 ? "lblPlot1CursorPos" : "lblPlot2CursorPos",
      [this](const MouseBox&) { SelectRecords(velorix_, {}); },
      [](double, double) { return std::string(); });
}

QComboBox* ColumnPlots::AddColumns(PlotPanel& panel, const char* label, const QString& name,
                                   const char* tip, Column first, Column chosen,
                                   const std::function<void(Column column)>& choose) {
  QComboBox* list = MakeList(name, tip, 9, panel.Frame);
  const std::span<const Column> columns = PlotColumnsFrom(first);
  lists_.push_back(
      {list, columns, static_cast<int>(std::ranges::find(columns, chosen) - columns.begin())});
  AddLabelled(panel, label, list);
  QObject::connect(list, &QComboBox::activated, list, [this, choose, columns](int index) {
    Work(velorix_, [&] { choose(columns[static_cast<std::size_t>(index)]); });
  });
  return list;
}

void ColumnPlots::ShowGridHeader() {
  for (ColumnList& entries : lists_) {
    QComboBox& list = *entries.list;
    if (list.count() > 0) entries.chosen = list.currentIndex();
    list.clear();
    for (const Column column : entries.columns)
      AddEntry(list, ToQString(ColumnName(column, velorix_.Session.Settings)), TintOf(column));
    list.setCurrentIndex(entries.chosen);
  }
}

void ColumnPlots::Redraw(PlotKind plot) {
  const Shown& shown = plots_[plot];
  shown.Panel->Picture->SetPlane(WithLegend(shown.Plane(), velorix_.Plots.Marks));
  shown.Panel->Picture->Redraw();
}

}  // namespace velorix
