#include "app/pictures/export_panels.h"

#include "app/display/shown_group.h"
#include "plot/drawing/metafile_target.h"

namespace velorix {
namespace {

/// Nets are small, so that their whole units must be.
constexpr int Fineness = 2;

/// What the ellipses are, and what the groups are of.
std::vector<std::string> CaptionsOf(const Session& session, std::span<const Panel> panels,
                                    ErrorLevel level) {
  int n = 0;
  for (const Panel& panel : panels)
    for (const int record : panel.Records)
      n += IsShown(session.Records[record], session.CoorSys, session.ReImMode);
  return {"Ellipses: " + LevelText(level) + ".", GroupHeading(session, GroupInView(session), n) +
                                                     ", " + std::to_string(panels.size()) +
                                                     (panels.size() == 1 ? " group." : " groups.")};
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
