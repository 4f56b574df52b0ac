#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

/// Strike sticks on the rim. Kept for agreement with published results: an unselected record gets
/// one, a selected one the two at right angles to its dip direction.
void DrawSticks(const StereoView& view, double poleDec, bool selected, Colour colour) {
  constexpr double NoDeclination = 30000;  // a damaged file may hold any number
  const auto stick = [&](double dec) {
    if (std::fabs(dec) > NoDeclination) return;
    const auto type = static_cast<std::int16_t>(1000 + ToShort(dec));
    DrawNetSymbol(view.target, view.net, Projection::EqualArea, {dec, 0}, type, view.SymbolSize(1),
                  White, {.colour = colour});
  };
  if (!selected) return stick(poleDec + 90 >= 360 ? poleDec - 270 : poleDec + 90);
  const double left = poleDec - 90 < 0 ? poleDec + 270 : poleDec - 90;
  stick(left);
  stick(left + 180 >= 360 ? left - 180 : left + 180);
}

void DrawPlane(const StereoView& view, Direction plane, int i, bool selected) {
  const Direction pole = PoleOfPlane(plane);
  if (!IsFinite(pole)) return;
  const StereoOptions& options = view.options;
  const Palette& colours = view.Colours();
  const bool more = view.geometry.style.moreCodes;
  const Colour colour = selected ? colours.selected : colours.planes;
  if (options.planesAsCircles)
    DrawGreatCircle(view.target, view.net, Projection::EqualArea, 2, false, pole,
                    FoliPen(i, colour, more));
  if (options.planesAsPoles) {
    const CodeSymbol symbol = SymbolOfCode(i, FirstPole, colour, more);
    DrawNetSymbol(view.target, view.net, Projection::EqualArea, pole, symbol.symbol,
                  view.SymbolSize(1.2), symbol.fill, {.colour = colour});
  }
  if (options.planesAsStrikes) DrawSticks(view, pole.Dec, selected, colour);
}

void DrawPlanes(const StereoView& view, const SpecimenRecord& record, bool selected) {
  int i = 0;
  for (const std::string& code : view.options.foliationCodes) {
    ++i;
    for (int slot = 1; slot <= 2; ++slot)
      if (record.FoliName[slot] == code)
        DrawPlane(view, {record.FoliDec[slot], record.FoliInc[slot]}, i, selected);
  }
}

void DrawLines(const StereoView& view, const SpecimenRecord& record, bool selected) {
  int i = 0;
  for (const std::string& code : view.options.lineationCodes) {
    ++i;
    for (int slot = 1; slot <= 2; ++slot) {
      const Direction line = {record.LineDec[slot], record.LineInc[slot]};
      if (record.LineName[slot] == code && IsFinite(line)) {
        const Colour colour = selected ? view.Colours().selected : view.Colours().lines;
        const CodeSymbol symbol = SymbolOfCode(i, FirstLine, colour, view.geometry.style.moreCodes);
        DrawNetSymbol(view.target, view.net, Projection::EqualArea, line, symbol.symbol,
                      view.SymbolSize(1), symbol.fill, {.colour = colour});
      }
    }
  }
}

}  // namespace

void DrawGeology(const StereoView& view, bool selected) {
  view.target.Layer(selected ? "selected planes and lines" : "planes and lines");
  if (view.coorSys < Geographic) return;
  const bool planes = view.options.showPlanes, lines = view.options.showLines;
  if (!planes && !lines) return;
  view.ForEachPlotted(selected, [&](const SpecimenRecord& record, int) {
    if (planes) DrawPlanes(view, record, selected);
    if (lines) DrawLines(view, record, selected);
  });
}

}  // namespace velorix
