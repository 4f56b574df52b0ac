#pragma once

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/fault.h"
#include "base/outcome.h"
#include "store/record_array.h"

namespace velorix::fuzz {

inline void Hold(bool law) {
  if (!law) std::abort();
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Reads behind one record and holds the reader to what every one promises: records, a refusal or
/// a fault of the program's own; without success the array is as it was. Memory used before
/// changes nothing. `read(records)` gives an `Outcome`; true when there are records.
template <class Read>
bool ReadsOrLeaves(Read read, RecordArray& records) {
  static RecordArray used;
  const auto attempt = [&read](RecordArray& into) {
    into.Clear();
    into.Grow(1);
    try {
      const Outcome outcome = read(into);
      Hold(outcome.Done == (into.Count() > 1));
      return outcome.Done;
    } catch (const Fault& fault) {
      Hold(fault.Number != 999 && into.Count() == 1);
      return false;
    }
  };
  const bool done = attempt(records);
  Hold(attempt(used) == done && used.Count() == records.Count());
  for (int i = 2; i <= used.Count(); ++i) {
    Hold(used[i] == records[i]);  // equal, since no text reads as a NaN
    used[i].Selected = true;      // something stale for the next input
    used[i].TensorRot[1] = 1.0;
    used[i].FoliName[4] = "S4";
  }
  return done;
}

}  // namespace velorix::fuzz
