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

std::string DirectionText(int row, int column, const GroupStats& stats) {
  if (!ShowsMean(stats)) return {};
  if (column >= 4 && !ShowsErrors(stats, row)) return {};
  switch (column) {
    case 1:
      return FormatNumber(stats.MeanK[row], ValuePicture);
    case 2:
      return Angle(stats.MeanDec[row]);
    case 3:
      return Angle(stats.MeanInc[row]);
    case 4:
      return Angle(stats.MeanE1[row]);
    default:
      return Angle(stats.MeanE2[row]);
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

std::string Row(const std::string& head, std::initializer_list<std::string> cells) {
  std::string row = head;
  for (const std::string& cell : cells) row += "\t" + cell;
  return row + "\n";
}

}  // namespace

std::string JelinekText(int index, const GroupStats& stats) {
  if (index == CountLabel) return ShowsMean(stats) ? "N = " + std::to_string(stats.GroupN) : "";
  for (int row = 1; row <= 3; ++row)
    for (int column = 1; column <= 5; ++column)
      if (DirectionLabel(row, column) == index) return DirectionText(row, column, stats);
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

std::string GroupTableText(const GroupStats& stats, const Settings& settings) {
  constexpr Array1<const char*, 3> axes = {"K1", "K2", "K3"};
  std::string text = Row(JelinekText(CountLabel, stats),
                         {"Mean Tensor", "Dec", "Inc", "E1", "E2", "Bootstrap E1", "Bootstrap E2"});
  const auto cell = [&](int index) { return JelinekText(index, stats); };
  for (int k = 1; k <= 3; ++k)
    text += Row(axes[k],
                {cell(DirectionLabel(k, 1)), cell(DirectionLabel(k, 2)), cell(DirectionLabel(k, 3)),
                 cell(DirectionLabel(k, 4)), cell(DirectionLabel(k, 5)),
                 BootStatText(2 * k - 1, stats), BootStatText(2 * k, stats)});
  text += Row("", {"Mean Tensor", "Average", "Std. Err."});
  for (int row = 0; row <= FactorSlots; ++row) {
    const std::string head = row == 0 ? "Km" : FactorLabel(row, settings);
    if (!head.empty())
      text += Row(head, {cell(FactorValueLabel(row, 1)), cell(FactorValueLabel(row, 2)),
                         cell(FactorValueLabel(row, 3))});
  }
  return text;
}

}  // namespace velorix
