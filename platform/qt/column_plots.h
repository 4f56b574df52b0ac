#pragma once

#include "app/velorix.h"
#include "platform/qt/plot_panel.h"

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

 private:
  struct ColumnList {
    QComboBox* list;
    int first;  // column of the grid that is the list's first entry
  };
  PlotPanel* MakeHisto(QWidget* parent);
  PlotPanel* MakeXYPlot(int plot, QWidget* parent);
  PlotPanel* MakePairs(int plot, QWidget* parent);
  QComboBox* AddColumns(PlotPanel& panel, const char* label, const QString& name, const char* tip,
                        int first);

  Velorix& velorix_;
  std::vector<ColumnList> lists_;
};

}  // namespace velorix
