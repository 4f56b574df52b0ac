#include "app/pictures/export_panels.h"

#include "app/display/study_heading.h"
#include "plot/drawing/metafile_target.h"

namespace velorix {
namespace {

/// Nets are small, so that their whole units must be.
constexpr int Fineness = 2;

/// What the ellipses are, and what the groups are of.
std::vector<std::string> CaptionsOf(const Session& session, std::span<const Panel> panels,
                                    ErrorLevel level) {
  std::int64_t n = 0;
  for (const Panel& panel : panels) n += CountInView(session, panel.Records);
  return {"Ellipses: " + LevelText(level) + ".", StudyHeading(session, n, panels.size()) + "."};
}

}  // namespace

std::string PanelsComplaint(std::size_t panels) {
  if (panels <= MostPanels) return {};
  return "One page has room for " + std::to_string(MostPanels) + " groups; these are " +
         std::to_string(panels) + ".";
}

Outcome WritePanelPage(const Host& host, const PictureAnswer& to, const Session& session,
                       std::span<const Panel> panels, ErrorLevel level) {
  const std::vector<std::string> captions = CaptionsOf(session, panels, level);
  const auto draw = [&](Target& target, double s) {
    DrawPanels(session, panels, level, captions, target, GraphicsPage, s);
  };
  const auto metafile = [&] {
    const PlaneSize plane = {GraphicsPage.width * Fineness, GraphicsPage.height * Fineness};
    MetafileTarget target(plane, PlaceableHeader(plane, PageUnitsPerInch * Fineness));
    draw(target, Fineness);
    return target.Bits();
  };
  return WritePagePicture(host, to, {metafile, draw, Fineness});
}

}  // namespace velorix
