#include "app/pictures/export_untilting.h"

#include "app/pictures/graphics_page.h"
#include "datafiles/bytes/safe_write.h"
#include "plot/drawing/metafile_target.h"
#include "plot/plots/untilting.h"

namespace velorix {

Outcome WriteUntiltingFigure(const Host& host, const std::string& path, bool asMetafile,
                             const Untilting& untilting, const std::string& heading) {
  const auto draw = [&](Target& target) {
    DrawUntilting(target, UntiltingPlot, untilting, heading);
  };
  if (!asMetafile) return WriteFigure(host, path, UntiltingPlane, UntiltingScale, draw);
  MetafileTarget target(UntiltingPlane, PlaceableHeader(UntiltingPlane, UntiltingUnitsPerInch));
  draw(target);
  SafeWrite(path, [&](std::ostream& out) { out << target.Bits(); });
  return {};
}

}  // namespace velorix
