#include "app/files/graphics_page.h"

#include "app/display/shown_group.h"
#include "app/files/ask_file.h"
#include "app/tables/data_table.h"
#include "base/fault.h"
#include "base/rounding.h"
#include "datafiles/safe_write.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/metafile_target.h"
#include "plot/plots/histogram.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

// clang-format off
constexpr StereoGeometry StereoPlace = {.cx = 220, .cy = 200, .diameter = 320, .symbolSize = 8, .fontHeight = 14};
constexpr PlotGeometry HistoPlace = {.left = 530, .bottom = 340, .width = 320, .height = 240, .fontHeight = 14};
// Titles, axis titles and numbers of the XY plots are 14, 10 and 9 high: 1.5, 1.1 and 1 times 9.
// Their colour scales stand nearer than on the screen, so that the second one ends on the page.
constexpr PlotGeometry XYPlotPlaces[] = {
    {.left = 60,  .bottom = 620, .width = 320, .height = 180, .fontHeight = 9, .symbolSize = 8, .barLeft = 23, .barRight = 31, .barTitle = 45},
    {.left = 530, .bottom = 620, .width = 320, .height = 180, .fontHeight = 9, .symbolSize = 8, .barLeft = 23, .barRight = 31, .barTitle = 45}};

/// The line that says what the mean is of, at the left below the net and its legend.
constexpr double MeanLineX = 60, MeanLineY = 402;
constexpr int MeanLineHeight = 11;

/// The groups' names, below the plots.
constexpr LegendBox LegendPlace = {60, 675, 860, 795};

/// A type of files. The filter of the metafile, the first one, gives a metafile under any name; for
/// all others the extension alone counts.
struct PageKind {
  const char *Caption, *Extension;
  const char* OtherExtension;  // that is the same type
  double Scale;                // of its pictures; 0: the host makes none
};
constexpr double VectorScale = 1;
constexpr PageKind Kinds[] = {
    {"Windows metafile",                   "wmf", "",     0},
    {"Bitmap Files",                       "bmp", "",     BitmapScale},
    {"Graphics Interchange Format",        "gif", "",     BitmapScale},
    {"Tagged Image Format",                "tif", "tiff", BitmapScale},
    {"Portable Network Graphics",          "png", "",     BitmapScale},
    {"Joint Photographic Experts Group",   "jpg", "jpeg", BitmapScale},
    {"Scalable Vector Graphics",           "svg", "",     VectorScale},
    {"Portable Document Format",           "pdf", "",     VectorScale},
};
constexpr int MetafileFilter = 1;
// clang-format on

/// The scale of pictures with an extension, in any case of letters; 0 for those that nobody makes.
double ScaleOf(const std::string& extension) {
  const std::string lower = LowerCase(extension);
  for (const PageKind& kind : Kinds)
    if (!lower.empty() && (lower == kind.Extension || lower == kind.OtherExtension))
      return kind.Scale;
  return 0;
}

/// A place on the page, times `s`.
template <class Geometry>
Geometry Scaled(Geometry place, double s) {
  place.scale = s;
  return place;
}

PlaneSize Scaled(PlaneSize plane, double s) {
  return {ToLong(plane.width * s), ToLong(plane.height * s)};
}

/// What the one legend of the groups looks like: their shapes, where a plot shows them, in their
/// colours.
LegendLook PageLegend(const PlotChoices& plots) {
  const PageOptions& page = plots.Page;
  bool values = page.stereonet && plots.Stereo.showData && plots.Stereo.colourByValue;
  for (const int plot : {1, 2})
    values |= (plot == 1 ? page.xyPlot1 : page.xyPlot2) && plots.XYPlot[plot].coding;
  if (plots.Marks.By == MarkBy::Colours && !values) return {NeutralSymbol, std::nullopt};
  return {};
}

/// Whether the page shows anything of the group statistics.
bool ShowsGroup(const PlotChoices& plots) {
  const StereoOptions& net = plots.Stereo;
  return plots.Page.stereonet && (net.showMean || net.showMeanEllipses || net.showBootstrapCloud ||
                                  net.showBootstrapContours);
}

/// What a routine says of the mean, or nothing when the page shows none.
std::string MeanOnPage(const PageContent& page,
                       std::string (*words)(const Session&, const GroupSubject&, int)) {
  if (!ShowsGroup(page.Plots)) return {};
  return words(page.Session, page.GroupOf, page.Group.GroupN);
}

}  // namespace

void DrawGraphicsPage(const PageContent& content, Target& target, double s) {
  const auto& [session, plots, group, groupOf] = content;
  const PageOptions& page = plots.Page;
  if (page.stereonet)
    DrawStereo(session.Records, session.CoorSys, target, Scaled(StereoPlace, s), plots.Stereo,
               session.ReImMode, group, session.Settings, plots.Marks);
  if (page.histogram)
    DrawHisto(target, Scaled(HistoPlace, s), DataTableValues(plots.HistoParameter, session),
              plots.HistoParameter, session.Settings, ShownGroups(session, plots.Marks));
  for (int plot : {1, 2})
    if (plot == 1 ? page.xyPlot1 : page.xyPlot2)
      DrawXYPlot(session, target, Scaled(XYPlotPlaces[plot - 1], s), plots.Shown(plot),
                 plots.Marks);
  if (page.stereonet || page.histogram || page.xyPlot1 || page.xyPlot2)
    DrawLegendIn(target, LegendPlace, plots.Marks, PageLegend(plots), s);
}

void DrawVectorPage(const PageContent& page, Target& target) {
  int inView = 0;
  ForEachActive(page.Session, [&inView](const SpecimenRecord&) { ++inView; });
  target.Describe("Anisotropy of magnetic susceptibility",
                  GroupHeading(page.Session, GroupInView(page.Session), inView));
  DrawGraphicsPage(page, target, VectorScale);
  const std::string mean = MeanOnPage(page, MeanLabel);
  if (mean.empty() || !GroupLines(page.Plots.Stereo).empty()) return;
  target.Layer("captions");
  DrawText(target, mean, MeanLineX, MeanLineY, {.height = MeanLineHeight});
}

std::string GraphicsMetafile(const PageContent& page) {
  MetafileTarget target(GraphicsPage, PlaceableHeader(GraphicsPage, PageUnitsPerInch));
  DrawGraphicsPage(page, target, 1);
  return target.Bits();
}

std::string PageMeanNotice(const PageContent& page) { return MeanOnPage(page, MeanNotice); }

std::optional<PictureAnswer> AskForPicture(const Session& session, Dialogs& dialogs,
                                           const char* title) {
  FileQuestion question = SaveQuestion(session, title);
  for (const PageKind& kind : Kinds) question.Filter += FilterText(kind.Caption, kind.Extension);
  // Only the proposed name gets an extension. One typed without it names no encoder and is refused.
  question.AddsExtension = false;
  const auto answer = AskWhereToSave(dialogs, question);
  if (!answer) return std::nullopt;
  return PictureAnswer{answer->Filename, answer->FilterIndex != MetafileFilter};
}

Outcome WritePagePicture(const Host& host, const PictureAnswer& to, const PagePicture& picture) {
  if (to.AsBitmap) return SaveBitmapAs(host, picture.Draw, to.Path, picture.Fineness);
  SafeWrite(to.Path, [bytes = picture.Metafile()](std::ostream& out) { out << bytes; });
  return {};
}

Outcome WriteGraphicsPage(const Host& host, const PictureAnswer& to, const PageContent& page) {
  return WritePagePicture(host, to,
                          {[&page] { return GraphicsMetafile(page); },
                           [&page](Target& target, double s) {
                             s == VectorScale ? DrawVectorPage(page, target)
                                              : DrawGraphicsPage(page, target, s);
                           }});
}

Outcome WriteFigure(const Host& host, const std::string& path, PlaneSize plane, double scale,
                    const std::function<void(Target&)>& draw) {
  if (!host.WritePicture)
    return Outcome::Refused(ExportTitle, path + "\nThis build has no encoders.");
  return host.WritePicture(path, plane, scale, draw);
}

Outcome SaveBitmapAs(const Host& host, const std::function<void(Target&, double s)>& picture,
                     const std::string& path, int fineness) {
  const double ofType = ScaleOf(ExtensionOf(path)), s = ofType * fineness;
  if (s == 0) return Outcome::Refused(ExportTitle, path + "\nNo encoder has this extension.");
  return WriteFigure(host, path, Scaled(GraphicsPage, s),
                     ofType == VectorScale ? 1.0 / fineness : 1,
                     [&](Target& target) { picture(target, s); });
}

}  // namespace velorix
