#pragma once

#include <optional>

#include "base/slots.h"
#include "plot/axes/columns.h"
#include "plot/axes/hand_axis.h"
#include "plot/figure/plot_kind.h"
#include "plot/net/group_marks.h"
#include "plot/net/stereo.h"
#include "plot/plots/xy_plot.h"
#include "stats/study/grouping.h"

namespace velorix {

/// What the window of the groups decides: what parts the records, nothing while that is not
/// complete, and how the plots show the groups.
struct GroupChoices {
  std::optional<GroupBy> Parting = ParseGroupBy("site");
  MarkBy Marks = MarkBy::Nothing;
  bool Means = false, Legend = true;

  bool operator==(const GroupChoices&) const = default;
};

/// What the controls of the plots decide.
struct PlotChoices {
  StereoOptions Stereo = {};
  Array1<XYPlotOptions, 2> XYPlot = {};  // of `picXYPlot1` and `picXYPlot2`
  Array1<bool, 2> XYLines = {};          // whether each is drawn with lines now
  Column HistoParameter = Column::Km;
  PerPlot<bool> OnPage = PerPlot(true);  // which are on the page of `DrawGraphicsPage`
  HandAxes Axes = {};                    // of the XY plots and the histogram
  bool Lasso = false;                    // the left button draws a free line instead of a box
  GroupChoices Groups = {};
  GroupMarks Marks = {};  // as `MarkGroups` made them for the view

  /// What an XY plot shows now: its options, with the lines that it is drawn with.
  XYPlotOptions Shown(int plot) const {
    XYPlotOptions options = XYPlot[plot];
    options.lines = XYLines[plot];
    return options;
  }
};

}  // namespace velorix
