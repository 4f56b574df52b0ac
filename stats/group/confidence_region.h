#pragma once

#include "stats/group/tensor_statistics.h"

namespace velorix {

/// a + factor b.
Vector<3> Sum(const Vector<3>& a, double factor, const Vector<3>& b);

/// The 95 % region of a mean axis (V. Jelinek, 1978, Studia Geophysica et Geodaetica 22, 50-62): an
/// ellipse on the plane that touches the sphere at the axis.
class ConfidenceRegion {
 public:
  ConfidenceRegion() = default;
  /// Round the mean axis `k`, 1 to 3, of statistics that have its 95 % angles.
  ConfidenceRegion(const TensorStats& stats, int k);

  /// Whether an axis, a vector of any length and sign, lies inside.
  bool Holds(const Vector<3>& axis) const;
  /// Whether the centre or one of 360 points of the boundary lies inside another region.
  bool Reaches(const ConfidenceRegion& other) const;

 private:
  Vector<3> centre_, major_, minor_;
  double a_ = 0, b_ = 0;  // tangents of the half-angles
};

}  // namespace velorix
