#include "plot/net/panels.h"

#include "plot/drawing/fitting_text.h"
#include "plot/net/stereo_view.h"

namespace velorix {
namespace {

constexpr double Margin = 24, CaptionStep = 17, LegendGap = 20;
constexpr std::int16_t CaptionHeight = 13;
/// Lengths of a panel in diameters of its net: room at both sides and below, letters, symbols.
constexpr double SideRoom = 0.14, LetterPart = 0.115, SymbolPart = 0.045;
/// Where N ends, in the unit net: in the corner that the circle leaves free.
constexpr double CountU = 1.1, CountV = -1.12;
constexpr double LeastLetters = 5, MostLetters = 18, LeastSymbols = 3, MostSymbols = 7;
/// Above a net stand its name and, a line lower, its label; lines are so many heights apart.
constexpr double LineStep = 1.15;
/// Scale at which thin lines become one unit wider.
constexpr double LineScale = 1.5;
/// Nets below this diameter go without ticks, and their ellipses without more points than whole
/// units show.
constexpr double SmallNet = 150;

/// Panels side by side and one below the other, all of a size.
struct PanelGrid {
  int columns = 1, rows = 1;
  double diameter = 0, letters = 0, columnWidth = 0, rowHeight = 0;
};

/// So many columns in this room.
PanelGrid GridOf(int columns, int panels, double width, double height) {
  PanelGrid grid;
  grid.columns = columns;
  grid.rows = (panels + columns - 1) / columns;
  grid.columnWidth = width / columns;
  grid.rowHeight = height / grid.rows;
  const double widest = grid.columnWidth / (1 + SideRoom);
  const double highest = grid.rowHeight / (1 + SideRoom + 2 * LineStep * LetterPart);
  grid.letters = std::clamp(LetterPart * std::min(widest, highest), LeastLetters, MostLetters);
  grid.diameter = std::min(widest, grid.rowHeight / (1 + SideRoom) - 2 * LineStep * grid.letters);
  return grid;
}

/// The grid with the largest nets.
PanelGrid BestGrid(int panels, double width, double height) {
  PanelGrid best = GridOf(1, panels, width, height);
  for (int columns = 2; columns <= panels; ++columns) {
    const PanelGrid grid = GridOf(columns, panels, width, height);
    if (grid.diameter > best.diameter) best = grid;
  }
  return best;
}

/// The principal directions of a record in view.
struct RecordDirections {
  Array1<Direction, 3> Of;
  bool Selected = false;
};

/// A panel at its place on the page.
struct PlacedPanel {
  const Panel* panel = nullptr;
  StereoGeometry geometry;
  double width = 0;  // of the room for its name
  std::vector<RecordDirections> plotted;
};

/// Draws panels, layer by layer: each change of a colour costs as much as a symbol.
class Panels {
 public:
  Panels(const Session& session, ErrorLevel level, Target& target, double s)
      : session_(session), target_(target), s_(s) {
    options_.level = level;
  }

  void Draw(std::span<PlacedPanel> panels) const {
    for (PlacedPanel& placed : panels) {
      const StereoView view = ViewOf(placed);
      for (const int place : placed.panel->Records)
        if (const SpecimenRecord& record = session_.Records[place]; view.Plots(record))
          placed.plotted.push_back(
              {{DirectionOf(record, 1), DirectionOf(record, 2), DirectionOf(record, 3)},
               record.Selected});
      DrawFrame(view);
    }
    for (const bool selected : {false, true})
      for (int k = 1; k <= 3; ++k)
        for (const PlacedPanel& placed : panels) {
          const StereoView view = ViewOf(placed);
          for (const RecordDirections& record : placed.plotted)
            if (record.Selected == selected) DrawAxisSymbol(view, k, record.Of[k], selected);
        }
    for (const PlacedPanel& placed : panels) DrawMeans(ViewOf(placed));
    for (const PlacedPanel& placed : panels) DrawMeanEllipses(ViewOf(placed));
    target_.Layer("names");
    for (const PlacedPanel& placed : panels) DrawCount(placed);
    for (const PlacedPanel& placed : panels) DrawName(placed);
  }

  /// What the symbols mean, from (x, y) to the right.
  void DrawLegend(double x, double y) const {
    constexpr double Radius = 500;  // of a net whose unit makes the places easy
    const StereoGeometry geometry = {.cx = x, .cy = y, .diameter = 2 * Radius, .scale = s_};
    const GroupStats none;
    const StereoView view = ViewOf(geometry, none);
    for (const PrincipalAxis& axis : Axes) {
      view.Symbol(axis.symbol, (x - geometry.cx + 5) / Radius, 4 / Radius, axis.sizeFactor,
                  axis.colour, Black);
      Text(axis.name, x + 14, y, {.height = CaptionHeight});
      x += 55;
    }
    Text("Filled: specimens. Open: means of the groups. Equal-area projection.", x, y,
         {.height = CaptionHeight});
  }

  void Text(const std::string& text, double x, double y, TextStyle style) const {
    style.height = ToShort(style.height * s_);
    DrawText(target_, text, x * s_, y * s_, style);
  }

 private:
  /// The primitive circle, the label at its top, its centre, and where there is room for them a
  /// tick at every 30 degrees of inclination.
  void DrawFrame(const StereoView& view) const {
    constexpr std::int16_t Level = 4, Upright = 6;  // symbols
    const Net& net = view.net;
    target_.Layer("nets");
    DrawCircle(target_, net.cx, net.cy, net.diameter / 2, {.width = 2}, 0);
    view.Text(NamesOf(session_.CoorSys).Rim[0], 0, 1.02, CentreBaseline,
              view.geometry.FontHeight());
    const auto tick = [&](std::int16_t type, double u, double v) {
      const Point p = OnNet(net, u, v);
      DrawSymbol(target_, type, static_cast<float>(p.x), static_cast<float>(p.y),
                 ToShort(net.diameter / 34), Black, {});
    };
    for (const std::int16_t type : {Level, Upright}) tick(type, 0, 0);
    if (view.geometry.diameter < SmallNet) return;
    static const double radii[] = {ProjectDirection(Projection::EqualArea, {0, 30}).y,
                                   ProjectDirection(Projection::EqualArea, {0, 60}).y};
    for (const double r : radii) {
      for (const double v : {r, -r}) tick(Level, 0, v);
      for (const double u : {r, -r}) tick(Upright, u, 0);
    }
  }

  void DrawCount(const PlacedPanel& placed) const {
    ViewOf(placed).Text("N = " + std::to_string(placed.plotted.size()), CountU, CountV,
                        RightBaseline, placed.geometry.FontHeight());
  }
  void DrawName(const PlacedPanel& placed) const {
    const StereoGeometry& net = placed.geometry;
    const std::string& name = placed.panel->Name;
    Text(FittingText(name.empty() ? "(no name)" : name, placed.width / net.fontHeight), net.cx,
         net.cy - net.diameter * 0.51 - LineStep * net.fontHeight,
         {.height = ToShort(net.fontHeight), .alignment = CentreBaseline, .weight = 600});
  }

  StereoView ViewOf(const PlacedPanel& placed) const {
    return ViewOf(placed.geometry, *placed.panel->Stats);
  }
  StereoView ViewOf(const StereoGeometry& geometry, const GroupStats& stats) const {
    const std::int16_t lineWidth = std::max<std::int16_t>(1, ToShort(s_ / LineScale));
    return {session_.Records,
            session_.CoorSys,
            session_.ReImMode,
            target_,
            geometry,
            options_,
            stats,
            session_.Settings,
            geometry.OnTarget(),
            lineWidth,
            geometry.diameter < SmallNet ? StepBySize : 1};
  }

  const Session& session_;
  Target& target_;
  const double s_;
  StereoOptions options_;
};

}  // namespace

void DrawPanels(const Session& session, std::span<const Panel> panels, ErrorLevel level,
                const std::vector<std::string>& captions, Target& target, PlaneSize page,
                double s) {
  target.SetTransparent();
  std::string description;
  for (const std::string& caption : captions) description += caption + " ";
  target.Describe("Principal directions of groups", description);
  const Panels drawn(session, level, target, s);
  const double width = page.width - 2 * Margin;
  const double legend = page.height - Margin - CaptionStep * static_cast<double>(captions.size());
  const auto count = static_cast<int>(panels.size());
  const PanelGrid grid = BestGrid(std::max(count, 1), width, legend - LegendGap - Margin);
  std::vector<PlacedPanel> placed;
  for (int i = 0; i < count; ++i) {
    const int row = i / grid.columns, column = i % grid.columns;
    const double left = Margin + grid.columnWidth * column;
    const double top = Margin + grid.rowHeight * row;
    const StereoGeometry geometry = {.cx = left + grid.columnWidth / 2,
                                     .cy = top + 2 * LineStep * grid.letters + grid.diameter / 2,
                                     .diameter = grid.diameter,
                                     .symbolSize = static_cast<double>(ToShort(std::clamp(
                                         SymbolPart * grid.diameter, LeastSymbols, MostSymbols))),
                                     .fontHeight = static_cast<double>(ToShort(grid.letters)),
                                     .scale = s};
    placed.push_back({&panels[static_cast<std::size_t>(i)], geometry, grid.columnWidth, {}});
  }
  drawn.Draw(placed);
  target.Layer("legend");
  drawn.DrawLegend(Margin, legend);
  double y = legend;
  for (const std::string& caption : captions)
    drawn.Text(FittingText(caption, width / CaptionHeight), Margin, y += CaptionStep,
               {.height = CaptionHeight});
}

}  // namespace velorix
