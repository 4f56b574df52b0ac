#include "plot/stereo.h"

#include <algorithm>
#include <cmath>

#include "base/rounding.h"
#include "plot/axes.h"
#include "store/session.h"

namespace velorix {

namespace {

/// What every layer draws from and on.
struct StereoView {
  const RecordArray& records;
  std::int16_t coorSys, reImMode;
  velorix::Target& target;
  const StereoGeometry& geometry;
  const StereoOptions& options;
  Net net;

  std::int16_t Scaled(double factor, std::int16_t size) const { return ToShort(factor * size); }
  std::int16_t SymbolSize(double factor) const { return Scaled(factor, geometry.symbolSize); }
  std::int16_t CaptionHeight() const { return Scaled(1.1, geometry.fontHeight); }

  void Text(const std::string& text, double u, double v, int alignment) const {
    const Point p = OnNet(net, u, v);
    DrawText(target, text, p.x, p.y, {.height = CaptionHeight(), .alignment = alignment});
  }
  void Symbol(std::int16_t type, double u, double v, double sizeFactor, Colour fill,
              Colour penColour) const {
    const Point p = OnNet(net, u, v);
    Pen pen = {.colour = penColour};
    DrawSymbol(target, type, static_cast<float>(p.x), static_cast<float>(p.y),
               SymbolSize(sizeFactor), fill, pen);
  }
  void Line(double u1, double u2, double v, const Pen& pen) const {
    const Point a = OnNet(net, u1, v), b = OnNet(net, u2, v);
    DrawLine(target, a.x, a.y, b.x, b.y, pen);
  }
  /// As in all views, but a block that is neither of the two shows no record here.
  bool Plots(const SpecimenRecord& record) const {
    return (reImMode == InPhase || reImMode == OutOfPhase) && IsShown(record, coorSys, reImMode);
  }
  template <class Visit>
  void ForEachPlotted(bool selected, Visit visit) const {
    for (const SpecimenRecord& record : records)
      if (record.Selected == selected && Plots(record)) visit(record);
  }
};

// Rows of captions and legends in the unit net.
constexpr double RowStep = 0.1;
constexpr double LegendTop = -0.85, AxisColumn = -0.95, FoliColumn = 0.68, LineColumn = 1.15;
constexpr double ColumnStep = 0.12, SymbolRise = 0.04;  // a symbol stands above its row's baseline

const char* SystemName(std::int16_t coorSys) {
  switch (coorSys) {
    case Specimen:
      return "Specimen";
    case Geographic:
      return "Geographic";
    case Paleogeographic:
      return "Paleogeographic";
    case Tectonic:
      return "Tectonic";
    default:
      return "";
  }
}

/// The pen of the great circles of the i-th foliation in the list. The sixth has style 5 and so no
/// line at all: the styles just run on.
Pen FoliPen(int i, Colour colour) {
  if (i == 1) return {.style = Solid, .colour = colour, .width = 3};
  return {.style = static_cast<std::int16_t>(i - 1), .colour = colour, .width = 1};
}

void DrawCaptions(const StereoView& view) {
  if (!view.options.chkCaption[0]) return;
  const auto plotted =
      std::count_if(view.records.begin(), view.records.end(),
                    [&](const SpecimenRecord& record) { return view.Plots(record); });
  const std::string left[] = {SystemName(view.coorSys), "Coordinate", "System"};
  const std::string right[] = {"Equal-Area", "Projection", "N = " + std::to_string(plotted)};
  constexpr double rows[] = {0.9, 0.8, 0.7};
  for (int i = 0; i < 3; ++i) view.Text(left[i], -1.1, rows[i], LeftBaseline);
  for (int i = 0; i < 3; ++i) view.Text(right[i], 1.1, rows[i], RightBaseline);
}

void DrawAxisLegend(const StereoView& view) {
  double v = LegendTop;
  for (int k = 1; k <= 3; ++k) {
    if (!view.options.chkK[k]) continue;
    const PrincipalAxis& axis = Axes[k];
    view.Text(axis.name, AxisColumn, v, LeftBaseline);
    view.Symbol(axis.symbol, AxisColumn - 0.1, v + SymbolRise, axis.sizeFactor, axis.colour, Black);
    v -= RowStep;
  }
}

void DrawFoliLegend(const StereoView& view) {
  const auto& chkFoli = view.options.chkFoli;
  if (!chkFoli[0]) return;
  double v = LegendTop;
  int i = 0;
  for (const std::string& code : view.options.lstFoli) {
    ++i;
    double u = FoliColumn;
    if (chkFoli[1] || chkFoli[2] || chkFoli[3]) {
      view.Text(code, u, v, LeftBaseline);
      u += ColumnStep;
    }
    if (chkFoli[2]) {
      view.Symbol(static_cast<std::int16_t>(i + 30), u, v + SymbolRise, 1.2, White, PlaneColour);
      u += ColumnStep;
    }
    if (chkFoli[1]) view.Line(u - 0.05, u + 0.15, v + SymbolRise, FoliPen(i, PlaneColour));
    v -= RowStep;
  }
}

void DrawLineLegend(const StereoView& view) {
  if (!view.options.chkFoli[4]) return;
  double v = LegendTop;
  int i = 0;
  for (const std::string& code : view.options.lstLine) {
    ++i;
    view.Text(code, LineColumn, v, LeftBaseline);
    view.Symbol(static_cast<std::int16_t>(i + 10), LineColumn + ColumnStep, v + SymbolRise, 1,
                White, LineColour);
    v -= RowStep;
  }
}

void DrawLegend(const StereoView& view) {
  if (!view.options.chkCaption[1]) return;
  DrawAxisLegend(view);
  DrawFoliLegend(view);
  DrawLineLegend(view);
}

void DrawRecordSymbols(const StereoView& view, bool selected) {
  if (!view.options.chkData) return;
  view.ForEachPlotted(selected, [&](const SpecimenRecord& record) {
    for (int k = 1; k <= 3; ++k) {
      const Direction direction = {record.Dec[k], record.Inc[k]};
      if (!view.options.chkK[k]) continue;
      if (!std::isfinite(direction.Dec) || !std::isfinite(direction.Inc)) continue;
      const PrincipalAxis& axis = Axes[k];
      DrawNetSymbol(view.target, view.net, EqualArea, direction, axis.symbol,
                    view.SymbolSize(axis.sizeFactor), selected ? SelectedColour : axis.colour, {});
    }
  });
}

}  // namespace

void DrawStereo(const RecordArray& records, std::int16_t coorSys, Target& target,
                const StereoGeometry& geometry, const StereoOptions& options,
                std::int16_t reImMode) {
  const Net net = {geometry.cx, geometry.cy, geometry.diameter};
  const StereoView view = {records, coorSys, reImMode, target, geometry, options, net};

  target.SetTransparent();
  DrawNet(target, coorSys, EqualArea, net, Black, geometry.fontHeight);
  DrawCaptions(view);
  DrawLegend(view);
  DrawRecordSymbols(view, false);
  DrawRecordSymbols(view, true);
}

PlaneSize StereoPlane(const StereoOptions& options) {
  const StereoGeometry geometry;
  const Net net = {geometry.cx, geometry.cy, geometry.diameter};
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
  if (options.chkCaption[1] && options.chkFoli[0])
    makeRoomForCodes(options.lstFoli, FoliColumn, FoliColumn + 2 * ColumnStep + 0.15);
  if (options.chkCaption[1] && options.chkFoli[4])
    makeRoomForCodes(options.lstLine, LineColumn, LineColumn + ColumnStep);
  if (options.chkData && options.chkStereoColorCoding)  // the colour scale right of the net
    width = std::max(width, geometry.cx + geometry.diameter / 2 + 65 + 25);
  return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height))};
}

}  // namespace velorix
