#pragma once

#include <functional>
#include <vector>

#include "app/commands/velorix.h"
#include "app/display/view_lists.h"

namespace velorix {

// What the lists, boxes and tables of the windows change in the view.

/// The lists `cboCoor(1)` to `(3)`. The third sets the pair of tectonic flags.
void ChooseCoorSys(Velorix& velorix, CoordinateSystem system);
void ChooseTectoPlane(Velorix& velorix, PaleoPlane plane);
void ChooseTectoAxis(Velorix& velorix, TectoAxis axis);
/// The lists of the codes in use; `index` from 0.
void ChooseFoliation(Velorix& velorix, int index);
void ChooseLineation(Velorix& velorix, int index);
/// The lists of the codes shown: entry `index` is on the net or not.
void ShowFoliation(Velorix& velorix, int index, bool shown);
void ShowLineation(Velorix& velorix, int index, bool shown);

/// A change in one of the lists or check boxes of a plot: that plot alone is drawn again.
void ChangePlot(Velorix& velorix, PlotKind plot, const std::function<void(PlotChoices&)>& change);
/// The level of the mean's errors, in the window of the statistics and on the net.
void ChooseLevel(Velorix& velorix, ErrorLevel level);
/// The bootstrap of the group; the display runs again.
void ChooseBootstrap(Velorix& velorix, const BootChoice& choice);
/// The plots of a first start: Km and P, P and T where the settings have them.
void ChooseFirstPlots(Velorix& velorix);
/// A change of what parts the records, or of how the plots show the groups: they are drawn again.
void ChooseGroups(Velorix& velorix, const GroupChoices& choices);

/// A change of the selection in grid or data table: `Selected` is cleared on all records and set on
/// those whose `RecordNo` is in `ids`; the other one follows; then all plots are drawn.
void SelectRecords(Velorix& velorix, const std::vector<int>& ids);

}  // namespace velorix
