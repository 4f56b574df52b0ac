#include "stats/group/group_statistics.h"

#include <cmath>
#include <vector>

#include "tensor/aniso_factor.h"

namespace velorix {
namespace {

using Records = std::span<const SpecimenRecord* const>;

/// Whether the averages take the record. Kept for agreement with published results: unlike
/// the mean tensor they don't need the out-of-phase block, and they take the in-phase `Km` in both
/// blocks.
bool IsAveraged(const SpecimenRecord& record, CoordinateSystem coorSys) {
  return record.CoorLevel == coorSys && record.Active;
}

std::vector<TensorColumn> ShownTensors(Records records, CoordinateSystem coorSys,
                                       TensorBlock reImMode) {
  std::vector<TensorColumn> T;
  T.reserve(records.size());
  for (const SpecimenRecord* record : records) {
    if (!IsShown(*record, coorSys, reImMode)) continue;
    TensorColumn& t = T.emplace_back();
    for (int c = 1; c <= 6; ++c) t[c] = record->TensorRot[c];
  }
  return T;
}

ShortDirection Short(const Direction& d) {
  return {static_cast<float>(d.Dec), static_cast<float>(d.Inc)};
}

Vector<3> ColumnOf(const Matrix<3, 3>& M, int k) { return {M(1, k), M(2, k), M(3, k)}; }

/// Half the angle between the two ends of an axis of a contour. Ends that are exactly opposite give
/// 90, also when rounding carries their product beyond -1.
double SemiAxis(const Direction& a, const Direction& b) {
  const double product = Vvmpy(DirectionToVector(1, a), DirectionToVector(1, b));
  if (product < -1 && product > -1 - 1e-9) return 90;
  return AngleBetween(a, b) / 2;
}

void StoreBootstrap(const BootResult& boot, GroupStats& stats) {
  const auto empty = [](Array1<std::vector<ShortDirection>, 3>& clouds, std::size_t room) {
    for (std::vector<ShortDirection>& cloud : clouds) {
      cloud.clear();
      cloud.reserve(room);
    }
  };
  empty(stats.BootPoints, boot.BootVec.size());
  empty(stats.BootContour, boot.BootEllipse.size());
  for (Matrix<3, 3> V : boot.BootVec) {
    MxSignCopy(V, V, true);
    const Array1<Direction, 3> directions = MatrixDirections(V);
    for (int k = 1; k <= 3; ++k) stats.BootPoints[k].push_back(Short(directions[k]));
  }
  const auto contour = [&](int point, int k) {
    if (boot.BootEllipse.empty()) return Direction{};
    return DirectionOfVector(ColumnOf(boot.BootEllipse[static_cast<std::size_t>(point - 1)], k));
  };
  constexpr int Quarter = BootContourPoints / 4;
  for (int k = 1; k <= 3; ++k) {
    stats.BootE1[k] = SemiAxis(contour(1, k), contour(2 * Quarter + 1, k));
    stats.BootE2[k] = SemiAxis(contour(Quarter + 1, k), contour(3 * Quarter + 1, k));
    for (std::size_t j = 1; j <= boot.BootEllipse.size(); ++j)
      stats.BootContour[k].push_back(Short(contour(static_cast<int>(j), k)));
  }
  stats.BootLimits = boot.Limits;
  stats.BootFactors = boot.Factors;
}

/// Mean and deviation in 32 bits; an empty group has neither.
bool Average(const std::vector<double>& values, float& mean, float& sd) {
  mean = values.empty() ? 0 : static_cast<float>(Mean(values));
  sd = static_cast<float>(StdDev(values));
  return !values.empty();
}

void AverageSlot(Records records, CoordinateSystem coorSys, std::int16_t facIndex, int slot,
                 GroupStats& stats) {
  stats.MeanFac[slot] =
      FactorIn32(AnisoFactor(facIndex, stats.MeanK[1], stats.MeanK[2], stats.MeanK[3]));
  std::vector<double> values;
  values.reserve(records.size());
  for (const SpecimenRecord* record : records)
    if (IsAveraged(*record, coorSys) && record->Fac[slot].IsComputed())
      values.push_back(record->Fac[slot].Value());
  stats.HasAverage[slot] = Average(values, stats.AvgFac[slot], stats.SdFac[slot]);
}

}  // namespace

void GroupStatistics(const RecordArray& records, CoordinateSystem coorSys, TensorBlock reImMode,
                     const Array1<std::int16_t, FactorSlots>& facIndex,
                     std::span<const float> gaussTable, GroupStats& stats, const BootChoice& boot) {
  std::vector<const SpecimenRecord*> all;
  all.reserve(static_cast<std::size_t>(records.Count()));
  for (const SpecimenRecord& record : records) all.push_back(&record);
  GroupStatistics(all, coorSys, reImMode, facIndex, gaussTable, stats, boot);
}

void GroupStatistics(std::span<const SpecimenRecord* const> records, CoordinateSystem coorSys,
                     TensorBlock reImMode, const Array1<std::int16_t, FactorSlots>& facIndex,
                     std::span<const float> gaussTable, GroupStats& stats, const BootChoice& boot) {
  stats.Reached = GroupStats::None;
  stats.FactorsDone = 0;
  stats.BootBy = boot;
  const std::vector<TensorColumn> T = ShownTensors(records, coorSys, reImMode);
  stats.GroupN = static_cast<std::int16_t>(T.size());
  stats.Reached = GroupStats::MeanTensor;
  stats.Hext = Hext(T);
  TensorStatistics(T, stats);
  stats.Reached = GroupStats::TensorErrors;
  if (T.size() <= BootMaxN)
    StoreBootstrap(BootStrap(T, boot, BootContourPoints, gaussTable), stats);
  stats.Reached = GroupStats::Bootstrap;

  std::vector<double> km;
  for (const SpecimenRecord* record : records)
    if (IsAveraged(*record, coorSys)) km.push_back(record->Km);
  stats.HasAverages = Average(km, stats.AvgKm, stats.SdKm);
  stats.Reached = GroupStats::AverageKm;
  for (int slot = 1; slot <= FactorSlots; ++slot) {
    AverageSlot(records, coorSys, facIndex[slot], slot, stats);
    stats.FactorsDone = slot;
  }
  stats.Reached = GroupStats::All;
}

FailureCause CauseOf(const Fault& failure) {
  static constexpr struct {
    int Number;
    const char *Short, *Words;
  } causes[] = {{11, "too much alike", "specimens too much alike, or mean principal values equal"},
                {6, "numbers too large", "a tensor's numbers are too large"}};
  for (const auto& [number, brief, words] : causes)
    if (failure.Number == number)
      return {brief, words + (std::string(" (") + failure.what() + ")")};
  return {failure.what(), failure.what()};
}

bool ShowsMean(const GroupStats& stats) { return stats.GroupN > 0; }

bool ShowsErrors(const GroupStats& stats, int k) { return stats.GroupN >= 5 && stats.Errors >= k; }

bool ShowsErrorsAt95(const GroupStats& stats) { return ShowsErrors(stats, 3); }

std::optional<AngularErrors> ErrorsOf(const GroupStats& stats, ErrorLevel level, int k) {
  if (level == ErrorLevel::StandardError) {
    if (!ShowsErrors(stats, k)) return std::nullopt;
    return AngularErrors{stats.MeanE1[k], stats.MeanE2[k]};
  }
  if (!ShowsErrorsAt95(stats)) return std::nullopt;
  return AngularErrors{stats.MeanE1At95[k], stats.MeanE2At95[k]};
}

bool HasBootstrap(const GroupStats& stats) {
  return stats.BootBy.Method != BootMethod::None && stats.GroupN >= 2 && stats.GroupN <= BootMaxN &&
         stats.Reached >= GroupStats::Bootstrap;
}

bool ShowsBootstrap(const GroupStats& stats) { return stats.GroupN >= 5 && HasBootstrap(stats); }

std::string BootstrapText(const BootChoice& choice, int n) {
  if (choice.Method != BootMethod::None && n > BootMaxN)
    return "none, more than " + std::to_string(BootMaxN) + " records";
  if (choice.Method != BootMethod::None && n == 1) return "none, one record";
  return TextOf(choice);
}

bool ShowsMeanFac(const GroupStats& stats, int slot) {
  return ShowsMean(stats) && stats.FactorsDone >= slot;
}

bool ShowsAvgKm(const GroupStats& stats) {
  return ShowsMean(stats) && stats.Reached >= GroupStats::AverageKm && stats.HasAverages;
}

bool ShowsAvgFac(const GroupStats& stats, int slot) {
  return ShowsMeanFac(stats, slot) && stats.HasAverage[slot];
}

bool ShowsDeviations(const GroupStats& stats) { return stats.GroupN >= 2; }

}  // namespace velorix
