#pragma once

#include "app/commands/velorix.h"
#include "platform/qt/plots/plot_panel.h"

class QComboBox;

namespace velorix {

/// The histogram, the two XY plots and the two plots of named pairs: their panels with the lists
/// that choose what they show.
class ColumnPlots {
 public:
  /// Makes the panels: the histogram and the XY plots in `column`, one below the other, the plots
  /// of pairs side by side in `pairs`.
  ColumnPlots(Velorix& velorix, QWidget* column, QWidget* pairs);

  /// The lists of columns take the grid's headers again and keep their place.
  void ShowGridHeader();
  /// Draws a plot again that is a panel of these.
  void Redraw(PlotKind plot);

 private:
  /// A list of columns.
  struct ColumnList {
    QComboBox* list;
    std::span<const Column> columns;
    int chosen;  // index
  };
  /// The panel of a plot, and the plane that holds it without the legend of the groups.
  struct Shown {
    PlotPanel* Panel = nullptr;
    std::function<PlaneSize()> Plane;
  };
  Shown MakeHisto(QWidget* parent);
  Shown MakeXYPlot(int plot, QWidget* parent);
  void MakePairs(int plot, QWidget* parent);
  QComboBox* AddColumns(PlotPanel& panel, const char* label, const QString& name, const char* tip,
                        Column first, Column chosen,
                        const std::function<void(Column column)>& choose);

  Velorix& velorix_;
  std::vector<ColumnList> lists_;
  PerPlot<Shown> plots_;
};

}  // namespace velorix
