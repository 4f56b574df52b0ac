#pragma once

#include <string>
#include <vector>

#include "plot/net/stereo.h"

namespace velorix {

/// Captions and legend of a net in lines below it, where they touch nothing.
class NetKey {
 public:
  /// The lines of a net that shows `plotted` records, each at most `room` heights of letters wide:
  /// sentences go on in the next line, and a code that is wider is shortened.
  NetKey(const StereoOptions& options, CoordinateSystem coorSys, int plotted, double room);

  /// In heights of letters; 0 with captions and legend off.
  double Height() const;
  /// Draws them from (x, y), the upper left corner, times the scale of the geometry.
  void Draw(Target& target, const StereoGeometry& geometry, double x, double y) const;

 private:
  /// A word with the samples in front of it.
  struct Item {
    enum Kind { Words, Axis, Plane, Line };
    Kind kind = Words;
    int number = 0;  // of the axis or the code
    std::string text;
    double width = 0;
  };

  void Put(Item item);

  StereoOptions options_;
  double room_;
  std::vector<std::vector<Item>> lines_;
};

}  // namespace velorix
