#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "base/rounding.h"
#include "plot/axes/axes.h"
#include "plot/axes/axis_scale.h"
#include "plot/drawing/symbols.h"
#include "plot/net/net_curves.h"
#include "plot/net/stereo.h"
#include "store/session.h"

namespace velorix {

// What the files of the stereo view and the panels share; nobody else includes this.

/// What every layer draws from and on.
struct StereoView {
  const RecordArray& records;
  CoordinateSystem coorSys;
  TensorBlock reImMode;
  velorix::Target& target;
  const StereoGeometry& geometry;
  const StereoOptions& options;
  const GroupStats& stats;
  const Settings& settings;
  Net net;
  std::int16_t lineWidth = 1;  // of thin lines of the means
  int ellipseStep = 1;         // degrees between points of the means' ellipses, or StepBySize
  const GroupMarks* marks = nullptr;   // null: groups are not shown
  MarkBy symbolsBy = MarkBy::Nothing;  // what shows the groups of records

  bool HasHalo() const { return geometry.style.halo > 0; }
  const Palette& Colours() const { return geometry.style.palette; }
  std::int16_t Scaled(double factor, std::int16_t size) const { return ToShort(factor * size); }
  std::int16_t SymbolSize(double factor) const { return Scaled(factor, geometry.SymbolSize()); }
  std::int16_t CaptionHeight() const { return Scaled(1.1, geometry.FontHeight()); }

  void Text(const std::string& text, double u, double v, int alignment) const {
    Text(text, u, v, alignment, CaptionHeight());
  }
  void Text(const std::string& text, double u, double v, int alignment, std::int16_t height) const {
    const Point p = OnNet(net, u, v);
    DrawText(target, text, p.x, p.y, {.height = height, .alignment = alignment});
  }
  void Symbol(std::int16_t type, double u, double v, double sizeFactor, Colour fill,
              Colour penColour) const {
    const Point p = OnNet(net, u, v);
    DrawSymbol(target, type, static_cast<float>(p.x), static_cast<float>(p.y),
               SymbolSize(sizeFactor), fill, {.colour = penColour});
  }
  void Line(double u1, double u2, double v, const Pen& pen) const {
    const Point a = OnNet(net, u1, v), b = OnNet(net, u2, v);
    DrawLine(target, a.x, a.y, b.x, b.y, pen);
  }
  /// As in all views, but a block that is neither of the two shows no record here.
  bool Plots(const SpecimenRecord& record) const {
    return (reImMode == InPhase || reImMode == OutOfPhase) && IsShown(record, coorSys, reImMode);
  }
  /// The mark of a record's group where the symbols show it.
  std::optional<GroupMark> MarkOf(const SpecimenRecord& record) const {
    if (symbolsBy == MarkBy::Nothing) return std::nullopt;
    return marks->MarkOf(static_cast<std::size_t>(&record - records.begin()));
  }
  /// The colour of what is drawn of axis `k` of a record.
  Colour ColourOf(int k, bool selected, const std::optional<GroupMark>& mark) const {
    if (selected) return Colours().selected;
    return mark && symbolsBy == MarkBy::Colours ? mark->colour : Colours().axes[k];
  }
  std::int16_t SymbolOf(int k, const GroupMark& mark, MarkBy by) const {
    return by == MarkBy::Shapes ? mark.symbol : Axes[k].symbol;
  }
  void Mark(const Direction& direction, std::int16_t symbol, Finish finish, std::int16_t size,
            Colour fill, bool keepsFill) const {
    const Point unit = ProjectDirection(Projection::EqualArea, direction),
                p = OnNet(net, unit.x, unit.y);
    DrawMark(target, symbol, finish, p.x, p.y, size, fill, keepsFill);
  }
  /// Visits the plotted records that are selected, or those that are not, with their running
  /// numbers among all plotted ones: `visit(record, number)`.
  template <class Visit>
  void ForEachPlotted(bool selected, Visit visit) const {
    int number = 0;
    for (const SpecimenRecord& record : records)
      if (Plots(record) && (++number, record.Selected == selected)) visit(record, number);
  }
};

/// How a parameter colours the symbols of unselected records.
struct ColourCoding {
  AxisRange scale;
  bool perAxis = true;  // a ramp from white for each axis, else one ramp for all
  Colour (*ramp)(float) = ColorScale;

  Colour Fill(double value, Colour axisColour) const;
  static double Value(const StereoView& view, const SpecimenRecord& record, int number);
};

inline Direction DirectionOf(const SpecimenRecord& record, int k) {
  return {record.Dec[k], record.Inc[k]};
}
inline bool IsFinite(const Direction& d) { return std::isfinite(d.Dec) && std::isfinite(d.Inc); }

/// The pen of the i-th foliation's great circle, in legend and net. The sixth has style 5 and so no
/// line at all: the styles just run on, unless `more` starts them again in wide lines.
Pen FoliPen(int i, Colour colour, bool more);
/// The symbol and the fill of the i-th code, of symbols from `first` on. Those of a sixth and later
/// code draw nothing, unless `more` starts them again, filled.
inline constexpr int CodeStyles = 5;
inline constexpr std::int16_t FirstPole = 31, FirstLine = 11;
struct CodeSymbol {
  std::int16_t symbol = 0;
  Colour fill = White;
};
CodeSymbol SymbolOfCode(int i, std::int16_t first, Colour colour, bool more);

// The layers, in the order of drawing. `selected` chooses one of the two passes that some have.
void DrawCaptions(const StereoView& view);
void DrawLegend(const StereoView& view);
void DrawGeology(const StereoView& view, bool selected);
void DrawBootstrap(const StereoView& view);
/// Draws the scale and gives the coding, or none when no record has a value or colours are off.
std::optional<ColourCoding> DrawColourScale(const StereoView& view);
void DrawRecordCircles(const StereoView& view, bool selected);
void DrawDataLines(const StereoView& view);
void DrawRecordEllipses(const StereoView& view, bool selected);
/// A direction of axis `k` in the axis's colour or the selection's.
void DrawAxisSymbol(const StereoView& view, int k, const Direction& direction, bool selected);
void DrawRecordSymbols(const StereoView& view, bool selected,
                       const std::optional<ColourCoding>& coding);
/// The means of the groups that the marks have.
void DrawGroupMeans(const StereoView& view);
/// White rims that keep means and ellipses apart from the symbols under them.
void DrawMeanHalos(const StereoView& view);
void DrawMeans(const StereoView& view);
void DrawMeanEllipses(const StereoView& view);

/// Rows of the legend in the unit net.
inline constexpr double RowStep = 0.1, LegendTop = -0.85;
/// The first of the lines on the group, below the legend.
double GroupTop(const StereoOptions& options);
inline constexpr double GroupStep = 0.08;
inline constexpr double FoliColumn = 0.68, LineColumn = 1.15, ColumnStep = 0.12;
/// The length of a line of a bar of the colour scale at scale 1.
inline constexpr int BarWidth = 10;

}  // namespace velorix
