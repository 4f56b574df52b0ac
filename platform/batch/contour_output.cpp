#include "platform/batch/contour_output.h"

#include <iostream>

#include "app/commands/commands.h"
#include "app/display/contour.h"
#include "platform/batch/json_writer.h"
#include "platform/batch/progress.h"

namespace velorix {

bool CountForBatch(Velorix& velorix, ContourDisplay display, int smooth, bool shown) {
  ContourSession& contour = velorix.Contour;
  contour.Options.display = display;
  contour.Options.smoothing = static_cast<std::int16_t>(smooth);
  constexpr int Steps = 100;
  Progress progress("Counting the density", Steps, shown);
  Guarded(velorix, [&] {
    BuildContourGrid(contour.Grid);
    ShowContourData(contour, velorix.Session);
    if (contour.InView.Data.Count() == 0)
      std::cerr << "--contour: the view has no such directions.\n";
    else
      CountContour(contour, velorix.Session, velorix.Dialogs, [&progress](double share) {
        progress.Tell(static_cast<int>(share * Steps));
        return true;
      });
  });
  return contour.Counted();
}

void WriteContourJson(std::ostream& out, const ContourSession& contour) {
  const ContourGrid& grid = contour.Grid;
  const ContourLevels levels = LevelsOf(contour.Count.ContourMax);
  ObjectWriter object(out, 0);
  object.Add("option", InfoOf(contour.Options.display).Word);
  object.Add("Smooth", contour.Smooth);
  object.Add("ContourDataCount", contour.Count.ContourDataCount);
  object.Add("ContourNodeCount", contour.Count.ContourNodeCount);
  object.Add("ContourMax", static_cast<double>(contour.Count.ContourMax));
  object.Add("Step", levels.Step);
  object.Add("Levels", levels.Values);
  object.AddList("Density", grid.Last - grid.First + 1, [&](int i) {
    Json column = Json::array();
    for (int j = grid.First; j <= grid.Last; ++j) {
      const auto node = static_cast<std::size_t>(grid.Index(grid.First + i, j));
      column.push_back(grid.Inside[node] ? Json(static_cast<double>(grid.Density[node])) : Json());
    }
    out << column;
  });
  object.End();
  out << '\n';
}

std::string ContourSummary(const ContourSession& contour) {
  const std::string maximum = ContourMaximumText(contour);
  return "Density  " + ContourCaption(contour) + "\n         " +
         maximum.substr(0, maximum.find('\n')) + "\n";
}

}  // namespace velorix
