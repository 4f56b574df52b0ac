#pragma once

#include <functional>
#include <string>

#include "base/outcome.h"
#include "plot/drawing/target.h"

namespace velorix {

// Files of pictures. A program links either the window toolkit's painter, which makes them, or the
// refusal of a build without it.

/// The file dialog's filters for pictures of a plane.
std::string PictureFilter();

/// What is wrong with the name of a picture file, or nothing: the extension gives the type, one of
/// png, bmp, gif, jpg, jpeg, tif, tiff (pixels), svg, pdf.
std::string PictureComplaint(const std::string& path);

/// Writes what `draw` draws on the plane; where the type is one of pixels, `scale` of them make a
/// unit of the plane; a scale below 1 makes the units of vectors smaller. Either the old or the new
/// file is there in the end. Refused with the reason.
Outcome WritePicture(const std::string& path, PlaneSize plane, double scale,
                     const std::function<void(Target&)>& draw);

}  // namespace velorix
