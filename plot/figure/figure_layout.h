#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plot/figure/figure_style.h"
#include "plot/net/net_key.h"
#include "plot/plots/xy_plot.h"

namespace velorix {

/// Where the plots of a page stand, in its units of 1/100 inch.
struct PagePlaces {
  StereoGeometry Net;
  PlotGeometry Histogram;
  Array1<PlotGeometry, 2> XYPlot;
  LegendBox Legend;  // of the groups
};

/// The places of the page: 900 by 800 units.
PagePlaces PlacesOfPage();

/// What a layout must know of the plots that are shown.
struct ShownPlots {
  bool Net = false, Histogram = false;
  Array1<bool, 2> XYPlot;
  StereoOptions Stereo;
  CoordinateSystem CoorSys = CoordinateSystem::None;
  int Plotted = 0;  // records in view
  /// The widths of the widest number at an upright axis and at a colour scale, in heights of
  /// letters; no colour scale without one.
  double HistogramLabels = 0;
  Array1<double, 2> YLabels;
  Array1<std::optional<double>, 2> ScaleLabels;
  bool GroupLegend = false;
  std::string NameLine;  // below all, or nothing
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
