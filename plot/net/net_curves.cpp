#include "plot/net/net_curves.h"

#include <algorithm>
#include <cmath>
#include <optional>
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

/// `x` rounded to a whole number, where that is beyond doubt: it lies within the range of any
/// screen or page, and not so near to a half that the way it was computed decides.
std::optional<std::int32_t> RoundBeyondDoubt(double x, double doubt) {
  constexpr double Shift = 1 << 20;  // makes it positive, so that cutting off rounds down
  const double shifted = x + Shift + 0.5;
  if (!(shifted > 0 && shifted < 2 * Shift)) return std::nullopt;
  const auto whole = static_cast<std::int32_t>(shifted);
  const double rest = shifted - whole;
  if (rest < doubt || rest > 1 - doubt) return std::nullopt;
  return whole - static_cast<std::int32_t>(Shift);
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
  /// Whether the way to `w` doesn't cross the primitive circle.
  bool IsInHemisphere(const Vector<3>& w) const { return Sgn(w[3]) == sign_; }

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
    return ToLogical(target_, p.x, p.y);
  }

  /// The same point straight from the vector, without an arc function. In the equal-area net the
  /// horizontal part h gets the length sqrt(1 - |z| / l), and h h = (l - |z|) (l + |z|), so it is
  /// multiplied by 1 / sqrt(l (l + |z|)). Close to the border between two pixels the way by the
  /// direction decides, since its 32-bit constants do.
  LogicalPoint Place(const Vector<3>& w) const {
    const double h2 = w[1] * w[1] + w[2] * w[2], l2 = h2 + w[3] * w[3], l = std::sqrt(l2);
    if (projection_ != Projection::EqualArea || h2 < 1e-12 * l2) return PlaceByDirection(w);
    const double scale = 0.5 * net_.diameter / std::sqrt(l * (l + std::fabs(w[3])));
    const double side = !showUpper_ && w[3] < 0 ? -scale : scale;
    const auto x = RoundBeyondDoubt(target_.Fineness * (net_.cx + side * w[2]), doubt_);
    const auto y = RoundBeyondDoubt(target_.Fineness * (net_.cy - side * w[1]), doubt_);
    return x && y ? LogicalPoint{*x, *y} : PlaceByDirection(w);
  }

  Target& target_;
  const Net net_;
  const Projection projection_;
  const bool showUpper_;
  const double doubt_ = target_.Fineness * (1e-4 + 1e-6 * net_.diameter);
  Pen pen_;
  std::vector<LogicalPoint> points_;
  int sign_ = 0;
};

/// The sum a A + b B + c C.
Vector<3> Combined(double a, const Vector<3>& A, double b, const Vector<3>& B, double c,
                   const Vector<3>& C) {
  return {a * A[1] + b * B[1] + c * C[1], a * A[2] + b * B[2] + c * C[2],
          a * A[3] + b * B[3] + c * C[3]};
}

Vector<3> ColumnOf(const Matrix<3, 3>& M, int k) { return {M(1, k), M(2, k), M(3, k)}; }

/// The points of an ellipse as vectors, a in whole degrees: cos(a) toward one semi-axis, sin(a)
/// toward the other, cos(rho) along the direction.
class EllipseVectors {
 public:
  EllipseVectors(const ConfidenceEllipse& e, int step) {
    const int i2 = e.axis % 3 + 1, i3 = i2 % 3 + 1;
    const Vector<3> second = ColumnOf(e.vectors, i2), third = ColumnOf(e.vectors, i3);
    const double cosR = std::cos(-e.rotation / DegPerRad), sinR = std::sin(-e.rotation / DegPerRad);
    const double sinE1 = std::sin(e.E1 / DegPerRad), sinE2 = std::sin(e.E2 / DegPerRad);
    along_ = ColumnOf(e.vectors, e.axis);
    first_ = Combined(sinE1 * cosR, third, sinE1 * sinR, second, 0, along_);
    second_ = Combined(-sinE2 * sinR, third, sinE2 * cosR, second, 0, along_);
    E1_ = e.E1, E2_ = e.E2;
    // rho repeats in the four quarters, so a quarter of the roots and cosines is enough; what the
    // table's last digits differ by lies far below a pixel.
    for (int a = 0; a <= 90; a += step) cosRho_[a] = CosRho(a);
  }
  /// A multiple of the step.
  Vector<3> At(int a) const {
    const int half = a <= 180 ? a : 360 - a;
    return With(a, cosRho_[half <= 90 ? half : 180 - half]);
  }
  /// Any degree.
  Vector<3> Between(int a) const { return With(a, CosRho(a)); }

 private:
  double CosRho(int a) const {
    const double c = E1_ * degrees_.cosine[a], s = E2_ * degrees_.sine[a];
    return std::cos(std::sqrt(c * c + s * s) / DegPerRad);
  }
  Vector<3> With(int a, double cosRho) const {
    return Combined(degrees_.cosine[a], first_, degrees_.sine[a], second_, cosRho, along_);
  }

  const Degrees& degrees_ = WholeDegrees();
  Vector<3> first_, second_, along_;
  double E1_ = 0, E2_ = 0;
  Slots<double, 0, 90> cosRho_;
};

/// The largest step in degrees, a part of 90, at which no chord of an ellipse lies deeper within it
/// than a small part of a unit. No length on the net is more than its radius times the angle.
int StepOf(double E1, double E2, const Net& net) {
  constexpr double Depth = 0.2;
  constexpr int Steps[] = {18, 15, 10, 9, 6, 5, 3, 2};
  const double radius = net.diameter / 2 * std::max(std::fabs(E1), std::fabs(E2)) / DegPerRad;
  const double most = radius > Depth ? 2 * DegPerRad * std::acos(1 - Depth / radius) : Steps[0];
  for (const int step : Steps)
    if (step <= most) return step;
  return 1;
}

}  // namespace

void DrawConfidenceEllipse(Target& target, const Net& net, Projection projection, bool showUpper,
                           const ConfidenceEllipse& ellipse, Pen pen, int step) {
  if (ellipse.E1 == 0 || ellipse.E2 == 0) return;
  if (!std::isfinite(ellipse.E1) || !std::isfinite(ellipse.E2) ||
      !std::isfinite(ellipse.rotation) || !IsFinite(ellipse.vectors))
    return;
  if (step == StepBySize) step = StepOf(ellipse.E1, ellipse.E2, net);
  const EllipseVectors vectors(ellipse, step);
  Curve curve(target, net, projection, showUpper, pen);
  Vector<3> former = vectors.At(0);
  curve.Start(former);
  for (int a = 0; a <= 360; a += step) {  // the first point stands twice
    const Vector<3> w = vectors.At(a);
    const int sign = Sgn(former[3]);
    if (step > 1 && Sgn(w[3]) != sign) {
      // The curve goes up to the primitive circle: to the degree before it, from the one behind it.
      int before = a - step, behind = a;
      while (behind - before > 1) {
        const int middle = (before + behind) / 2;
        (Sgn(vectors.Between(middle)[3]) == sign ? before : behind) = middle;
      }
      if (before > a - step) curve.Add(vectors.Between(before));
      if (behind < a) curve.Add(vectors.Between(behind));
    }
    curve.Add(w);
    former = w;
  }
  curve.Finish();
}

void DrawGreatCircle(Target& target, const Net& net, Projection projection, int step,
                     bool showUpper, Direction pole, Pen pen) {
  if (!std::isfinite(pole.Dec) || !std::isfinite(pole.Inc)) return;
  Matrix<3, 3> R;
  Mxmpy(VerticalRotation(pole.Dec), AxisRotation({0, 1, 0}, -pole.Inc), R);
  const Vector<3> along = ColumnOf(R, 1), first = ColumnOf(R, 2), second = ColumnOf(R, 3);
  const auto at = [&](int a) {
    return Combined(WholeDegrees().cosine[a], first, WholeDegrees().sine[a], second, 0, along);
  };
  Curve curve(target, net, projection, showUpper, pen);
  curve.Start(at(0));
  for (int a = 1; a <= 360; a += step) {
    const Vector<3> w = at(a);
    for (int between = std::max(a - step + 1, 1); target.Fineness > 1 && between < a; ++between)
      if (curve.IsInHemisphere(w)) curve.Add(at(between));
    curve.Add(w);
  }
  curve.Finish();
}

void DrawNetPolyline(Target& target, const Net& net, Projection projection,
                     std::span<const Direction> directions, const Pen& pen) {
  std::vector<LogicalPoint> points;
  const auto append = [&](const Direction& d) {
    const Point unit = ProjectDirection(projection, d);
    const Point p = OnNet(net, unit.x, unit.y);
    points.push_back(ToLogical(target, p.x, p.y));
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
