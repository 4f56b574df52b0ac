#include "text/float_chars.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>

#include "text/float_chars_fallback.h"

namespace velorix {
namespace {

/// Values as hexadecimal floats, from the definition of the 64-bit format.
TEST(FloatChars, LibraryAndFallbackReadTheSame) {
  constexpr double Before = 7;
  constexpr std::errc Read{}, Range = std::errc::result_out_of_range,
                              None = std::errc::invalid_argument;
  const struct {
    std::string Text;
    std::ptrdiff_t Length;
    std::errc Error;
    double Value;
  } cases[] = {
      // clang-format off
      {"0.1", 3, Read, 0x1.999999999999ap-4},        {"12.3", 4, Read, 0x1.899999999999ap+3},
      {"5.", 2, Read, 5},                            {".5", 2, Read, 0.5},
      {"-0", 2, Read, -0.0},                         {"1e5", 3, Read, 100000},
      // Halves between two values, and a last digit beside them.
      {"9007199254740993", 16, Read, 0x1p53},        {"9007199254740995", 16, Read, 0x1.0000000000002p53},
      {"9007199254740993.00000000000000000001", 37, Read, 0x1.0000000000001p53},
      {"9007199254740992.99999999999999999999", 37, Read, 0x1p53},
      // Both ends of the range.
      {"2.2250738585072011e-308", 23, Read, 0x0.fffffffffffffp-1022},
      {"4.9406564584124654e-324", 23, Read, 0x1p-1074}, {"2.4703282292062328e-324", 23, Read, 0x1p-1074},
      {"2.4703282292062327e-324", 23, Range, Before},
      {"1.7976931348623158e308", 22, Read, 0x1.fffffffffffffp+1023},
      {"1.7976931348623159e308", 22, Range, Before}, {"1e400", 5, Range, Before},
      {"-1e400", 6, Range, Before},                  {"1e-400", 6, Range, Before},
      {"1e99999999999999999999", 22, Range, Before}, {std::string(400, '9'), 400, Range, Before},
      {"0e999", 5, Read, 0},                         {"0.000e-999", 10, Read, 0},
      {"0." + std::string(400, '0') + "1e401", 407, Read, 1},
      // The number ends before the text, or there is none.
      {"12.5abc", 4, Read, 12.5}, {"1.2.3", 3, Read, 1.2}, {"12e", 2, Read, 12}, {"12e+", 2, Read, 12},
      {"12ex", 2, Read, 12},      {"1 2", 1, Read, 1},     {"0x10", 1, Read, 0}, {"1d3", 1, Read, 1},
      {"", 0, None, Before},      {"-", 0, None, Before},  {".", 0, None, Before}, {".e5", 0, None, Before},
      {"+1", 0, None, Before},    {" 1", 0, None, Before}, {"abc", 0, None, Before},
      // clang-format on
  };
  for (const auto& c : cases)
    for (const auto read : {FromChars, FallbackFromChars}) {
      double value = Before;
      const char* const first = c.Text.data();
      const auto [end, error] = read(first, first + c.Text.size(), value);
      EXPECT_EQ(error, c.Error) << c.Text;
      EXPECT_EQ(end - first, c.Length) << c.Text;
      EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(c.Value))
          << c.Text;
    }
}

}  // namespace
}  // namespace velorix
