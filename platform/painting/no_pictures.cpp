#include <algorithm>

#include "base/fault.h"
#include "datafiles/bytes/safe_write.h"
#include "platform/painting/picture_file.h"
#include "plot/drawing/svg_target.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr char Title[] = "Save Picture";

}  // namespace

std::string PictureFilter() { return "Scalable Vector Graphics (*.svg)|*.svg|"; }

std::string PictureComplaint(const std::string& path) {
  if (LowerCase(ExtensionOf(path)) == "svg") return {};
  return "This build writes pictures as svg alone: it has no window toolkit.";
}

Outcome WritePicture(const std::string& path, PlaneSize plane, const PictureScale& scale,
                     const std::function<void(Target&)>& draw) {
  const std::string complaint = PictureComplaint(path);
  if (!complaint.empty()) return Outcome::Refused(Title, path + "\n" + complaint);
  try {
    SafeWrite(path, [&](std::ostream& out) {
      out << SvgDocument(plane, std::min(scale.Unit, 1.0), draw);
    });
    return {};
  } catch (const FileFault& fault) {
    return Outcome::Refused(Title, path + "\nThis file could not be written: " + fault.what());
  }
}

}  // namespace velorix
