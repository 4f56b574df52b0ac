#pragma once

#include <span>

#include "app/files/graphics_page.h"
#include "app/state/velorix.h"
#include "plot/net/panels.h"

namespace velorix {

/// Asks for a file of any of the page's types and writes the page of panels there, at the level of
/// the ellipses in view. A refusal is reported as the page's are.
void SavePanels(Velorix& velorix, std::span<const Panel> panels);

/// Writes the page of panels. More than `MostPanels` are refused, in the status line and the log.
/// True on success.
bool ExportPanels(Velorix& velorix, const PictureAnswer& to, std::span<const Panel> panels);

}  // namespace velorix
