#pragma once

namespace velorix {

/// The factors that the user has chosen: settings, records, statistics and tables have a slot each.
inline constexpr int FactorSlots = 8;

/// The value of a factor that could not be computed.
inline constexpr double FailedFactor = 1e9;

/// Whether a slot holds a factor. The statistics and the data table leave out one that failed.
constexpr bool IsComputed(double factor) { return factor != FailedFactor; }

}  // namespace velorix
