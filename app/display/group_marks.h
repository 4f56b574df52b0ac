#pragma once

#include "app/state/velorix.h"

namespace velorix {

/// With more groups in view than that the net shows no means of them.
inline constexpr std::size_t MostGroupMeans = 1000;

/// Makes the marks of the groups for the view as it is now; none while they are off. Whoever
/// changes records or view calls it before the plots are drawn.
void MarkGroups(Velorix& velorix);

/// A change of what parts the records, or of how the plots show the groups: they are drawn again.
void ChooseGroups(Velorix& velorix, const GroupChoices& choices);

/// Why the means of groups that were chosen are not drawn; empty when they are.
std::string GroupMeansText(const Velorix& velorix);

}  // namespace velorix
