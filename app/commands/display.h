#pragma once

#include "app/commands/velorix.h"

namespace velorix {

/// The whole road from the store to the screen: codes into the lists (emptied first of the data's
/// codes when `resetLists`), factors and rotation of every record in use, group statistics, then
/// `RefreshViews`. Statistics that fail end it there with a `StatisticsFault`.
void DisplayData(Velorix& velorix, bool resetLists);

/// Grid, plots and the marks of the groups from the values at hand.
void RefreshViews(Velorix& velorix);

/// All plots from the values at hand.
void AnisoView_DisplayAllPlots(Velorix& velorix);

/// The main window's caption for the open file.
void DisplayFormCaption(Velorix& velorix);

}  // namespace velorix
