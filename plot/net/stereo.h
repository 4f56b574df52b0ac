#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/rounding.h"
#include "base/slots.h"
#include "plot/net/net.h"
#include "stats/group_statistics.h"
#include "store/record_array.h"

namespace velorix {

/// What the controls of the stereonet's property frame decide, each under its control's name.
/// The first picture shows the data and their mean with all three axes, legends on.
struct StereoOptions {
  Slots<bool, 0, 1> chkCaption = {true, true};  // 0 the caption blocks, 1 the legend
  Array1<bool, 3> chkK = {true, true, true};    // Kmax, Kint, Kmin
  bool chkData = true;
  bool chkDataLines = false;
  bool chkDataEllipses = false;
  bool chkMean = true;
  bool chkMeanEllipses = true;
  Array1<bool, 3> chkGC;  // great circles perpendicular to Kmax, Kint, Kmin
  bool chkBootStrap = false;
  bool chkBootstrapEllips = false;
  bool chkStereoColorCoding = false;
  std::int16_t optStereoColorCoding = 0;   // the chosen one: 0 a ramp per axis, 1 one ramp
  std::int16_t odclStereoColorCoding = 0;  // list index of the parameter
  // 0 planes on: 1 great circle, 2 pole, 3 strike sticks; 4 lines on
  Slots<bool, 0, 4> chkFoli = {false, true, true, false, false};
  std::vector<std::string> lstFoli, lstLine;  // the selected codes, in list order

  bool operator==(const StereoOptions&) const = default;
};

/// Where the view lies on its target and how large its symbols and letters are. The defaults are
/// those of the screen. `scale` multiplies all of them; sizes become whole units behind it.
struct StereoGeometry {
  double cx = 180, cy = 190, diameter = 310;
  std::int16_t symbolSize = 9, fontHeight = 14;
  double scale = 1;

  Net OnTarget() const { return {cx * scale, cy * scale, diameter * scale}; }
  std::int16_t SymbolSize() const { return ToShort(symbolSize * scale); }
  std::int16_t FontHeight() const { return ToShort(fontHeight * scale); }
};

/// The plane that holds all that `DrawStereo` draws with `options` in the screen's geometry.
PlaneSize StereoPlane(const StereoOptions& options);

/// Draws the stereo view of the records that the view shows (`IsShown`) and of their group, layer
/// upon layer. What has an angle that is not finite is left out; its record still counts in "N = ".
/// What `stats` didn't reach isn't drawn. The settings name the factors on the colour scale.
void DrawStereo(const RecordArray& records, std::int16_t coorSys, Target& target,
                const StereoGeometry& geometry, const StereoOptions& options, std::int16_t reImMode,
                const GroupStats& stats = GroupStats(), const Settings& settings = Settings());

/// Directions with a value each as coloured circles on a net, a colour strip at its left.
/// Directions that are not finite are left out.
struct FieldPoint {
  velorix::Direction Direction;
  float Value = 0;
};
void DrawFieldNet(Target& target, std::int16_t coorSys, const StereoGeometry& geometry,
                  std::span<const FieldPoint> points);

}  // namespace velorix
