#pragma once

#include <QByteArray>
#include <functional>

#include "plot/drawing/target.h"

namespace velorix {

/// What `draw` draws on the plane, as the bytes of a file of `type` in lower case: png, bmp, gif,
/// jpg, jpeg, tif, tiff (pixels, `scale` of them a unit of the plane), svg or pdf (vectors; a scale
/// below 1 makes the units smaller). The same each time. Empty when the type can't be written here.
QByteArray PictureBytes(const QByteArray& type, PlaneSize plane, double scale,
                        const std::function<void(Target&)>& draw);

}  // namespace velorix
