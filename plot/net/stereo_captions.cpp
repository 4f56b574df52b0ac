#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

constexpr double AxisColumn = -0.95, SymbolRise = 0.04;  // a symbol stands above its baseline

/// What an axis is known by: its symbol in its colour, the symbol alone where colours show groups,
/// or the colour alone where shapes do.
void DrawAxisSample(const StereoView& view, int k, double u, double v) {
  const PrincipalAxis& axis = Axes[k];
  const Colour colour = view.Colours().axes[k];
  if (view.symbolsBy != MarkBy::Shapes || view.marks->By == MarkBy::Colours)
    return view.Symbol(axis.symbol, u, v, axis.sizeFactor,
                       view.symbolsBy == MarkBy::Colours ? White : colour, Black);
  const Point p = OnNet(view.net, u, v);
  const double width = 0.7 * view.SymbolSize(1), height = 0.35 * view.SymbolSize(1);
  DrawRectangle(view.target, p.x - width, p.y - height, p.x + width, p.y + height,
                {.style = NoLine}, colour);
}

void DrawAxisLegend(const StereoView& view) {
  double v = LegendTop;
  for (int k = 1; k <= 3; ++k) {
    if (!view.options.showAxis[k]) continue;
    view.Text(Axes[k].name, AxisColumn, v, LeftBaseline);
    DrawAxisSample(view, k, AxisColumn - 0.1, v + SymbolRise);
    v -= RowStep;
  }
}

void DrawFoliLegend(const StereoView& view) {
  const StereoOptions& options = view.options;
  if (!options.showPlanes) return;
  const Colour colour = view.Colours().planes;
  double v = LegendTop;
  int i = 0;
  for (const std::string& code : view.options.foliationCodes) {
    ++i;
    double u = FoliColumn;
    if (options.planesAsCircles || options.planesAsPoles || options.planesAsStrikes) {
      view.Text(code, u, v, LeftBaseline);
      u += ColumnStep;
    }
    if (options.planesAsPoles) {
      const CodeSymbol symbol = SymbolOfCode(i, FirstPole, colour, view.geometry.style.moreCodes);
      view.Symbol(symbol.symbol, u, v + SymbolRise, 1.2, symbol.fill, colour);
      u += ColumnStep;
    }
    if (options.planesAsCircles)
      view.Line(u - 0.05, u + 0.15, v + SymbolRise,
                FoliPen(i, colour, view.geometry.style.moreCodes));
    v -= RowStep;
  }
}

void DrawLineLegend(const StereoView& view) {
  if (!view.options.showLines) return;
  const Colour colour = view.Colours().lines;
  double v = LegendTop;
  int i = 0;
  for (const std::string& code : view.options.lineationCodes) {
    ++i;
    view.Text(code, LineColumn, v, LeftBaseline);
    const CodeSymbol symbol = SymbolOfCode(i, FirstLine, colour, view.geometry.style.moreCodes);
    view.Symbol(symbol.symbol, LineColumn + ColumnStep, v + SymbolRise, 1, symbol.fill, colour);
    v -= RowStep;
  }
}

void DrawGroupLines(const StereoView& view) {
  double v = GroupTop(view.options);
  const std::int16_t height = view.Scaled(0.8, view.geometry.FontHeight());
  for (const std::string& line : GroupLines(view.options)) {
    view.Text(line, -1.1, v, LeftBaseline, height);
    v -= GroupStep;
  }
}

}  // namespace

Pen FoliPen(int i, Colour colour, bool more) {
  if (more && i > CodeStyles)
    return {.style = static_cast<std::int16_t>((i - 1) % CodeStyles), .colour = colour, .width = 2};
  if (i == 1) return {.style = Solid, .colour = colour, .width = 3};
  return {.style = static_cast<std::int16_t>(i - 1), .colour = colour, .width = 1};
}

CodeSymbol SymbolOfCode(int i, std::int16_t first, Colour colour, bool more) {
  if (more && i > CodeStyles)
    return {static_cast<std::int16_t>(first + (i - 1) % CodeStyles), colour};
  return {static_cast<std::int16_t>(first + i - 1), White};
}

void DrawCaptions(const StereoView& view) {
  view.target.Layer("captions");
  if (!view.options.showCaptions) return;
  const auto plotted =
      std::count_if(view.records.begin(), view.records.end(),
                    [&](const SpecimenRecord& record) { return view.Plots(record); });
  const std::string left[] = {NamesOf(view.coorSys).Title, "Coordinate", "System"};
  const std::string right[] = {"Equal-Area", "Projection", "N = " + std::to_string(plotted)};
  constexpr double rows[] = {0.9, 0.8, 0.7};
  for (int i = 0; i < 3; ++i) view.Text(left[i], -1.1, rows[i], LeftBaseline);
  for (int i = 0; i < 3; ++i) view.Text(right[i], 1.1, rows[i], RightBaseline);
  DrawGroupLines(view);
}

std::string LevelHeading(const StereoOptions& options) {
  return LevelText(options.level) + (options.meanOf.empty() ? "" : ", " + options.meanOf);
}

std::vector<std::string> GroupLines(const StereoOptions& options) {
  std::vector<std::string> lines;
  if (!options.showCaptions) return lines;
  if ((options.showMeanEllipses || options.showGroupMeans) &&
      options.level != ErrorLevel::StandardError)
    lines.push_back(LevelText(options.level));
  if ((options.showBootstrapCloud || options.showBootstrapContours) && !options.bootBy.empty())
    lines.push_back("Bootstrap: " + options.bootBy);
  if (!lines.empty()) lines.push_back(options.meanOf);
  return lines;
}

double GroupTop(const StereoOptions& options) {
  std::size_t rows = 3;
  if (options.showLegend && options.showPlanes)
    rows = std::max(rows, options.foliationCodes.size());
  if (options.showLegend && options.showLines) rows = std::max(rows, options.lineationCodes.size());
  return LegendTop - RowStep * static_cast<double>(rows) - 0.04;
}

void DrawLegend(const StereoView& view) {
  view.target.Layer("legend");
  if (!view.options.showLegend) return;
  DrawAxisLegend(view);
  DrawFoliLegend(view);
  DrawLineLegend(view);
}

}  // namespace velorix
