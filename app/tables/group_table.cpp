#include "app/tables/group_table.h"

#include "text/numbers.h"

namespace velorix {
namespace {

constexpr char AnglePicture[] = "0.0", ValuePicture[] = "0.000";

/// An angle with the blank that stands behind it.
std::string Angle(double angle) {
  const std::string text = FormatNumber(angle, AnglePicture);
  return text.empty() ? text : text + " ";
}

std::string DirectionText(int row, int column, const GroupStats& stats, ErrorLevel level) {
  if (!ShowsMean(stats)) return {};
  const auto errors = ErrorsOf(stats, level, row);
  if (column >= 4 && !errors) return {};
  switch (column) {
    case 1:
      return FormatNumber(stats.MeanK[row], ValuePicture);
    case 2:
      return Angle(stats.MeanDec[row]);
    case 3:
      return Angle(stats.MeanInc[row]);
    case 4:
      return Angle(errors->E1);
    default:
      return Angle(errors->E2);
  }
}

std::string KmText(int column, const GroupStats& stats) {
  if (column == 1) return ShowsMean(stats) ? "N/A" : "";  // the mean tensor has no Km
  if (!ShowsAvgKm(stats) || (column == 3 && !ShowsDeviations(stats))) return {};
  return SignificantText(column == 2 ? stats.AvgKm : stats.SdKm, 4);
}

std::string FactorText(int slot, int column, const GroupStats& stats) {
  if (column == 1)
    return ShowsMeanFac(stats, slot) ? FormatNumber(stats.MeanFac[slot].Shown(), ValuePicture) : "";
  if (!ShowsAvgFac(stats, slot) || (column == 3 && !ShowsDeviations(stats))) return {};
  return FormatNumber(column == 2 ? stats.AvgFac[slot] : stats.SdFac[slot], ValuePicture);
}

std::string Limits(const Interval& limits) {
  return TrimmedNumber(limits.Lower, ValuePicture) + " - " +
         TrimmedNumber(limits.Upper, ValuePicture);
}

std::string Row(const std::string& head, std::initializer_list<std::string> cells) {
  std::string row = head;
  for (const std::string& cell : cells) row += "\t" + cell;
  return row + "\n";
}

}  // namespace

std::string JelinekText(int index, const GroupStats& stats, ErrorLevel level) {
  if (index == CountLabel) return ShowsMean(stats) ? "N = " + std::to_string(stats.GroupN) : "";
  for (int row = 1; row <= 3; ++row)
    for (int column = 1; column <= 5; ++column)
      if (DirectionLabel(row, column) == index) return DirectionText(row, column, stats, level);
  for (int row = 0; row <= FactorSlots; ++row)
    for (int column = 1; column <= 3; ++column)
      if (FactorValueLabel(row, column) == index)
        return row == 0 ? KmText(column, stats) : FactorText(row, column, stats);
  return {};
}

std::string BootStatText(int index, const GroupStats& stats) {
  if (index < 1 || index > 6 || !ShowsBootstrap(stats)) return {};
  const int k = (index + 1) / 2;
  return Angle(index % 2 == 1 ? stats.BootE1[k] : stats.BootE2[k]);
}

std::string FactorLabel(int slot, const Settings& settings) {
  return settings.FacName[slot] == "0" ? "" : settings.FacName[slot];
}

std::string PrincipalLimitsText(int row, const GroupStats& stats) {
  if (!ShowsBootstrap(stats)) return {};
  return Limits({stats.BootLimits.Lower[row], stats.BootLimits.Upper[row]});
}

std::string FactorLimitsText(int slot, const GroupStats& stats, const Settings& settings) {
  if (!ShowsBootstrap(stats)) return {};
  for (int i = 1; i <= FactorIntervals::Size; ++i)
    if (BootFactorList[i - 1].Index == settings.FacIndex[slot] && stats.BootFactors[i])
      return Limits(*stats.BootFactors[i]);
  return {};
}

HextCells HextTable(const GroupStats& stats) {
  const HextStats h = stats.Hext.value_or(HextStats());
  const auto number = [&](double x) { return stats.Hext ? FormatNumber(x, "0.00") : ""; };
  const auto angle = [&](double x) { return stats.Hext ? Angle(x) : ""; };
  return {{{"Hext", "Value", "Critical"},
           {"F", number(h.F), number(h.FCritical)},
           {"F12", number(h.F12), number(h.F12Critical)},
           {"F23", number(h.F23), number(h.F12Critical)},
           {"e12", angle(h.E12), ""},
           {"e23", angle(h.E23), ""},
           {"e13", angle(h.E13), ""},
           {"Verdict", stats.Hext ? WordsOf(VerdictOf(h)) : "", ""}}};
}

std::string GroupTableText(const GroupStats& stats, const Settings& settings, ErrorLevel level,
                           const std::string& heading) {
  constexpr Array1<const char*, 3> axes = {"K1", "K2", "K3"};
  std::string text;
  const bool ofDefault = stats.BootBy == BootChoice();
  if (level != ErrorLevel::StandardError || !ofDefault)
    text = LevelText(level) + ", " +
           (ofDefault ? "" : "bootstrap: " + BootstrapText(stats.BootBy, stats.GroupN) + ", ") +
           heading + "\n";
  text +=
      Row(JelinekText(CountLabel, stats, level),
          {"Mean Tensor", "Dec", "Inc", "E1", "E2", "Bootstrap E1", "Bootstrap E2", "95 % Limits"});
  const auto cell = [&](int index) { return JelinekText(index, stats, level); };
  for (int k = 1; k <= 3; ++k)
    text += Row(axes[k], {cell(DirectionLabel(k, 1)), cell(DirectionLabel(k, 2)),
                          cell(DirectionLabel(k, 3)), cell(DirectionLabel(k, 4)),
                          cell(DirectionLabel(k, 5)), BootStatText(2 * k - 1, stats),
                          BootStatText(2 * k, stats), PrincipalLimitsText(k, stats)});
  text += Row("", {"Mean Tensor", "Average", "Std. Err.", "95 % Limits"});
  for (int row = 0; row <= FactorSlots; ++row) {
    const std::string head = row == 0 ? "Km" : FactorLabel(row, settings);
    if (!head.empty())
      text += Row(head, {cell(FactorValueLabel(row, 1)), cell(FactorValueLabel(row, 2)),
                         cell(FactorValueLabel(row, 3)),
                         row == 0 ? "" : FactorLimitsText(row, stats, settings)});
  }
  if (!stats.Hext) return text;
  for (const auto& [name, value, critical] : HextTable(stats)) text += Row(name, {value, critical});
  return text;
}

}  // namespace velorix
