#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plot/axes/plot_axis.h"
#include "plot/figure/figure_style.h"
#include "plot/figure/plot_kind.h"
#include "plot/net/group_marks.h"
#include "plot/net/net_key.h"

namespace velorix {

/// Where the plots of a page stand, in its units of 1/100 inch.
struct PagePlaces {
  StereoGeometry Net;
  PerPlot<PlotGeometry> Frame;  // of the others
  LegendBox Legend;             // of the groups
};

/// The width of the widest number at a plot's upright axis and at its colour scale, in heights of
/// letters; no colour scale without one.
struct LabelWidths {
  double YAxis = 0;
  std::optional<double> Scale;
};

/// What a layout must know of the plots that are shown.
struct ShownPlots {
  PerPlot<bool> Shown;
  StereoOptions Stereo;
  CoordinateSystem CoorSys = CoordinateSystem::None;
  int Plotted = 0;  // records in view
  PerPlot<LabelWidths> Labels;
  bool GroupLegend = false;
  std::vector<std::string> Sentences;  // below all
};

/// The height of letters where a style leaves it to the page.
inline constexpr double LettersAsNow = 12;

/// The step from line to line of the name, in heights of letters.
inline constexpr double NameStep = 1.3;

/// A figure that its plots fill.
struct FigurePlaces : PagePlaces {
  double Width = 0, Height = 0;  // units of the page
  double LetterHeight = 0;
  std::vector<Point> PanelLetters;  // baselines of "(a)", "(b)" ...
  std::optional<NetKey> Key;
  Point KeyAt;  // its upper left corner
  std::vector<std::string> NameLines;
  Point NameAt;  // their upper left corner
};

/// The places of plots in columns, row by row, each as large as its column is wide.
FigurePlaces FillFigure(const FigureStyle& style, const ShownPlots& plots);

}  // namespace velorix
