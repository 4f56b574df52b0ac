#pragma once

#include <span>
#include <string>
#include <vector>

#include "plot/drawing/target.h"
#include "stats/group/group_statistics.h"
#include "store/session.h"

namespace velorix {

/// A group of a study as a small net shows it.
struct Panel {
  std::string Name;
  std::span<const int> Records;  // by their places in the store
  const GroupStats* Stats = nullptr;
};

/// More of them would be too small to read.
inline constexpr std::size_t MostPanels = 600;

/// Draws a small net a group, row by row, all as large as the page has room for: the records'
/// principal directions, selected ones in their colour, the mean directions with their ellipses,
/// above it the name and the number of records in view. Below them stand one legend and the
/// `captions`, a line each. Texts that are too long are shortened with dots; what `Stats` didn't
/// reach isn't drawn. `s` multiplies all lengths; the picture fills `page` times `s`.
void DrawPanels(const Session& session, std::span<const Panel> panels, ErrorLevel level,
                const std::vector<std::string>& captions, Target& target, PlaneSize page, double s);

}  // namespace velorix
