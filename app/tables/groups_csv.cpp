#include "app/tables/groups_csv.h"

#include <vector>

#include "app/tables/table_lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

template <class Value>
std::string Cell(bool shown, Value value) {
  return shown ? PlainText(value) : "";
}

void Append(std::vector<std::string>& cells, const std::vector<std::string>& more) {
  cells.insert(cells.end(), more.begin(), more.end());
}

void AddDirection(std::vector<std::string>& cells, const GroupStats& stats, int k) {
  cells.push_back(Cell(ShowsMean(stats), stats.MeanDec[k]));
  cells.push_back(Cell(ShowsMean(stats), stats.MeanInc[k]));
  for (const ErrorLevel level : {ErrorLevel::StandardError, ErrorLevel::Confidence95}) {
    const std::optional<AngularErrors> errors = ErrorsOf(stats, level, k);
    cells.push_back(errors ? PlainText(errors->E1) : "");
    cells.push_back(errors ? PlainText(errors->E2) : "");
  }
}

}  // namespace

std::string GroupsCsvHeader(const Settings& settings, const std::optional<StudyOrigin>& origin) {
  std::vector<std::string> cells = {"Group", "N"};
  for (const char* const axis : {"K1", "K2", "K3"})
    for (const char* const column : {"_Dec", "_Inc", "_E1", "_E2", "_E1_95", "_E2_95"})
      cells.push_back(std::string(axis) + column);
  cells.insert(cells.end(), {"Km", "Km_SD"});
  for (const std::string& name : settings.FacName) cells.push_back(name);
  cells.insert(cells.end(), {"Hext_F", "Hext_F12", "Hext_F23"});
  if (origin) Append(cells, OriginHeader());
  return CsvLine(cells);
}

std::string GroupsCsvRow(const GroupRow& row, const std::optional<StudyOrigin>& origin) {
  const GroupStats& stats = row.Stats;
  std::vector<std::string> cells = {row.Name, PlainText(int{stats.GroupN})};
  for (int k = 1; k <= 3; ++k) AddDirection(cells, stats, k);
  cells.push_back(Cell(ShowsAvgKm(stats), stats.AvgKm));
  cells.push_back(Cell(ShowsAvgKm(stats) && ShowsDeviations(stats), stats.SdKm));
  for (int slot = 1; slot <= FactorSlots; ++slot) {
    const bool shown = ShowsMeanFac(stats, slot) && stats.MeanFac[slot].IsComputed();
    cells.push_back(Cell(shown, stats.MeanFac[slot].Shown()));
  }
  for (const auto field : {&HextStats::F, &HextStats::F12, &HextStats::F23})
    cells.push_back(stats.Hext ? PlainText(*stats.Hext.*field) : "");
  if (origin) Append(cells, OriginCells(*origin));
  return CsvLine(cells);
}

}  // namespace velorix
