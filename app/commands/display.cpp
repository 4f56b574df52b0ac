#include "app/commands/display.h"

#include "app/display/contour.h"
#include "app/display/group_marks.h"
#include "app/display/shown_group.h"
#include "app/display/view_values.h"
#include "app/state/program.h"
#include "text/paths.h"

namespace velorix {

void DisplayData(Velorix& velorix, bool resetLists) {
  Session& session = velorix.Session;
  if (resetLists) ResetCodes(velorix.Lists);
  for (const SpecimenRecord& record : session.Records) {
    ListAddCodes(velorix.Lists, record, FromData);
    ComboAddCodes(velorix.Lists, record, FromData);
  }
  TakeCodesInUse(velorix.Lists, session.FoliCode, session.LineCode);
  TakeCodesShown(velorix.Lists, velorix.Plots.Stereo);
  velorix.Views.ShowCodeLists();

  // A record that fails here ends the display before its statistics: then no mean is shown, rather
  // than that of the records shown before.
  ForgetGroup(velorix.GroupStats);
  velorix.GroupOf = GroupInView(session);
  DeriveView(session);
  ComputeGroup(session, velorix.GaussTable, velorix.Bootstrap, velorix.GroupStats);
  RefreshViews(velorix);
}

void RefreshViews(Velorix& velorix) {
  MarkGroups(velorix.Session, velorix.GaussTable, velorix.Plots);
  StereoOptions& net = velorix.Plots.Stereo;
  net.meanOf = GroupHeading(velorix.Session, velorix.GroupOf, velorix.GroupStats.GroupN);
  net.bootBy = velorix.Bootstrap == BootChoice()
                   ? ""
                   : BootstrapText(velorix.Bootstrap, velorix.GroupStats.GroupN);
  velorix.Views.ShowChoices();
  velorix.Views.FillGrid();
  velorix.Views.FillDataTable();
  velorix.Views.RefreshGroupStatistics();
  if (velorix.Windows.Contour) RebuildContourData(velorix.Contour, velorix.Session, velorix.Views);
  AnisoView_DisplayAllPlots(velorix);
}

void AnisoView_DisplayAllPlots(Velorix& velorix) {
  // Kept for agreement with published results: both XY plots take the switch of the first one. The
  // second has its own only from a change of one of its controls to the next display.
  for (bool& lines : velorix.Plots.XYLines) lines = velorix.Plots.XYPlot[1].lines;
  for (const PlotKind plot : AllPlots) velorix.Views.Redraw(plot);
}

void DisplayFormCaption(Velorix& velorix) {
  const Session& session = velorix.Session;
  std::string caption = ProgramTitle;
  if (!session.CurrentFile.empty())
    caption += " - [" + CompactPath(session.CurrentFile, velorix.Views.CaptionRoom()) +
               "]     (N = " + std::to_string(session.RecordCount()) + ")";
  velorix.Views.SetCaption(caption);
}

}  // namespace velorix
