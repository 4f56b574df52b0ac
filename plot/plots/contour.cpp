#include "plot/plots/contour.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/rounding.h"
#include "plot/drawing/colour_scales.h"
#include "stats/density/density_curves.h"
#include "text/numbers.h"

namespace velorix {
namespace {

// The legend: title and count, below them the bar from `BarTop` (maximum) to `BarBottom` (0).
constexpr int LegendLeft = 366, TitleLine = 28, CountLine = 48;
constexpr int BarWidth = 20, BarTop = 88, BarBottom = 336, LabelLeft = LegendLeft + BarWidth + 8;
constexpr std::int16_t FontHeight = 14;
constexpr double HalfDigit = 4;  // a label's baseline lies this far below its middle

struct ContourView {
  velorix::Target& target;
  const DensityCount& count;
  const ContourOptions& options;
  const ContourDisplayInfo& display;
  ContourLevels levels;

  bool Counted() const { return count.ContourNodeCount > 0; }
  /// Levels filled between their curves.
  bool HasBands() const { return options.curves && options.discrete; }

  std::int16_t LevelIndex(float density) const {
    return ToShort(std::floor(density / static_cast<float>(levels.Step)));
  }
  Colour ColourAt(float fraction) const { return BlendColor(display.Colour, White, fraction); }
  /// Level i of the list has the colour of the nodes with level index i. Kept for
  /// agreement with published results: the index changes at the multiples of the step, below the
  /// level's value where the step is above 1.
  Colour LevelColour(int index) const {
    return ColourAt(static_cast<float>((index - 1) * levels.Step + 1) /
                    static_cast<float>(levels.Top()));
  }
  Colour ColourOf(float density) const {
    return options.discrete ? LevelColour(LevelIndex(density))
                            : ColourAt(density / count.ContourMax);
  }
  void Text(const std::string& text, double x, double y) const {
    DrawText(target, text, x, y, {.height = FontHeight});
  }
};

/// The colours of the nodes.
std::vector<Colour> ColoursOf(const ContourView& view, const ContourGrid& grid) {
  std::vector<Colour> colours(grid.Inside.size());
  for (std::size_t n = 0; n < colours.size(); ++n)
    if (grid.Inside[n]) colours[n] = view.ColourOf(grid.Density[n]);
  return colours;
}

/// Blackens each node that has another level than its next neighbour along the row or the column.
/// A neighbour outside the circle has level 0.
void BlackenContours(const ContourView& view, const ContourGrid& grid,
                     std::vector<Colour>& colours) {
  std::vector<std::int16_t> levels(grid.Inside.size());
  for (std::size_t n = 0; n < levels.size(); ++n)
    if (grid.Inside[n]) levels[n] = view.LevelIndex(grid.Density[n]);
  const std::size_t side = static_cast<std::size_t>(grid.Side());
  for (const std::size_t step : {std::size_t{1}, side})
    for (std::size_t n = 0; n < grid.Inside.size(); ++n) {
      const std::size_t place = step == 1 ? n % side : n / side;
      if (grid.Inside[n] && place + 1 < side && levels[n] != levels[n + step]) colours[n] = Black;
    }
}

/// The nodes as they are painted: as coloured, unless curves stand for the colours of levels, and
/// computed ones marked where the options say so.
void PaintNodes(const ContourView& view, const ContourGrid& grid, std::vector<Colour> pixels) {
  for (std::size_t n = 0; n < pixels.size(); ++n)
    if (!grid.Inside[n] || view.HasBands()) pixels[n] = NoColour;
  if (view.options.showGridPoints)
    for (int j = grid.First; j <= grid.Last; j += ContourSpacing)
      for (int i = grid.First; i <= grid.Last; i += ContourSpacing) {
        const std::size_t n = static_cast<std::size_t>(grid.Index(i, j));
        if (grid.Inside[n]) pixels[n] = Yellow;
      }
  if (view.HasBands() && !view.options.showGridPoints) return;
  view.target.Raster(
      ToLogical(view.target, ContourCorner.x + grid.First, ContourCorner.y + grid.First),
      grid.Side(), pixels);
}

/// A node's middle; its unit of the plane reaches half a unit from there.
std::vector<LogicalPoint> OnPlane(const Target& target, const DensityCurves::Curve& curve) {
  std::vector<LogicalPoint> points;
  for (const Point& p : curve)
    points.push_back(ToLogical(target, ContourCorner.x + p.x, ContourCorner.y + p.y));
  return points;
}

/// The levels where the colours of the nodes change, as areas one over the other, and their lines.
void DrawCurves(const ContourView& view, const ContourGrid& grid) {
  std::vector<double> levels;
  for (int i = 1; i <= view.LevelIndex(view.count.ContourMax); ++i)
    levels.push_back(static_cast<double>(i) * view.levels.Step);
  const std::vector<DensityCurves> curves = CurvesOf(grid, levels);
  for (std::size_t i = 0; i < curves.size() && view.HasBands(); ++i) {
    std::vector<std::vector<LogicalPoint>> borders;
    for (const auto& border : curves[i].Borders) borders.push_back(OnPlane(view.target, border));
    if (!borders.empty()) view.target.Region(borders, view.LevelColour(static_cast<int>(i) + 1));
  }
  PaintNodes(view, grid, ColoursOf(view, grid));
  if (!view.options.showContours) return;
  for (const DensityCurves& level : curves)
    for (const auto& line : level.Lines) DrawPolyline(view.target, OnPlane(view.target, line), {});
}

/// Each datum with the declination it has: `DrawNetSymbol` turns none over that points up.
void DrawDataPoints(const ContourView& view, const ContourData& data) {
  view.target.Layer("data");
  for (std::size_t d = 0; d < data.Dec.size(); ++d)
    DrawNetSymbol(view.target, ContourNet, Projection::EqualArea, {data.Dec[d], data.Inc[d]},
                  view.display.Symbol, view.display.Size, view.display.Colour, {.width = 0});
}

/// A swatch for 0 and for each level.
void DrawLevelBar(const ContourView& view) {
  const int count = static_cast<int>(view.levels.Values.size()) + 1;
  const double height = std::min((BarBottom - BarTop) / static_cast<double>(count), 24.0);
  for (int i = 0; i < count; ++i) {
    const double bottom = BarBottom - i * height;
    DrawRectangle(view.target, LegendLeft, bottom - height, LegendLeft + BarWidth, bottom, {},
                  i == 0 ? White : view.LevelColour(i));
    view.Text(i == 0 ? "0" : PlainText(view.levels.Values[static_cast<std::size_t>(i - 1)]),
              LabelLeft, bottom - height / 2 + HalfDigit);
  }
  view.Text("Max" + FormatNumber(view.count.ContourMax, "0.0"), LegendLeft,
            BarBottom - count * height - 8);
}

/// The ramp from 0 to the maximum, with a tick at each level.
void DrawRampBar(const ContourView& view) {
  constexpr int Height = BarBottom - BarTop;
  std::vector<Colour> pixels;
  for (int y = 0; y < Height; ++y)
    pixels.insert(pixels.end(), BarWidth,
                  view.ColourAt(1 - (static_cast<float>(y) + 0.5f) / static_cast<float>(Height)));
  view.target.Raster(ToLogical(view.target, LegendLeft, BarTop), BarWidth, pixels);
  DrawBox(view.target, LegendLeft, BarTop, LegendLeft + BarWidth, BarBottom, {});
  constexpr double LabelHeight = 13;
  const auto label = [&view](int value, double lower) {
    const double y = BarBottom - value / static_cast<double>(view.count.ContourMax) * Height;
    DrawLine(view.target, LegendLeft + BarWidth, y, LegendLeft + BarWidth + 4, y, {});
    view.Text(PlainText(value), LabelLeft, y + lower + HalfDigit);
  };
  const double firstLevel = Height / static_cast<double>(view.count.ContourMax);
  label(0, std::max(LabelHeight - firstLevel, 0.0));  // level 1 may lie close above 0
  for (const std::int16_t value : view.levels.Values) label(value, 0);
  view.Text("Max" + FormatNumber(view.count.ContourMax, "0.0"), LegendLeft, BarTop - 8);
}

void DrawContourLegend(const ContourView& view, const ContourData& data) {
  view.target.Layer("legend");
  DrawText(view.target, view.display.Name, LegendLeft, TitleLine, {.height = 16, .weight = 700});
  view.Text("N = " + PlainText(data.Count()), LegendLeft, CountLine);
  if (!view.Counted()) return;
  if (view.options.discrete)
    DrawLevelBar(view);
  else
    DrawRampBar(view);
}

}  // namespace

void DrawContour(Target& target, const ContourGrid& grid, const ContourData& data,
                 const DensityCount& count, CoordinateSystem coorSys,
                 const ContourOptions& options) {
  const ContourView view = {target, count, options, InfoOf(options.display),
                            LevelsOf(count.ContourMax)};
  target.SetTransparent();
  target.Layer("density");
  if (view.Counted()) {
    if (options.curves) {
      DrawCurves(view, grid);
    } else {
      std::vector<Colour> colours = ColoursOf(view, grid);
      if (options.showContours) BlackenContours(view, grid, colours);
      PaintNodes(view, grid, std::move(colours));
    }
  }
  DrawNet(target, coorSys, Projection::EqualArea, ContourNet, Black, FontHeight);
  if (options.showData || !view.Counted()) DrawDataPoints(view, data);
  DrawContourLegend(view, data);
}

std::optional<std::size_t> ContourNodeAt(const ContourGrid& grid, double x, double y) {
  const double i = std::floor(x) - ContourCorner.x, j = std::floor(y) - ContourCorner.y;
  if (!(i >= grid.First && i <= grid.Last && j >= grid.First && j <= grid.Last)) return {};
  const std::size_t n =
      static_cast<std::size_t>(grid.Index(static_cast<int>(i), static_cast<int>(j)));
  return grid.Inside[n] ? std::optional(n) : std::nullopt;
}

bool IsOnContourLegend(double x, double y) {
  return x >= LegendLeft && x < ContourPlane.width && y >= 0 && y < ContourPlane.height;
}

}  // namespace velorix
