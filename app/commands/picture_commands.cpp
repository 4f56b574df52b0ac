#include "app/commands/picture_commands.h"

#include <utility>

#include "app/files/ask_file.h"
#include "app/pictures/export_panels.h"
#include "app/pictures/export_untilting.h"
#include "app/pictures/style_file.h"
#include "app/state/refusals.h"
#include "base/fault.h"

namespace velorix {
namespace {

constexpr char PrintTitle[] = "Print", DocumentName[] = "Pelt4Q";

/// What the status line says of a figure that is made: `done`, and that its mean is of another
/// view.
void ShowFigureDone(Velorix& velorix, std::string done) {
  const std::string mean = PageMeanNotice(PageOf(velorix));
  if (!done.empty() && !mean.empty()) done += ". ";
  if (!(done += mean).empty()) velorix.Views.ShowStatus(done);
}

/// Runs `write`, which writes a picture to the path, and reports what it refuses, and a
/// `FileFault`. True on success.
template <class Write>
bool WriteReported(Velorix& velorix, const std::string& path, const Write& write) {
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

bool AreTooMany(Velorix& velorix, std::size_t panels) {
  const std::string complaint = PanelsComplaint(panels);
  if (!complaint.empty()) ReportRefusal(velorix.Views, velorix.Log, complaint);
  return !complaint.empty();
}

}  // namespace

PageContent PageOf(const Velorix& velorix) {
  return {velorix.Session, velorix.Plots, velorix.GroupStats, velorix.GroupOf};
}

void SaveGraphics(Velorix& velorix) {
  const auto answer = AskForPicture(velorix.Session, velorix.Dialogs, "Save graphics");
  if (answer && ExportGraphics(velorix, *answer))
    ShowFigureDone(velorix, "Written: " + answer->Path);
}

bool ExportGraphics(Velorix& velorix, const PictureAnswer& to) {
  return WriteReported(velorix, to.Path,
                       [&] { return WriteGraphicsPage(velorix.Host, to, PageOf(velorix)); });
}

void SaveFigure(Velorix& velorix, const FigureStyle& style) {
  const auto answer = AskForPicture(velorix.Session, velorix.Dialogs, "Save figure");
  if (answer && ExportFigure(velorix, *answer, style))
    ShowFigureDone(velorix, "Written: " + answer->Path);
}

bool ExportFigure(Velorix& velorix, const PictureAnswer& to, const FigureStyle& style) {
  return WriteReported(velorix, to.Path,
                       [&] { return WriteFigureFile(velorix.Host, to, PageOf(velorix), style); });
}

FigureStyle KeptStyle(Velorix& velorix) {
  FigureStyle style;
  const std::string path = KeptStyleFile(velorix.Host.AppFolder);
  if (!FileExists(path)) return style;
  if (const Outcome read = ReadStyleFile(path, style); !read)
    ReportRefusal(velorix.Views, velorix.Log, read.Title + "\n" + read.Text);
  return style;
}

void KeepStyle(Velorix& velorix, const FigureStyle& style) {
  const std::string path = KeptStyleFile(velorix.Host.AppFolder);
  try {
    WriteStyleFile(path, style);
  } catch (const FileFault& fault) {
    ReportRefusal(velorix.Views, velorix.Log,
                  path + "\nThe figure's style was not kept: " + fault.what());
  }
}

void LoadAxes(Velorix& velorix) { velorix.Plots.Axes = KeptStyle(velorix).Axes; }

void SetAxes(Velorix& velorix, HandAxes axes) {
  if (axes == velorix.Plots.Axes) return;
  FigureStyle style = KeptStyle(velorix);
  velorix.Plots.Axes = style.Axes = std::move(axes);
  KeepStyle(velorix, style);
  for (const PlotKind plot : AllPlots)
    if (plot != PlotKind::Stereonet) velorix.Views.Redraw(plot);
}

void CopyGraphics(Velorix& velorix) {
  if (!velorix.Host.CopyPicture) return;
  const PageContent page = PageOf(velorix);
  const Outcome outcome =
      velorix.Host.CopyPicture(GraphicsMetafile(page), GraphicsPage,
                               [&page](Target& target) { DrawGraphicsPage(page, target, 1); });
  if (outcome) return ShowFigureDone(velorix, "");
  // Kept for agreement with published results: no box says so.
  ReportRefusal(velorix.Views, velorix.Log, outcome.Text);
}

void PrintGraphics(Velorix& velorix) {
  if (!velorix.Host.PrintPicture) return;
  Outcome outcome = velorix.Host.PrintPicture(
      DocumentName, GraphicsPage,
      [page = PageOf(velorix)](Target& target) { DrawVectorPage(page, target); });
  if (outcome) return ShowFigureDone(velorix, "");
  ReportRefusal(velorix.Views, velorix.Log, outcome.Text);
  outcome.Title = PrintTitle;
  Show(velorix.Dialogs, outcome);
}

void SavePanels(Velorix& velorix, std::span<const Panel> panels) {
  if (AreTooMany(velorix, panels.size())) return;
  const auto answer = AskForPicture(velorix.Session, velorix.Dialogs, "Save panels");
  if (answer && ExportPanels(velorix, *answer, panels)) ShowWritten(velorix.Views, answer->Path);
}

bool ExportPanels(Velorix& velorix, const PictureAnswer& to, std::span<const Panel> panels) {
  if (AreTooMany(velorix, panels.size())) return false;
  return WriteReported(velorix, to.Path, [&] {
    return WritePanelPage(velorix.Host, to, velorix.Session, panels, velorix.Plots.Stereo.level);
  });
}

void SaveUntilting(Velorix& velorix, const Untilting& untilting, const std::string& heading) {
  const auto answer = AskForPicture(velorix.Session, velorix.Dialogs, "Save figure");
  if (!answer) return;
  const bool written = WriteReported(velorix, answer->Path, [&] {
    return WriteUntiltingFigure(velorix.Host, answer->Path, !answer->AsBitmap, untilting, heading);
  });
  if (written) ShowWritten(velorix.Views, answer->Path);
}

}  // namespace velorix
