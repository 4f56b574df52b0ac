#pragma once

#include <functional>
#include <string>

#include "base/fault.h"

namespace velorix {

/// The text of the fault in which something ends, empty without one.
inline std::string FaultOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return {};
}

}  // namespace velorix
