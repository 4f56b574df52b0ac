#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

/// Layers of the symbols, those of selected records in the second row.
constexpr Array1<const char*, 3> SymbolLayers[] = {
    {"Kmax symbols", "Kint symbols", "Kmin symbols"},
    {"selected Kmax symbols", "selected Kint symbols", "selected Kmin symbols"}};

/// The ellipse of axis `k` from the block in view, with its vectors as the file gave them.
ConfidenceEllipse EllipseOf(const SpecimenRecord& record, int k, bool im) {
  ConfidenceEllipse ellipse;
  ellipse.axis = k;
  const auto& vectors = im ? record.VecIm : record.Vec;
  for (int i = 1; i <= 3; ++i)
    for (int j = 1; j <= 3; ++j) ellipse.vectors(i, j) = vectors[i][j];
  ellipse.E1 = (im ? record.EIm : record.E)[k];
  ellipse.E2 = (im ? record.E2Im : record.E2)[k];
  return ellipse;
}

/// The directions of one record, the `number`-th of those plotted.
void DrawRecordSymbol(const StereoView& view, const SpecimenRecord& record, int number,
                      const std::optional<ColourCoding>& coding) {
  const bool selected = record.Selected;
  const double value = coding && !selected ? ColourCoding::Value(view, record, number) : 0;
  const std::optional<GroupMark> mark = view.MarkOf(record);
  for (int k = 1; k <= 3; ++k) {
    const Direction direction = DirectionOf(record, k);
    if (!view.options.showAxis[k] || !IsFinite(direction)) continue;
    const PrincipalAxis& axis = Axes[k];
    view.target.Layer(SymbolLayers[selected][k]);
    const std::int16_t size = view.SymbolSize(axis.sizeFactor);
    const Colour fill = coding && !selected ? coding->Fill(value, view.Colours().axes[k])
                                            : view.ColourOf(k, selected, mark);
    if (mark)
      view.Mark(direction, view.SymbolOf(k, *mark, view.symbolsBy), mark->finish, size, fill,
                selected || coding);
    else
      DrawNetSymbol(view.target, view.net, Projection::EqualArea, direction, axis.symbol, size,
                    fill, {});
  }
}

}  // namespace

void DrawRecordCircles(const StereoView& view, bool selected) {
  view.target.Layer(selected ? "selected great circles" : "great circles");
  const auto& shown = view.options.showGreatCircle;
  if (!shown[1] && !shown[2] && !shown[3]) return;
  view.ForEachPlotted(selected, [&](const SpecimenRecord& record, int) {
    const std::optional<GroupMark> mark = view.MarkOf(record);
    for (int k = 1; k <= 3; ++k)
      if (shown[k])
        DrawGreatCircle(view.target, view.net, Projection::EqualArea, 2, false,
                        DirectionOf(record, k), {.colour = view.ColourOf(k, selected, mark)});
  });
}

void DrawDataLines(const StereoView& view) {
  view.target.Layer("lines between specimens");
  const RecordArray& records = view.records;
  if (!view.options.showData || !view.options.showDataLines || records.Count() < 2) return;
  for (int k = 1; k <= 3; ++k) {
    if (!view.options.showAxis[k]) continue;
    // Kept for agreement with published results: a record that isn't in view leaves its entry at
    // the origin, and the line runs there and back.
    std::vector<LogicalPoint> points;
    for (const SpecimenRecord& record : records) {
      LogicalPoint& point = points.emplace_back();
      const Direction d = DirectionOf(record, k);
      if (!record.Active || record.CoorLevel != view.coorSys || !IsFinite(d)) continue;
      const Point unit = ProjectDirection(Projection::EqualArea, d),
                  p = OnNet(view.net, unit.x, unit.y);
      point = ToLogical(view.target, p.x, p.y);
    }
    DrawPolyline(view.target, points, {.colour = view.Colours().axes[k]});
  }
}

void DrawRecordEllipses(const StereoView& view, bool selected) {
  view.target.Layer(selected ? "selected specimens' ellipses" : "specimens' ellipses");
  if (!view.options.showData || !view.options.showDataEllipses) return;
  view.ForEachPlotted(selected, [&](const SpecimenRecord& record, int) {
    const std::optional<GroupMark> mark = view.MarkOf(record);
    for (int k = 1; k <= 3; ++k)
      if (view.options.showAxis[k])
        DrawConfidenceEllipse(view.target, view.net, Projection::EqualArea, false,
                              EllipseOf(record, k, view.reImMode == OutOfPhase),
                              {.colour = view.ColourOf(k, selected, mark)});
  });
}

void DrawAxisSymbol(const StereoView& view, int k, const Direction& direction, bool selected) {
  if (!IsFinite(direction)) return;
  view.target.Layer(SymbolLayers[selected][k]);
  DrawNetSymbol(view.target, view.net, Projection::EqualArea, direction, Axes[k].symbol,
                view.SymbolSize(Axes[k].sizeFactor), view.ColourOf(k, selected, std::nullopt), {});
}

void DrawRecordSymbols(const StereoView& view, bool selected,
                       const std::optional<ColourCoding>& coding) {
  if (!view.options.showData) return;
  view.ForEachPlotted(selected, [&](const SpecimenRecord& record, int number) {
    DrawRecordSymbol(view, record, number, coding);
  });
}

}  // namespace velorix
