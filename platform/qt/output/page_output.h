#pragma once

#include <QPrinter>
#include <functional>
#include <string>

#include "app/state/host.h"
#include "platform/painting/painter_target.h"

class QWidget;

namespace velorix {

/// Lets the host of the running program write, copy and print pictures. `owner` is the window that
/// the print dialog belongs to.
void GivePictures(Host& host, QWidget* owner);

/// Puts a picture on the clipboard as a metafile and as SVG, never as pixels: what takes it gets
/// vectors. Refused where another program holds the clipboard.
Outcome CopyPicture(const std::string& metafile, PlaneSize plane, const Host::DrawPicture& draw);

/// Where a plane lies on a printed page: undistorted, a tenth of the page from the left and a
/// twentieth from the top, at most 0.8 of its width and height.
PlaneFit PrintPlace(PlaneSize plane, const QSizeF& page);

/// Prints the plane on one page. Refused where the printer can't begin.
Outcome PrintOn(QPrinter& printer, const std::string& document, PlaneSize plane,
                const Host::DrawPicture& draw);

}  // namespace velorix
