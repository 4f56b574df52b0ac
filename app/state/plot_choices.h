#pragma once

#include "base/slots.h"
#include "plot/axes/columns.h"
#include "plot/net/stereo.h"
#include "plot/plots/xy_plot.h"

namespace velorix {

/// Which plots are on the page of `DrawGraphicsPage`.
struct PageOptions {
  bool stereonet = true, histogram = true, xyPlot1 = true, xyPlot2 = true;
};

/// What the controls of the plots decide.
struct PlotChoices {
  StereoOptions Stereo = {};
  Array1<XYPlotOptions, 2> XYPlot = {};  // of `picXYPlot1` and `picXYPlot2`
  Array1<bool, 2> XYLines = {};          // whether each is drawn with lines now
  Column HistoParameter = Column::Km;
  PageOptions Page = {};

  /// What an XY plot shows now: its options, with the lines that it is drawn with.
  XYPlotOptions Shown(int plot) const {
    XYPlotOptions options = XYPlot[plot];
    options.lines = XYLines[plot];
    return options;
  }
};

}  // namespace velorix
