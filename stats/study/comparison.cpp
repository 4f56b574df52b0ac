#include "stats/study/comparison.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "stats/group/confidence_region.h"
#include "stats/group/jacobi.h"
#include "stats/group/replicates.h"

namespace velorix {
namespace {

constexpr double Degree = std::numbers::pi / 180;

/// Values and vectors of a mean tensor, the vectors in columns.
struct Axes {
  Vector<3> Values;
  Matrix<3, 3> Vectors;

  Vector<3> Of(int k) const { return {Vectors(1, k), Vectors(2, k), Vectors(3, k)}; }
};

Axes AxesOf(Matrix<3, 3> tensor) {
  Axes axes;
  Jacobi(tensor, axes.Values, axes.Vectors);
  return axes;
}

Vector<3> Cross(const Vector<3>& a, const Vector<3>& b) {
  return {a[2] * b[3] - a[3] * b[2], a[3] * b[1] - a[1] * b[3], a[1] * b[2] - a[2] * b[1]};
}

/// `v`, or the opposite vector, in the hemisphere of `pole`.
Vector<3> InHemisphere(const Vector<3>& v, const Vector<3>& pole) {
  return Sum({}, Vvmpy(v, pole) < 0 ? -1 : 1, v);
}

/// What the comparisons of a group go by.
struct Member {
  std::vector<TensorColumn> Tensors;  // with trace 1; empty where there is no such form
  Axes Mean;
  std::optional<Array1<ConfidenceRegion, 3>> Regions;
};

/// The tensors in view with trace 1; nothing where one has no such form.
std::optional<std::vector<TensorColumn>> TensorsOf(const Session& session,
                                                   const RecordGroup& group) {
  std::vector<TensorColumn> tensors;
  for (const int place : group.Records) {
    const SpecimenRecord& record = session.Records[place];
    if (!IsShown(record, session.CoorSys, session.ReImMode)) continue;
    TensorColumn& t = tensors.emplace_back();
    for (int c = 1; c <= 6; ++c) t[c] = record.TensorRot[c];
    const double trace = t[1] + t[2] + t[3];
    for (double& component : t) component /= trace;
    const bool good =
        trace > 0 && std::all_of(t.begin(), t.end(), [](double x) { return std::isfinite(x); });
    if (!good) return std::nullopt;
  }
  return tensors;
}

std::optional<Array1<ConfidenceRegion, 3>> RegionsOf(std::span<const TensorColumn> tensors) {
  if (tensors.size() < 5) return std::nullopt;
  TensorStats stats;
  try {
    TensorStatistics(tensors, stats);
  } catch (const Fault&) {
    return std::nullopt;
  }
  Array1<ConfidenceRegion, 3> regions;
  for (int k = 1; k <= 3; ++k) regions[k] = ConfidenceRegion(stats, k);
  return regions;
}

Member MemberOf(const Session& session, const RecordGroup& group) {
  Member member{TensorsOf(session, group).value_or(std::vector<TensorColumn>()), {}, {}};
  TensorColumn mean;
  for (const TensorColumn& t : member.Tensors)
    for (int c = 1; c <= 6; ++c) mean[c] += t[c] / static_cast<double>(member.Tensors.size());
  Matrix<3, 3> M;
  TensorForm<ToMatrix>(M, mean);
  member.Mean = AxesOf(M);
  member.Regions = RegionsOf(member.Tensors);
  return member;
}

std::vector<Axes> ReplicatesOf(const Member& member, const BootChoice& boot,
                               NumberSource& numbers) {
  std::vector<Axes> replicates;
  if (member.Tensors.size() < 2 || boot.Method == BootMethod::None) return replicates;
  for (const Matrix<3, 3>& tensor : MeanReplicates(member.Tensors, boot, numbers))
    replicates.push_back(AxesOf(tensor));
  return replicates;
}

BootLimits LimitsOfDifference(std::span<const Axes> a, std::span<const Axes> b) {
  std::vector<Vector<3>> differences;
  for (std::size_t i = 0; i < a.size(); ++i)
    differences.push_back(Sum(a[i].Values, -1, b[i].Values));
  return BootQuantiles(differences);
}

/// Whether 0 lies outside the 95 % ellipse of the differences of the axes; nothing where they don't
/// scatter over a plane.
std::optional<bool> AxisDiffers(const Axes& meanA, const Axes& meanB, std::span<const Axes> a,
                                std::span<const Axes> b, int k) {
  const Vector<3> poleA = meanA.Of(k), poleB = InHemisphere(meanB.Of(k), poleA);
  const Vector<3> sum = Sum(poleA, 1, poleB);
  // Two vectors across the sum, by the coordinate axis that lies farthest from it.
  int least = 1;
  for (int i = 2; i <= 3; ++i)
    if (std::fabs(sum[i]) < std::fabs(sum[least])) least = i;
  Vector<3> unit;
  unit[least] = 1;
  const auto normed = [](const Vector<3>& v) { return Sum({}, 1 / std::sqrt(Vvmpy(v, v)), v); };
  const Vector<3> u = normed(Cross(sum, unit)), v = normed(Cross(sum, u));

  std::vector<double> x, y;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const Vector<3> d = Sum(InHemisphere(a[i].Of(k), poleA), -1, InHemisphere(b[i].Of(k), poleB));
    x.push_back(Vvmpy(d, u));
    y.push_back(Vvmpy(d, v));
  }
  const double mx = Mean(x), my = Mean(y), n = static_cast<double>(x.size());
  double xx = 0, xy = 0, yy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    xx += (x[i] - mx) * (x[i] - mx) / (n - 1);
    xy += (x[i] - mx) * (y[i] - my) / (n - 1);
    yy += (y[i] - my) * (y[i] - my) / (n - 1);
  }
  const double determinant = xx * yy - xy * xy;
  if (!(determinant > 0)) return std::nullopt;
  return (mx * mx * yy - 2 * mx * my * xy + my * my * xx) / determinant > ChiSquare95;
}

GroupComparison Compared(const Member& A, const Member& B, std::span<const Axes> a,
                         std::span<const Axes> b) {
  GroupComparison result;
  if (A.Tensors.empty() || B.Tensors.empty()) return result;
  result.Angle.emplace();
  result.ValueGap = Sum(A.Mean.Values, -1, B.Mean.Values);
  for (int k = 1; k <= 3; ++k) {
    const double cosine = std::fabs(Vvmpy(A.Mean.Of(k), B.Mean.Of(k)));
    const Vector<3> normal = Cross(A.Mean.Of(k), B.Mean.Of(k));
    (*result.Angle)[k] = std::atan2(std::sqrt(Vvmpy(normal, normal)), cosine) / Degree;
  }
  if (A.Regions && B.Regions) {
    result.Overlap.emplace();
    for (int k = 1; k <= 3; ++k) {
      const ConfidenceRegion &ofA = (*A.Regions)[k], &ofB = (*B.Regions)[k];
      (*result.Overlap)[k] = ofA.Reaches(ofB) || ofB.Reaches(ofA);
    }
  }
  if (a.empty() || b.empty()) return result;
  for (int k = 1; k <= 3; ++k) result.AxisDiffers[k] = AxisDiffers(A.Mean, B.Mean, a, b, k);
  result.ValueDifference = LimitsOfDifference(a, b);
  return result;
}

}  // namespace

std::string NotComparedReason(const Session& session, const RecordGroup& group) {
  const auto tensors = TensorsOf(session, group);
  if (!tensors) return "a trace that is not positive, or a number that is not finite";
  return tensors->empty() ? "no tensor in view" : "";
}

bool CompareGroups(const Session& session, std::span<const RecordGroup> groups,
                   const BootChoice& boot, std::span<const float> gaussTable,
                   const TakeComparison& take,
                   const std::function<bool(std::size_t done)>& progress) {
  std::vector<Member> members;
  for (const RecordGroup& group : groups) members.push_back(MemberOf(session, group));
  std::size_t done = 0;
  for (std::size_t i = 0; i < members.size(); ++i) {
    NumberSource numbers = NumbersOf(boot, gaussTable);
    const std::vector<Axes> a = ReplicatesOf(members[i], boot, numbers);
    for (std::size_t j = i + 1; j < members.size(); ++j) {
      NumberSource rest = numbers;
      const std::vector<Axes> b = ReplicatesOf(members[j], boot, rest);
      take(i, j, Compared(members[i], members[j], a, b));
      if (progress && !progress(++done)) return false;
    }
  }
  return true;
}

}  // namespace velorix
