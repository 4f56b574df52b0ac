#pragma once

#include <functional>
#include <string>

#include "base/outcome.h"
#include "plot/drawing/picture_scale.h"
#include "plot/drawing/target.h"

namespace velorix {

// Files of pictures. A program links either the window toolkit's painter, which makes them, or the
// refusal of a build without it.

/// The file dialog's filters for pictures of a plane.
std::string PictureFilter();

/// What is wrong with the name of a picture file, or nothing: the extension gives the type, one of
/// png, bmp, gif, jpg, jpeg, tif, tiff (pixels), svg, pdf.
std::string PictureComplaint(const std::string& path);

/// Writes what `draw` draws on the plane. Either the old or the new file is there in the end.
/// Refused with the reason.
Outcome WritePicture(const std::string& path, PlaneSize plane, const PictureScale& scale,
                     const std::function<void(Target&)>& draw);

}  // namespace velorix
