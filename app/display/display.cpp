#include "app/display/display.h"

#include <array>

#include "app/display/contour.h"
#include "app/display/group_marks.h"
#include "app/display/shown_group.h"
#include "tensor/derivation.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {
namespace {

void ShowSelectedCodes(Velorix& velorix) {
  velorix.Plots.Stereo.foliationCodes = velorix.Lists.foliationsShown.SelectedCodes();
  velorix.Plots.Stereo.lineationCodes = velorix.Lists.lineationsShown.SelectedCodes();
}

/// The codes in use are those that the lists show; a list that shows nothing gives an empty code.
void TakeShownCodes(Velorix& velorix) {
  velorix.Session.FoliCode = velorix.Lists.foliationsInUse.Text();
  velorix.Session.LineCode = velorix.Lists.lineationsInUse.Text();
}

/// Factors and rotation of the records in view. A fault comes with the number of its record.
void DeriveView(Session& session) {
  const View view = ViewOf(session);
  int number = 0;
  try {
    for (SpecimenRecord& record : session.Records) {
      if (!record.HasCoor[static_cast<int>(session.CoorSys)] || !record.Active) continue;
      number = record.RecordNo;
      DeriveFactors(record, session.Settings.FacIndex, session.ReImMode);
      RotateRecord(record, view);
    }
  } catch (const Fault& fault) {
    throw Fault(fault.Number, "Record " + PlainText(number) + ": " + fault.what(), fault.Source);
  }
}

/// The group statistics of the records in view.
void ComputeGroup(Velorix& velorix) {
  const Session& session = velorix.Session;
  try {
    GroupStatistics(session.Records, session.CoorSys, session.ReImMode, session.Settings.FacIndex,
                    velorix.GaussTable, velorix.GroupStats, velorix.Bootstrap);
  } catch (const Fault& fault) {
    throw StatisticsFault(fault.Number, IncompleteText(fault.what()));
  }
}

}  // namespace

std::string IncompleteText(const std::string& reason) {
  return "Group statistics incomplete: specimens too much alike, or mean principal values equal (" +
         reason + ")";
}

void DisplayData(Velorix& velorix, bool resetLists) {
  Session& session = velorix.Session;
  if (resetLists) ResetCodes(velorix.Lists);
  for (const SpecimenRecord& record : session.Records) {
    ListAddCodes(velorix.Lists, record, FromData);
    ComboAddCodes(velorix.Lists, record, FromData);
  }
  TakeShownCodes(velorix);
  ShowSelectedCodes(velorix);
  velorix.Views.ShowCodeLists();

  // A record that fails here ends the display before its statistics: then no mean is shown, rather
  // than that of the records shown before.
  ForgetGroup(velorix.GroupStats);
  velorix.GroupOf = GroupInView(session);
  DeriveView(session);
  ComputeGroup(velorix);
  RefreshViews(velorix);
}

void RefreshViews(Velorix& velorix) {
  MarkGroups(velorix);
  StereoOptions& net = velorix.Plots.Stereo;
  net.meanOf = GroupHeading(velorix.Session, velorix.GroupOf, velorix.GroupStats.GroupN);
  net.bootBy = velorix.Bootstrap == BootChoice() ? "" : TextOf(velorix.Bootstrap);
  velorix.Views.ShowChoices();
  velorix.Views.FillGrid();
  velorix.Views.FillDataTable();
  velorix.Views.RefreshGroupStatistics();
  if (velorix.Windows.Contour) RebuildContourData(velorix.Contour, velorix.Session, velorix.Views);
  AnisoView_DisplayAllPlots(velorix);
}

void AnisoView_DisplayAllPlots(Velorix& velorix) {
  velorix.Views.RedrawStereo();
  velorix.Views.RedrawHisto();
  // Kept for agreement with published results: both plots take the switch of the first one. The
  // second has its own only from a change of one of its controls to the next display.
  for (const int plot : {1, 2}) {
    velorix.Plots.XYLines[plot] = velorix.Plots.XYPlot[1].lines;
    velorix.Views.RedrawXYPlot(plot);
  }
}

void RotateAndRefresh(Velorix& velorix) {
  const View view = ViewOf(velorix.Session);
  for (SpecimenRecord& record : velorix.Session.Records)
    if (record.HasCoor[static_cast<int>(velorix.Session.CoorSys)]) RotateRecord(record, view);
  RefreshViews(velorix);
}

void ChooseCoorSys(Velorix& velorix, int index) {
  velorix.Session.CoorSys = SystemAt(index);
  RotateAndRefresh(velorix);
}

void ChooseTectoPlane(Velorix& velorix, int index) {
  velorix.Session.TectoPlane = PlaneAt(index);
  RotateAndRefresh(velorix);
}

void ChooseTectoAxis(Velorix& velorix, int index) {
  velorix.Session.TectoNorthSouth = index % 2 == 1;
  velorix.Session.TectoEastWest = index >= 2;
  RotateAndRefresh(velorix);
}

void ChooseFoliation(Velorix& velorix, int index) {
  velorix.Lists.foliationsInUse.ListIndex = index;
  TakeShownCodes(velorix);
  RotateAndRefresh(velorix);
}

void ChooseLineation(Velorix& velorix, int index) {
  velorix.Lists.lineationsInUse.ListIndex = index;
  TakeShownCodes(velorix);
  RotateAndRefresh(velorix);
}

void ShowFoliation(Velorix& velorix, int index, bool shown) {
  velorix.Lists.foliationsShown.Entries[static_cast<std::size_t>(index)].Selected = shown;
  ShowSelectedCodes(velorix);
  velorix.Views.RedrawStereo();
}

void ShowLineation(Velorix& velorix, int index, bool shown) {
  velorix.Lists.lineationsShown.Entries[static_cast<std::size_t>(index)].Selected = shown;
  ShowSelectedCodes(velorix);
  velorix.Views.RedrawStereo();
}

void ChangeXYPlot(Velorix& velorix, int plot, const XYPlotOptions& options) {
  velorix.Plots.XYPlot[plot] = options;
  velorix.Plots.XYLines[plot] = options.lines;
  velorix.Views.RedrawXYPlot(plot);
}

void ChooseLevel(Velorix& velorix, ErrorLevel level) {
  velorix.Plots.Stereo.level = level;
  velorix.Views.RefreshGroupStatistics();
  velorix.Views.RedrawStereo();
}

void ChooseBootstrap(Velorix& velorix, const BootChoice& choice) {
  if (choice == velorix.Bootstrap) return;
  velorix.Bootstrap = choice;
  DisplayData(velorix, false);
}

void ChooseHisto(Velorix& velorix, Column column) {
  velorix.Plots.HistoParameter = column;
  velorix.Views.RedrawHisto();
}

void ChooseFirstPlots(Velorix& velorix) {
  constexpr int P = 4, T = 31;  // of the catalogue
  const auto columnOf = [&](int factor, Column without) {
    for (int slot = 1; slot <= FactorSlots; ++slot)
      if (velorix.Session.Settings.FacIndex[slot] == factor) return FactorColumn(slot);
    return without;
  };
  const Column degree = columnOf(P, Column::Fac3), shape = columnOf(T, Column::Fac5);
  velorix.Plots.XYPlot[1].x = Column::Km;
  velorix.Plots.XYPlot[1].y = velorix.Plots.XYPlot[2].x = degree;
  velorix.Plots.XYPlot[2].y = shape;
  for (const int plot : {1, 2}) velorix.Plots.XYPlot[plot].colour = Column::Km;
}

void SelectRecords(Velorix& velorix, const std::vector<int>& ids) {
  RecordArray& records = velorix.Session.Records;
  ClearSelection(records);
  for (int id : ids)  // record numbers are the records' indices
    if (id >= 1 && id <= records.Count()) records[id].Selected = true;
  velorix.Views.ShowSelection();
  AnisoView_DisplayAllPlots(velorix);
}

int TectoAxisIndex(const Session& session) {
  return (session.TectoEastWest ? 2 : 0) + (session.TectoNorthSouth ? 1 : 0);
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
