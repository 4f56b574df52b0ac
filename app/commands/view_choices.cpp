#include "app/commands/view_choices.h"

#include "app/commands/display.h"
#include "app/display/group_marks.h"
#include "app/display/view_values.h"

namespace velorix {
namespace {

/// What a change in one of the lists costs.
void RotateAndRefresh(Velorix& velorix) {
  RotateView(velorix.Session);
  RefreshViews(velorix);
}

void RotateByCodesInUse(Velorix& velorix) {
  TakeCodesInUse(velorix.Lists, velorix.Session.FoliCode, velorix.Session.LineCode);
  RotateAndRefresh(velorix);
}

void RedrawCodesShown(Velorix& velorix) {
  TakeCodesShown(velorix.Lists, velorix.Plots.Stereo);
  velorix.Views.Redraw(PlotKind::Stereonet);
}

}  // namespace

void ChooseCoorSys(Velorix& velorix, CoordinateSystem system) {
  velorix.Session.CoorSys = system;
  RotateAndRefresh(velorix);
}

void ChooseTectoPlane(Velorix& velorix, PaleoPlane plane) {
  velorix.Session.TectoPlane = plane;
  RotateAndRefresh(velorix);
}

void ChooseTectoAxis(Velorix& velorix, TectoAxis axis) {
  SetTectoAxis(velorix.Session, axis);
  RotateAndRefresh(velorix);
}

void ChooseFoliation(Velorix& velorix, int index) {
  velorix.Lists.foliationsInUse.ListIndex = index;
  RotateByCodesInUse(velorix);
}

void ChooseLineation(Velorix& velorix, int index) {
  velorix.Lists.lineationsInUse.ListIndex = index;
  RotateByCodesInUse(velorix);
}

void ShowFoliation(Velorix& velorix, int index, bool shown) {
  velorix.Lists.foliationsShown.Entries[static_cast<std::size_t>(index)].Selected = shown;
  RedrawCodesShown(velorix);
}

void ShowLineation(Velorix& velorix, int index, bool shown) {
  velorix.Lists.lineationsShown.Entries[static_cast<std::size_t>(index)].Selected = shown;
  RedrawCodesShown(velorix);
}

void ChangePlot(Velorix& velorix, PlotKind plot, const std::function<void(PlotChoices&)>& change) {
  change(velorix.Plots);
  velorix.Views.Redraw(plot);
}

void ChooseLevel(Velorix& velorix, ErrorLevel level) {
  velorix.Plots.Stereo.level = level;
  velorix.Views.RefreshGroupStatistics();
  velorix.Views.Redraw(PlotKind::Stereonet);
}

void ChooseBootstrap(Velorix& velorix, const BootChoice& choice) {
  if (choice == velorix.Bootstrap) return;
  velorix.Bootstrap = choice;
  DisplayData(velorix, false);
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

void ChooseGroups(Velorix& velorix, const GroupChoices& choices) {
  const bool wereShown = velorix.Plots.Marks.AreShown();
  if (choices == velorix.Plots.Groups) return;
  velorix.Plots.Groups = choices;
  MarkGroups(velorix.Session, velorix.GaussTable, velorix.Plots);
  if (!wereShown && !velorix.Plots.Marks.AreShown()) return;
  for (const PlotKind plot : AllPlots) velorix.Views.Redraw(plot);
}

void SelectRecords(Velorix& velorix, const std::vector<int>& ids) {
  RecordArray& records = velorix.Session.Records;
  ClearSelection(records);
  for (int id : ids)  // record numbers are the records' indices
    if (id >= 1 && id <= records.Count()) records[id].Selected = true;
  velorix.Views.ShowSelection();
  AnisoView_DisplayAllPlots(velorix);
}

}  // namespace velorix
