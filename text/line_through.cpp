#include "text/line_through.h"

#include "base/fault.h"

namespace velorix {

StraightLine LineThrough(double x1, double y1, double x2, double y2) {
  if (x1 == x2) FailDivision();
  const double slope = (y2 - y1) / (x2 - x1);
  return {slope, y1 - slope * x1};
}

}  // namespace velorix
