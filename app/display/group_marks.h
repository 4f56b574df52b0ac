#pragma once

#include <string>
#include <vector>

#include "app/state/plot_choices.h"
#include "store/session.h"

namespace velorix {

/// With more groups in view than that the net shows no means of them.
inline constexpr std::size_t MostGroupMeans = 1000;

/// Makes the marks of the groups for the view as it is now; none while they are off. A change of
/// records or view calls it before the plots are drawn.
void MarkGroups(const Session& session, const std::vector<float>& gaussTable, PlotChoices& plots);

/// Why the means of groups that were chosen are not drawn; empty when they are.
std::string GroupMeansText(const PlotChoices& plots);

}  // namespace velorix
