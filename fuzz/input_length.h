#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velorix::fuzz {

/// For `LLVMFuzzerInitialize`: inputs have up to `bytes` bytes, and longer seeds are cut, where the
/// command line gives no other length. A few binary records show as much as many, in less time.
inline int LimitInputs(int* argc, char*** argv, std::size_t bytes) {
  static std::string limit = "-max_len=" + std::to_string(bytes);
  static std::vector<char*> arguments(*argv, *argv + *argc);
  arguments.insert(arguments.begin() + 1, limit.data());
  *argc = static_cast<int>(arguments.size());
  *argv = arguments.data();
  return 0;
}

}  // namespace velorix::fuzz
