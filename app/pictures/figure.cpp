#include "app/pictures/figure.h"

#include <cmath>

#include "app/display/shown_group.h"
#include "app/pictures/page_plots.h"
#include "base/fault.h"
#include "base/rounding.h"
#include "datafiles/bytes/safe_write.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/fitting_text.h"
#include "plot/drawing/letters.h"
#include "plot/drawing/metafile_target.h"
#include "plot/figure/styled_target.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr double PageWidth = 900, PageHeight = 800, PageUnitsPerInch = 100;
/// A figure's units a unit of the page.
constexpr double Scale = FigureUnitsPerInch / PageUnitsPerInch;

int CountInView(const Session& session) {
  int count = 0;
  ForEachActive(session, [&count](const SpecimenRecord&) { ++count; });
  return count;
}

/// Level, method, number and file.
std::string NameOf(const PageContent& page) {
  StereoOptions net = page.Plots.Stereo;
  if (net.meanOf.empty())
    net.meanOf = GroupHeading(page.Session, GroupInView(page.Session), CountInView(page.Session));
  return LevelHeading(net);
}

/// What stands below the plots: the name where the style has it, and the view of a mean of another
/// one.
std::vector<std::string> SentencesOf(const PageContent& page, const FigureStyle& style) {
  std::vector<std::string> sentences;
  if (style.NameLine) sentences.push_back(NameOf(page));
  if (const std::string mean = PageMeanLine(page); !mean.empty()) sentences.push_back(mean);
  return sentences;
}

ShownPlots ShownOf(const PageContent& page, const FigureStyle& style, const PlotChoices& plots) {
  const Session& session = page.Session;
  ShownPlots shown;
  shown.Shown = plots.OnPage;
  shown.Stereo = plots.Stereo;
  shown.CoorSys = session.CoorSys;
  shown.Plotted = CountInView(session);
  for (const PlotKind plot : AllPlots)
    if (shown.Shown[plot])
      shown.Labels[plot] = LabelsOf({session, plots, page.Group, page.GroupOf}, plot, style.Ticks);
  shown.Sentences = SentencesOf(page, style);
  shown.GroupLegend = plots.Marks.AreShown() && plots.Marks.Legend;
  return shown;
}

PlotStyle PlotStyleOf(const FigureStyle& style) {
  constexpr std::int16_t HaloWidth = 1;
  return {PaletteOf(style), style.Halo ? HaloWidth : std::int16_t{0}, style.Ticks, style.MoreCodes};
}

/// The plots as the style's captions and axes have them.
PlotChoices ChoicesOf(const PageContent& page, const FigureStyle& style) {
  PlotChoices plots = page.Plots;
  plots.Axes = style.Axes;
  if (style.Captions == CaptionPlace::None)
    plots.Stereo.showCaptions = plots.Stereo.showLegend = false;
  return plots;
}

/// A figure with captions outside the net has no room for them at the places of the page.
bool Fills(const FigureStyle& style) {
  return style.Layout == FigureLayout::Fill || style.Captions == CaptionPlace::Outside;
}

/// The places of the page at another width, with the style's letters and symbols.
FigurePlaces PageAt(const FigureStyle& style, const std::vector<std::string>& sentences) {
  FigurePlaces places;
  const double k = style.Width / MmPerInch * PageUnitsPerInch / PageWidth;
  static_cast<PagePlaces&>(places) = PlacesOfPage();
  places.Width = PageWidth * k;
  places.Height = PageHeight * k;
  places.LetterHeight = places.Net.fontHeight * k;
  const auto length = [k](double& value) { value *= k; };
  const double letters = style.FontSize / PointsPerInch * PageUnitsPerInch * CellPerEm;
  const double symbols = style.SymbolSize / MmPerInch * PageUnitsPerInch;
  const auto sizes = [&](auto& place) {
    length(place.fontHeight);
    length(place.symbolSize);
    if (letters > 0) place.fontHeight = letters;
    if (symbols > 0) place.symbolSize = symbols;
  };
  StereoGeometry& net = places.Net;
  for (double* value : {&net.cx, &net.cy, &net.diameter, &net.scaleGap, &net.scaleTitle})
    length(*value);
  sizes(net);
  for (const PlotKind kind : AllPlots) {
    if (kind == PlotKind::Stereonet) continue;
    PlotGeometry& plot = places.Frame[kind];
    for (double* value : {&plot.left, &plot.bottom, &plot.width, &plot.height, &plot.barLeft,
                          &plot.barRight, &plot.barTitle})
      length(*value);
    if (style.PanelLetters)
      places.PanelLetters.push_back(
          {plot.left - 0.17 * plot.width, plot.bottom - 1.08 * plot.height});
    sizes(plot);
  }
  if (style.PanelLetters)
    places.PanelLetters.insert(places.PanelLetters.begin(),
                               {net.cx - 0.6 * net.diameter, net.cy - 0.55 * net.diameter});
  for (double* value :
       {&places.Legend.left, &places.Legend.top, &places.Legend.right, &places.Legend.bottom})
    length(*value);
  places.Legend.scale = letters > 0 ? letters / LettersAsNow : k;
  if (letters > 0) places.LetterHeight = letters;
  places.NameLines = sentences;
  places.NameAt = {60 * k, places.Height - NameStep * places.LetterHeight *
                                               static_cast<double>(sentences.size())};
  return places;
}

FigurePlaces PlacesOf(const PageContent& page, const FigureStyle& style) {
  FigurePlaces places = Fills(style)
                            ? FillFigure(style, ShownOf(page, style, ChoicesOf(page, style)))
                            : PageAt(style, SentencesOf(page, style));
  places.Net.style = PlotStyleOf(style);
  for (const PlotKind plot : AllPlots) places.Frame[plot].style = places.Net.style;
  return places;
}

PlaneSize PlaneOf(const FigurePlaces& places) {
  return {static_cast<int>(std::lround(places.Width * Scale)),
          static_cast<int>(std::ceil(places.Height * Scale))};
}

CallStyle CallStyleOf(const FigureStyle& style, double letterHeight) {
  const double asNow = Fills(style) ? letterHeight / LettersAsNow
                                    : style.Width / MmPerInch * PageUnitsPerInch / PageWidth;
  const double inches =
      style.LineWidth > 0 ? style.LineWidth / PointsPerInch : asNow / PageUnitsPerInch;
  return {inches * FigureUnitsPerInch, style.Font, style.Colours == FigureColours::Grey,
          style.Superscripts};
}

void DrawAround(const FigurePlaces& places, Target& target) {
  const double h = places.LetterHeight;
  target.Layer("captions");
  char letter = 'a';
  for (const Point& p : places.PanelLetters)
    DrawText(target, std::string("(") + letter++ + ")", p.x * Scale, p.y * Scale,
             {.height = ToShort(1.1 * h * Scale), .weight = 700});
  if (places.Key) {
    StereoGeometry net = places.Net;
    net.scale = Scale;
    places.Key->Draw(target, net, places.KeyAt.x, places.KeyAt.y);
  }
  target.Layer("captions");
  double y = places.NameAt.y;
  for (const std::string& line : places.NameLines)
    DrawText(target, line, places.NameAt.x * Scale, (y += NameStep * h) * Scale,
             {.height = ToShort(h * Scale)});
}

/// The pixels an inch that pictures of the page have.
constexpr double PixelsPerInchAsNow = 160;

}  // namespace

PlaneSize FigurePlane(const PageContent& page, const FigureStyle& style) {
  return PlaneOf(PlacesOf(page, style));
}

void DrawFigure(const PageContent& page, const FigureStyle& style, Target& target) {
  const Session& session = page.Session;
  const FigurePlaces places = PlacesOf(page, style);
  PlotChoices plots = ChoicesOf(page, style);
  if (places.Key) plots.Stereo.showCaptions = plots.Stereo.showLegend = false;
  StyledTarget styled(target, CallStyleOf(style, places.LetterHeight));
  styled.Describe("Anisotropy of magnetic susceptibility",
                  GroupHeading(session, GroupInView(session), CountInView(session)));
  DrawPlots({session, plots, page.Group, page.GroupOf}, styled, places, Scale);
  if (HasPlots(plots)) DrawAround(places, styled);
}

Outcome WriteFigureFile(const Host& host, const PictureAnswer& to, const PageContent& page,
                        const FigureStyle& style) {
  constexpr double MostPixels = 250e6;
  if (style == FigureStyle()) return WriteGraphicsPage(host, to, page);
  const std::string& path = to.Path;
  const PlaneSize plane = FigurePlane(page, style);
  if (!to.AsBitmap) {
    FigureStyle inCodePage = style;  // which has no raised digits
    inCodePage.Superscripts = false;
    MetafileTarget target(plane, PlaceableHeader(plane, FigureUnitsPerInch));
    DrawFigure(page, inCodePage, target);
    SafeWrite(path, [&](std::ostream& out) { out << target.Bits(); });
    return {};
  }
  const auto draw = [&](Target& target) { DrawFigure(page, style, target); };
  constexpr double VectorUnitsPerInch = 96;
  const std::string type = LowerCase(ExtensionOf(path));
  if (type == "svg" || type == "pdf")
    return WriteFigure(host, path, plane, VectorUnitsPerInch / FigureUnitsPerInch, draw);
  const double inch =
      style.Resolution > 0 ? static_cast<double>(style.Resolution) : PixelsPerInchAsNow;
  const double pixels = inch / FigureUnitsPerInch;
  if (plane.width * pixels * plane.height * pixels > MostPixels)
    return Outcome::Refused(ExportTitle, path +
                                             "\nThis resolution would make more than 250 million "
                                             "pixels; choose a smaller one or a smaller width.");
  return WriteFigure(host, path, plane, {pixels, static_cast<int>(style.Resolution)}, draw);
}

}  // namespace velorix
