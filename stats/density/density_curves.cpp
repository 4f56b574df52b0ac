#include "stats/density/density_curves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

namespace velorix {
namespace {

using Curve = DensityCurves::Curve;

/// The rim of the net in nodes of the grid.
struct Rim {
  double Radius;  // and both coordinates of the centre

  bool Holds(const Point& p) const { return std::hypot(p.x - Radius, p.y - Radius) <= Radius; }
  /// Clockwise as one looks at the net, from the right; 0 to a turn.
  double AngleOf(const Point& p) const {
    const double angle = std::atan2(p.y - Radius, p.x - Radius);
    return angle < 0 ? angle + 2 * std::numbers::pi : angle;
  }
  Point At(double angle) const {
    return {Radius + Radius * std::cos(angle), Radius + Radius * std::sin(angle)};
  }
  /// Where the line from a point within to one outside crosses it.
  Point Crossing(const Point& within, const Point& outside) const {
    const double dx = outside.x - within.x, dy = outside.y - within.y;
    const double x = within.x - Radius, y = within.y - Radius;
    const double a = dx * dx + dy * dy, b = x * dx + y * dy, c = x * x + y * y - Radius * Radius;
    const double t = a == 0 ? 0 : (std::sqrt(std::max(b * b - a * c, 0.0)) - b) / a;
    return {within.x + t * dx, within.y + t * dy};
  }
};

/// The densities of the nodes within the rim and of those next to it, which lie at the opposite
/// end of an axis within.
class Field {
 public:
  explicit Field(const ContourGrid& grid)
      : rim{grid.Last / 2.0}, grid_(grid), density_(grid.Density) {
    for (int j = grid.First; j <= grid.Last; ++j)
      for (int i = grid.First; i <= grid.Last; ++i)
        if (!IsWithin(i, j) && HasNeighbourWithin(i, j))
          density_[Place(i, j)] = AtOpposite({static_cast<double>(i), static_cast<double>(j)});
  }

  const Rim rim;

  std::size_t Place(int i, int j) const { return static_cast<std::size_t>(grid_.Index(i, j)); }
  float operator()(int i, int j) const { return density_[Place(i, j)]; }
  /// Whether the square from node (i, j) to (i + 1, j + 1) reaches into the net.
  bool HasSquare(int i, int j) const {
    return IsWithin(i, j) || IsWithin(i + 1, j) || IsWithin(i, j + 1) || IsWithin(i + 1, j + 1);
  }
  /// Between the nodes round a point, of those that have a density.
  float At(const Point& p) const {
    return Between(p, [this](int i, int j) { return IsWithin(i, j) || HasNeighbourWithin(i, j); });
  }

 private:
  bool IsWithin(int i, int j) const {
    return i >= grid_.First && i <= grid_.Last && j >= grid_.First && j <= grid_.Last &&
           grid_.Inside[Place(i, j)];
  }
  bool HasNeighbourWithin(int i, int j) const {
    for (int dj = -1; dj <= 1; ++dj)
      for (int di = -1; di <= 1; ++di)
        if (IsWithin(i + di, j + dj)) return true;
    return false;
  }
  /// In the equal-area net the point at r radii and the one opposite have r r + s s = 2.
  float AtOpposite(const Point& p) const {
    const double x = (p.x - rim.Radius) / rim.Radius, y = (p.y - rim.Radius) / rim.Radius;
    const double r2 = x * x + y * y, scale = std::sqrt(std::max(2 - r2, 0.0) / r2) * rim.Radius;
    return Between({rim.Radius - scale * x, rim.Radius - scale * y},
                   [this](int i, int j) { return IsWithin(i, j); });
  }
  template <class Counts>
  float Between(const Point& p, Counts counts) const {
    const int i = static_cast<int>(std::floor(p.x)), j = static_cast<int>(std::floor(p.y));
    double sum = 0, weights = 0;
    for (const auto& [di, dj] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
      if (i + di < grid_.First || i + di > grid_.Last || j + dj < grid_.First ||
          j + dj > grid_.Last || !counts(i + di, j + dj))
        continue;
      // A node far off counts a little, for want of a nearer one.
      const double weight =
          (1 - std::fabs(p.x - (i + di))) * (1 - std::fabs(p.y - (j + dj))) + 1e-9;
      sum += weight * density_[Place(i + di, j + dj)];
      weights += weight;
    }
    return weights > 0 ? static_cast<float>(sum / weights) : 0;
  }

  const ContourGrid& grid_;
  std::vector<float> density_;
};

/// The line of a level, piece by piece: each crosses a square from side to side with the greater
/// densities at its right. A side has the number of its first node, doubled, and 1 more when it
/// leads down.
class LevelLine {
 public:
  LevelLine(const ContourGrid& grid, const Field& field, double level)
      : grid_(grid), field_(field), level_(level) {
    next_.assign(2 * grid.Inside.size(), None);
    isReached_.assign(next_.size(), false);
    for (int j = grid.First; j < grid.Last; ++j)
      for (int i = grid.First; i < grid.Last; ++i)
        if (field.HasSquare(i, j)) CrossSquare(i, j);
  }

  /// Calls `take(points, isClosed)` for each line; a closed one ends with its first point.
  template <class Take>
  void ForEach(Take take) {
    for (const bool closed : {false, true})
      for (std::size_t start = 0; start < next_.size(); ++start) {
        if (next_[start] == None || (!closed && isReached_[start])) continue;
        Curve points = {PointOn(start)};
        for (std::size_t at = start; next_[at] != None;) {
          at = static_cast<std::size_t>(std::exchange(next_[at], None));
          points.push_back(PointOn(at));
        }
        take(points, closed);
      }
  }

 private:
  static constexpr std::int32_t None = -1;

  bool IsAbove(float density) const { return density >= level_; }

  void CrossSquare(int i, int j) {
    const std::array<float, 4> f = {field_(i, j), field_(i + 1, j), field_(i + 1, j + 1),
                                    field_(i, j + 1)};
    const std::array<std::size_t, 4> sides = {
        2 * field_.Place(i, j), 2 * field_.Place(i + 1, j) + 1, 2 * field_.Place(i, j + 1),
        2 * field_.Place(i, j) + 1};
    // Clockwise round the square: where the densities come to the level and where they leave it.
    int enters = 0, leaves = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      enters += !IsAbove(f[k]) && IsAbove(f[(k + 1) % 4]);
      leaves += IsAbove(f[k]) && !IsAbove(f[(k + 1) % 4]);
    }
    if (leaves == 0) return;
    // With two lines the middle of the surface says whether the high corners are one area.
    const double bend = double{f[0]} + f[2] - f[1] - f[3];
    const bool joined = enters == 2 && (double{f[0]} * f[2] - double{f[1]} * f[3]) / bend >= level_;
    for (std::size_t k = 0; k < 4; ++k) {
      if (!IsAbove(f[k]) || IsAbove(f[(k + 1) % 4])) continue;
      // Forward round the low corner, or back round the high one.
      for (std::size_t step = 1; step < 4; ++step) {
        const std::size_t to = joined ? (k + step) % 4 : (k + 4 - step) % 4;
        if (IsAbove(f[to]) || !IsAbove(f[(to + 1) % 4])) continue;
        next_[sides[k]] = static_cast<std::int32_t>(sides[to]);
        isReached_[sides[to]] = true;
        break;
      }
    }
  }

  Point PointOn(std::size_t side) const {
    const int node = static_cast<int>(side / 2), width = grid_.Side();
    const int i = grid_.First + node % width, j = grid_.First + node / width;
    const bool down = side % 2 == 1;
    const double a = field_(i, j), b = down ? field_(i, j + 1) : field_(i + 1, j);
    const double share = (level_ - a) / (b - a);
    return {i + (down ? 0 : share), j + (down ? share : 0)};
  }

  const ContourGrid& grid_;
  const Field& field_;
  const double level_;
  std::vector<std::int32_t> next_;
  std::vector<bool> isReached_;
};

/// The parts of a line within the rim. A closed line that never leaves it stays whole.
std::vector<Curve> PartsWithin(const Rim& rim, const Curve& line, bool closed) {
  std::vector<Curve> parts;
  Curve part;
  const bool startsWithin = rim.Holds(line.front());
  if (startsWithin) part.push_back(line.front());
  for (std::size_t i = 1; i < line.size(); ++i) {
    const Point &a = line[i - 1], &b = line[i];
    const bool from = rim.Holds(a), to = rim.Holds(b);
    if (from && !to) {
      part.push_back(rim.Crossing(a, b));
      parts.push_back(std::exchange(part, {}));
    } else if (!from && to) {
      part = {rim.Crossing(b, a)};
    }
    if (to) part.push_back(b);
  }
  if (part.empty()) return parts;
  if (closed && startsWithin && !parts.empty()) {  // the last part goes on in the first
    part.insert(part.end(), parts.front().begin() + 1, parts.front().end());
    parts.front() = std::move(part);
  } else {
    parts.push_back(std::move(part));
  }
  return parts;
}

void AppendArc(Curve& curve, const Rim& rim, double from, double to) {
  constexpr double Step = std::numbers::pi / 360;
  for (double angle = from + Step; angle < to; angle += Step) curve.push_back(rim.At(angle));
}

/// The borders made of parts from rim to rim: behind the end of each the border goes clockwise
/// along the rim to where the next one starts.
std::vector<Curve> JoinedAlongRim(const Rim& rim, const std::vector<Curve>& parts) {
  constexpr double Turn = 2 * std::numbers::pi;
  std::vector<Curve> borders;
  std::vector<bool> isUsed(parts.size());
  for (std::size_t first = 0; first < parts.size(); ++first) {
    if (isUsed[first]) continue;
    Curve border;
    for (std::size_t at = first; !isUsed[at];) {
      isUsed[at] = true;
      border.insert(border.end(), parts[at].begin(), parts[at].end());
      const double end = rim.AngleOf(parts[at].back());
      double nearest = Turn + 1;
      std::size_t next = first;
      for (std::size_t i = 0; i < parts.size(); ++i) {
        double ahead = rim.AngleOf(parts[i].front()) - end;
        if (ahead < 0) ahead += Turn;
        if (ahead < nearest) nearest = ahead, next = i;
      }
      AppendArc(border, rim, end, end + nearest);
      at = next;
    }
    border.push_back(border.front());
    borders.push_back(std::move(border));
  }
  return borders;
}

DensityCurves CurvesAt(const ContourGrid& grid, const Field& field, double level) {
  DensityCurves curves;
  std::vector<Curve> fromRimToRim;
  LevelLine(grid, field, level).ForEach([&](const Curve& line, bool closed) {
    for (Curve& part : PartsWithin(field.rim, line, closed)) {
      const bool isWhole =
          closed && part.front().x == part.back().x && part.front().y == part.back().y;
      (isWhole ? curves.Borders : fromRimToRim).push_back(part);
      curves.Lines.push_back(std::move(part));
    }
  });
  if (!fromRimToRim.empty()) {
    for (Curve& border : JoinedAlongRim(field.rim, fromRimToRim))
      curves.Borders.push_back(std::move(border));
  } else if (field.At(field.rim.At(0)) >= level) {
    Curve circle = {field.rim.At(0)};
    AppendArc(circle, field.rim, 0, 2 * std::numbers::pi);
    circle.push_back(circle.front());
    curves.Borders.push_back(std::move(circle));
  }
  return curves;
}

}  // namespace

std::vector<DensityCurves> CurvesOf(const ContourGrid& grid, std::span<const double> levels) {
  std::vector<DensityCurves> curves;
  const Field field(grid);
  for (const double level : levels) curves.push_back(CurvesAt(grid, field, level));
  return curves;
}

}  // namespace velorix
