#include "platform/batch/contour_output.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/commands.h"
#include "app/display/contour.h"
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
  velorix.Contour.Options.display = static_cast<std::int16_t>(display);
  velorix.Contour.Options.smoothing = static_cast<std::int16_t>(smooth);
  constexpr int Steps = 100;
  Progress progress("Counting the density", Steps, shown);
  Guarded(velorix, [&] {
    BuildContourGrid(velorix.ContourGrid, 0, 300, 3);
    ShowContourData(velorix);
    if (velorix.Contour.InView.Data.Count() == 0)
      std::cerr << "--contour: the view has no such directions.\n";
    else
      CountContour(velorix, [&progress](double share) {
        progress.Tell(static_cast<int>(share * Steps));
        return true;
      });
  });
  return velorix.Contour.Counted();
}

void WriteContourJson(std::ostream& out, const Velorix& velorix) {
  using Json = nlohmann::ordered_json;
  const ContourSession& contour = velorix.Contour;
  const ContourGrid& grid = velorix.ContourGrid;
  const ContourLevels levels = LevelsOf(contour.Count.ContourMax);
  out << "{\n \"option\": " << Json(WordOf(contour.Options.display))
      << ",\n \"Smooth\": " << contour.Smooth
      << ",\n \"ContourDataCount\": " << contour.Count.ContourDataCount
      << ",\n \"ContourNodeCount\": " << contour.Count.ContourNodeCount
      << ",\n \"ContourMax\": " << Json(static_cast<double>(contour.Count.ContourMax))
      << ",\n \"Step\": " << levels.Step << ",\n \"Levels\": " << Json(levels.Values)
      << ",\n \"Density\": [";
  for (int i = grid.First; i <= grid.Last; ++i) {
    Json column = Json::array();
    for (int j = grid.First; j <= grid.Last; ++j) {
      const auto node = static_cast<std::size_t>(grid.Index(i, j));
      column.push_back(grid.Inside[node] ? Json(static_cast<double>(grid.Density[node])) : Json());
    }
    out << (i == grid.First ? "\n  " : ",\n  ") << column.dump();
  }
  out << "\n ]\n}\n";
}

std::string ContourSummary(const Velorix& velorix) {
  const std::string maximum = ContourMaximumText(velorix);
  return "Density  " + ContourCaption(velorix) + "\n         " +
         maximum.substr(0, maximum.find('\n')) + "\n";
}

}  // namespace velorix
