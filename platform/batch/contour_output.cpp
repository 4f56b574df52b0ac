#include "platform/batch/contour_output.h"

#include <iostream>
#include <sstream>

#include "app/commands.h"
#include "app/display/contour.h"
#include "platform/batch/json_writer.h"
#include "platform/batch/progress.h"

namespace velorix {
namespace {

std::string WordOf(int display) {
  std::istringstream words(ContourWords);
  std::string word;
  for (int i = 0; i < display; ++i) std::getline(words, word, '|');
  return word;
}

}  // namespace

bool CountForBatch(Velorix& velorix, int display, int smooth, bool shown) {
  ContourSession& contour = velorix.Contour;
  contour.Options.display = static_cast<std::int16_t>(display);
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
  object.Add("option", WordOf(contour.Options.display));
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
