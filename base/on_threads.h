#pragma once

#include <cstddef>
#include <functional>

namespace velorix {

/// Does the parts 0 to `parts` - 1 of a work on several threads. A part is whole work of one
/// thread, so the threads change no digit. The caller's thread takes its share, and it alone calls
/// `goOn`, which may be empty and hears how much is done, the sum of what the parts give. False
/// when `goOn` stopped it. No thread outlives the call, also when the caller's share throws.
bool OnThreads(std::size_t parts, std::size_t threads,
               const std::function<std::size_t(std::size_t part)>& work,
               const std::function<bool(std::size_t done)>& goOn);

}  // namespace velorix
