#pragma once

namespace velorix {

/// y = Slope * x + Intercept.
struct StraightLine {
  double Slope = 0, Intercept = 0;

  bool operator==(const StraightLine&) const = default;
};

/// The straight line through (x1, y1) and (x2, y2); "Division by zero" when x1 = x2.
StraightLine LineThrough(double x1, double y1, double x2, double y2);

}  // namespace velorix
