#pragma once

#include <optional>
#include <span>

#include "stats/group/tensor_statistics.h"

namespace velorix {

/// Hext's statistics of a group of tensors. Angles are degrees.
struct HextStats {
  int Nf = 0;        // degrees of freedom, 6 (N - 1)
  double Sigma = 0;  // error of a component, of tensors with trace 1
  double F = 0, FCritical = 0;
  double F12 = 0, F23 = 0, F12Critical = 0;  // the critical value is that of F12 and of F23
  double E12 = 0, E23 = 0, E13 = 0;          // 95 % half-angles in the planes of two axes

  bool operator==(const HextStats&) const = default;
};

/// One error pooled over all components and specimens, and what follows from it for the mean tensor
/// (G. R. Hext, 1963, Biometrika 50, 353-373). Each tensor is divided by its trace and taken as
/// its values in six directions of measurement. Nothing for fewer than two tensors, a trace that
/// isn't positive or a number that isn't finite in any of them, and for a `Sigma` of 1e-12 or less.
/// Equal principal values have the angle 90. The angles are those of one specimen in six
/// measurements whatever N is: too wide for the mean of more specimens than about six, too narrow
/// for fewer.
std::optional<HextStats> Hext(std::span<const TensorColumn> T);

enum class HextVerdict { Isotropic, OblateNotRejected, ProlateNotRejected, Triaxial };

/// The first of the verdicts, in the order above, whose F lies below its critical value at the 95 %
/// level.
HextVerdict VerdictOf(const HextStats& hext);
/// The verdict in words: "isotropic", "oblate not rejected", "prolate not rejected", "triaxial".
const char* WordsOf(HextVerdict verdict);

}  // namespace velorix
