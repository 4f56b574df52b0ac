#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/pictures/page_plots.h"
#include "app/state/dialogs.h"
#include "app/state/host.h"

namespace velorix {

// The page: the plots of the main window at fixed places, the same whatever the window looks like.

/// The page's logical plane; what is drawn on it with the scale `s` is s times as large.
inline constexpr PlaneSize GraphicsPage = {900, 800};

/// Its units an inch.
inline constexpr int PageUnitsPerInch = 100;

/// The scale of pictures of pixels. They are 1280 pixels high and hold the whole width of the page.
inline constexpr double BitmapScale = 1.6;

/// Draws the plots that the page has by the user's choice.
void DrawGraphicsPage(const PageContent& page, Target& target, double s);

/// The page for paper and for files of vectors. A mean of another view than the net's is named
/// below the net, where the net's captions don't. Metafile, clipboard and pictures of pixels go
/// without that line.
void DrawVectorPage(const PageContent& page, Target& target);

/// The page as a metafile, with the header that makes it a file.
std::string GraphicsMetafile(const PageContent& page);

/// The line below a net whose mean belongs to another view than the one shown, where its captions
/// don't say so; else empty.
std::string PageMeanLine(const PageContent& page);

/// A sentence about a mean on the page that belongs to another view than the one shown; else empty.
std::string PageMeanNotice(const PageContent& page);

/// Title of the box for a picture that could not be made.
inline constexpr char ExportTitle[] = "Export graphics";

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
std::optional<PictureAnswer> AskForPicture(const Session& session, Dialogs& dialogs,
                                           const char* title);

/// Writes a picture. A picture of the extension's type is refused with the reason; a metafile that
/// can't be written is a `FileFault`. Then the old file stays.
Outcome WritePagePicture(const Host& host, const PictureAnswer& to, const PagePicture& picture);

/// Writes the page, as above.
Outcome WriteGraphicsPage(const Host& host, const PictureAnswer& to, const PageContent& page);

/// Writes what `draw` draws on a plane of its own as a picture of the type of the path's extension.
Outcome WriteFigure(const Host& host, const std::string& path, PlaneSize plane,
                    const PictureScale& scale, const std::function<void(Target&)>& draw);

/// Writes what `picture` draws on the page as a picture of the type of the path's extension: png,
/// gif, jpg, jpeg, tif, tiff or bmp with the scale of pixels, svg or pdf with scale 1. Another
/// extension, or none, is refused. `fineness` multiplies the scale: more pixels, or vectors of the
/// same size on finer units.
Outcome SaveBitmapAs(const Host& host, const std::function<void(Target&, double s)>& picture,
                     const std::string& path, int fineness = 1);

}  // namespace velorix
