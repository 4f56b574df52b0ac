#pragma once

#include <QString>
#include <functional>
#include <string>

#include "base/outcome.h"
#include "plot/target.h"

namespace velorix {

/// The file dialog's filters for pictures of a plane.
std::string PictureFilter();

/// Writes what `draw` draws on the plane to a file whose extension tells the type: png, bmp, jpg,
/// jpeg, tif, tiff (pixels, `scale` for a unit of the plane), svg, pdf. Either the old or the new
/// file is there in the end. Refused with the reason.
Outcome WritePicture(const std::string& path, PlaneSize plane, double scale,
                     const std::function<void(Target&)>& draw);

}  // namespace velorix
