#include "app/tables/study_table.h"

#include <utility>

#include "app/tables/table_lines.h"
#include "text/lines.h"
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
  return {std::string(StripBlanks(SignificantText(value, 4))), value};
}

/// Each reason, in the order of the groups, with the names of its groups in quotes.
std::vector<std::pair<std::string, std::string>> NamesByReason(std::span<const GroupReason> reasons,
                                                               std::size_t most) {
  std::vector<std::pair<std::string, std::string>> texts;
  std::vector<std::size_t> counts;
  for (const auto& [group, reason] : reasons) {
    std::size_t i = 0;
    while (i < texts.size() && texts[i].first != reason) ++i;
    if (i == texts.size()) {
      texts.push_back({reason, {}});
      counts.push_back(0);
    }
    if (++counts[i] <= most)
      texts[i].second += (counts[i] > 1 ? ", \"" : "\"") + StripControls(group) + "\"";
  }
  for (std::size_t i = 0; i < texts.size(); ++i)
    if (counts[i] > most) texts[i].second += " and " + std::to_string(counts[i] - most) + " more";
  return texts;
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

std::string GroupsLeftOut(std::span<const GroupReason> reasons, std::size_t most) {
  std::string text;
  for (const auto& [reason, names] : NamesByReason(reasons, most))
    text.append(text.empty() ? "Groups left out: " : " ")
        .append(names)
        .append(" (")
        .append(reason)
        .append(").");
  return text;
}

std::string FailuresText(const std::vector<GroupRow>& rows) {
  constexpr std::size_t MostNamed = 3;
  std::vector<GroupReason> failures;
  for (const GroupRow& row : rows)
    if (row.Failure) failures.push_back({row.Name, CauseOf(*row.Failure).Short});
  std::string text;
  for (const auto& [reason, names] : NamesByReason(failures, MostNamed))
    text.append(text.empty() ? "Incomplete, " : "; ").append(reason).append(": ").append(names);
  return text;
}

}  // namespace velorix
