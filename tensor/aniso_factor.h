#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

#include "store/factors.h"

namespace velorix {

/// Indices of the catalogue; 0, the mean, isn't in the user's list.
inline constexpr int FirstFactor = 0, LastFactor = 38;

/// A number that stays lost as soon as one step leaves the finite numbers. Plain floating
/// point would let 1 / (1 / 0) end in a finite 0; here an infinity becomes NaN at once, and NaN
/// stays.
struct Guarded {
  double v;

  constexpr Guarded(double x) : v(x) {
    if (!(x - x == 0)) [[unlikely]]
      v = std::numeric_limits<double>::quiet_NaN();
  }
  constexpr bool Failed() const { return v != v; }
};

/// The quantities that the formulas use, prepared once for all factors of a specimen. One that
/// fails spoils only the factors that use it.
struct FactorInput {
  Guarded k1, k2, k3;  // as given, descending
  Guarded a, b, c;     // the same, or for a wholly negative set -k3, -k2, -k1
  Guarded m, m0;       // means of a, b, c and of k1, k2, k3
  Guarded n1, n2, n3;  // logarithms of a, b, c where c > 0, else 0
  Guarded n;           // their mean

  FactorInput(double k1, double k2, double k3);
};

/// The anisotropy factor `index` of the principal susceptibilities k1 >= k2 >= k3. Nothing for an
/// index outside the catalogue and when any single step fails: a division by zero, an
/// overflow, the logarithm of 0 or less, the root of a negative, or a NaN or infinity among what
/// the formula uses.
std::optional<double> AnisoFactor(int index, const FactorInput& input);
std::optional<double> AnisoFactor(int index, double k1, double k2, double k3);

/// A factor as records and group statistics hold it. What doesn't fit into 32 bits counts as
/// failed, too.
inline Factor FactorIn32(std::optional<double> factor) {
  const bool fits = factor && std::fabs(*factor) <= std::numeric_limits<float>::max();
  return fits ? Factor(static_cast<float>(*factor)) : Factor::Failed();
}

/// The formula of a factor as the user's list shows it; empty outside 1 to 38.
std::string_view FactorText(int index);

}  // namespace velorix
