#pragma once

#include "app/state/velorix.h"
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
  void RedrawHisto();
  void RedrawXYPlot(int plot);

 private:
  /// A list of parameters, from `first` on (plot/axes/parameters.h).
  struct ParameterList {
    QComboBox* list;
    int first, chosen;  // parameter of the first entry; index of the chosen one
  };
  PlotPanel* MakeHisto(QWidget* parent);
  PlotPanel* MakeXYPlot(int plot, QWidget* parent);
  void MakePairs(int plot, QWidget* parent);
  QComboBox* AddParameters(PlotPanel& panel, const char* label, const QString& name,
                           const char* tip, int first, int chosen,
                           const std::function<void(int parameter)>& choose);

  Velorix& velorix_;
  std::vector<ParameterList> lists_;
  PlotPanel* histo_;
  Array1<PlotPanel*, 2> xyPlots_;
};

}  // namespace velorix
