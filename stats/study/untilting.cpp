#include "stats/study/untilting.h"

#include <algorithm>
#include <cmath>

#include "stats/group/jacobi.h"
#include "tensor/aniso_factor.h"
#include "tensor/derivation.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

/// A tensor with trace 1 in geographic axes, and the plane that it is untilted by.
struct TiltedTensor {
  Matrix<3, 3> Tensor;
  Direction Plane;
};
using TiltedGroup = std::vector<TiltedTensor>;

/// The foliation of the code by its dip direction and dip.
std::optional<Direction> FoliationOf(const SpecimenRecord& record, const std::string& code) {
  std::optional<Direction> plane;
  if (code.empty()) return plane;
  // Kept for agreement with published results: of two slots with one code, the second.
  for (int i = 1; i <= 2; ++i)
    if (record.FoliName[i] == code) plane = {record.FoliAz[i], record.FoliDip[i]};
  return plane;
}

/// Nothing where a number isn't finite or the trace isn't positive.
std::optional<TiltedTensor> TiltedOf(const SpecimenRecord& record, TensorBlock block,
                                     const Direction& plane) {
  Vector<6> t;
  try {
    View view;
    view.ReImMode = block;  // of the geographic system
    t = RotatedTensor(record, view);
  } catch (const Fault&) {
    return std::nullopt;
  }
  const double trace = t[1] + t[2] + t[3];
  if (!(trace > 0) || !std::isfinite(plane.Dec) || !std::isfinite(plane.Inc)) return std::nullopt;
  for (double& component : t)
    if (!std::isfinite(component /= trace)) return std::nullopt;
  TiltedTensor tilted{{}, plane};
  TensorForm<ToMatrix>(tilted.Tensor, t);
  return tilted;
}

/// The tensors of a group that count; what it is called and what it lacks goes to `words`.
TiltedGroup TiltedOf(const Session& session, const RecordGroup& group, UntiltedGroup& words) {
  TiltedGroup tilted;
  words.Name = group.Name;
  bool good = true;
  for (const int place : group.Records) {
    const SpecimenRecord& record = session.Records[place];
    if (!IsShown(record, session.CoorSys, session.ReImMode)) continue;
    const std::optional<Direction> plane = FoliationOf(record, session.FoliCode);
    if (!plane || !record.HasCoor[static_cast<int>(Geographic)]) {
      ++words.LeftOut;
      continue;
    }
    if (const auto tensor = TiltedOf(record, session.ReImMode, *plane))
      tilted.push_back(*tensor);
    else
      good = false;
  }
  if (!good) tilted.clear();
  words.Used = good ? std::optional(static_cast<int>(tilted.size())) : std::nullopt;
  return tilted;
}

/// The group's mean tensor, untilted by a share of the dips.
Matrix<3, 3> MeanAt(const TiltedGroup& group, double share) {
  Matrix<3, 3> mean;
  for (const TiltedTensor& t : group) {
    const Matrix<3, 3> M = FoliationMatrix({t.Plane.Dec, t.Plane.Inc * share}, {0, 0});
    Matrix<3, 3> back, half, turned;
    Transpose(M, back);
    Mxmpy(M, t.Tensor, half);
    Mxmpy(half, back, turned);
    for (int i = 0; i < 9; ++i) mean.v[i] += turned.v[i] / static_cast<double>(group.size());
  }
  return mean;
}

/// The products of an axis's components; their sum over axes makes the orientation matrix.
TensorColumn ProductsOf(const Matrix<3, 3>& vectors, int k) {
  const double x = vectors(1, k), y = vectors(2, k), z = vectors(3, k);
  return {x * x, y * y, z * z, x * y, y * z, x * z};
}

void AddTo(TensorColumn& sum, double factor, const TensorColumn& products) {
  for (int c = 0; c < 6; ++c) sum.v[c] += factor * products.v[c];
}

double TauOf(const TensorColumn& sum, std::size_t axes) {
  Matrix<3, 3> M, V;
  Vector<3> D;
  TensorForm<ToMatrix>(M, sum);
  Jacobi(M, D, V);
  return D[1] / static_cast<double>(axes);
}

/// The largest tau so far and its step.
class Peak {
 public:
  void See(int step, double tau) {
    least_ = std::min(least_, tau);
    if (tau <= most_) return;
    most_ = tau;
    step_ = step;
  }
  std::optional<int> Step() const {
    constexpr double Roundings = 1e-9;
    return most_ - least_ > Roundings ? std::optional(step_) : std::nullopt;
  }

 private:
  double most_ = -1, least_ = 2;
  int step_ = 0;
};

/// An axis of the groups: its peak, and those of the resamplings.
struct AxisPeaks {
  int Axis;  // 1 Kmax, 3 Kmin
  Peak All;
  std::vector<Peak> Resampled;
  std::vector<TensorColumn> Sums;  // of the resamplings at one step

  UntiltBest Best() const {
    UntiltBest best;
    best.Step = All.Step();
    if (!best.Step) return best;
    std::vector<double> steps;
    for (const Peak& peak : Resampled)
      if (const auto step = peak.Step()) steps.push_back(*step);
    best.Resamplings = static_cast<int>(steps.size());
    if (steps.empty()) return best;
    best.Limits = BootInterval(steps);
    best.Verdict = UntiltVerdict(*best.Limits);
    return best;
  }
};

/// How often each resampling draws each group: those of one group side by side.
std::vector<std::uint16_t> DrawGroups(std::size_t groups, std::uint32_t seed) {
  std::vector<std::uint16_t> counts(groups * UntiltResamplings);
  NumberSource numbers(seed);
  for (std::size_t r = 0; r < UntiltResamplings; ++r)
    for (std::size_t g = 0; g < groups; ++g)
      ++counts[numbers.Place(groups) * UntiltResamplings + r];
  return counts;
}

/// The groups that count, and their draws where they are enough for limits.
class Fold {
 public:
  Fold(std::vector<TiltedGroup> groups, std::uint32_t seed) : groups_(std::move(groups)) {
    if (groups_.size() < LeastUntiltGroups) return;
    counts_ = DrawGroups(groups_.size(), seed);
    for (AxisPeaks& peaks : axes_) peaks.Resampled.resize(UntiltResamplings);
  }

  UntiltStep At(int percent) {
    UntiltStep step{percent, {}, {}, {}, {}};
    const std::size_t n = groups_.size();
    if (n == 0) return step;
    Matrix<3, 3> mean;
    TensorColumn sums[2];
    for (AxisPeaks& peaks : axes_) peaks.Sums.assign(peaks.Resampled.size(), {});
    for (std::size_t g = 0; g < n; ++g) {
      Matrix<3, 3> tensor = MeanAt(groups_[g], percent / 100.0), vectors;
      for (int i = 0; i < 9; ++i) mean.v[i] += tensor.v[i] / static_cast<double>(n);
      Vector<3> values;
      Jacobi(tensor, values, vectors);
      for (int a : {0, 1}) {
        const TensorColumn products = ProductsOf(vectors, axes_[a].Axis);
        AddTo(sums[a], 1, products);
        std::vector<TensorColumn>& resampled = axes_[a].Sums;
        for (std::size_t r = 0; r < resampled.size(); ++r)
          AddTo(resampled[r], counts_[g * UntiltResamplings + r], products);
      }
    }
    Matrix<3, 3> vectors;
    Vector<3> k;
    Jacobi(mean, k, vectors);
    const FactorInput input(k[1], k[2], k[3]);
    constexpr int FactorP = 4, FactorT = 31;
    step.P = AnisoFactor(FactorP, input);
    step.T = AnisoFactor(FactorT, input);
    step.TauMax = See(axes_[0], percent, sums[0]);
    step.TauMin = See(axes_[1], percent, sums[1]);
    return step;
  }
  UntiltBest BestOfKmax() const { return axes_[0].Best(); }
  UntiltBest BestOfKmin() const { return axes_[1].Best(); }

 private:
  double See(AxisPeaks& peaks, int percent, const TensorColumn& sum) const {
    const std::size_t n = groups_.size();
    for (std::size_t r = 0; r < peaks.Sums.size(); ++r)
      peaks.Resampled[r].See(percent, TauOf(peaks.Sums[r], n));
    const double tau = TauOf(sum, n);
    peaks.All.See(percent, tau);
    return tau;
  }

  std::vector<TiltedGroup> groups_;
  std::vector<std::uint16_t> counts_;
  AxisPeaks axes_[2] = {{1, {}, {}, {}}, {3, {}, {}, {}}};
};

}  // namespace

int Untilting::UsedGroups() const {
  return static_cast<int>(std::count_if(
      Groups.begin(), Groups.end(), [](const UntiltedGroup& g) { return g.Used.value_or(0) > 0; }));
}

int Untilting::UsedRecords() const {
  int records = 0;
  for (const UntiltedGroup& group : Groups) records += group.Used.value_or(0);
  return records;
}

std::optional<Untilting> UntiltGroups(const Session& session, std::span<const RecordGroup> groups,
                                      std::optional<std::uint32_t> seed,
                                      const std::function<bool(int done)>& progress) {
  Untilting result;
  result.Foliation = session.FoliCode;
  result.Seed = seed.value_or(GaussSeed);
  std::vector<TiltedGroup> counted;
  for (const RecordGroup& group : groups) {
    TiltedGroup tilted = TiltedOf(session, group, result.Groups.emplace_back());
    result.LeftOut += result.Groups.back().LeftOut;
    if (!tilted.empty()) counted.push_back(std::move(tilted));
  }
  Fold fold(std::move(counted), result.Seed);
  for (int percent = FirstUntiltStep; percent <= LastUntiltStep; ++percent) {
    result.Steps.push_back(fold.At(percent));
    if (progress && !progress(static_cast<int>(result.Steps.size()))) return std::nullopt;
  }
  result.Kmax = fold.BestOfKmax();
  result.Kmin = fold.BestOfKmin();
  return result;
}

std::string UntiltVerdict(const Interval& limits) {
  const auto holds = [&limits](double percent) {
    return limits.Lower <= percent && percent <= limits.Upper;
  };
  if (holds(100) && !holds(0)) return "older than the folding";
  if (holds(0) && !holds(100)) return "younger";
  if (limits.Lower > 0 && limits.Upper < 100) return "during the folding, or not resolved";
  return "not decided";
}

}  // namespace velorix
