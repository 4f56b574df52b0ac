#include "app/tables/group_table.h"

#include "text/numbers.h"

namespace velorix {
namespace {

using Content = GroupTableContent;

constexpr char AnglePicture[] = "0.0", ValuePicture[] = "0.000", TestPicture[] = "0.00";

/// An angle with the blank that stands behind it.
std::string Angle(double angle) {
  const std::string text = FormatNumber(angle, AnglePicture);
  return text.empty() ? text : text + " ";
}

std::string Limits(const Interval& limits) {
  return TrimmedNumber(limits.Lower, ValuePicture) + " - " +
         TrimmedNumber(limits.Upper, ValuePicture);
}

std::string ErrorText(const Content& c, int k, double AngularErrors::*error) {
  const auto errors = ErrorsOf(c.Stats, c.Level, k);
  return ShowsMean(c.Stats) && errors ? Angle((*errors).*error) : "";
}

/// The 95 % limits of a principal value by the bootstrap, "1.021 - 1.043".
std::string PrincipalLimits(const Content& c, int k) {
  if (!ShowsBootstrap(c.Stats)) return {};
  return Limits({c.Stats.BootLimits.Lower[k], c.Stats.BootLimits.Upper[k]});
}

/// Those of a factor; empty for one without them.
std::string FactorLimits(const Content& c, int slot) {
  if (slot == 0 || !ShowsBootstrap(c.Stats)) return {};
  for (int i = 1; i <= FactorIntervals::Size; ++i)
    if (BootFactorList[i - 1].Index == c.Settings.FacIndex[slot] && c.Stats.BootFactors[i])
      return Limits(*c.Stats.BootFactors[i]);
  return {};
}

std::string FactorOfMean(const Content& c, int slot) {
  if (slot == 0) return ShowsMean(c.Stats) ? "N/A" : "";  // the mean tensor has no Km
  return ShowsMeanFac(c.Stats, slot) ? FormatNumber(c.Stats.MeanFac[slot].Shown(), ValuePicture)
                                     : "";
}

std::string FactorAverage(const Content& c, int slot) {
  if (slot == 0) return ShowsAvgKm(c.Stats) ? SignificantText(c.Stats.AvgKm, 4) : "";
  return ShowsAvgFac(c.Stats, slot) ? FormatNumber(c.Stats.AvgFac[slot], ValuePicture) : "";
}

std::string FactorDeviation(const Content& c, int slot) {
  if (!ShowsDeviations(c.Stats)) return {};
  if (slot == 0) return ShowsAvgKm(c.Stats) ? SignificantText(c.Stats.SdKm, 4) : "";
  return ShowsAvgFac(c.Stats, slot) ? FormatNumber(c.Stats.SdFac[slot], ValuePicture) : "";
}

constexpr char MeanTip[] = "Principal values and directions of the mean tensor, in degrees";
constexpr char ErrorTip[] = "Errors of the directions, in degrees; 5 records and more";
constexpr char BootTip[] = "Half-axes of the bootstrap regions, in degrees; 5 to 100 records";

// clang-format off
constexpr GroupColumn Directions[] = {
    {"Mean Tensor", MeanTip, [](const Content& c, int k) -> std::string { return ShowsMean(c.Stats) ? FormatNumber(c.Stats.MeanK[k], ValuePicture) : ""; }},
    {"Dec", MeanTip, [](const Content& c, int k) -> std::string { return ShowsMean(c.Stats) ? Angle(c.Stats.MeanDec[k]) : ""; }},
    {"Inc", MeanTip, [](const Content& c, int k) -> std::string { return ShowsMean(c.Stats) ? Angle(c.Stats.MeanInc[k]) : ""; }},
    {"E1", ErrorTip, [](const Content& c, int k) { return ErrorText(c, k, &AngularErrors::E1); }},
    {"E2", ErrorTip, [](const Content& c, int k) { return ErrorText(c, k, &AngularErrors::E2); }},
    {"Bootstrap E1", BootTip, [](const Content& c, int k) -> std::string { return ShowsBootstrap(c.Stats) ? Angle(c.Stats.BootE1[k]) : ""; }},
    {"Bootstrap E2", BootTip, [](const Content& c, int k) -> std::string { return ShowsBootstrap(c.Stats) ? Angle(c.Stats.BootE2[k]) : ""; }},
    {"95 % Limits", "95 % limits of the principal values by the bootstrap", PrincipalLimits},
};

constexpr GroupColumn Factors[] = {
    {"Mean Tensor", "Factors of the mean tensor, whose mean is 1", FactorOfMean},
    {"Average", "Means of the records' values", FactorAverage},
    {"Std. Err.", "Standard deviations of the records' values", FactorDeviation},
    {"95 % Limits", "95 % limits of the mean tensor's factor by the bootstrap", FactorLimits, false},
};

constexpr HextRow HextTable[] = {
    {"F", "Anisotropy; isotropic below the critical value",
     [](const HextStats& h) { return FormatNumber(h.F, TestPicture); }, [](const HextStats& h) { return FormatNumber(h.FCritical, TestPicture); }},
    {"F12", "K1 against K2; an oblate shape is not rejected below the critical value",
     [](const HextStats& h) { return FormatNumber(h.F12, TestPicture); }, [](const HextStats& h) { return FormatNumber(h.F12Critical, TestPicture); }},
    {"F23", "K2 against K3; a prolate shape is not rejected below the critical value",
     [](const HextStats& h) { return FormatNumber(h.F23, TestPicture); }, [](const HextStats& h) { return FormatNumber(h.F12Critical, TestPicture); }},
    {"e12", "95 % half-angle in the plane of K1 and K2, in degrees", [](const HextStats& h) { return Angle(h.E12); }, nullptr},
    {"e23", "95 % half-angle in the plane of K2 and K3, in degrees", [](const HextStats& h) { return Angle(h.E23); }, nullptr},
    {"e13", "95 % half-angle in the plane of K1 and K3, in degrees", [](const HextStats& h) { return Angle(h.E13); }, nullptr},
    {"Verdict", "Of the three tests at the 95 % level, in their order",
     [](const HextStats& h) -> std::string { return WordsOf(VerdictOf(h)); }, nullptr, true},
};
// clang-format on

/// A row of cells behind its head.
class Row {
 public:
  explicit Row(std::string head) : text_(std::move(head)) {}
  Row& Add(const std::string& cell) {
    text_ += "\t" + cell;
    return *this;
  }
  std::string Text() const { return text_ + "\n"; }

 private:
  std::string text_;
};

std::string HeadingRow(const std::string& head, std::span<const GroupColumn> columns) {
  Row row(head);
  for (const GroupColumn& column : columns) row.Add(column.Heading);
  return row.Text();
}

std::string ValueRow(const std::string& head, std::span<const GroupColumn> columns,
                     const Content& content, int of) {
  Row row(head);
  for (const GroupColumn& column : columns) row.Add(column.Text(content, of));
  return row.Text();
}

}  // namespace

std::span<const GroupColumn> DirectionColumns() { return Directions; }

std::span<const GroupColumn> FactorColumns() { return Factors; }

std::span<const HextRow> HextRows() { return HextTable; }

std::string HextText(std::string (*value)(const HextStats& hext), const GroupStats& stats) {
  return stats.Hext && value ? value(*stats.Hext) : "";
}

std::string CountText(const GroupStats& stats) {
  return ShowsMean(stats) ? "N = " + std::to_string(stats.GroupN) : "";
}

std::string FactorLabel(int slot, const Settings& settings) {
  return settings.FacName[slot] == "0" ? "" : settings.FacName[slot];
}

std::string GroupTableText(const GroupStats& stats, const Settings& settings, ErrorLevel level,
                           const std::string& heading) {
  constexpr Array1<const char*, 3> axes = {"K1", "K2", "K3"};
  const Content content = {stats, settings, level};
  std::string text;
  const bool ofDefault = stats.BootBy == BootChoice();
  if (level != ErrorLevel::StandardError || !ofDefault)
    text = LevelText(level) + ", " +
           (ofDefault ? "" : "bootstrap: " + BootstrapText(stats.BootBy, stats.GroupN) + ", ") +
           heading + "\n";
  text += HeadingRow(CountText(stats), Directions);
  for (int k = 1; k <= 3; ++k) text += ValueRow(axes[k], Directions, content, k);
  text += HeadingRow("", Factors);
  for (int slot = 0; slot <= FactorSlots; ++slot) {
    const std::string head = slot == 0 ? "Km" : FactorLabel(slot, settings);
    if (!head.empty()) text += ValueRow(head, Factors, content, slot);
  }
  if (!stats.Hext) return text;
  text += Row("Hext").Add("Value").Add("Critical").Text();
  for (const HextRow& row : HextTable)
    text += Row(row.Name).Add(HextText(row.Value, stats)).Add(HextText(row.Critical, stats)).Text();
  return text;
}

}  // namespace velorix
