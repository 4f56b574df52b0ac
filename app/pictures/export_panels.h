#pragma once

#include <span>
#include <string>

#include "app/pictures/graphics_page.h"
#include "plot/net/panels.h"

namespace velorix {

/// Why one page can't show so many panels; empty for up to `MostPanels`.
std::string PanelsComplaint(std::size_t panels);

/// Writes the page of panels with their ellipses at the level, as `WritePagePicture` does.
Outcome WritePanelPage(const Host& host, const PictureAnswer& to, const Session& session,
                       std::span<const Panel> panels, ErrorLevel level);

}  // namespace velorix
