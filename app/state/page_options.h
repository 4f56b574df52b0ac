#pragma once

namespace velorix {

/// Which plots are on the page of `DrawGraphicsPage`.
struct PageOptions {
  bool stereonet = true, histogram = true, xyPlot1 = true, xyPlot2 = true;
};

}  // namespace velorix
