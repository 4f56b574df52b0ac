#include "plot/drawing/clip.h"

#include <algorithm>
#include <cmath>

namespace velorix {

bool Between(double value, double a, double b, bool open) {
  const double lower = std::min(a, b), upper = std::max(a, b);
  return open ? lower < value && value < upper : lower <= value && value <= upper;
}

bool InBox(double x, double y, double x1, double y1, double x2, double y2) {
  return Between(x, x1, x2) && Between(y, y1, y2);
}

double PointDistance(const Point& a, const Point& b) { return std::hypot(b.x - a.x, b.y - a.y); }

std::optional<Point> SegmentsIntersect(const Point& a, const Point& b, const Point& c,
                                       const Point& d) {
  const double ux = b.x - a.x, uy = b.y - a.y, vx = d.x - c.x, vy = d.y - c.y;
  const double area = ux * vy - uy * vx;
  if (area == 0) return std::nullopt;
  const double wx = c.x - a.x, wy = c.y - a.y;
  const double onFirst = (wx * vy - wy * vx) / area, onSecond = (wx * uy - wy * ux) / area;
  if (!Between(onFirst, 0, 1) || !Between(onSecond, 0, 1)) return std::nullopt;
  // Measured along the second segment, so that a cut of a far line lies on the box's side.
  return Point{c.x + onSecond * vx, c.y + onSecond * vy};
}

std::vector<std::vector<Point>> ClipPolylineToBox(std::span<const Point> points,
                                                  const Point& corner, const Point& opposite) {
  const Point corners[] = {
      corner, {opposite.x, corner.y}, opposite, {corner.x, opposite.y}, corner};
  const auto inside = [&](const Point& p) {
    return InBox(p.x, p.y, corner.x, corner.y, opposite.x, opposite.y);
  };
  const auto finite = [](const Point& p) { return std::isfinite(p.x) && std::isfinite(p.y); };

  std::vector<std::vector<Point>> runs;
  bool joined = false;  // the next piece goes on where the last run ended
  std::vector<Point> piece;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point &a = points[i - 1], &b = points[i];
    piece.clear();
    if (finite(a) && finite(b)) {
      if (inside(a)) piece.push_back(a);
      for (int side = 0; side < 4 && !(inside(a) && inside(b)); ++side)
        if (const auto cut = SegmentsIntersect(a, b, corners[side], corners[side + 1]))
          piece.push_back(*cut);
      if (inside(b)) piece.push_back(b);
      std::stable_sort(piece.begin(), piece.end(), [&](const Point& p, const Point& q) {
        return PointDistance(a, p) < PointDistance(a, q);
      });
    }
    // The box is convex: what lies in it of one segment reaches from the first to the last point.
    if (piece.size() < 2 || PointDistance(piece.front(), piece.back()) == 0) {
      joined = joined && !piece.empty() && inside(b);
      continue;
    }
    if (!joined) runs.push_back({piece.front()});
    runs.back().push_back(piece.back());
    joined = inside(b);
  }
  return runs;
}

}  // namespace velorix
