#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "stats/group/gauss_random.h"
#include "stats/group/tensor_statistics.h"

namespace velorix {

/// How the replicates of a bootstrap come about: specimens drawn from normal distributions with the
/// moments of the group, or from the specimens themselves, with replacement.
enum class BootMethod { Parametric, Simple, None };

struct BootMethodName {
  const char* Word;
};
inline constexpr BootMethodName BootMethods[] = {{"parametric"}, {"simple"}, {"none"}};
inline const char* WordOf(BootMethod method) { return BootMethods[static_cast<int>(method)].Word; }

inline constexpr int BootReplicates = 500;  // unless the user chooses
inline constexpr int LeastReplicates = 100, MostReplicates = 10'000;

struct BootChoice {
  BootMethod Method = BootMethod::Parametric;
  int Replicates = BootReplicates;
  std::optional<std::uint32_t> Seed;  // without one the numbers are those of the table

  bool operator==(const BootChoice&) const = default;
};

/// The choice in words: "simple, 1000 replicates, seed 7".
std::string TextOf(const BootChoice& choice);

/// The numbers that a bootstrap so chosen takes, from the first on.
NumberSource NumbersOf(const BootChoice& choice, std::span<const float> gaussTable);

/// The 2.5 % and 97.5 % points of the three principal values over the replicates.
struct BootLimits {
  Array1<double, 3> Lower, Upper;
  bool operator==(const BootLimits&) const = default;
};

/// The 2.5 % and 97.5 % points of one value over the replicates.
struct Interval {
  double Lower = 0, Upper = 0;
  bool operator==(const Interval&) const = default;
};

/// The factors whose intervals a bootstrap gives, with their numbers in the catalogue.
struct BootFactor {
  const char* Name;
  int Index;
};
inline constexpr BootFactor BootFactorList[] = {
    {"L", 9}, {"F", 13}, {"P", 4}, {"Pj", 2}, {"T", 31}};
using FactorIntervals = Array1<std::optional<Interval>, std::size(BootFactorList)>;

/// What a bootstrap gives. `BootVec`: the principal vectors of each replicate, columns in
/// descending order of value, of any sign. `BootEllipse`: for each contour point a matrix whose
/// column k is the point of direction k. Both in the coordinate system of the tensors; empty for
/// fewer than two.
struct BootResult {
  std::vector<Vector<3>> Eig;
  std::vector<Matrix<3, 3>> BootVec, BootEllipse;
  BootLimits Limits;
  FactorIntervals
      Factors;  // in the order of the list; nothing where a replicate has no such factor
};

/// A bootstrap of the mean tensor in its principal frame. Parametric: components drawn from
/// independent normal distributions with the moments of the sample; simple: tensors drawn from the
/// sample (the two schemes of C. Constable and L. Tauxe, 1990, Journal of Geophysical Research 95,
/// 8383-8395). Each replicate is the mean of `T.size()` tensors. Every run takes its numbers from
/// the first on, so that two runs are identical. `P`, a multiple of 4, is the number of contour
/// points. Nothing for the method `None`. "Division by zero" for tensors without scatter;
/// "Overflow" for tensors beyond 32 bits when turned; "Subscript out of range" for an empty table.
BootResult BootStrap(std::span<const TensorColumn> T, const BootChoice& choice, int P,
                     std::span<const float> gaussTable);

/// Each matrix becomes F transposed times it times F, in 32-bit working values.
void SampleFrameTurn(std::span<Matrix<3, 3>> A, const Matrix<3, 3>& F);
/// Each matrix becomes F transposed times it, in 32-bit working values.
void VectorFrameTurn(std::span<Matrix<3, 3>> A, const Matrix<3, 3>& F);

/// The points at 2.5 % and 97.5 % of each column of `Eig`: the next value above p B, or the mean of
/// the two neighbours where p B is whole.
BootLimits BootQuantiles(std::span<const Vector<3>> Eig);
/// The same points of one value; it reorders `values`.
Interval BootInterval(std::vector<double>& values);

/// `P` points of the 95 % contour round each direction, in the frame of the mean directions. The
/// axis ends stand at the points 1, P/4 + 1, P/2 + 1, 3P/4 + 1. The replicates' component along a
/// direction loses its sign on the way, alone.
std::vector<Matrix<3, 3>> BootEllipses(std::span<Matrix<3, 3>> BootVec, int P);

}  // namespace velorix
