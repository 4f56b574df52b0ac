#pragma once

#include <cerrno>
#include <filesystem>
#include <string>

#include "base/fault.h"

namespace velorix {

/// Ends in a `FileFault` with the reason that the C library left in `errno`, or `otherwise` where
/// it left none.
[[noreturn]] inline void FailOnFile(const std::string& path, int otherwise = EIO) {
  const int reason = errno != 0 ? errno : otherwise;
  throw FileFault(path, std::error_code(reason, std::generic_category()));
}

/// What `work` gives, which reads or writes the file at `path` (UTF-8). An error of the file system
/// becomes a `FileFault`; any other fault gets the path, unless it names a file already.
template <class Work>
auto OnFile(const std::string& path, Work work) {
  try {
    return work();
  } catch (const std::filesystem::filesystem_error& error) {
    throw FileFault(path, error.code());
  } catch (Fault& fault) {
    if (fault.Path.empty()) fault.Path = path;
    throw;
  }
}

}  // namespace velorix
