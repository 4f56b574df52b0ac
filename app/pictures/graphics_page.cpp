#include "app/pictures/graphics_page.h"

#include "app/display/shown_group.h"
#include "app/files/ask_file.h"
#include "app/pictures/page_plots.h"
#include "base/fault.h"
#include "base/rounding.h"
#include "datafiles/bytes/safe_write.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/metafile_target.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

// clang-format off
/// The line that says what the mean is of, at the left below the net and its legend.
constexpr double MeanLineX = 60, MeanLineY = 402;
constexpr int MeanLineHeight = 11;

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

PlaneSize Scaled(PlaneSize plane, double s) {
  return {ToLong(plane.width * s), ToLong(plane.height * s)};
}

/// Whether the page shows anything of the group statistics.
bool ShowsGroup(const PlotChoices& plots) {
  const StereoOptions& net = plots.Stereo;
  return plots.OnPage[PlotKind::Stereonet] && (net.showMean || net.showMeanEllipses ||
                                               net.showBootstrapCloud || net.showBootstrapContours);
}

/// What a routine says of the mean, or nothing when the page shows none.
std::string MeanOnPage(const PageContent& page,
                       std::string (*words)(const Session&, const GroupSubject&, int)) {
  if (!ShowsGroup(page.Plots)) return {};
  return words(page.Session, page.GroupOf, page.Group.GroupN);
}

}  // namespace

void DrawGraphicsPage(const PageContent& page, Target& target, double s) {
  DrawPlots(page, target, PlacesOfPage(), s);
}

void DrawVectorPage(const PageContent& page, Target& target) {
  int inView = 0;
  ForEachActive(page.Session, [&inView](const SpecimenRecord&) { ++inView; });
  target.Describe("Anisotropy of magnetic susceptibility",
                  GroupHeading(page.Session, GroupInView(page.Session), inView));
  DrawGraphicsPage(page, target, VectorScale);
  const std::string mean = PageMeanLine(page);
  if (mean.empty()) return;
  target.Layer("captions");
  DrawText(target, mean, MeanLineX, MeanLineY, {.height = MeanLineHeight});
}

std::string GraphicsMetafile(const PageContent& page) {
  MetafileTarget target(GraphicsPage, PlaceableHeader(GraphicsPage, PageUnitsPerInch));
  DrawGraphicsPage(page, target, 1);
  return target.Bits();
}

std::string PageMeanLine(const PageContent& page) {
  return GroupLines(page.Plots.Stereo).empty() ? MeanOnPage(page, MeanLabel) : "";
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

Outcome WriteFigure(const Host& host, const std::string& path, PlaneSize plane,
                    const PictureScale& scale, const std::function<void(Target&)>& draw) {
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
