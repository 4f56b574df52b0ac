#include "plot/net_curves.h"

#include <cmath>
#include <vector>

#include "base/rounding.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

bool IsFinite(const Matrix<3, 3>& M) {
  for (double x : M.v)
    if (!std::isfinite(x)) return false;
  return true;
}

int Sgn(double x) { return (x > 0) - (x < 0); }

/// Cosines and sines of 0 to 360 whole degrees.
struct Degrees {
  Slots<double, 0, 360> cosine, sine;
  Degrees() {
    for (int a = 0; a <= 360; ++a) {
      cosine[a] = std::cos(a / DegPerRad);
      sine[a] = std::sin(a / DegPerRad);
    }
  }
};
const Degrees& WholeDegrees() {
  static const Degrees table;
  return table;
}

/// Collects the points of a curve that is given by vectors, and draws them arc by arc.
class Curve {
 public:
  Curve(Target& target, const Net& net, Projection projection, bool showUpper, Pen pen)
      : target_(target), net_(net), projection_(projection), showUpper_(showUpper), pen_(pen) {
    points_.reserve(362);
  }

  void Start(const Vector<3>& w) {
    points_.assign(1, Place(w));
    sign_ = Sgn(w[3]);
  }
  void Add(const Vector<3>& w) {
    const LogicalPoint point = Place(w);
    const int sign = Sgn(w[3]);
    if (sign != sign_) Break(w);
    points_.push_back(point);
    sign_ = sign;
  }
  void Finish() { DrawPolyline(target_, points_, pen_); }

 private:
  /// The curve has crossed the primitive circle on its way to `w`.
  void Break(const Vector<3>& w) {
    if (showUpper_) pen_.style = w[3] > 0 ? Dashed : Solid;
    Finish();
    if (showUpper_) pen_.style = pen_.style == Solid ? Dashed : Solid;
    points_.clear();
  }

  /// The point of a vector by way of its direction, as every symbol is placed.
  LogicalPoint PlaceByDirection(const Vector<3>& w) const {
    const DirectionAndLength d = VectorToDirection(w);
    Direction direction = {d.Dec, d.Inc};
    if (!showUpper_) direction = LowerHemisphere(direction);
    const Point unit = ProjectDirection(projection_, direction);
    const Point p = OnNet(net_, unit.x, unit.y);
    return ToLogical(p.x, p.y);
  }

  /// The same point straight from the vector, without an arc function: in the equal-area net the
  /// horizontal part has the length sqrt(1 - |z|). Close to the border between two pixels the way
  /// by the direction decides, since its 32-bit constants do.
  LogicalPoint Place(const Vector<3>& w) const {
    const double h2 = w[1] * w[1] + w[2] * w[2], length = std::sqrt(h2 + w[3] * w[3]);
    if (projection_ != EqualArea || h2 < 1e-12 * length * length) return PlaceByDirection(w);
    const double r = std::sqrt(1 - std::fabs(w[3]) / length) / std::sqrt(h2);
    const double scale = 0.5 * net_.diameter * (!showUpper_ && w[3] < 0 ? -r : r);
    const double x = net_.cx + scale * w[2], y = net_.cy - scale * w[1];
    if (IsAmbiguous(x) || IsAmbiguous(y)) return PlaceByDirection(w);
    return ToLogical(x, y);
  }
  bool IsAmbiguous(double x) const {
    return std::fabs(x - std::floor(x) - 0.5) < 1e-4 + 1e-6 * net_.diameter;
  }

  Target& target_;
  const Net net_;
  const Projection projection_;
  const bool showUpper_;
  Pen pen_;
  std::vector<LogicalPoint> points_;
  int sign_ = 0;
};

/// The points of an ellipse as vectors, a in whole degrees.
class EllipseVectors {
 public:
  explicit EllipseVectors(const ConfidenceEllipse& e)
      : e_(e),
        sinE1_(std::sin(e.E1 / DegPerRad)),
        sinE2_(std::sin(e.E2 / DegPerRad)),
        cosR_(std::cos(-e.rotation / DegPerRad)),
        sinR_(std::sin(-e.rotation / DegPerRad)) {
    // rho repeats in the four quarters, so a quarter of the roots and cosines is enough; what the
    // table's last digits differ by lies far below a pixel.
    for (int a = 0; a <= 90; ++a) {
      const double c = WholeDegrees().cosine[a], s = WholeDegrees().sine[a];
      const double rho = std::sqrt(e.E1 * e.E1 * c * c + e.E2 * e.E2 * s * s);
      cosRho_[a] = std::cos(rho / DegPerRad);
    }
  }
  Vector<3> At(int a) const {
    const int i2 = e_.axis % 3 + 1, i3 = i2 % 3 + 1;
    const double c = sinE1_ * WholeDegrees().cosine[a], s = sinE2_ * WholeDegrees().sine[a];
    Vector<3> v, w;
    const int half = a <= 180 ? a : 360 - a;
    v[e_.axis] = cosRho_[half <= 90 ? half : 180 - half];
    v[i3] = c * cosR_ - s * sinR_;
    v[i2] = c * sinR_ + s * cosR_;
    Mvmpy(e_.vectors, v, w);
    return w;
  }

 private:
  const ConfidenceEllipse& e_;
  double sinE1_, sinE2_, cosR_, sinR_;
  Slots<double, 0, 90> cosRho_;
};

}  // namespace

void DrawConfidenceEllipse(Target& target, const Net& net, Projection projection, bool showUpper,
                           const ConfidenceEllipse& ellipse, Pen pen) {
  if (ellipse.E1 == 0 || ellipse.E2 == 0) return;
  if (!std::isfinite(ellipse.E1) || !std::isfinite(ellipse.E2) ||
      !std::isfinite(ellipse.rotation) || !IsFinite(ellipse.vectors))
    return;
  const EllipseVectors vectors(ellipse);
  Curve curve(target, net, projection, showUpper, pen);
  curve.Start(vectors.At(0));
  for (int a = 0; a <= 360; ++a) curve.Add(vectors.At(a));  // the first point stands twice
  curve.Finish();
}

void DrawGreatCircle(Target& target, const Net& net, Projection projection, int step,
                     bool showUpper, Direction pole, Pen pen) {
  if (!std::isfinite(pole.Dec) || !std::isfinite(pole.Inc)) return;
  Matrix<3, 3> R;
  Mxmpy(VerticalRotation(pole.Dec), AxisRotation({0, 1, 0}, -pole.Inc), R);
  const auto at = [&R](int a) {
    Vector<3> w;
    Mvmpy(R, Vector<3>{0, WholeDegrees().cosine[a], WholeDegrees().sine[a]}, w);
    return w;
  };
  Curve curve(target, net, projection, showUpper, pen);
  curve.Start(at(0));
  for (int a = 1; a <= 360; a += step) curve.Add(at(a));
  curve.Finish();
}

void DrawNetPolyline(Target& target, const Net& net, Projection projection,
                     std::span<const Direction> directions, const Pen& pen) {
  std::vector<LogicalPoint> points;
  const auto append = [&](const Direction& d) {
    const Point unit = ProjectDirection(projection, d);
    const Point p = OnNet(net, unit.x, unit.y);
    points.push_back(ToLogical(p.x, p.y));
  };
  for (const Direction& d : directions)
    if (!std::isfinite(d.Dec) || !std::isfinite(d.Inc)) return;
  if (directions.empty()) return;
  const Direction* previous = &directions.front();
  for (const Direction& d : directions) {
    if (Sgn(d.Inc) != Sgn(previous->Inc)) {
      Direction rim = {previous->Inc < 0 ? previous->Dec + 180 : previous->Dec, 0};
      append(rim);
      DrawPolyline(target, points, pen);
      points.clear();
      rim.Dec += 180;
      append(rim);
    }
    append(d.Inc < 0 ? Direction{d.Dec + 180, -d.Inc} : d);
    previous = &d;
  }
  DrawPolyline(target, points, pen);
}

}  // namespace velorix
