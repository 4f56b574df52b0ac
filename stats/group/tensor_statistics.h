#pragma once

#include <span>
#include <string>
#include <vector>

#include "tensor/directions.h"

namespace velorix {

/// A tensor in its six numbers k11, k22, k33, k12, k23, k13.
using TensorColumn = Vector<6>;

/// Which angles describe the scatter of a group's mean directions.
enum class ErrorLevel { StandardError, Confidence95 };

/// The names of a level, for options and JSON and for captions.
struct ErrorLevelNames {
  const char *Word, *Text;
};
inline constexpr ErrorLevelNames ErrorLevels[] = {{"se", "standard errors of one specimen"},
                                                  {"95", "95 % confidence angles of the mean"}};
inline const ErrorLevelNames& NamesOf(ErrorLevel level) {
  return ErrorLevels[static_cast<int>(level)];
}
/// Level and method in words: "95 % confidence angles of the mean (Jelinek 1978)".
inline std::string LevelText(ErrorLevel level) {
  return NamesOf(level).Text + std::string(" (Jelinek 1978)");
}

/// What a group of tensors has in common. Fields that a group is too small for keep what they hold.
struct TensorStats {
  Array1<double, 3> MeanK;  // principal values of the mean tensor, descending
  Matrix<3, 3> MeanVec;     // its principal vectors, columns, third component not negative
  Array1<double, 3> MeanDec, MeanInc;
  Array1<double, 3> MeanE1, MeanE2;  // angular errors of each direction, degrees, E1 the larger
  Array1<double, 3> MeanE1At95, MeanE2At95;  // 95 % confidence angles of the mean, likewise
  Array1<double, 3> MeanRot;  // turn of the error ellipse about the direction, degrees
  int Errors = 0;             // directions, from Kmax on, whose errors this run computed
  bool operator==(const TensorStats&) const = default;
};

/// The text of the fault where a tensor holds NaN or infinity.
inline constexpr char NotFinite[] = "a tensor has a number that is not finite";

/// Mean tensor of a group and the errors of its principal directions from the covariance of the six
/// components (V. Jelinek, 1978, Studia Geophysica et Geodaetica 22, 50-62). An empty group changes
/// `Errors` alone, to 0; fewer than five tensors give no errors. `MeanE1` and `MeanE2` are
/// the unscaled standard errors, of the direction of one specimen. `MeanE1At95` and `MeanE2At95`
/// are the half-angles of the 95 % region of the mean direction: the tangents of the standard
/// errors times sqrt(2 F (N - 1) / (N (N - 2))), with F from `FQuantile`(N - 2). "Division by zero"
/// when two mean values are equal, "Overflow" when a covariance is beyond 32 bits; what was
/// computed before stands. `NotFinite` for a tensor with such a number; then the mean is NaN
/// throughout.
void TensorStatistics(std::span<const TensorColumn> T, TensorStats& stats);

/// The 95 % quantile of the F distribution with 2 and `n` degrees of freedom: a table up to 20, a
/// fit beyond. Kept for agreement with published results: the entries for 4 and 6 are 0.001 below
/// and above the quantile. "Subscript out of range" below 1.
double FQuantile(int n);

/// The arithmetic mean; "Division by zero" of no values.
double Mean(std::span<const double> a);
/// The sample standard deviation, 0 for fewer than two values.
double StdDev(std::span<const double> a);

}  // namespace velorix
