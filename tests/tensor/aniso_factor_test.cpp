#include "tensor/aniso_factor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <set>
#include <string_view>

namespace velorix {
namespace {

const double Infinity = std::numeric_limits<double>::infinity();

TEST(AnisoFactor, TheWholeCatalogueOfAPositiveAMixedAndANegativeSet) {
  // Fractions by hand, the others from mpmath. No two factors agree on all three sets, and none
  // with its inverse. The negative set is the positive one mirrored: where the formula takes the
  // values as given, its number is another one.
  constexpr double X = FailedFactor;
  const struct {
    double OfPositive, OfMixed, OfNegative;
  } expected[] = {
      {10.0 / 3, 4.0 / 3, -10.0 / 3},                                // 0
      {0.35, 15.3125, 0.35},                                         // 1
      {2.505047444638004, X, 2.505047444638004},                     // 2
      {0.9183076743327201, X, 0.9183076743327201},                   // 3
      {2.5, -5.0 / 3, 2.5},                                          // 4
      {0.9162907318741551, X, 0.9162907318741551},                   // 5
      {60, 160, 60},                                                 // 6
      {1, 4, 1},                                                     // 7
      {0.9, 6, 0.9},                                                 // 8
      {5.0 / 3, 2.5, 5.0 / 3},                                       // 9
      {0.5108256237659907, 0.9162907318741551, 0.5108256237659907},  // 10
      {0.6, 2.25, 0.6},                                              // 11
      {2, -10, 2},                                                   // 12
      {1.5, -2.0 / 3, 1.5},                                          // 13
      {0.4054651081081644, X, 0.4054651081081644},                   // 14
      {2, -7.0 / 6, 2},                                              // 15
      {7.0 / 6, 0.5, 7.0 / 6},                                       // 16
      {6.0 / 7, 2, 6.0 / 7},                                         // 17
      {1.0 / 3, 2.5, 1.0 / 3},                                       // 18
      {5.0 / 3, 1.375, 4.0 / 3},                                     // 19
      {0.6, 4.875, 0.6},                                             // 20
      {0.3, 3.75, 0.3},                                              // 21
      {2.041241452319315, X, 2.041241452319315},                     // 22
      {10.0 / 9, -3.75, 10.0 / 9},                                   // 23
      {1, 6.0 / 13, 0.4},                                            // 24
      {2, 0.6, 0.5},                                                 // 25
      {0.5, 5.0 / 3, 2},                                             // 26
      {1.832154109661679, 1.406956680021074, 1.372210356566684},     // 27
      {0.9, -4.0 / 15, 0.9},                                         // 28
      {1.2, 0.24, 1.2},                                              // 29
      {0.75, -10.0 / 9, 1.2},                                        // 30
      {-0.1149859013004801, X, -0.1149859013004801},                 // 31
      {-1.0 / 3, 0.25, 1.0 / 3},                                     // 32
      {2, 13.0 / 3, 5},                                              // 33
      {0.3741657386773941, 2.474873734152916, -0.3741657386773941},  // 34
      {3.107232505953859, X, 3.107232505953859},                     // 35
      {0.8, -0.36, 0.8},                                             // 36
      {-4, -9.0 / 19, -4},                                           // 37
      {2.5, 33.0 / 65, 0.4},                                         // 38
  };
  static_assert(std::size(expected) == LastFactor + 1);
  for (int i = FirstFactor; i <= LastFactor; ++i) {
    EXPECT_NEAR(AnisoFactor(i, 5, 3, 2), expected[i].OfPositive, 1e-13 * 60) << i;
    EXPECT_NEAR(AnisoFactor(i, 5, 2, -3), expected[i].OfMixed, 1e-13 * 160) << i;
    EXPECT_NEAR(AnisoFactor(i, -2, -3, -5), expected[i].OfNegative, 1e-13 * 60) << i;
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
      {4, 0, -1, -2, 0},                        // a set that reaches 0 isn't mirrored
      // clang-format on
  };
  for (const auto& x : cases)
    EXPECT_EQ(AnisoFactor(x.Index, x.a, x.b, x.c), x.Value)
        << x.Index << " of " << x.a << " " << x.b;
}

TEST(AnisoFactor, ValuesThatAreNotFiniteFailEveryFactor) {
  for (const double bad : {std::nan(""), Infinity, -Infinity})
    for (int i = FirstFactor; i <= LastFactor; ++i)
      EXPECT_EQ(AnisoFactor(i, bad, bad, bad), FailedFactor) << i;
}

}  // namespace
}  // namespace velorix
