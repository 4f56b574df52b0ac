#include "plot/net_curves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tensor/rotations.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

constexpr Net Screen = {180, 190, 310};
using Line = std::vector<LogicalPoint>;

std::vector<PolylineCall> LinesOf(const Recorder& recorder) {
  return CallsOf<PolylineCall>(recorder.calls);
}

/// Columns: the direction and two at right angles to it.
Matrix<3, 3> FrameAt(Direction d) {
  Matrix<3, 3> R;
  Mxmpy(VerticalRotation(d.Dec), AxisRotation({0, 1, 0}, -d.Inc), R);
  return R;
}

std::vector<PolylineCall> EllipseAt(Direction d, double E1, double E2, bool showUpper = false) {
  Recorder recorder;
  DrawConfidenceEllipse(recorder, Screen, EqualArea, showUpper, {1, FrameAt(d), E1, E2, 0}, {});
  return LinesOf(recorder);
}

LogicalPoint PlaceOf(Direction d) {
  const Point u = ProjectDirection(EqualArea, d), p = OnNet(Screen, u.x, u.y);
  return ToLogical(p.x, p.y);
}

double RadiusOf(LogicalPoint p) { return std::hypot(p.x - Screen.cx, p.y - Screen.cy); }

/// The ellipse's points with all the trigonometry at every point.
Line PlainEllipse(const ConfidenceEllipse& e) {
  const auto rad = [](double degrees) { return degrees / DegPerRad; };
  const int i2 = e.axis % 3 + 1, i3 = i2 % 3 + 1;
  Line line;
  for (int i = -1; i <= 360; ++i) {
    const double a = rad(std::max(i, 0)), r = rad(-e.rotation);
    const double rho = std::sqrt(e.E1 * e.E1 * std::cos(a) * std::cos(a) +
                                 e.E2 * e.E2 * std::sin(a) * std::sin(a));
    Vector<3> v, w;
    v[e.axis] = std::cos(rad(rho));
    v[i3] = std::sin(rad(e.E1)) * std::cos(a) * std::cos(r) -
            std::sin(a) * std::sin(rad(e.E2)) * std::sin(r);
    v[i2] = std::sin(rad(e.E1)) * std::cos(a) * std::sin(r) +
            std::sin(a) * std::sin(rad(e.E2)) * std::cos(r);
    Mvmpy(e.vectors, v, w);
    const DirectionAndLength d = VectorToDirection(w);
    line.push_back(PlaceOf(LowerHemisphere({d.Dec, d.Inc})));
  }
  return line;
}

TEST(ConfidenceEllipse, IsPointForPointThatOfThePlainFormula) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> uniform(0, 1);
  for (int round = 0; round < 2000; ++round) {
    const ConfidenceEllipse e = {
        1 + round % 3, FrameAt({360 * uniform(random), 180 * uniform(random) - 90}),
        0.1 + 60 * uniform(random), 0.1 + 30 * uniform(random), 360 * uniform(random) - 180};
    Recorder recorder;
    DrawConfidenceEllipse(recorder, Screen, EqualArea, false, e, {});
    Line drawn;
    for (const PolylineCall& call : LinesOf(recorder))
      drawn.insert(drawn.end(), call.points.begin(), call.points.end());
    const Line plain = PlainEllipse(e);
    // An arc of a single point isn't drawn; all others are, in order.
    if (drawn.size() == plain.size())
      ASSERT_EQ(drawn, plain) << round;
    else
      ASSERT_GE(drawn.size() + 4, plain.size()) << round;
  }
}

TEST(ConfidenceEllipse, ClosesWithinTheHemisphereAndBreaksAtTheRim) {
  const auto closed = EllipseAt({40, 80}, 8, 5);
  ASSERT_EQ(closed.size(), 1u);
  EXPECT_EQ(closed[0].points.size(), 362u);  // the first point twice, the last closes
  EXPECT_EQ(closed[0].points[0], closed[0].points[1]);
  EXPECT_EQ(closed[0].points.front(), closed[0].points.back());

  const auto broken = EllipseAt({40, 2}, 10, 10);
  ASSERT_GE(broken.size(), 3u);
  bool near = false, opposite = false;
  for (const PolylineCall& arc : broken)
    for (LogicalPoint p : arc.points) (p.x > Screen.cx ? near : opposite) = true;
  EXPECT_TRUE(near && opposite);
}

TEST(ConfidenceEllipse, DrawsNothingWithoutASemiAxisOrANumber) {
  EXPECT_TRUE(EllipseAt({10, 20}, 0, 5).empty());
  EXPECT_TRUE(EllipseAt({10, 20}, 5, 0).empty());
  EXPECT_TRUE(EllipseAt({10, 20}, std::nan(""), 5).empty());
  EXPECT_TRUE(EllipseAt({std::nan(""), 20}, 5, 5).empty());
}

TEST(ConfidenceEllipse, ShowsTheUpperHemisphereByDashes) {
  const auto arcs = EllipseAt({0, 0}, 10, 10, true);
  ASSERT_GE(arcs.size(), 3u);
  for (const PolylineCall& arc : arcs) {
    EXPECT_TRUE(arc.pen.style == Solid || arc.pen.style == Dashed);
    for (LogicalPoint p : arc.points) EXPECT_LT(p.y, Screen.cy);  // all at the same side
  }
  EXPECT_NE(arcs[0].pen.style, arcs[1].pen.style);
}

TEST(GreatCircle, RunsFromRimToRimAndEndsAtThreeHundredFiftyNine) {
  Recorder recorder;
  DrawGreatCircle(recorder, Screen, EqualArea, 2, false, {90, 30}, {});
  std::size_t points = 0;
  for (const PolylineCall& arc : LinesOf(recorder)) {
    points += arc.points.size();
    for (LogicalPoint p : arc.points) {
      const Direction d = InverseEqualArea({(p.x - Screen.cx) / 155, (Screen.cy - p.y) / 155});
      const double angle = Vvmpy(DirectionToVector(1, d), DirectionToVector(1, {90, 30}));
      EXPECT_NEAR(angle, 0, 0.03);  // a pixel
    }
  }
  EXPECT_NEAR(static_cast<double>(points), 181, 2);  // 0, 1, 3, ... 359; single points are lost
}

TEST(GreatCircle, OfAVerticalPoleLiesOnThePrimitiveCircle) {
  Recorder recorder;
  DrawGreatCircle(recorder, Screen, EqualArea, 1, false, {0, 90}, {});
  for (const PolylineCall& arc : LinesOf(recorder))
    for (LogicalPoint p : arc.points) EXPECT_NEAR(RadiusOf(p), 155, 1);
}

TEST(NetPolyline, EndsOnTheRimAndGoesOnOpposite) {
  Recorder whole, crossing;
  const Direction inside[] = {{10, 20}, {30, 40}, {50, 20}};
  DrawNetPolyline(whole, Screen, EqualArea, inside, {});
  EXPECT_EQ(LinesOf(whole).size(), 1u);

  const Direction over[] = {{60, 20}, {60, 5}, {60, -5}, {60, -20}};
  DrawNetPolyline(crossing, Screen, EqualArea, over, {});
  const auto arcs = LinesOf(crossing);
  ASSERT_EQ(arcs.size(), 2u);
  EXPECT_EQ(arcs[0].points, (Line{PlaceOf({60, 20}), PlaceOf({60, 5}), PlaceOf({60, 0})}));
  EXPECT_EQ(arcs[1].points, (Line{PlaceOf({240, 0}), PlaceOf({240, 5}), PlaceOf({240, 20})}));
}

}  // namespace
}  // namespace velorix
