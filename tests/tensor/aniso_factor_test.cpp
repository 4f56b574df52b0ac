#include "tensor/aniso_factor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <string_view>

namespace velorix {
namespace {

const double Infinity = std::numeric_limits<double>::infinity();

TEST(AnisoFactor, TheWholeCatalogueOfFourTwoOneInAnyUnit) {
  // Values that a person can check by head or by a pocket calculator.
  // clang-format off
  const double wanted[39] = {
      7.0 / 3, 5.0 / 7, 4.0, 1.3862943611198906, 4,  // 0 to 4
      1.3862943611198906, 75, 1.5, 9.0 / 7, 2, 0.6931471805599453, 6.0 / 7, 8.0 / 3, 2,  // to 13
      0.6931471805599453, 3, 1.25, 0.8, 0.5, 5.0 / 3,  // 14 to 19
      6.0 / 7, 3.0 / 7, 2.8284271247461903, 1, 1, 2, 0.5, 1.832154, 1, 1,  // 20 to 29
      1, 0, -1.0 / 3, 2, 0.534522483824849, 2, 0.5, FailedFactor, 2.5,  // 30 to 38
  };
  // clang-format on
  for (int i = 0; i < 39; ++i) {
    EXPECT_NEAR(AnisoFactor(i, 4, 2, 1), wanted[i], 2e-6 * (1 + wanted[i])) << i;
    const double half = i == 0 || i == 35 ? 0.5 : 1;  // means: all others are ratios
    EXPECT_NEAR(AnisoFactor(i, 2, 1, 0.5), half * wanted[i], 2e-6 * (1 + wanted[i])) << i;
  }
}

TEST(AnisoFactor, TheCatalogueHas38DifferentTextsAndNothingBeyond) {
  std::set<std::string_view> texts = {""};
  for (int i = 1; i <= LastFactor; ++i) texts.insert(FactorText(i));
  EXPECT_EQ(texts.size(), 39u);
  EXPECT_EQ(FactorText(28), "(k2^2)/(k1*k3)");
  EXPECT_EQ(FactorText(0), "");
  for (const int index : {-1, 39, 32767, -32768}) {
    EXPECT_EQ(AnisoFactor(index, 4, 2, 1), FailedFactor);
    EXPECT_EQ(FactorText(index), "");
  }
}

TEST(AnisoFactor, IsotropicSpecimensFailWhereRangesDivide) {
  // 2 and 3 fail by the trifle under their root, the others by a division by zero.
  const std::set<int> failing = {2, 3, 19, 24, 25, 26, 27, 29, 30, 31, 32, 33, 36, 37, 38};
  for (int i = FirstFactor; i <= LastFactor; ++i)
    EXPECT_EQ(AnisoFactor(i, 1, 1, 1) == FailedFactor, failing.count(i) == 1) << i;
}

TEST(AnisoFactor, EveryStepOfAFactorIsGuardedAndOnlyItsOwnStepsCanFailIt) {
  const struct {
    int Index;
    double a, b, c, Value;
  } cases[] = {
      // clang-format off
      // In plain floating point k2 / k3 = -0, k1 / k2 is infinite, and (-1) / infinity is a finite 0.
      {30, 1, 0, -1, FailedFactor},     {18, 1, 0, -1, FailedFactor},
      {5, 1, 0.5, 0, FailedFactor},     {25, 2, 1, 1, FailedFactor},
      {22, 1, 0.5, -1, FailedFactor},   {35, 1, 0.5, -1, FailedFactor},  // roots of a negative
      {26, 2, 1, 1, 0},                 {35, 2, 1, 0, 0},  // a root of 0 or a 0 above the line
      {22, 1e200, 1e200, 1e200, FailedFactor},  // b * c overflows on its way
      {12, 1, 1e308, 1e308, FailedFactor},      // 2 / infinity would be 0
      {4, 1, 1, Infinity, FailedFactor},        // 1 / infinity would be 0
      {8, 1e308, 1e308, 1e308, FailedFactor},   {9, 1e308, 1e308, 1e308, 1},  // the sum under m
      {2, 4, 2, -1, FailedFactor},      {31, 4, 2, -1, FailedFactor},
      {9, 4, 2, -1, 2},                         // no logarithms where c <= 0
      {4, 2, 1, -1, -2},                {4, 0, -1, -2, 0},  // mixed sets aren't mirrored
      // clang-format on
  };
  for (const auto& x : cases)
    EXPECT_EQ(AnisoFactor(x.Index, x.a, x.b, x.c), x.Value)
        << x.Index << " of " << x.a << " " << x.b;
}

TEST(AnisoFactor, WhollyNegativeSetsAreMirroredButForTheRawFormulas) {
  const std::pair<int, double> cases[] = {
      // clang-format off
      {4, 3.0 / 1}, {9, 3.0 / 2}, {13, 2.0 / 1}, {35, std::cbrt(6)},
      {19, 1.5}, {32, 0}, {0, -2},      // as given
      {34, -std::sqrt(2.0 / 3) / 2},    // the mean is negative
      // clang-format on
  };
  for (const auto& [index, value] : cases)
    EXPECT_NEAR(AnisoFactor(index, -1, -2, -3), value, 1e-12) << index;
}

TEST(AnisoFactor, ValuesThatAreNotFiniteFailEveryFactor) {
  for (const double bad : {std::nan(""), Infinity, -Infinity})
    for (int i = FirstFactor; i <= LastFactor; ++i)
      EXPECT_EQ(AnisoFactor(i, bad, bad, bad), FailedFactor) << i;
}

}  // namespace
}  // namespace velorix
