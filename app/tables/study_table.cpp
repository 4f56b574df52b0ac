#include "app/tables/study_table.h"

#include "app/tables/table_lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr char AnglePicture[] = "0.0", ValuePicture[] = "0.000";

StudyCell Rounded(bool shown, double value, const char* picture) {
  if (!shown) return {};
  return {TrimmedNumber(value, picture), value};
}

StudyCell Susceptibility(bool shown, double value) {
  if (!shown) return {};
  return {SignificantText(value, 4), value};
}

}  // namespace

std::vector<std::string> StudyHeader(const Settings& settings, ErrorLevel level) {
  std::vector<std::string> header = {"Group", "N"};
  const std::string suffix = level == ErrorLevel::StandardError ? "" : " 95 %";
  for (const char* const axis : {"K1", "K2", "K3"})
    for (const std::string& column :
         {std::string("Dec"), std::string("Inc"), "E1" + suffix, "E2" + suffix})
      header.push_back(std::string(axis) + " " + column);
  header.insert(header.end(), {"Km", "Km Std. Err."});
  header.insert(header.end(), settings.FacName.begin(), settings.FacName.end());
  header.insert(header.end(), {"Hext F", "F12", "F23"});
  return header;
}

std::vector<StudyCell> StudyCells(const GroupRow& row, ErrorLevel level) {
  const GroupStats& stats = row.Stats;
  std::vector<StudyCell> cells = {{row.Name, {}}, {std::to_string(stats.GroupN), stats.GroupN}};
  for (int k = 1; k <= 3; ++k) {
    cells.push_back(Rounded(ShowsMean(stats), stats.MeanDec[k], AnglePicture));
    cells.push_back(Rounded(ShowsMean(stats), stats.MeanInc[k], AnglePicture));
    const auto errors = ErrorsOf(stats, level, k);
    const auto [e1, e2] = errors.value_or(AngularErrors());
    cells.push_back(Rounded(errors.has_value(), e1, AnglePicture));
    cells.push_back(Rounded(errors.has_value(), e2, AnglePicture));
  }
  const bool km = ShowsAvgKm(stats);
  cells.push_back(Susceptibility(km, stats.AvgKm));
  cells.push_back(Susceptibility(km && ShowsDeviations(stats), stats.SdKm));
  for (int slot = 1; slot <= FactorSlots; ++slot) {
    const bool shown = ShowsMeanFac(stats, slot) && stats.MeanFac[slot].IsComputed();
    cells.push_back(Rounded(shown, stats.MeanFac[slot].Shown(), ValuePicture));
  }
  const HextStats hext = stats.Hext.value_or(HextStats());
  for (const auto field : {&HextStats::F, &HextStats::F12, &HextStats::F23})
    cells.push_back(Rounded(stats.Hext.has_value(), hext.*field, "0.00"));
  return cells;
}

std::string StudyText(const std::vector<const GroupRow*>& rows, const Settings& settings,
                      ErrorLevel level, const std::string& heading) {
  std::string text = heading + "\n" + TabbedLine(StudyHeader(settings, level));
  for (const GroupRow* row : rows) {
    std::vector<std::string> cells;
    for (const StudyCell& cell : StudyCells(*row, level)) cells.push_back(cell.Text);
    text += TabbedLine(cells);
  }
  return text;
}

std::string GroupCount(std::size_t groups) {
  return std::to_string(groups) + (groups == 1 ? " group" : " groups");
}

std::string FailuresText(const std::vector<GroupRow>& rows) {
  std::string names;
  int count = 0;
  for (const GroupRow& row : rows) {
    if (row.Failure.empty()) continue;
    if (++count <= 3) names += (count > 1 ? ", \"" : "\"") + row.Name + "\"";
  }
  if (count == 0) return {};
  if (count > 3) names += " and " + std::to_string(count - 3) + " more";
  return "Incomplete, too much alike: " + names;
}

}  // namespace velorix
