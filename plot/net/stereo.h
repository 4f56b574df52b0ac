#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/rounding.h"
#include "base/slots.h"
#include "plot/axes/columns.h"
#include "plot/axes/plot_style.h"
#include "plot/net/group_marks.h"
#include "plot/net/net.h"
#include "stats/group/group_statistics.h"
#include "store/coordinates.h"
#include "store/record_array.h"

namespace velorix {

/// How values colour the symbols: a ramp from white for each axis, or one ramp for all.
enum class ColourRamp { PerAxis, One };

/// What the controls of the stereonet's property frame decide.
/// The first picture shows the data and their mean with all three axes, legends on.
struct StereoOptions {
  bool showCaptions = true, showLegend = true;
  Array1<bool, 3> showAxis = {true, true, true};  // Kmax, Kint, Kmin
  bool showData = true, showDataLines = false, showDataEllipses = false;
  bool showMean = true, showMeanEllipses = true;
  bool showGroupMeans = false;  // the means of groups, with their ellipses, are drawn
  ErrorLevel level = ErrorLevel::StandardError;  // of the mean's ellipses
  std::string meanOf;  // file, block, system and number of the mean, for the captions
  std::string bootBy;  // the bootstrap in words, for the captions; empty for the default one
  Array1<bool, 3> showGreatCircle;  // perpendicular to Kmax, Kint, Kmin
  bool showBootstrapCloud = false, showBootstrapContours = false;
  bool colourByValue = false;
  ColourRamp colourRamp = ColourRamp::PerAxis;
  Column colourParameter = Column::Number;
  bool showPlanes = false, planesAsCircles = true, planesAsPoles = true, planesAsStrikes = false;
  bool showLines = false;
  std::vector<std::string> foliationCodes, lineationCodes;  // those shown, in list order

  bool operator==(const StereoOptions&) const = default;
};

/// Where the view lies on its target, how large its symbols and letters are and what it looks like.
/// The defaults are those of the screen. `scale` multiplies all lengths; sizes become whole units
/// behind it.
struct StereoGeometry {
  double cx = 180, cy = 190, diameter = 310;
  double symbolSize = 9, fontHeight = 14;
  // From the rim to the bars of the colour scale and to the baseline of its title.
  double scaleGap = 65, scaleTitle = 10;
  double labelGap = 0;  // more room between the rim and its labels
  double scale = 1;
  PlotStyle style = {};

  Net OnTarget() const { return {cx * scale, cy * scale, diameter * scale}; }
  std::int16_t SymbolSize() const { return ToShort(symbolSize * scale); }
  std::int16_t FontHeight() const { return ToShort(fontHeight * scale); }
};

/// Level, method and group in one line: "standard errors of one specimen (Jelinek 1978), a.ams,
/// in-phase, geographic, N = 21".
std::string LevelHeading(const StereoOptions& options);

/// The lines of the captions that name level and method of the mean's ellipses, or of the
/// bootstrap, and the group. None for the standard errors and the default bootstrap.
std::vector<std::string> GroupLines(const StereoOptions& options);

/// The plane that holds all that `DrawStereo` draws with `options` in the screen's geometry.
PlaneSize StereoPlane(const StereoOptions& options);

/// Draws the stereo view of the records that the view shows (`IsShown`) and of their group, layer
/// on layer. What has an angle that is not finite is left out; its record still counts in "N = ".
/// What `stats` didn't reach isn't drawn. The settings name the factors on the colour scale.
/// Groups have their colours, and each axis its shape, or their shapes, and each axis its colour.
/// Where values colour the symbols, a ramp for each axis leaves the shapes to the groups, and one
/// ramp leaves them to the axes.
void DrawStereo(const RecordArray& records, CoordinateSystem coorSys, Target& target,
                const StereoGeometry& geometry, const StereoOptions& options, TensorBlock reImMode,
                const GroupStats& stats = GroupStats(), const Settings& settings = Settings(),
                const GroupMarks& marks = GroupMarks());

/// What the legend of the groups on a net looks like.
LegendLook StereoLegend(const StereoOptions& options, const GroupMarks& marks);

/// Directions with a value each as coloured circles on a net, a colour strip at its left.
/// Directions that are not finite are left out.
struct FieldPoint {
  velorix::Direction Direction;
  float Value = 0;
};
void DrawFieldNet(Target& target, CoordinateSystem coorSys, const StereoGeometry& geometry,
                  std::span<const FieldPoint> points);

}  // namespace velorix
