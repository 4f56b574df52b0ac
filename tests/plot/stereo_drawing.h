#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "plot/stereo.h"
#include "store/session.h"
#include "tests/plot/calls.h"

namespace velorix {

/// Kmax north and level, Kint east and level, Kmin vertical; shown in geographic coordinates.
inline SpecimenRecord Upright() {
  SpecimenRecord r;
  r.Active = true;
  r.CoorLevel = Geographic;
  const double dec[] = {0, 90, 0}, inc[] = {0, 0, 90};
  for (int k = 1; k <= 3; ++k) {
    r.Dec[k] = dec[k - 1];
    r.Inc[k] = inc[k - 1];
    r.Vec[k][k] = r.VecIm[k][k] = 1.0;
  }
  r.FoliName[1] = "S0";
  r.FoliDec[1] = 120.0;
  r.FoliInc[1] = 30.0;
  r.LineName[2] = "L1";
  r.LineDec[2] = 90.0;
  r.LineInc[2] = 0.0;
  return r;
}

/// `count` records of this kind, the one numbered `selected` selected.
inline RecordArray Uprights(int count, int selected = 0) {
  RecordArray records;
  for (int i = 1; i <= count; ++i) {
    records.Add(Upright());
    records[i].Selected = i == selected;
  }
  return records;
}

/// No layer but the net.
inline StereoOptions NetOnly() {
  StereoOptions options;
  options.chkCaption = {};
  options.chkData = options.chkMean = options.chkMeanEllipses = false;
  options.lstFoli = {"S0"};
  options.lstLine = {"L1"};
  return options;
}

inline std::vector<DrawCall> Drawn(const RecordArray& records, const StereoOptions& options,
                                   std::int16_t coorSys = Geographic, std::int16_t block = InPhase,
                                   const GroupStats& stats = GroupStats(),
                                   const StereoGeometry& geometry = {}) {
  Recorder recorder;
  DrawStereo(records, coorSys, recorder, geometry, options, block, stats);
  return recorder.calls;
}

/// What the layers above the net drew.
inline std::vector<DrawCall> OverTheNet(const RecordArray& records, const StereoOptions& options,
                                        const GroupStats& stats = GroupStats(),
                                        std::int16_t coorSys = Geographic,
                                        std::int16_t block = InPhase) {
  const auto net = Drawn({}, NetOnly(), coorSys, block);
  const auto all = Drawn(records, options, coorSys, block, stats);
  EXPECT_TRUE(all.size() >= net.size() && std::equal(net.begin(), net.end(), all.begin()));
  return {all.begin() + static_cast<std::ptrdiff_t>(net.size()), all.end()};
}

}  // namespace velorix
