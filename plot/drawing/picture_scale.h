#pragma once

namespace velorix {

/// How a plane becomes a file: so many pixels a unit, or in a file of vectors, where it is at most
/// 1, so many times 1/96 inch a unit. With a number of pixels an inch the file has that resolution,
/// and a TIFF file is compressed; without one it says 96.
struct PictureScale {
  double Unit = 1;
  int PixelsPerInch = 0;

  PictureScale(double unit, int pixelsPerInch = 0) : Unit(unit), PixelsPerInch(pixelsPerInch) {}
};

}  // namespace velorix
