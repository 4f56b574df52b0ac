#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "plot/drawing/target.h"
#include "plot/net/stereo.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "store/session.h"

namespace velorix {

// The mouse on the plots. Places are in the units of the picture's plane.

/// What was drawn on the screen, as the mouse needs it.
struct DrawnPlots {
  Array1<std::optional<DrawnXYPlot>, 2> XYPlot;
  std::vector<HistoBar> Histogram;
};

/// A box by two opposite corners in any order.
struct MouseBox {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

/// The keys that are held down, added together.
enum MouseKeys : int { NoKeys = 0, ShiftKey = 1, CtrlKey = 2, AltKey = 4 };

/// A free line drawn with the mouse, closed by a straight line.
class Lasso {
 public:
  void Add(const Point& point);
  /// A line without area: of fewer than three points, or straight.
  bool IsClick() const;
  /// Whether the closed line goes round a place an odd number of times.
  bool Holds(const Point& place) const;
  const std::vector<Point>& Line() const { return line_; }

 private:
  std::vector<Point> line_;
  Point least_, most_;  // corners of the box round it
};

/// "Dec = " and "Inc = " at a place of the stereonet, both empty outside the primitive circle.
struct StereoReadOut {
  std::string dec, inc;
};
StereoReadOut ReadStereo(double x, double y);

/// Both axes at a place of an XY plot, empty where nothing is drawn or outside the frame.
std::string ReadXYPlot(const std::optional<DrawnXYPlot>& drawn, double x, double y);

/// Numbers of the records in view one of whose directions lies in the box on the stereonet: of the
/// axes that are shown, without a key; with Ctrl, Alt or Shift only Kmax, Kint or Kmin. Nothing
/// while the directions are not shown: then the selection stays.
std::optional<std::vector<int>> RecordsInStereo(const Session& session,
                                                const StereoOptions& options, MouseBox box,
                                                int keys);

/// Numbers of the records in view whose symbol lies in the box on an XY plot.
std::vector<int> RecordsInXYPlot(const Session& session, const std::optional<DrawnXYPlot>& drawn,
                                 MouseBox box);

/// The same for the symbols whose centre lies in a lasso.
std::optional<std::vector<int>> RecordsInStereo(const Session& session,
                                                const StereoOptions& options, const Lasso& lasso,
                                                int keys);
std::vector<int> RecordsInXYPlot(const Session& session, const std::optional<DrawnXYPlot>& drawn,
                                 const Lasso& lasso);
/// Numbers of the records that the histogram of `column` counts in the bars whose centre lies in
/// the lasso.
std::vector<int> RecordsInHisto(const Session& session, Column column,
                                std::span<const HistoBar> bars, const Lasso& lasso);

/// The box and the line that are being drawn with the mouse.
void DrawRubberBand(Target& target, const MouseBox& box);
void DrawLasso(Target& target, const Lasso& lasso);
/// Lines through the mouse across the whole plot.
void DrawMeasuringCross(Target& target, double x, double y);

}  // namespace velorix
