#pragma once

#include <fast_float/fast_float.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace velorix {

/// What std::from_chars gives for a decimal number, by fast_float: the end of the number and its
/// nearest value, halves to even; without a number std::errc::invalid_argument and `first`. A
/// number too large or too small for any value but 0 gives std::errc::result_out_of_range with its
/// end. `value` changes on success alone.
inline std::from_chars_result FallbackFromChars(const char* first, const char* last,
                                                double& value) {
  double nearest = 0;
  const fast_float::from_chars_result read = fast_float::from_chars(first, last, nearest);
  if (read.ec != std::errc{}) return {read.ptr, read.ec};
  if (std::isinf(nearest) || nearest == 0) {  // fast_float takes these for success
    const char* const mantissa =
        std::find_if(first, read.ptr, [](char c) { return c == 'e' || c == 'E'; });
    if (std::any_of(first, mantissa, [](char c) { return c >= '1' && c <= '9'; }))
      return {read.ptr, std::errc::result_out_of_range};
  }
  value = nearest;
  return {read.ptr, std::errc{}};
}

}  // namespace velorix
