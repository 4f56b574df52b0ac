#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "stats/group/bootstrap.h"
#include "stats/group/hext.h"
#include "stats/group/tensor_statistics.h"
#include "store/session.h"

namespace velorix {

/// A direction in 32 bits, degrees.
struct ShortDirection {
  float Dec = 0, Inc = 0;
  bool operator==(const ShortDirection&) const = default;
};

/// The results of the last group statistics, angles in degrees. Kept for agreement with published
/// results: a run that is too small for a field leaves the value of the run before. What may be
/// shown say the functions below.
struct GroupStats : TensorStats {
  /// How far the last run came before it failed, or `All`.
  enum Step { None, MeanTensor, TensorErrors, Bootstrap, AverageKm, All };

  std::int16_t GroupN = 0;              // records in the mean tensor
  Array1<Factor, FactorSlots> MeanFac;  // of the mean tensor
  std::optional<HextStats> Hext;        // nothing where they are not defined
  float AvgKm = 0;                      // averages over the records and their deviations
  Array1<float, FactorSlots> AvgFac;
  float SdKm = 0;
  Array1<float, FactorSlots> SdFac;
  BootChoice BootBy;                                  // the bootstrap that was asked for
  Array1<double, 3> BootE1, BootE2;                   // semi-axes of the bootstrap regions
  Array1<std::vector<ShortDirection>, 3> BootPoints;  // a direction a replicate
  Array1<std::vector<ShortDirection>, 3> BootContour;
  velorix::BootLimits BootLimits;
  FactorIntervals BootFactors;
  Step Reached = None;
  int FactorsDone = 0;                   // slots of MeanFac, AvgFac, SdFac that this run computed
  bool HasAverages = false;              // some record stood behind AvgKm
  Array1<bool, FactorSlots> HasAverage;  // some record stood behind AvgFac

  bool operator==(const GroupStats&) const = default;
};

/// Leaves no group, so that nothing of it is shown.
inline void ForgetGroup(GroupStats& stats) { stats.GroupN = 0; }

inline constexpr int BootMaxN = 100;  // larger groups get no bootstrap
inline constexpr int BootContourPoints = 200;

/// Mean tensor, errors and bootstrap of the records that the view shows (`IsShown`), averages of
/// the in-phase `Km` and of the factors also of those without an out-of-phase block. Fails with
/// "Division by zero" where a group has equal mean values or no scatter, "Overflow" where its
/// numbers are too large, and `NotFinite`; what was computed before stays, and `stats.Reached` says
/// how far that is. Hext's statistics don't depend on the others.
void GroupStatistics(const RecordArray& records, CoordinateSystem coorSys, TensorBlock reImMode,
                     const Array1<std::int16_t, FactorSlots>& facIndex,
                     std::span<const float> gaussTable, GroupStats& stats,
                     const BootChoice& boot = {});
/// The same of some records of a store.
void GroupStatistics(std::span<const SpecimenRecord* const> records, CoordinateSystem coorSys,
                     TensorBlock reImMode, const Array1<std::int16_t, FactorSlots>& facIndex,
                     std::span<const float> gaussTable, GroupStats& stats, const BootChoice& boot);

/// What a geologist may take for the cause of a failure: in one word or two for a list, and as a
/// sentence's end. The fault's own text where that says it.
struct FailureCause {
  std::string Short, Words;
};
FailureCause CauseOf(const Fault& failure);

// What a view may show of the last run: what the group is large enough for, and what was reached.
bool ShowsMean(const GroupStats& stats);           // MeanK, MeanDec, MeanInc, MeanVec
bool ShowsErrors(const GroupStats& stats, int k);  // MeanE1, MeanE2, MeanRot of direction k
bool ShowsErrorsAt95(const GroupStats& stats);     // MeanE1At95, MeanE2At95 of all directions
bool HasBootstrap(const GroupStats& stats);        // BootPoints, BootContour as pictures
bool ShowsBootstrap(const GroupStats& stats);  // the same, their semi-axes and limits as numbers
bool ShowsMeanFac(const GroupStats& stats, int slot);
bool ShowsAvgKm(const GroupStats& stats);
bool ShowsAvgFac(const GroupStats& stats, int slot);
bool ShowsDeviations(const GroupStats& stats);  // besides, of what has an average

/// The bootstrap of a group of `n` records in words, "simple, 1000 replicates, seed 7"; "none" and
/// why where the group is too small or too large for it.
std::string BootstrapText(const BootChoice& choice, int n);

/// The larger and the smaller angle of a direction, degrees.
struct AngularErrors {
  double E1 = 0, E2 = 0;
};
/// Those of direction k at a level; nothing where they may not be shown.
std::optional<AngularErrors> ErrorsOf(const GroupStats& stats, ErrorLevel level, int k);

}  // namespace velorix
