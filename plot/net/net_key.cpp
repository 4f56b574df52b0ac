#include "plot/net/net_key.h"

#include "plot/drawing/fitting_text.h"
#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

// In heights of letters: lines apart, words apart, a symbol and the line of a great circle.
constexpr double LineStep = 1.35, WordGap = 1, SymbolRoom = 1.4, CircleRoom = 2;
constexpr double Rise = 0.3;  // of a symbol's middle above the baseline

}  // namespace

NetKey::NetKey(const StereoOptions& options, CoordinateSystem coorSys, int plotted, double room)
    : options_(options), room_(room) {
  if (options.showCaptions) {
    std::vector<std::string> sentences = {
        std::string(NamesOf(coorSys).Title) +
        " coordinates, equal-area projection, N = " + std::to_string(plotted)};
    for (const std::string& line : GroupLines(options)) sentences.push_back(line);
    for (const std::string& sentence : sentences)
      for (const std::string& line : WrappedText(sentence, room)) {
        lines_.emplace_back();
        Put({Item::Words, 0, line});
      }
    if (options.showLegend) lines_.emplace_back();
  }
  if (!options.showLegend) return;
  for (int k = 1; k <= 3; ++k)
    if (options.showAxis[k]) Put({Item::Axis, k, Axes[k].name});
  const bool planes = options.planesAsCircles || options.planesAsPoles || options.planesAsStrikes;
  if (options.showPlanes && planes)
    for (std::size_t i = 0; i < options.foliationCodes.size(); ++i)
      Put({Item::Plane, static_cast<int>(i) + 1, options.foliationCodes[i]});
  if (options.showLines)
    for (std::size_t i = 0; i < options.lineationCodes.size(); ++i)
      Put({Item::Line, static_cast<int>(i) + 1, options.lineationCodes[i]});
}

void NetKey::Put(Item item) {
  double samples = item.kind == Item::Words ? 0 : SymbolRoom;
  if (item.kind == Item::Plane)
    samples =
        (options_.planesAsPoles ? SymbolRoom : 0) + (options_.planesAsCircles ? CircleRoom : 0);
  item.text = FittingText(item.text, room_ - samples);
  item.width = samples + TextWidth(item.text);
  double used = 0;
  if (!lines_.empty())
    for (const Item& other : lines_.back()) used += other.width + WordGap;
  if (lines_.empty() || used + item.width > room_) lines_.emplace_back();
  lines_.back().push_back(std::move(item));
}

double NetKey::Height() const {
  std::size_t lines = 0;
  for (const auto& line : lines_) lines += !line.empty();
  return LineStep * static_cast<double>(lines);
}

void NetKey::Draw(Target& target, const StereoGeometry& geometry, double x, double y) const {
  const GroupStats none;
  const RecordArray records;
  const Settings settings;
  const StereoView view = {
      records,  CoordinateSystem::None, InPhase, target, geometry, options_, none,
      settings, geometry.OnTarget()};
  const double h = geometry.fontHeight;
  const auto symbol = [&](std::int16_t type, double left, double baseline, double size, Colour fill,
                          Colour colour) {
    DrawSymbol(target, type, static_cast<float>((left + SymbolRoom / 2 * h) * geometry.scale),
               static_cast<float>((baseline - Rise * h) * geometry.scale), view.SymbolSize(size),
               fill, {.colour = colour});
  };
  const bool more = geometry.style.moreCodes;
  target.Layer("legend");
  double baseline = y;
  for (const auto& line : lines_) {
    if (line.empty()) continue;
    baseline += LineStep * h;
    double left = x;
    for (const Item& item : line) {
      double at = left;
      if (item.kind == Item::Axis) {
        const PrincipalAxis& axis = Axes[item.number];
        symbol(axis.symbol, at, baseline, axis.sizeFactor, view.Colours().axes[item.number], Black);
        at += SymbolRoom * h;
      } else if (item.kind == Item::Plane) {
        const Colour colour = view.Colours().planes;
        if (options_.planesAsPoles) {
          const CodeSymbol pole = SymbolOfCode(item.number, FirstPole, colour, more);
          symbol(pole.symbol, at, baseline, 1.2, pole.fill, colour);
          at += SymbolRoom * h;
        }
        if (options_.planesAsCircles) {
          const double height = (baseline - Rise * h) * geometry.scale;
          DrawLine(target, (at + 0.2 * h) * geometry.scale, height,
                   (at + (CircleRoom - 0.3) * h) * geometry.scale, height,
                   FoliPen(item.number, colour, more));
          at += CircleRoom * h;
        }
      } else if (item.kind == Item::Line) {
        const Colour colour = view.Colours().lines;
        const CodeSymbol of = SymbolOfCode(item.number, FirstLine, colour, more);
        symbol(of.symbol, at, baseline, 1, of.fill, colour);
        at += SymbolRoom * h;
      }
      DrawText(target, item.text, at * geometry.scale, baseline * geometry.scale,
               {.height = geometry.FontHeight()});
      left += (item.width + WordGap) * h;
    }
  }
}

}  // namespace velorix
