#include "stats/gauss_random.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

namespace velorix {
namespace {

const std::vector<float>& Table() {
  static const std::vector<float> table = [] {
    std::vector<float> values;
    FillGaussTable(values, {});
    return values;
  }();
  return table;
}

TEST(GaussRandom, NaturalLogAgreesWithTheLibraryWithinTwoUlps) {
  const auto check = [](double x) {
    const double wanted = std::log(x);
    const double ulp = std::nextafter(std::abs(wanted), 1e9) - std::abs(wanted);
    ASSERT_LE(std::abs(NaturalLog(x) - wanted), 2 * ulp) << std::hexfloat << x;
  };
  UniformSource uniform;
  for (int i = 0; i < 200000; ++i) check(0x1p-48 + uniform());
  for (int e = -1022; e < 1024; ++e)
    for (double m : {1.0, 1.25, 0x1.6a09e667f3bccp0, 0x1.6a09e667f3bcdp0, 0x1.fffffffffffffp0})
      check(std::ldexp(m, e));
  for (double beside : {0.0, 2.0}) check(std::nextafter(1.0, beside));
  EXPECT_EQ(NaturalLog(1), 0);
}

// The numbers are those of a second program, written in another language with its own logarithm. A
// change here changes every user's confidence regions from one version to the next.
TEST(GaussRandom, TableIsTheSameOnEveryMachine) {
  std::uint64_t hash = 14695981039346656037u;  // FNV-1a over the bits
  for (float x : Table()) hash = (hash ^ std::bit_cast<std::uint32_t>(x)) * 1099511628211u;
  EXPECT_EQ(hash, 18006020579504441603u);
}

TEST(GaussRandom, FillYieldsNowAndThenAndStartsAnewEachTime) {
  std::vector<float> table(10, 1.0f);
  int yields = 0;
  FillGaussTable(table, [&yields] { ++yields; });
  EXPECT_TRUE(yields >= 20 && yields <= 1000) << yields;
  EXPECT_TRUE(table == Table());
}

}  // namespace
}  // namespace velorix
