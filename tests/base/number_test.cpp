#include "base/number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "base/rounding.h"

namespace velorix {
namespace {

using Width = Number::Width;

TEST(Number, RemembersItsWidthAndReadsAsZeroWhileUnset) {
  EXPECT_EQ(Number().width(), Width::Unset);
  EXPECT_EQ(double(Number()), 0.0);
  for (float x : {0.0f, -0.0f, 12.3f, -1e-45f, std::numeric_limits<float>::infinity()}) {
    const Number n(x);
    EXPECT_EQ(n.width(), Width::Single);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(n.Single()), std::bit_cast<std::uint32_t>(x));
    EXPECT_EQ(double(n), double(x));
  }
  for (double x : {0.0, -0.0, 12.3, -5e-324, -std::numeric_limits<double>::infinity()}) {
    const Number n(x);
    EXPECT_EQ(n.width(), Width::Double);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(double(n)), std::bit_cast<std::uint64_t>(x));
  }
  EXPECT_NE(Number(0.0f), Number(0.0));
  EXPECT_NE(Number(), Number(0.0));
}

TEST(Number, KeepsTheBitsOfASingleNanAndNeverMistakesADoubleNan) {
  const auto nan32 = std::bit_cast<float>(0xFFC12345u);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(Number(nan32).Single()), 0xFFC12345u);
  // Payloads that coincide with the marks of the packing must not turn into numbers.
  for (std::uint64_t bits : {0x7FF4000000000000u, 0x7FF5000041200000u, 0xFFFFFFFFFFFFFFFFu}) {
    const Number n(std::bit_cast<double>(bits));
    EXPECT_EQ(n.width(), Width::Double);
    EXPECT_TRUE(std::isnan(double(n)));
  }
}

TEST(Rounding, ToShortAndToLongRoundHalvesToEvenAndRefuseWhatDoesNotFit) {
  // clang-format off
  const std::pair<double, int> cases[] = {
      {0.5, 0},   {1.5, 2},   {2.5, 2},   {3.5, 4}, {-0.5, 0}, {-1.5, -2},
      {10.5, 10}, {11.5, 12}, {0.49999999999999994, 0}, {32767.4, 32767}, {-32768.5, -32768}};
  // clang-format on
  for (const auto& [x, expected] : cases) {
    EXPECT_EQ(ToShort(x), expected) << x;
    EXPECT_EQ(ToLong(x), expected) << x;
  }
  const double nan = std::nan("");
  for (double x : {32767.5, -32768.6, 1e300, nan}) EXPECT_THROW(ToShort(x), Fault) << x;
  for (double x : {2147483647.5, -1e300, nan}) EXPECT_THROW(ToLong(x), Fault) << x;
}

}  // namespace
}  // namespace velorix
