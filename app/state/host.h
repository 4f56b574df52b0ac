#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/outcome.h"
#include "plot/drawing/picture_scale.h"
#include "plot/drawing/target.h"

namespace velorix {

/// What the program asks of the system it runs on.
struct Host {
  std::string AppFolder;  // for settings and log; it can be written
  std::string DataRoot;   // root of the data folders
  /// Names of the files in `folder` with the extension, in any case, in name order.
  std::function<std::vector<std::string>(const std::string& folder, const std::string& extension)>
      ListFolder;
  // Pictures, where the host can make them; `draw` draws on the plane.
  using DrawPicture = std::function<void(Target&)>;
  /// A file of the type of the extension.
  std::function<Outcome(const std::string& path, PlaneSize plane, const PictureScale& scale,
                        const DrawPicture& draw)>
      WritePicture = {};
  /// On the clipboard, as the bytes of a metafile's file and in the host's own vectors.
  std::function<Outcome(const std::string& metafile, PlaneSize plane, const DrawPicture& draw)>
      CopyPicture = {};
  /// Asks for a printer and prints on it, the plane whole and undistorted.
  std::function<Outcome(const std::string& document, PlaneSize plane, const DrawPicture& draw)>
      PrintPicture = {};
};

}  // namespace velorix
