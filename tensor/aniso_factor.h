#pragma once

#include <string_view>

namespace velorix {

/// The value of a factor that could not be computed; statistics leave it out.
inline constexpr double FailedFactor = 1e9;

/// Indices of the catalogue; 0, the mean, isn't in the user's list.
inline constexpr int FirstFactor = 0, LastFactor = 38;

/// The anisotropy factor `index` of the principal susceptibilities k1 >= k2 >= k3. `FailedFactor`
/// for an index outside the catalogue and when any single step fails: a division by zero, an
/// overflow, the logarithm of 0 or less, the root of a negative, or a NaN or infinity anywhere.
double AnisoFactor(int index, double k1, double k2, double k3);

/// The formula of a factor as the user's list shows it; empty outside 1 to 38.
std::string_view FactorText(int index);

}  // namespace velorix
