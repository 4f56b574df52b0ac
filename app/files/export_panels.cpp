#include "app/files/export_panels.h"

#include "app/display/shown_group.h"
#include "app/files/ask_file.h"
#include "app/state/refusals.h"
#include "plot/drawing/metafile_target.h"

namespace velorix {
namespace {

/// Nets are small, so that their whole units must be.
constexpr int Fineness = 2;

/// What the ellipses are, and what the groups are of.
std::vector<std::string> CaptionsOf(const Velorix& velorix, std::span<const Panel> panels) {
  const Session& session = velorix.Session;
  int n = 0;
  for (const Panel& panel : panels)
    for (const int record : panel.Records)
      n += IsShown(session.Records[record], session.CoorSys, session.ReImMode);
  return {"Ellipses: " + LevelText(velorix.Plots.Stereo.level) + ".",
          GroupHeading(session, GroupInView(session), n) + ", " + std::to_string(panels.size()) +
              (panels.size() == 1 ? " group." : " groups.")};
}

bool AreTooMany(Velorix& velorix, std::size_t panels) {
  if (panels <= MostPanels) return false;
  ReportRefusal(velorix.Views, velorix.Log,
                "One page has room for " + std::to_string(MostPanels) + " groups; these are " +
                    std::to_string(panels) + ".");
  return true;
}

}  // namespace

void SavePanels(Velorix& velorix, std::span<const Panel> panels) {
  if (AreTooMany(velorix, panels.size())) return;
  const auto answer = AskForPicture(velorix, "Save panels");
  if (answer && ExportPanels(velorix, *answer, panels)) ShowWritten(velorix.Views, answer->Path);
}

bool ExportPanels(Velorix& velorix, const PictureAnswer& to, std::span<const Panel> panels) {
  if (AreTooMany(velorix, panels.size())) return false;
  const std::vector<std::string> captions = CaptionsOf(velorix, panels);
  const auto draw = [&](Target& target, double s) {
    DrawPanels(velorix.Session, panels, velorix.Plots.Stereo.level, captions, target, GraphicsPage,
               s);
  };
  const auto metafile = [&] {
    const PlaneSize plane = {GraphicsPage.width * Fineness, GraphicsPage.height * Fineness};
    MetafileTarget target(plane, PlaceableHeader(plane, PageUnitsPerInch * Fineness));
    draw(target, Fineness);
    return target.Bits();
  };
  return ExportPicture(velorix, to, {metafile, draw, Fineness});
}

}  // namespace velorix
