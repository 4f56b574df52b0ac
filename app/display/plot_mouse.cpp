#include "app/display/plot_mouse.h"

#include <algorithm>

#include "app/tables/data_table.h"
#include "plot/drawing/clip.h"
#include "plot/drawing/drawing.h"
#include "tensor/projection.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr StereoGeometry Stereonet;
constexpr Net ScreenNet = {Stereonet.cx, Stereonet.cy, Stereonet.diameter};

/// Numbers of the records in view for which `hit` holds.
template <class Hit>
std::vector<int> RecordsWhere(const Session& session, Hit hit) {
  std::vector<int> ids;
  for (const SpecimenRecord& record : session.Records)
    if (record.Active && record.CoorLevel == session.CoorSys && hit(record))
      ids.push_back(record.RecordNo);
  return ids;
}

/// The yellow dots alone would be lost on white paper.
constexpr Pen BandPens[] = {{.colour = 0x808080}, {.style = Dotted, .colour = Yellow}};

bool IsTested(int axis, int keys) {
  switch (keys) {
    case NoKeys:
      return true;
    case CtrlKey:
      return axis == 1;
    case AltKey:
      return axis == 2;
    case ShiftKey:
      return axis == 3;
    default:
      return false;
  }
}

/// Whether a place lies in the box.
auto InSorted(MouseBox box) {
  SortRectangle(box.x1, box.y1, box.x2, box.y2);
  return [box](const Point& p) { return InBox(p.x, p.y, box.x1, box.y1, box.x2, box.y2); };
}

template <class Holds>
std::optional<std::vector<int>> InStereo(const Session& session, const StereoOptions& options,
                                         int keys, Holds holds) {
  if (!options.showData) return std::nullopt;
  return RecordsWhere(session, [&](const SpecimenRecord& record) {
    for (int axis = 1; axis <= 3; ++axis) {
      if (!options.showAxis[axis] || !IsTested(axis, keys)) continue;
      const Point unit =
          ProjectDirection(Projection::EqualArea, {record.Dec[axis], record.Inc[axis]});
      if (holds(OnNet(ScreenNet, unit.x, unit.y))) return true;
    }
    return false;
  });
}

template <class Holds>
std::vector<int> InXYPlot(const Session& session, const std::optional<DrawnXYPlot>& drawn,
                          Holds holds) {
  return RecordsWhere(session, [&](const SpecimenRecord& record) {
    const auto i = static_cast<std::size_t>(record.RecordNo - 1);
    return drawn && i < drawn->symbols.size() && holds(drawn->symbols[i]);
  });
}

}  // namespace

void Lasso::Add(const Point& point) {
  if (!line_.empty() && line_.back() == point) return;
  if (line_.empty()) least_ = most_ = point;
  line_.push_back(point);
  least_ = {std::min(least_.x, point.x), std::min(least_.y, point.y)};
  most_ = {std::max(most_.x, point.x), std::max(most_.y, point.y)};
}

bool Lasso::IsClick() const {
  if (line_.size() < 3) return true;
  const Point &a = line_[0], &b = line_[1];
  return std::all_of(line_.begin(), line_.end(), [&](const Point& c) {
    return (b.x - a.x) * (c.y - a.y) == (b.y - a.y) * (c.x - a.x);
  });
}

bool Lasso::Holds(const Point& place) const {
  if (!InBox(place.x, place.y, least_.x, least_.y, most_.x, most_.y)) return false;
  bool inside = false;
  for (std::size_t i = 0; i < line_.size(); ++i) {
    const Point &a = line_[i], &b = line_[(i + 1) % line_.size()];
    if ((a.y > place.y) == (b.y > place.y)) continue;
    if (place.x < a.x + (place.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
  }
  return inside;
}

StereoReadOut ReadStereo(double x, double y) {
  const double radius = Stereonet.diameter / 2;
  const Point centre = {Stereonet.cx, Stereonet.cy};
  const Point p = MapPoint({x, y}, centre, {0, 0}, {centre.x + radius, centre.y - radius}, {1, 1});
  const Direction direction = InverseEqualArea(p);
  if (direction.Inc < 0) return {};
  return {"Dec = " + TrimmedNumber(direction.Dec, "0.0"),
          "Inc = " + TrimmedNumber(direction.Inc, "0.0")};
}

std::string ReadXYPlot(const std::optional<DrawnXYPlot>& drawn, double x, double y) {
  if (!drawn) return "";
  const Point p = PlotGeometry().FromTarget({x, y});
  if (!InBox(p.x, p.y, 0, 0, 1, 1)) return "";
  return AxisReadOut(drawn->x, drawn->x.PositionAt(p.x)) + "   " +
         AxisReadOut(drawn->y, drawn->y.PositionAt(p.y));
}

std::optional<std::vector<int>> RecordsInStereo(const Session& session,
                                                const StereoOptions& options, MouseBox box,
                                                int keys) {
  return InStereo(session, options, keys, InSorted(box));
}

std::optional<std::vector<int>> RecordsInStereo(const Session& session,
                                                const StereoOptions& options, const Lasso& lasso,
                                                int keys) {
  return InStereo(session, options, keys, [&](const Point& p) { return lasso.Holds(p); });
}

std::vector<int> RecordsInXYPlot(const Session& session, const std::optional<DrawnXYPlot>& drawn,
                                 MouseBox box) {
  return InXYPlot(session, drawn, InSorted(box));
}

std::vector<int> RecordsInXYPlot(const Session& session, const std::optional<DrawnXYPlot>& drawn,
                                 const Lasso& lasso) {
  return InXYPlot(session, drawn, [&](const Point& p) { return lasso.Holds(p); });
}

std::vector<int> RecordsInHisto(const Session& session, Column column,
                                std::span<const HistoBar> bars, const Lasso& lasso) {
  std::vector<HistoBar> held;
  for (const HistoBar& bar : bars)
    if (lasso.Holds({(bar.foot.x + bar.top.x) / 2, (bar.foot.y + bar.top.y) / 2}))
      held.push_back(bar);
  std::vector<int> ids;
  ForEachActive(session, [&](const SpecimenRecord& record) {
    const double value = NumberOf(DataTableCell(column, record, session.ReImMode));
    if (std::any_of(held.begin(), held.end(),
                    [&](const HistoBar& bar) { return IsInClass(value, bar.lower, bar.upper); }))
      ids.push_back(record.RecordNo);
  });
  return ids;
}

void DrawRubberBand(Target& target, const MouseBox& box) {
  for (const Pen& pen : BandPens) DrawRectangle(target, box.x1, box.y1, box.x2, box.y2, pen, 0);
}

void DrawLasso(Target& target, const Lasso& lasso) {
  std::vector<LogicalPoint> line;
  for (const Point& p : lasso.Line()) line.push_back(ToLogical(target, p.x, p.y));
  for (const Pen& pen : BandPens) DrawPolyline(target, line, pen);
}

void DrawMeasuringCross(Target& target, double x, double y) {
  constexpr double FarRight = 11300, FarDown = 8000;  // past the edges
  const Pen pen = {.colour = 0x80C0FF};
  DrawLine(target, x, y, x, FarDown, pen);
  DrawLine(target, x, y, x, 0, pen);
  DrawLine(target, x, y, 0, y, pen);
  DrawLine(target, x, y, FarRight, y, pen);
}

}  // namespace velorix
