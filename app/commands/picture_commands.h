#pragma once

#include <span>
#include <string>

#include "app/commands/velorix.h"
#include "app/pictures/figure.h"
#include "plot/net/panels.h"
#include "stats/study/untilting.h"

namespace velorix {

// Pictures: where they go, their writing, and what the user hears of it. When a picture of the
// extension's type can't be written, a box says so, and status line and log say why; of a metafile
// they alone do. The old file stays then.

/// What the page shows now.
PageContent PageOf(const Velorix& velorix);

/// Asks for a file and writes the page there. When the page is done, here and below, the status
/// line names a mean that belongs to another view than the one shown; on paper, in SVG and in PDF
/// the page does, too.
void SaveGraphics(Velorix& velorix);

/// Writes the page: as a metafile, or as a picture of the extension's type. True on success.
bool ExportGraphics(Velorix& velorix, const PictureAnswer& to);

/// Asks for a file and writes the page in a style there; or writes it. True on success.
void SaveFigure(Velorix& velorix, const FigureStyle& style);
bool ExportFigure(Velorix& velorix, const PictureAnswer& to, const FigureStyle& style);

/// The style that the program keeps in its folder, the default one when there is none; status line
/// and log report a file that is refused. The way back reports a failure there.
FigureStyle KeptStyle(Velorix& velorix);
void KeepStyle(Velorix& velorix, const FigureStyle& style);

/// Takes the axes that the program's own style file keeps; status line and log report a file that
/// is refused. Called once, at the start.
void LoadAxes(Velorix& velorix);

/// Sets axes by hand: the plots are drawn again, and the program's style file keeps the axes.
void SetAxes(Velorix& velorix, HandAxes axes);

/// Puts the page on the clipboard, as vectors. Status line and log report a clipboard that takes
/// nothing.
void CopyGraphics(Velorix& velorix);

/// Prints the page.
void PrintGraphics(Velorix& velorix);

/// Asks for a file of any of the page's types and writes the page of panels there, at the level of
/// the ellipses in view.
void SavePanels(Velorix& velorix, std::span<const Panel> panels);

/// Writes the page of panels. More than `MostPanels` are refused, in the status line and the log.
/// True on success.
bool ExportPanels(Velorix& velorix, const PictureAnswer& to, std::span<const Panel> panels);

/// Asks for a file of any of the page's types and writes the figure of an untilting there.
void SaveUntilting(Velorix& velorix, const Untilting& untilting);

}  // namespace velorix
