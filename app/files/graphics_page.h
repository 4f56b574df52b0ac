#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/state/velorix.h"

namespace velorix {

// The page: the plots of the main window at fixed places, the same whatever the window looks like.

/// The page's logical plane; what is drawn on it with the scale `s` is s times as large.
inline constexpr PlaneSize GraphicsPage = {900, 800};

/// Its units an inch.
inline constexpr int PageUnitsPerInch = 100;

/// The scale of pictures of pixels. They are 1280 pixels high and hold the whole width of the page.
inline constexpr double BitmapScale = 1.6;

/// Draws the plots that the page has by the user's choice.
void DrawGraphicsPage(const Session& session, const PlotChoices& plots, const GroupStats& group,
                      Target& target, double s);

/// The page as a metafile, with the header that makes it a file.
std::string GraphicsMetafile(const Session& session, const PlotChoices& plots,
                             const GroupStats& group);

/// Asks for a file and writes the page there. When the page is done, here and below, the status
/// line names a mean that belongs to another view than the one shown; on paper, in SVG and in PDF
/// the page does, too.
void SaveGraphics(Velorix& velorix);

/// Writes the page: as a metafile, or as a picture of the extension's type, which shows a box when
/// it fails. True on success. When it fails, status line and log say why, and the old file stays.
bool ExportGraphics(Velorix& velorix, const std::string& path, bool asBitmap);

/// Where a picture goes: as a metafile under any name, or as a picture of the extension's type.
struct PictureAnswer {
  std::string Path;
  bool AsBitmap = false;
};

/// A picture of the size of the page.
struct PagePicture {
  std::function<std::string()> Metafile;  // the bytes of the file
  std::function<void(Target&, double s)> Draw;
  int Fineness = 1;
};

/// Asks for a file of any of the page's types. No answer when the user cancels.
std::optional<PictureAnswer> AskForPicture(Velorix& velorix, const char* title);

/// Writes a picture. A picture of the extension's type shows a box when it fails. True on success.
/// When it fails, status line and log say why, and the old file stays.
bool ExportPicture(Velorix& velorix, const PictureAnswer& to, const PagePicture& picture);

/// Runs `write`, which writes a picture to the path. What it refuses, and a `FileFault`, is
/// reported as above. True on success.
bool WriteReported(Velorix& velorix, const std::string& path,
                   const std::function<Outcome()>& write);

/// Writes what `draw` draws on a plane of its own as a picture of the type of the path's extension;
/// where that is one of pixels, `scale` of them make a unit.
Outcome WriteFigure(const Host& host, const std::string& path, PlaneSize plane, double scale,
                    const std::function<void(Target&)>& draw);

/// Writes what `picture` draws on the page as a picture of the type of the path's extension: png,
/// gif, jpg, jpeg, tif, tiff or bmp with the scale of pixels, svg or pdf with scale 1. Another
/// extension, or none, is refused. `fineness` multiplies the scale: more pixels, or vectors of the
/// same size on finer units.
Outcome SaveBitmapAs(const Host& host, const std::function<void(Target&, double s)>& picture,
                     const std::string& path, int fineness = 1);

/// Puts the page on the clipboard, as vectors. A clipboard that takes nothing is reported in the
/// status line and the log.
void CopyGraphics(Velorix& velorix);

/// Prints the page.
void PrintGraphics(Velorix& velorix);

}  // namespace velorix
