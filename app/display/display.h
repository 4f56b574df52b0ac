#pragma once

#include "app/state/velorix.h"
#include "base/fault.h"

namespace velorix {

/// A numeric failure of the group statistics. What they computed before it stands, and all else of
/// the display does; so it is shown beside the views, not in a box.
struct StatisticsFault : Fault {
  using Fault::Fault;
};

/// What is said of group statistics that end early, with what a geologist may take for the cause.
std::string IncompleteText(const std::string& reason);

/// The whole road from the store to the screen: codes into the lists (emptied first of the data's
/// codes when `resetLists`), factors and rotation of every record in use, group statistics, then
/// `RefreshViews`. Statistics that fail end it there with a `StatisticsFault`.
void DisplayData(Velorix& velorix, bool resetLists);

/// Grid, plots and the marks of the groups from the values at hand.
void RefreshViews(Velorix& velorix);

/// All plots from the values at hand.
void AnisoView_DisplayAllPlots(Velorix& velorix);

/// The rotation alone of every record that has the system in view, disregarded ones too, and
/// `RefreshViews`: what a change in one of the lists costs.
void RotateAndRefresh(Velorix& velorix);

/// The lists `cboCoor(1)` to `(3)`; `index` from 0. The third sets the pair of tectonic flags.
void ChooseCoorSys(Velorix& velorix, int index);
void ChooseTectoPlane(Velorix& velorix, int index);
void ChooseTectoAxis(Velorix& velorix, int index);
/// The lists of the codes in use; `index` from 0.
void ChooseFoliation(Velorix& velorix, int index);
void ChooseLineation(Velorix& velorix, int index);
/// The lists of the codes shown: entry `index` is on the net or not.
void ShowFoliation(Velorix& velorix, int index, bool shown);
void ShowLineation(Velorix& velorix, int index, bool shown);

/// A change in one of the lists or check boxes of an XY plot: that plot alone is drawn again.
void ChangeXYPlot(Velorix& velorix, int plot, const XYPlotOptions& options);
/// The level of the mean's errors, in the window of the statistics and on the net.
void ChooseLevel(Velorix& velorix, ErrorLevel level);
/// The bootstrap of the group; the display runs again.
void ChooseBootstrap(Velorix& velorix, const BootChoice& choice);
/// The column that the histogram shows.
void ChooseHisto(Velorix& velorix, Column column);
/// The plots that a newcomer sees: Km and P, P and T where the settings have them.
void ChooseFirstPlots(Velorix& velorix);

/// A change of the selection in grid or data table: `Selected` is cleared on all records and set on
/// those whose `RecordNo` is in `ids`; the other one follows; then all plots are drawn.
void SelectRecords(Velorix& velorix, const std::vector<int>& ids);

/// The main window's caption for the open file.
void DisplayFormCaption(Velorix& velorix);

/// The entries of the lists filled at load, each in the order of its session values.
inline constexpr const char* TectoPlaneNames[] = {"Horizontal", "Vertical"};
inline constexpr const char* TectoAxisNames[] = {"North", "North-South", "East", "East-West"};
inline constexpr const char* Plot1Names[] = {"Km-P",     "Km-Pj",   "Km-T", "Km-U", "LogKm-P",
                                             "LogKm-Pj", "LogKm-T", "H-Km", "H-P",  "H-T"};
inline constexpr const char* Plot2Names[] = {"P-T", "Pj-T", "F-L", "P-U", "Pj-U", "lnF-lnL"};

/// Position of the session's pair of tectonic flags in `TectoAxisNames`, from 0.
int TectoAxisIndex(const Session& session);

}  // namespace velorix
