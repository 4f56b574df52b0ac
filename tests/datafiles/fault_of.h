#pragma once

#include <functional>
#include <string>

#include "base/fault.h"

namespace velorix {

/// The text of the fault in which something ends, with its line in a file; empty without one.
inline std::string FaultOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const Fault& fault) {
    return fault.Line > 0 ? FaultText(fault) : fault.what();
  }
  return {};
}

}  // namespace velorix
