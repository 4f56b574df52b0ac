#include "plot/net/net.h"
#include "plot/net/net_curves.h"

#include <gtest/gtest.h>

#include <cmath>

#include "store/session.h"
#include "tensor/rotations.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

std::vector<DrawCall> NetOf(CoordinateSystem coorSys, const Net& net) {
  return Recorded([&](Target& t) { DrawNet(t, coorSys, Projection::EqualArea, net, Black, 14); });
}

TEST(DrawNet, NamesTheAxesOfEachCoordinateSystem) {
  const std::pair<CoordinateSystem, const char*> systems[] = {
      {CoordinateSystem::None, "0|90|180|270|"},
      {Specimen, "X|Y|-X|-Y|"},
      {Geographic, "N|90|180|270|"},
      {Paleogeographic, "N|90|180|270|"},
      {Tectonic, "X|Y|-X|-Y|"}};
  for (const auto& [system, names] : systems)
    EXPECT_EQ(WordsOf(NetOf(system, {180, 190, 310})), names);
}

TEST(DrawNetSymbol, StandsWhereTheNetHasTheDirection) {
  const std::tuple<Projection, Direction, LogicalPoint> rows[] = {
      {Projection::EqualArea, {90, 0}, {1000, 500}},
      {Projection::EqualArea, {180, 0}, {500, 1000}},
      {Projection::EqualArea, {0, 90}, {500, 500}},
      {Projection::EqualArea, {0, 45}, {500, 229}},    // 500 * 0.5412 up
      {Projection::EqualAngle, {0, 45}, {500, 293}},   // 500 * 0.4142
      {Projection::EqualArea, {200, 30}, {379, 832}},  // 500 * sqrt(0.5) = 353.55 from the centre
      {Projection::EqualArea, {200, -30}, {379, 832}},
  };
  for (const auto& [projection, direction, at] : rows) {
    Recorder drawn;
    DrawNetSymbol(drawn, {500, 500, 1000}, projection, direction, -1, 9, Red, {});
    EXPECT_EQ(drawn.calls, std::vector<DrawCall>({PixelCall{at, Red}}))
        << static_cast<int>(projection) << " " << direction.Dec << " " << direction.Inc;
  }
}

constexpr Net Screen = {180, 190, 310};
using Lines = std::vector<PolylineCall>;
using Line = std::vector<LogicalPoint>;

template <class Draw>
Lines LinesBy(Draw draw) {
  return CallsOf<PolylineCall>(Recorded(draw));
}

/// Columns: the direction and two at right angles to it.
Matrix<3, 3> FrameAt(Direction d) {
  Matrix<3, 3> R;
  Mxmpy(VerticalRotation(d.Dec), AxisRotation({0, 1, 0}, -d.Inc), R);
  return R;
}

Lines Ellipse(const ConfidenceEllipse& e, bool showUpper = false) {
  return LinesBy([&](Target& t) {
    DrawConfidenceEllipse(t, Screen, Projection::EqualArea, showUpper, e, {});
  });
}

LogicalPoint PlaceOf(Direction d) {
  const Point u = ProjectDirection(Projection::EqualArea, d), p = OnNet(Screen, u.x, u.y);
  return {ToLong(p.x), ToLong(p.y)};
}

Line Joined(const Lines& arcs) {
  Line points;
  for (const PolylineCall& arc : arcs)
    points.insert(points.end(), arc.points.begin(), arc.points.end());
  return points;
}

TEST(ConfidenceEllipse, ClosesWithinTheHemisphereAndBreaksAtTheRim) {
  const Lines closed = Ellipse({1, FrameAt({40, 80}), 8, 5, 0});
  ASSERT_EQ(closed.size(), 1u);
  EXPECT_EQ(closed[0].points.size(), 362u);  // the first point twice, the last closes
  EXPECT_EQ(closed[0].points[0], closed[0].points[1]);
  EXPECT_EQ(closed[0].points.front(), closed[0].points.back());

  const Lines broken = Ellipse({1, FrameAt({40, 2}), 10, 10, 0});
  ASSERT_GE(broken.size(), 3u);
  bool near = false, opposite = false;
  for (LogicalPoint p : Joined(broken)) (p.x > Screen.cx ? near : opposite) = true;
  EXPECT_TRUE(near && opposite);
}

TEST(ConfidenceEllipse, DrawsNothingWithoutASemiAxisOrANumber) {
  for (const auto& [dec, E1, E2] :
       {std::tuple{10.0, 0.0, 5.0}, {10.0, 5.0, 0.0}, {10.0, double{NAN}, 5.0}, {NAN, 5.0, 5.0}})
    EXPECT_TRUE(Ellipse({1, FrameAt({dec, 20}), E1, E2, 0}).empty()) << dec << " " << E1;
}

TEST(ConfidenceEllipse, ShowsTheUpperHemisphereByDashes) {
  const Lines arcs = Ellipse({1, FrameAt({0, 0}), 10, 10, 0}, true);
  ASSERT_GE(arcs.size(), 3u);
  for (const PolylineCall& arc : arcs)
    EXPECT_TRUE(arc.pen.style == Solid || arc.pen.style == Dashed);
  EXPECT_NE(arcs[0].pen.style, arcs[1].pen.style);
  for (LogicalPoint p : Joined(arcs)) EXPECT_LT(p.y, Screen.cy);  // all at the same side
}

// Equal semi-axes make a circle: how far, in units, the middles of its chords lie from it by the
// projection turned back, and how near its arcs come to the primitive circle.
TEST(ConfidenceEllipse, BySizeHasFewPointsOnTheCurveUpToTheRim) {
  constexpr Net Small = {50, 50, 90};
  constexpr double Radius = 45;
  constexpr int Fineness = 100;
  for (const auto& [inc, E] :
       {std::pair{80.0, 4.0}, {80.0, 60.0}, {3.0, 20.0}, {6.0, 20.0}, {9.0, 20.0}}) {
    const Vector<3> pole = DirectionToVector(1, {30, inc});
    Recorder fine(Fineness);
    DrawConfidenceEllipse(fine, Small, Projection::EqualArea, false,
                          {1, FrameAt({30, inc}), E, E, 0}, {}, StepBySize);
    const auto lines = CallsOf<PolylineCall>(fine.calls);
    EXPECT_EQ(lines.size() > 1, inc < E);
    std::size_t points = 0;
    for (const PolylineCall& line : lines) {
      points += line.points.size();
      for (std::size_t i = 1; i < line.points.size(); ++i) {
        const LogicalPoint a = line.points[i - 1], b = line.points[i];
        const double east = ((a.x + b.x) / 2.0 / Fineness - Small.cx) / Radius,
                     north = (Small.cy - (a.y + b.y) / 2.0 / Fineness) / Radius;
        const double down = 1 - east * east - north * north, h = std::sqrt(1 + down);
        const double cosine = pole[1] * north * h + pole[2] * east * h + pole[3] * down;
        const double off = std::fabs(std::acos(std::fabs(cosine)) - E / DegPerRad);
        EXPECT_LT(off * Radius, 0.3) << inc << " " << E;  // lengths shrink to a half at the least
      }
      // The first and the last arc are one; their ends meet where the circle begins.
      if (&line == &lines.front() || &line == &lines.back()) continue;
      for (const LogicalPoint& end : {line.points.front(), line.points.back()}) {
        const double u = 1.0 * end.x / Fineness - Small.cx, v = 1.0 * end.y / Fineness - Small.cy;
        EXPECT_GT(std::hypot(u, v), Radius - 0.3);
      }
    }
    EXPECT_LT(points, 46u) << inc << " " << E;
  }
}

// The projection turned back, by the formula of the equal-area net: how far, in radians, the points
// and the middles of the lines between them lie from the great circle.
TEST(GreatCircle, IsSmoothOnAFineTarget) {
  constexpr int Fineness = 100;
  const Direction pole = {37, 28};
  const Vector<3> p = DirectionToVector(1, pole);
  Recorder fine(Fineness);
  DrawGreatCircle(fine, Screen, Projection::EqualArea, 2, false, pole, {});
  const auto offCircle = [&p](double x, double y) {
    const double east = (x / Fineness - Screen.cx) / (Screen.diameter / 2),
                 north = (Screen.cy - y / Fineness) / (Screen.diameter / 2);
    const double h = std::sqrt(2 - east * east - north * north);
    const double down = 1 - east * east - north * north;
    return std::fabs(p[1] * north * h + p[2] * east * h + p[3] * down);
  };
  int points = 0;
  for (const PolylineCall& arc : CallsOf<PolylineCall>(fine.calls))
    for (std::size_t i = 1; i < arc.points.size(); ++i, ++points) {
      const LogicalPoint a = arc.points[i - 1], b = arc.points[i];
      EXPECT_LT(offCircle(b.x, b.y), 1e-4);
      // 0.01 mm of a radius of 79 mm: a net as wide as a page of two columns.
      EXPECT_LT(offCircle((a.x + b.x) / 2.0, (a.y + b.y) / 2.0), 1.26e-4);
    }
  EXPECT_GT(points, 90);
}

TEST(NetPolyline, EndsOnTheRimAndGoesOnOpposite) {
  const auto lines = [](const std::vector<Direction>& directions) {
    return LinesBy(
        [&](Target& t) { DrawNetPolyline(t, Screen, Projection::EqualArea, directions, {}); });
  };
  EXPECT_EQ(lines({{10, 20}, {30, 40}, {50, 20}}).size(), 1u);
  const Lines arcs = lines({{60, 20}, {60, 5}, {60, -5}, {60, -20}});
  ASSERT_EQ(arcs.size(), 2u);
  EXPECT_EQ(arcs[0].points, (Line{PlaceOf({60, 20}), PlaceOf({60, 5}), PlaceOf({60, 0})}));
  EXPECT_EQ(arcs[1].points, (Line{PlaceOf({240, 0}), PlaceOf({240, 5}), PlaceOf({240, 20})}));
}

}  // namespace
}  // namespace velorix
