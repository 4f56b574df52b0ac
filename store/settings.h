#pragma once

#include <cstdint>
#include <string>

#include "base/slots.h"
#include "store/factors.h"

namespace velorix {

/// What outlives a session: the settings file carries these fields.
struct Settings {
  bool DemagFac = true;                      // demagnetisation correction
  Array1<std::int16_t, 4> P = {6, 0, 6, 0};  // orientation parameters
  Array1<std::int16_t, FactorSlots> FacIndex = {9,  13, 4,  2,
                                                31, 32, 24, 28};  // factor in each slot
  Array1<std::string, FactorSlots> FacName = {"L", "F", "P", "Pj", "T", "U", "Q", "E"};

  bool operator==(const Settings&) const = default;
};

/// What the user prefers beside the settings; a file of its own carries it.
struct Preferences {
  bool KeepFormerFile = true;  // a data file that is written over stays beside it, as NAME~

  bool operator==(const Preferences&) const = default;
};

}  // namespace velorix
