#include "app/tables/untilting_table.h"

#include "app/tables/study_table.h"
#include "app/tables/table_lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr char TauPicture[] = "0.0000", StepPicture[] = "0.000000";

using Tau = std::optional<double> UntiltStep::*;

std::string Shown(const std::optional<double>& value, const char* picture) {
  return value ? TrimmedNumber(*value, picture) : "";
}

std::string TauAt(const Untilting& untilting, std::optional<int> percent, Tau tau) {
  for (const UntiltStep& step : untilting.Steps)
    if (percent == step.Percent) return Shown(step.*tau, TauPicture);
  return {};
}

std::string VerdictOf(const Untilting& untilting, const UntiltBest& best) {
  if (best.Limits) return best.Verdict;
  if (!best.Step) return "none: tau is the same at each step";
  return untilting.UsedGroups() < static_cast<int>(LeastUntiltGroups)
             ? "none: no limits for fewer than five groups"
             : "none: no limits";
}

std::string Counted(int n, const std::string& word) {
  return std::to_string(n) + " " + word + (n == 1 ? "" : "s");
}

std::string Percent(double step) { return PlainText(step) + " %"; }

template <class Cells>
std::string Tabbed(const Cells& cells) {
  return TabbedLine(std::vector<std::string>(cells.begin(), cells.end()));
}

}  // namespace

UntiltingCells UntiltingTable(const Untilting& untilting) {
  const auto row = [&](const char* name, const UntiltBest& best, Tau tau) {
    const auto& limits = best.Limits;
    return std::array<std::string, UntiltingColumns>{
        name,
        best.Step ? Percent(*best.Step) : "none",
        limits ? PlainText(limits->Lower) + " to " + Percent(limits->Upper) : "",
        TauAt(untilting, best.Step, tau),
        TauAt(untilting, 0, tau),
        TauAt(untilting, 100, tau),
        VerdictOf(untilting, best)};
  };
  return {
      {{"", "Best step", "95 % limits", "Tau at best", "Tau as found", "Tau untilted", "Verdict"},
       row("Kmax", untilting.Kmax, &UntiltStep::TauMax),
       row("Kmin", untilting.Kmin, &UntiltStep::TauMin)}};
}

std::string UntiltingCounts(const Untilting& untilting) {
  std::string text = Counted(untilting.UsedGroups(), "group") + ", " +
                     Counted(untilting.UsedRecords(), "record") + "; " +
                     Counted(untilting.LeftOut, "record") + " left out.";
  if (untilting.Kmax.Limits || untilting.Kmin.Limits)
    text += " " + Counted(UntiltResamplings, "resampling") + ", seed " +
            std::to_string(untilting.Seed) + ".";
  return text;
}

std::string NotUntiltedReason(const UntiltedGroup& group) {
  if (!group.Used) return "a trace that is not positive, or a number that is not finite";
  return *group.Used > 0 ? "" : "no record with this foliation and an orientation";
}

std::string UntiltingLeftOut(const Untilting& untilting, std::size_t most) {
  std::vector<GroupReason> reasons;
  for (const UntiltedGroup& group : untilting.Groups)
    if (const std::string reason = NotUntiltedReason(group); !reason.empty())
      reasons.push_back({group.Name, reason});
  return GroupsLeftOut(reasons, most);
}

std::string NothingUntilted(const Untilting& untilting) {
  if (untilting.UsedGroups() > 0) return {};
  return "no group can be untilted by the foliation \"" + untilting.Foliation + "\".";
}

std::string UntiltingText(const Untilting& untilting, const std::string& heading) {
  std::string text = heading + "\n";
  for (const auto& row : UntiltingTable(untilting)) text += Tabbed(row);
  text += UntiltingCounts(untilting) + "\n";
  const std::string left = UntiltingLeftOut(untilting, untilting.Groups.size());
  if (!left.empty()) text += left + "\n";
  text += TabbedLine({"Untilting %", "P", "T", "Tau Kmax", "Tau Kmin"});
  for (const UntiltStep& step : untilting.Steps)
    text += TabbedLine({std::to_string(step.Percent), Shown(step.P, StepPicture),
                        Shown(step.T, StepPicture), Shown(step.TauMax, StepPicture),
                        Shown(step.TauMin, StepPicture)});
  return text;
}

}  // namespace velorix
