#pragma once

#include <cassert>

namespace velorix {

/// The factors that the user has chosen: settings, records, statistics and tables have a slot each.
inline constexpr int FactorSlots = 8;

/// A factor in the 32 bits in which records and group statistics hold it: a number, or that it
/// could not be computed. Grid, plots and JSON show 1E9 for such a one, statistics and data table
/// leave it out.
class Factor {
 public:
  constexpr Factor() = default;
  constexpr Factor(float shown) : shown_(shown) {}
  static constexpr Factor Failed() { return Factor(Sign); }

  constexpr bool IsComputed() const { return shown_ != Sign; }
  constexpr float Value() const {
    assert(IsComputed());
    return shown_;
  }
  /// The number, or 1E9.
  constexpr float Shown() const { return shown_; }

  bool operator==(const Factor&) const = default;

 private:
  // Kept for agreement with published results: a factor that is exactly this counts as failed, too.
  static constexpr float Sign = 1e9f;

  float shown_ = 0;
};

}  // namespace velorix
