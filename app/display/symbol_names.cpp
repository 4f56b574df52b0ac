#include "app/display/symbol_names.h"

#include <algorithm>
#include <cmath>

#include "app/tables/data_table.h"
#include "plot/axes/axes.h"
#include "plot/drawing/clip.h"
#include "plot/net/net.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr double Reach = 0.6;  // of a symbol from its centre, in sizes
constexpr StereoGeometry Stereonet;
constexpr Net ScreenNet = {Stereonet.cx, Stereonet.cy, Stereonet.diameter};
constexpr Array1<const char*, 3> AxisNames = {"Kmax", "Kint", "Kmin"};

std::string SpecimenName(const SpecimenRecord& record) {
  return record.Name.empty() ? "record " + std::to_string(record.RecordNo) : record.Name;
}

std::string DirectionText(int axis, const Direction& d) {
  return std::string(", ") + AxisNames[axis] + " " + TrimmedNumber(d.Dec, "0.0") + " / " +
         TrimmedNumber(d.Inc, "0.0");
}

std::string ValueText(Column column, const SpecimenRecord& record, const Session& session) {
  const std::string value = DataTableCell(column, record, session.ReImMode);
  return ", " + ColumnName(column, session.Settings) + " " +
         (value.empty() ? "not computed" : std::string(StripBlanks(value)));
}

/// Which directions have a symbol under the mouse on the net.
class NetHits {
 public:
  NetHits(const Point& mouse, double zoom) : mouse_(mouse), zoom_(zoom) {
    const double radius = ScreenNet.diameter / 2;
    const double distance = PointDistance(mouse, {ScreenNet.cx, ScreenNet.cy}) / radius;
    const double reach = HalfSize(LargestFactor) / radius;
    steepest_ = InclinationAt(distance - reach) + Margin;
    flattest_ = InclinationAt(distance + reach) - Margin;
  }

  /// The inclination alone rules out most directions of a full store, without a projection.
  bool Hit(const Direction& d, double sizeFactor) const {
    const double inc = std::fabs(d.Inc);
    if (!(inc >= flattest_ && inc <= steepest_) || !std::isfinite(d.Dec)) return false;
    const Point unit = ProjectDirection(Projection::EqualArea, d);
    return PointDistance(OnNet(ScreenNet, unit.x, unit.y), mouse_) <= HalfSize(sizeFactor);
  }

 private:
  static constexpr double LargestFactor = 1.5;  // of the means
  static constexpr double Margin = 0.01;        // degrees, for roundings of the projection

  double HalfSize(double factor) const { return Reach * factor * Stereonet.SymbolSize() / zoom_; }
  /// At a radius of the unit net; beyond the rim below any inclination.
  static double InclinationAt(double radius) {
    if (radius >= 1) return -1;
    return radius < 1e-6 ? 90 : InverseEqualArea({0, radius}).Inc;
  }

  Point mouse_;
  double zoom_, steepest_, flattest_;
};

std::string NameOfMean(const StereoOptions& options, const GroupStats& stats, const NetHits& hits,
                       const std::string& name) {
  if (!ShowsMean(stats)) return "";
  for (int k = 3; k >= 1; --k) {
    const Direction mean = {stats.MeanDec[k], stats.MeanInc[k]};
    if (options.showAxis[k] && hits.Hit(mean, Axes[k].meanFactor))
      return name + DirectionText(k, mean);
  }
  return "";
}

/// Visits the records in view from the one that was drawn last, until `visit` gives a text.
template <class Visit>
std::string TopmostName(const Session& session, Visit visit) {
  for (const bool selected : {true, false})
    for (int id = session.RecordCount(); id >= 1; --id) {
      const SpecimenRecord& record = session.Records[id];
      if (record.Selected != selected) continue;
      if (!IsShown(record, session.CoorSys, session.ReImMode)) continue;
      if (std::string name = visit(record); !name.empty()) return name;
    }
  return "";
}

}  // namespace

std::string NameInStereo(const Session& session, const StereoOptions& options,
                         const GroupStats& stats, const GroupMarks& marks, const Point& mouse,
                         double zoom) {
  const NetHits hits(mouse, zoom);
  if (options.showMean)
    if (std::string name = NameOfMean(options, stats, hits, "Mean"); !name.empty()) return name;
  if (marks.AreShown())
    for (auto mean = marks.Means.rbegin(); mean != marks.Means.rend(); ++mean) {
      const std::string whose = "Mean of " + marks.Groups[mean->Group].Name;
      if (std::string name = NameOfMean(options, mean->Stats, hits, whose); !name.empty())
        return name;
    }
  if (!options.showData) return "";
  return TopmostName(session, [&](const SpecimenRecord& record) -> std::string {
    for (int k = 3; k >= 1; --k) {
      const Direction direction = {record.Dec[k], record.Inc[k]};
      if (options.showAxis[k] && hits.Hit(direction, Axes[k].sizeFactor))
        return SpecimenName(record) + DirectionText(k, direction);
    }
    return "";
  });
}

std::string NameInXYPlot(const Session& session, const XYPlotOptions& options,
                         const std::optional<DrawnXYPlot>& drawn, const Point& mouse, double zoom) {
  if (!drawn) return "";
  const double reach = Reach * PlotGeometry().SymbolSize() / zoom;
  return TopmostName(session, [&](const SpecimenRecord& record) -> std::string {
    const auto place = static_cast<std::size_t>(record.RecordNo - 1);
    if (place >= drawn->symbols.size()) return "";
    if (!(PointDistance(drawn->symbols[place], mouse) <= reach)) return "";
    return SpecimenName(record) + ValueText(options.x, record, session) +
           ValueText(options.y, record, session);
  });
}

std::string NameInHisto(Column column, const Settings& settings, std::span<const HistoBar> bars,
                        const Point& mouse, double zoom) {
  constexpr double LeastHeight = 5;
  for (auto last = bars.rbegin(); last != bars.rend(); ++last) {
    const HistoBar& bar = *last;
    const double top = std::min(bar.top.y, bar.foot.y - LeastHeight / zoom);
    if (!InBox(mouse.x, mouse.y, bar.foot.x, bar.foot.y, bar.top.x, top)) continue;
    const std::string unit = InfoOf(column).unit;
    return ColumnName(column, settings) + " " + PlainText(bar.lower) + " to " +
           PlainText(bar.upper) + (unit.empty() ? "" : " " + unit) + ", " +
           std::to_string(bar.count) + (bar.count == 1 ? " specimen" : " specimens");
  }
  return "";
}

}  // namespace velorix
