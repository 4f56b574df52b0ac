#include "app/files/graphics_page.h"

#include "app/display/display.h"
#include "app/display/shown_group.h"
#include "app/files/ask_file.h"
#include "app/files/page_plots.h"
#include "app/state/refusals.h"
#include "base/fault.h"
#include "base/rounding.h"
#include "datafiles/safe_write.h"
#include "plot/drawing/drawing.h"
#include "plot/drawing/metafile_target.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr char SaveTitle[] = "Save graphics", ExportTitle[] = "Export graphics";
constexpr char PrintTitle[] = "Print", DocumentName[] = "Pelt4Q";

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

void DrawPage(const Velorix& velorix, Target& target, double s) {
  DrawGraphicsPage(velorix.Session, velorix.Plots, velorix.GroupStats, target, s);
}

std::string Metafile(const Velorix& velorix) {
  return GraphicsMetafile(velorix.Session, velorix.Plots, velorix.GroupStats);
}

/// Whether the page shows anything of the group statistics.
bool ShowsGroup(const PlotChoices& plots) {
  const StereoOptions& net = plots.Stereo;
  return plots.Page.stereonet && (net.showMean || net.showMeanEllipses || net.showBootstrapCloud ||
                                  net.showBootstrapContours);
}

/// What a routine says of the mean, or nothing when the page shows none.
std::string MeanOnPage(const Velorix& velorix,
                       std::string (*words)(const Session&, const GroupSubject&, int)) {
  if (!ShowsGroup(velorix.Plots)) return {};
  return words(velorix.Session, velorix.GroupOf, velorix.GroupStats.GroupN);
}

/// The page for paper and for files of vectors. A mean of another view than the net's is named
/// below the net, where the net's captions don't. Metafile, clipboard and pictures of pixels go
/// without that line.
void DrawVectorPage(const Velorix& velorix, Target& target) {
  const Session& session = velorix.Session;
  int inView = 0;
  ForEachActive(session, [&inView](const SpecimenRecord&) { ++inView; });
  target.Describe("Anisotropy of magnetic susceptibility",
                  GroupHeading(session, GroupInView(session), inView));
  DrawPage(velorix, target, VectorScale);
  const std::string mean = MeanOnPage(velorix, MeanLabel);
  if (mean.empty() || !GroupLines(velorix.Plots.Stereo).empty()) return;
  target.Layer("captions");
  DrawText(target, mean, MeanLineX, MeanLineY, {.height = MeanLineHeight});
}

/// What the status line says of a figure that is made: `done`, and that its mean is of another
/// view.
void ShowFigureDone(Velorix& velorix, std::string done) {
  const std::string mean = MeanOnPage(velorix, MeanNotice);
  if (!done.empty() && !mean.empty()) done += ". ";
  if (!(done += mean).empty()) velorix.Views.ShowStatus(done);
}

}  // namespace

void DrawGraphicsPage(const Session& session, const PlotChoices& plots, const GroupStats& group,
                      Target& target, double s) {
  DrawPlots(session, plots, group, target, PlacesOfPage(), s);
}

std::string GraphicsMetafile(const Session& session, const PlotChoices& plots,
                             const GroupStats& group) {
  MetafileTarget target(GraphicsPage, PlaceableHeader(GraphicsPage, PageUnitsPerInch));
  DrawGraphicsPage(session, plots, group, target, 1);
  return target.Bits();
}

void SaveGraphics(Velorix& velorix) {
  const auto answer = AskForPicture(velorix, SaveTitle);
  if (answer && ExportGraphics(velorix, answer->Path, answer->AsBitmap))
    ShowFigureDone(velorix, "Written: " + answer->Path);
}

bool ExportGraphics(Velorix& velorix, const std::string& path, bool asBitmap) {
  return ExportPicture(velorix, {path, asBitmap},
                       {[&velorix] { return Metafile(velorix); },
                        [&velorix](Target& target, double s) {
                          s == VectorScale ? DrawVectorPage(velorix, target)
                                           : DrawPage(velorix, target, s);
                        }});
}

std::optional<PictureAnswer> AskForPicture(Velorix& velorix, const char* title) {
  FileQuestion question = SaveQuestion(velorix.Session, title);
  for (const PageKind& kind : Kinds) question.Filter += FilterText(kind.Caption, kind.Extension);
  // Only the proposed name gets an extension. One typed without it names no encoder and is refused.
  question.AddsExtension = false;
  const auto answer = AskWhereToSave(velorix.Dialogs, question);
  if (!answer) return std::nullopt;
  return PictureAnswer{answer->Filename, answer->FilterIndex != MetafileFilter};
}

bool ExportPicture(Velorix& velorix, const PictureAnswer& to, const PagePicture& picture) {
  return WriteReported(velorix, to.Path, [&]() -> Outcome {
    if (to.AsBitmap) return SaveBitmapAs(velorix.Host, picture.Draw, to.Path, picture.Fineness);
    SafeWrite(to.Path, [bytes = picture.Metafile()](std::ostream& out) { out << bytes; });
    return {};
  });
}

bool WriteReported(Velorix& velorix, const std::string& path,
                   const std::function<Outcome()>& write) {
  try {
    const Outcome outcome = write();
    if (outcome) return true;
    ReportRefusal(velorix.Views, velorix.Log, outcome.Text);
    Show(velorix.Dialogs, Outcome::Refused(ExportTitle, path + "\nFile was not saved!"));
  } catch (const FileFault& fault) {
    // Kept for agreement with published results: no box says so.
    ReportRefusal(velorix.Views, velorix.Log,
                  path + "\nThis file could not be written: " + fault.what());
  }
  return false;
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

void CopyGraphics(Velorix& velorix) {
  if (!velorix.Host.CopyPicture) return;
  const Outcome outcome = velorix.Host.CopyPicture(
      Metafile(velorix), GraphicsPage, [&](Target& target) { DrawPage(velorix, target, 1); });
  if (outcome) return ShowFigureDone(velorix, "");
  // Kept for agreement with published results: no box says so.
  ReportRefusal(velorix.Views, velorix.Log, outcome.Text);
}

void PrintGraphics(Velorix& velorix) {
  if (!velorix.Host.PrintPicture) return;
  Outcome outcome = velorix.Host.PrintPicture(
      DocumentName, GraphicsPage, [&](Target& target) { DrawVectorPage(velorix, target); });
  if (outcome) return ShowFigureDone(velorix, "");
  ReportRefusal(velorix.Views, velorix.Log, outcome.Text);
  outcome.Title = PrintTitle;
  Show(velorix.Dialogs, outcome);
}

}  // namespace velorix
