#pragma once

#include <string>

#include "app/pictures/graphics_page.h"
#include "plot/figure/figure_style.h"

namespace velorix {

// A figure for a publication: the plots of the page in a style.

/// A figure's logical units an inch.
inline constexpr int FigureUnitsPerInch = 1000;

/// The plane of a figure.
PlaneSize FigurePlane(const PageContent& page, const FigureStyle& style);

/// Draws a figure on its plane.
void DrawFigure(const PageContent& page, const FigureStyle& style, Target& target);

/// Writes a figure; in the default style, as the page is written. A resolution that would give more
/// than 250 million pixels and a type that the host has no encoder for are refused; a metafile that
/// can't be written is a `FileFault`. Then the old file stays.
Outcome WriteFigureFile(const Host& host, const PictureAnswer& to, const PageContent& page,
                        const FigureStyle& style);

}  // namespace velorix
