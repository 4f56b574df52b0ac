#pragma once

#include <charconv>

#ifndef __cpp_lib_to_chars
#include "text/float_chars_fallback.h"
#endif

namespace velorix {

/// std::from_chars of a decimal number, also where the standard library has it for integers alone
/// (libc++). Writing needs no such help: std::to_chars of floating point is there.
inline std::from_chars_result FromChars(const char* first, const char* last, double& value) {
#ifdef __cpp_lib_to_chars
  return std::from_chars(first, last, value);
#else
  return FallbackFromChars(first, last, value);
#endif
}

}  // namespace velorix
