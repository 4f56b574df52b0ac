#include "app/display/plot_mouse.h"

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

}  // namespace

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
  return AxisReadOut(drawn->x, drawn->x.ValueAt(p.x)) + "   " +
         AxisReadOut(drawn->y, drawn->y.ValueAt(p.y));
}

std::optional<std::vector<int>> RecordsInStereo(const Session& session,
                                                const StereoOptions& options, MouseBox box,
                                                int keys) {
  if (!options.showData) return std::nullopt;
  SortRectangle(box.x1, box.y1, box.x2, box.y2);
  return RecordsWhere(session, [&](const SpecimenRecord& record) {
    for (int axis = 1; axis <= 3; ++axis) {
      if (!options.showAxis[axis] || !IsTested(axis, keys)) continue;
      const Point unit = ProjectDirection(EqualArea, {record.Dec[axis], record.Inc[axis]});
      const Point p = OnNet(ScreenNet, unit.x, unit.y);
      if (InBox(p.x, p.y, box.x1, box.y1, box.x2, box.y2)) return true;
    }
    return false;
  });
}

std::vector<int> RecordsInXYPlot(const Session& session, const std::optional<DrawnXYPlot>& drawn,
                                 MouseBox box) {
  SortRectangle(box.x1, box.y1, box.x2, box.y2);
  return RecordsWhere(session, [&](const SpecimenRecord& record) {
    const auto i = static_cast<std::size_t>(record.RecordNo - 1);
    if (!drawn || i >= drawn->symbols.size()) return false;
    const Point& symbol = drawn->symbols[i];
    return InBox(symbol.x, symbol.y, box.x1, box.y1, box.x2, box.y2);
  });
}

void DrawRubberBand(Target& target, const MouseBox& box) {
  // The yellow dots alone would be lost on white paper.
  for (const Pen& pen : {Pen{.colour = 0x808080}, Pen{.style = Dotted, .colour = Yellow}})
    DrawRectangle(target, box.x1, box.y1, box.x2, box.y2, pen, 0);
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
