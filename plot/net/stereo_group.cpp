#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

/// Sizes of the symbols of a bootstrap cloud.
constexpr Array1<std::int16_t, 3> CloudSizes = {1, 3, 3};

Direction Long(const ShortDirection& d) { return {d.Dec, d.Inc}; }

void DrawMeanEllipse(const StereoView& view, const GroupStats& stats, int k, const Pen& pen) {
  const auto errors = ErrorsOf(stats, view.options.level, k);
  if (view.options.showAxis[k] && errors)
    DrawConfidenceEllipse(view.target, view.net, Projection::EqualArea, false,
                          {k, stats.MeanVec, errors->E1, errors->E2, stats.MeanRot[k]}, pen,
                          view.ellipseStep);
}

const char* EllipseLayer(ErrorLevel level) {
  return level == ErrorLevel::Confidence95 ? "mean ellipses 95 %" : "mean ellipses standard errors";
}

/// The line of a group's ellipses.
PenStyle LineOf(Finish finish) {
  return finish == Finish::Full ? Solid : finish == Finish::Light ? Dashed : Dotted;
}

/// The symbol of a mean, open and in a wide line; a light group's in its light colour, a dotted
/// group's with a dot.
void DrawOpenMark(const StereoView& view, const Direction& direction, std::int16_t symbol,
                  double sizeFactor, Finish finish, Colour colour) {
  const std::int16_t size = view.SymbolSize(sizeFactor);
  DrawNetSymbol(view.target, view.net, Projection::EqualArea, direction, symbol, size,
                finish == Finish::Light ? LightOf(colour) : White,
                {.colour = colour, .width = view.Scaled(2, view.lineWidth)});
  if (finish == Finish::Dotted)
    DrawNetSymbol(view.target, view.net, Projection::EqualArea, direction, 3, view.SymbolSize(0.4),
                  Black, {});
}

}  // namespace

void DrawBootstrap(const StereoView& view) {
  view.target.Layer("bootstrap");
  const GroupStats& stats = view.stats;
  if (view.records.Count() > BootMaxN) return;
  if (!HasBootstrap(stats)) return;
  if (view.options.showBootstrapCloud)
    for (std::size_t i = 0; i < stats.BootPoints[1].size(); ++i)
      for (int k = 1; k <= 3; ++k) {
        const Direction d = Long(stats.BootPoints[k][i]);
        if (IsFinite(d))
          DrawNetSymbol(view.target, view.net, Projection::EqualArea, d, Axes[k].symbol,
                        CloudSizes[k], view.Colours().axes[k], {.colour = view.Colours().axes[k]});
      }
  if (!view.options.showBootstrapContours) return;
  for (int k = 1; k <= 3; ++k) {
    std::vector<Direction> contour;
    for (const ShortDirection& d : stats.BootContour[k]) contour.push_back(Long(d));
    DrawNetPolyline(view.target, view.net, Projection::EqualArea, contour,
                    {.colour = view.Colours().bootstrap[k]});
  }
}

void DrawMeanHalos(const StereoView& view) {
  if (!view.HasHalo()) return;
  view.target.Layer("halos");
  const auto rim = [&](std::int16_t width) -> Pen {
    return {.colour = White,
            .width = static_cast<std::int16_t>(width + 2 * view.geometry.style.halo)};
  };
  const auto draw = [&](const GroupStats& stats, bool means, bool ellipses) {
    for (int k = 1; k <= 3; ++k) {
      if (ellipses) DrawMeanEllipse(view, stats, k, rim(view.lineWidth));
      if (const Direction mean = {stats.MeanDec[k], stats.MeanInc[k]};
          means && ShowsMean(stats) && view.options.showAxis[k] && IsFinite(mean))
        DrawNetSymbol(view.target, view.net, Projection::EqualArea, mean, Axes[k].symbol,
                      view.SymbolSize(Axes[k].meanFactor), White,
                      rim(view.Scaled(2, view.lineWidth)));
    }
  };
  if (view.marks)
    for (const GroupMarks::Mean& mean : view.marks->Means) draw(mean.Stats, true, true);
  draw(view.stats, view.options.showMean, view.options.showMeanEllipses);
}

void DrawMeans(const StereoView& view) {
  view.target.Layer("means");
  if (!view.options.showMean || !ShowsMean(view.stats)) return;
  const auto mean = [&](int k) -> Direction {
    return {view.stats.MeanDec[k], view.stats.MeanInc[k]};
  };
  for (int k = 1; k <= 3; ++k)
    if (view.options.showGreatCircle[k])
      DrawGreatCircle(view.target, view.net, Projection::EqualArea, 1, false, mean(k),
                      {.colour = view.Colours().axes[k], .width = 2});
  for (int k = 1; k <= 3; ++k)
    if (view.options.showAxis[k] && IsFinite(mean(k)))
      DrawOpenMark(view, mean(k), Axes[k].symbol, Axes[k].meanFactor, Finish::Full,
                   view.Colours().axes[k]);
}

void DrawMeanEllipses(const StereoView& view) {
  view.target.Layer(EllipseLayer(view.options.level));
  if (!view.options.showMeanEllipses) return;
  for (int k = 1; k <= 3; ++k)
    DrawMeanEllipse(view, view.stats, k,
                    {.colour = view.Colours().axes[k], .width = view.lineWidth});
}

void DrawGroupMeans(const StereoView& view) {
  view.target.Layer("means of groups");
  if (!view.marks) return;
  const MarkBy by = view.marks->By;
  const auto colourOf = [&view, by](int k, const GroupMark& mark) {
    return by == MarkBy::Colours ? mark.colour : view.Colours().axes[k];
  };
  for (const auto& [group, stats] : view.marks->Means)
    for (int k = 1; k <= 3; ++k) {
      const GroupMark mark = MarkOfGroup(group);
      DrawMeanEllipse(
          view, stats, k,
          {.style = LineOf(mark.finish), .colour = colourOf(k, mark), .width = view.lineWidth});
    }
  for (const auto& [group, stats] : view.marks->Means) {
    if (!ShowsMean(stats)) continue;
    const GroupMark mark = MarkOfGroup(group);
    for (int k = 1; k <= 3; ++k)
      if (const Direction mean = {stats.MeanDec[k], stats.MeanInc[k]};
          view.options.showAxis[k] && IsFinite(mean))
        DrawOpenMark(view, mean, view.SymbolOf(k, mark, by), Axes[k].meanFactor, mark.finish,
                     colourOf(k, mark));
  }
}

}  // namespace velorix
