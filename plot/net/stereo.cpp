#include "plot/net/stereo.h"

#include <optional>

#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

bool ColoursByValue(const StereoOptions& options) {
  return options.showData && options.colourByValue;
}

/// What shows the groups of records.
MarkBy SymbolsBy(const StereoOptions& options, MarkBy by) {
  const bool oneRamp = ColoursByValue(options) && options.colourRamp == ColourRamp::One;
  return oneRamp ? MarkBy::Nothing : SymbolsBy(by, ColoursByValue(options));
}

}  // namespace

void DrawStereo(const RecordArray& records, CoordinateSystem coorSys, Target& target,
                const StereoGeometry& geometry, const StereoOptions& options, TensorBlock reImMode,
                const GroupStats& stats, const Settings& settings, const GroupMarks& marks) {
  const Net net = geometry.OnTarget();
  StereoView view = {records, coorSys, reImMode, target, geometry, options, stats, settings, net};
  if (marks.AreShown()) {
    view.marks = &marks;
    view.symbolsBy = SymbolsBy(options, marks.By);
  }

  target.SetTransparent();
  DrawNet(target, coorSys, Projection::EqualArea, net, Black, geometry.FontHeight(),
          geometry.labelGap * geometry.scale);
  DrawCaptions(view);
  DrawLegend(view);
  DrawGeology(view, false);
  DrawGeology(view, true);
  DrawBootstrap(view);
  const std::optional<ColourCoding> coding = DrawColourScale(view);
  DrawRecordCircles(view, false);
  DrawRecordCircles(view, true);
  DrawDataLines(view);
  DrawRecordEllipses(view, false);
  DrawRecordSymbols(view, false, coding);
  DrawRecordEllipses(view, true);
  DrawRecordSymbols(view, true, coding);
  DrawMeanHalos(view);
  DrawGroupMeans(view);
  DrawMeans(view);
  DrawMeanEllipses(view);
}

LegendLook StereoLegend(const StereoOptions& options, const GroupMarks& marks) {
  if (ColoursByValue(options)) return {};
  if (marks.By == MarkBy::Colours) return {NeutralSymbol, std::nullopt};
  return {std::nullopt, NeutralColour};
}

PlaneSize StereoPlane(const StereoOptions& options) {
  const StereoGeometry geometry;
  const Net net = geometry.OnTarget();
  const double em = 1.1 * geometry.fontHeight;  // no letter of a caption is wider

  double width = 2 * geometry.cx, height = 366;
  const auto makeRoom = [&](double u, double besideIt, std::size_t row, double belowIt) {
    const Point p = OnNet(net, u, LegendTop - RowStep * static_cast<double>(row));
    width = std::max(width, p.x + besideIt);
    height = std::max(height, p.y + belowIt);
  };
  const auto makeRoomForCodes = [&](const std::vector<std::string>& codes, double textAt,
                                    double lastAt) {
    for (std::size_t row = 0; row < codes.size(); ++row) {
      makeRoom(textAt, em * static_cast<double>(codes[row].size()), row, em);
      makeRoom(lastAt, geometry.symbolSize, row, em);
    }
  };
  if (options.showLegend && options.showPlanes)
    makeRoomForCodes(options.foliationCodes, FoliColumn, FoliColumn + 2 * ColumnStep + 0.15);
  if (options.showLegend && options.showLines)
    makeRoomForCodes(options.lineationCodes, LineColumn, LineColumn + ColumnStep);
  if (const std::size_t lines = GroupLines(options).size())
    height = std::max(
        height,
        OnNet(net, 0, GroupTop(options) - GroupStep * static_cast<double>(lines - 1)).y + 5);
  if (options.showData && options.colourByValue)  // the colour scale right of the net
    width = std::max(width, geometry.cx + geometry.diameter / 2 + geometry.scaleGap + 25);
  return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height))};
}

}  // namespace velorix
