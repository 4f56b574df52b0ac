#include "plot/plots/untilting.h"

#include <algorithm>
#include <vector>

#include "plot/axes/axes.h"
#include "plot/axes/column_axis.h"
#include "plot/drawing/colour_scales.h"
#include "plot/drawing/fitting_text.h"
#include "plot/drawing/symbols.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// One of both axes, with its curve and its best step.
struct Curve {
  const char* Name;
  PrincipalAxis Look;
  std::optional<double> UntiltStep::*Tau;
  UntiltBest Untilting::*Best;
};
constexpr Curve Curves[] = {{"Kmax", Axes[1], &UntiltStep::TauMax, &Untilting::Kmax},
                            {"Kmin", Axes[3], &UntiltStep::TauMin, &Untilting::Kmin}};

constexpr std::int16_t CurveWidth = 3;

Colour TintOf(Colour colour, Colour paper = White) {
  float share = 0.2f;
  return BlendColor(colour, paper, share);
}

/// The plot's two axes.
struct Frame {
  const PlotGeometry& Plot;
  Axis X, Y;

  Point At(double percent, double tau) const { return Plot.At(X.ShareOf(percent), Y.ShareOf(tau)); }
};

Axis PercentAxis() {
  Axis axis;
  axis.range = {FirstUntiltStep, LastUntiltStep, 0, 20, 10};
  axis.label = "Untilting";
  axis.unit = "%";
  return axis;
}

/// Nothing where there is no tau. Tau ends at 1, where the automatic scale would go on; a small
/// change isn't blown up, and three decimals do.
std::optional<Axis> TauAxis(const Untilting& untilting) {
  Extent extent;
  for (const Curve& curve : Curves)
    for (const UntiltStep& step : untilting.Steps)
      if (step.*curve.Tau) extent.Add(*(step.*curve.Tau));
  if (extent.IsEmpty()) return std::nullopt;
  Axis axis;
  constexpr double LeastSpan = 0.05;
  axis.range = AxisScale(std::min(extent.lower, extent.upper - LeastSpan), extent.upper);
  axis.range.upper = std::min(axis.range.upper, 1.0);
  axis.label = "Largest eigenvalue";
  return axis;
}

/// A band over the height of the plot.
void DrawBand(Target& target, const Frame& frame, double lower, double upper, Colour colour) {
  const Point a = frame.Plot.At(frame.X.ShareOf(lower), 0);
  const Point b = frame.Plot.At(frame.X.ShareOf(upper), 1);
  DrawRectangle(target, a.x, a.y, b.x, b.y, {.style = NoLine}, colour);
}

void DrawUpright(Target& target, const Frame& frame, double percent, const Pen& pen) {
  const Point a = frame.Plot.At(frame.X.ShareOf(percent), 0);
  const Point b = frame.Plot.At(frame.X.ShareOf(percent), 1);
  DrawLine(target, a.x, a.y, b.x, b.y, pen);
}

/// The bands of both axes, mixed where they overlap, and their ends, which stay in sight where a
/// band has no width.
void DrawBands(Target& target, const Frame& frame, const Untilting& untilting) {
  const auto &max = untilting.Kmax.Limits, &min = untilting.Kmin.Limits;
  const Colour ofMax = Curves[0].Look.colour, ofMin = Curves[1].Look.colour;
  if (max) DrawBand(target, frame, max->Lower, max->Upper, TintOf(ofMax));
  if (min) DrawBand(target, frame, min->Lower, min->Upper, TintOf(ofMin));
  if (max && min) {
    const double lower = std::max(max->Lower, min->Lower), upper = std::min(max->Upper, min->Upper);
    if (lower < upper) DrawBand(target, frame, lower, upper, TintOf(ofMax, TintOf(ofMin)));
  }
  for (const Curve& curve : Curves)
    if (const auto& limits = (untilting.*curve.Best).Limits)
      for (const double end : {limits->Lower, limits->Upper})
        DrawUpright(target, frame, end, {.style = Dotted, .colour = curve.Look.colour});
}

/// The lines at 0 and 100 %, and what they are above the frame.
void DrawMarks(Target& target, const Frame& frame) {
  const struct {
    double Percent;
    const char* Words;
  } marks[] = {{0, "as found"}, {100, "untilted"}};
  for (const auto& [percent, words] : marks) {
    DrawUpright(target, frame, percent, {.style = Dashed, .colour = 0x606060, .width = 2});
    DrawPlotText(target, frame.Plot, words, frame.X.ShareOf(percent), 1.02,
                 {.height = frame.Plot.Letters(0.9), .alignment = CentreBaseline});
  }
}

void DrawMark(Target& target, const PlotGeometry& plot, const Curve& curve, const Point& place) {
  const auto size = ToShort(curve.Look.sizeFactor * plot.SymbolSize());
  DrawSymbol(target, curve.Look.symbol, static_cast<float>(place.x), static_cast<float>(place.y),
             size, curve.Look.colour, {});
}

void DrawCurve(Target& target, const Frame& frame, const Untilting& untilting, const Curve& curve) {
  std::vector<LogicalPoint> line;
  for (const UntiltStep& step : untilting.Steps)
    if (step.*curve.Tau) {
      const Point p = frame.At(step.Percent, *(step.*curve.Tau));
      line.push_back(ToLogical(target, p.x, p.y));
    }
  DrawPolyline(target, line, {.colour = curve.Look.colour, .width = CurveWidth});
  const std::optional<int> best = (untilting.*curve.Best).Step;
  for (const UntiltStep& step : untilting.Steps)
    if (best == step.Percent && step.*curve.Tau)
      DrawMark(target, frame.Plot, curve, frame.At(step.Percent, *(step.*curve.Tau)));
}

std::string WordsOf(const Curve& curve, const Untilting& untilting) {
  const UntiltBest& best = untilting.*curve.Best;
  if (!best.Step) return std::string(curve.Name) + ": no step is best";
  const std::string step = curve.Name + (" " + std::to_string(*best.Step)) + " %";
  if (best.Limits)
    return step + " (95 %: " + PlainText(best.Limits->Lower) + " to " +
           PlainText(best.Limits->Upper) + " %): " + best.Verdict;
  const bool few = untilting.UsedGroups() < static_cast<int>(LeastUntiltGroups);
  return step + (few ? ", no limits for fewer than five groups" : ", no limits");
}

/// What the untilting is of.
std::string SubjectOf(const Untilting& untilting) {
  std::string text = std::to_string(untilting.UsedGroups()) + " groups, " +
                     std::to_string(untilting.UsedRecords()) + " records, " +
                     std::to_string(untilting.LeftOut) + " left out";
  if (untilting.Kmax.Limits || untilting.Kmin.Limits)
    text += "; " + std::to_string(UntiltResamplings) + " resamplings, seed " +
            std::to_string(untilting.Seed);
  return text;
}

void DrawWords(Target& target, const PlotGeometry& plot, const Untilting& untilting,
               const std::string& heading) {
  constexpr double Left = -0.12, Top = -0.28, Line = 0.085, SymbolLift = 0.02;
  const auto text = [&](const std::string& words, double left, double v, double size = 0.95) {
    DrawPlotText(target, plot, words, left, v, {.height = plot.Letters(size)});
  };
  double v = Top;
  for (const Curve& curve : Curves) {
    DrawMark(target, plot, curve, plot.At(Left + 0.01, v + SymbolLift));
    text(WordsOf(curve, untilting), Left + 0.04, v);
    v -= Line;
  }
  text(SubjectOf(untilting), Left, v);
  constexpr double Small = 0.6, Widths = 1.2;  // of the plot's letters, and of the plot
  const double room = Widths * plot.width / plot.Letters(Small);
  text(FittingText(heading, room), Left, v - Line, Small);
}

}  // namespace

void DrawUntilting(Target& target, const PlotGeometry& plot, const Untilting& untilting,
                   const std::string& heading) {
  const std::string title = "Stepwise untilting, " + untilting.Foliation;
  target.SetTransparent();
  target.Describe(title, SubjectOf(untilting));
  DrawPlotPaper(target, plot);
  DrawPlotTitle(target, plot, title);
  if (const std::optional<Axis> tau = TauAxis(untilting)) {
    const Frame frame = {plot, PercentAxis(), *tau};
    DrawBands(target, frame, untilting);
    DrawMarks(target, frame);
    DrawXAxis(target, plot, frame.X, AxisTitle(frame.X));
    DrawYAxis(target, plot, frame.Y, AxisTitle(frame.Y));
    for (const Curve& curve : Curves) DrawCurve(target, frame, untilting, curve);
  }
  DrawPlotFrame(target, plot, Black);
  DrawWords(target, plot, untilting, heading);
}

}  // namespace velorix
