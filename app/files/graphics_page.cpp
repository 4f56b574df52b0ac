#include "app/files/graphics_page.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "app/display/display.h"
#include "app/files/save.h"
#include "app/tables/data_table.h"
#include "base/rounding.h"
#include "datafiles/safe_write.h"
#include "plot/drawing/metafile_target.h"
#include "plot/plots/histogram.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

constexpr char SaveTitle[] = "Save graphics", ExportTitle[] = "Export graphics";
constexpr char PrintTitle[] = "Print", DocumentName[] = "Pelt4Q";

// clang-format off
constexpr StereoGeometry StereoPlace = {.cx = 220, .cy = 200, .diameter = 320, .symbolSize = 8, .fontHeight = 14};
constexpr PlotGeometry HistoPlace = {.left = 530, .bottom = 340, .width = 320, .height = 240, .fontHeight = 14};
// Titles, axis titles and numbers of the XY plots are 14, 10 and 9 high: 1.5, 1.1 and 1 times 9.
// Their colour scales stand nearer than on the screen, so that the second one ends on the page.
constexpr PlotGeometry XYPlotPlaces[] = {
    {.left = 60,  .bottom = 620, .width = 320, .height = 180, .fontHeight = 9, .symbolSize = 8, .barLeft = 23, .barRight = 31, .barTitle = 45},
    {.left = 530, .bottom = 620, .width = 320, .height = 180, .fontHeight = 9, .symbolSize = 8, .barLeft = 23, .barRight = 31, .barTitle = 45}};

/// Types of files. The first is the metafile; for all others the extension alone counts.
constexpr const char* Filters[] = {
    "Windows metafile (*.wmf)|*.wmf|",
    "Bitmap Files (*.bmp)|*.bmp|",
    "Graphics Interchange Format (*.gif)|*.gif|",
    "Tagged Image Format (*.tif)|*.tif|",
    "Portable Network Graphics (*.png)|*.png|",
    "Joint Photographic Experts Group (*.jpg)|*.jpg|",
    "Scalable Vector Graphics (*.svg)|*.svg|",
    "Portable Document Format (*.pdf)|*.pdf|",
};
constexpr int MetafileFilter = 1;

struct Encoder {
  const char* Extension;
  double Scale;
};
constexpr Encoder Encoders[] = {
    {"PNG", BitmapScale}, {"GIF", BitmapScale},  {"JPG", BitmapScale}, {"JPEG", BitmapScale},
    {"TIF", BitmapScale}, {"TIFF", BitmapScale}, {"BMP", BitmapScale}, {"SVG", 1}, {"PDF", 1},
};
// clang-format on

/// A place on the page, times `s`.
template <class Geometry>
Geometry Scaled(Geometry place, double s) {
  place.scale = s;
  return place;
}

PlaneSize Scaled(PlaneSize plane, double s) {
  return {ToLong(plane.width * s), ToLong(plane.height * s)};
}

bool WriteMetafile(Velorix& velorix, const std::string& path) {
  const std::string bytes = GraphicsMetafile(velorix);
  try {
    SafeWrite(path, [&](std::ostream& out) { out << bytes; });
    return true;
  } catch (const fs::filesystem_error& error) {
    // The user isn't told: this is wanted.
    velorix.Log.DebugPrint("Metafile failed: " + path + ": " + error.code().message());
    return false;
  }
}

}  // namespace

void DrawGraphicsPage(const Velorix& velorix, Target& target, double s) {
  const Session& session = velorix.Session;
  const PageOptions& page = velorix.Page;
  if (page.stereonet)
    DrawStereo(session.Records, session.CoorSys, target, Scaled(StereoPlace, s), velorix.Stereo,
               session.ReImMode, velorix.GroupStats, session.Settings);
  if (page.histogram)
    DrawHisto(target, Scaled(HistoPlace, s), DataTableValues(velorix.HistoParameter, session),
              velorix.HistoParameter, session.Settings);
  for (int plot : {1, 2})
    if (plot == 1 ? page.xyPlot1 : page.xyPlot2)
      DrawXYPlot(session, target, Scaled(XYPlotPlaces[plot - 1], s), ShownXYPlot(velorix, plot));
}

std::string GraphicsMetafile(const Velorix& velorix) {
  MetafileTarget target(GraphicsPage, PlaceableHeader(GraphicsPage, PageUnitsPerInch));
  DrawGraphicsPage(velorix, target, 1);
  return target.Bits();
}

void SaveGraphics(Velorix& velorix) {
  FileQuestion question = SaveQuestion(velorix.Session, SaveTitle);
  for (const char* filter : Filters) question.Filter += filter;
  // Only the proposed name gets an extension. One typed without it names no encoder and is refused.
  question.AddsExtension = false;
  const auto answer = AskWhereToSave(velorix, question);
  if (!answer) return;
  if (ExportGraphics(velorix, answer->Filename, answer->FilterIndex != MetafileFilter))
    TellWritten(velorix, answer->Filename);
}

bool ExportGraphics(Velorix& velorix, const std::string& path, bool asBitmap) {
  if (!asBitmap) return WriteMetafile(velorix, path);
  const auto draw = [&velorix](Target& target, double s) { DrawGraphicsPage(velorix, target, s); };
  const Outcome outcome = SaveBitmapAs(velorix.Host, draw, path);
  if (outcome) return true;
  velorix.Log.DebugPrint("Picture failed: " + outcome.Text);
  velorix.Dialogs.Ask(ExportTitle, path + "\nFile was not saved!", {"&OK"});
  return false;
}

Outcome SaveBitmapAs(const Host& host, const std::function<void(Target&, double s)>& picture,
                     const std::string& path) {
  const std::string extension = UpperCase(ExtensionOf(path));
  const auto encoder = std::find_if(std::begin(Encoders), std::end(Encoders),
                                    [&](const Encoder& e) { return extension == e.Extension; });
  if (encoder == std::end(Encoders))
    return Outcome::Refused(ExportTitle, path + "\nNo encoder has this extension.");
  if (!host.WritePicture)
    return Outcome::Refused(ExportTitle, path + "\nThis build has no encoders.");
  const double s = encoder->Scale;
  return host.WritePicture(path, Scaled(GraphicsPage, s), 1,
                           [&](Target& target) { picture(target, s); });
}

void CopyGraphics(Velorix& velorix) {
  if (!velorix.Host.CopyPicture) return;
  velorix.Host.CopyPicture(GraphicsMetafile(velorix), GraphicsPage,
                           [&](Target& target) { DrawGraphicsPage(velorix, target, 1); });
}

void PrintGraphics(Velorix& velorix) {
  if (!velorix.Host.PrintPicture) return;
  const Outcome outcome = velorix.Host.PrintPicture(
      DocumentName, GraphicsPage, [&](Target& target) { DrawGraphicsPage(velorix, target, 1); });
  if (!outcome && !outcome.Text.empty()) velorix.Dialogs.Ask(PrintTitle, outcome.Text, {"&OK"});
}

}  // namespace velorix
