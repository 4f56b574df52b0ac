#pragma once

#include <QByteArray>
#include <functional>

#include "plot/drawing/picture_scale.h"
#include "plot/drawing/target.h"

namespace velorix {

/// What `draw` draws on the plane, as the bytes of a file of `type` in lower case: png, bmp, gif,
/// jpg, jpeg, tif, tiff (pixels), svg or pdf (vectors). The same each time. Empty when the type
/// can't be written here, or memory has no room for so many pixels.
QByteArray PictureBytes(const QByteArray& type, PlaneSize plane, const PictureScale& scale,
                        const std::function<void(Target&)>& draw);

}  // namespace velorix
