#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <set>
#include <string_view>
#include <utility>

#include "tensor/aniso_factor.h"
#include "tensor/derivation.h"
#include "tensor/directions.h"
#include "tensor/eigen_jk.h"

namespace velorix {
namespace {

const Array1<std::int16_t, 8> DefaultFactors = Settings().FacIndex;

Array1<Number, 6> TensorOf(const std::array<double, 6>& elements) {
  Array1<Number, 6> tensor;
  for (int i = 1; i <= 6; ++i) tensor[i] = elements[static_cast<std::size_t>(i - 1)];
  return tensor;
}

/// A specimen with an orientation, a foliation "S1" 300/30 and a lineation "L1" 200/20.
SpecimenRecord Oriented() {
  SpecimenRecord r;
  r.HasCoor = {true, true, true, true};
  r.OP = {6, 0, 6, 0};
  r.OrientAz = 70;
  r.OrientInc = 20;
  r.Tensor = TensorOf({1.03, 1.00, 0.97, 0.01, -0.02, 0.005});
  r.TensorIm = TensorOf({0.9, 1.0, 1.1, 0.02, 0.01, -0.03});
  r.FoliName[1] = "S1";
  r.FoliAz[1] = 300;
  r.FoliDip[1] = 30;
  r.LineName[1] = "L1";
  r.LineTrend[1] = 200;
  r.LinePlunge[1] = 20;
  return r;
}

constexpr CoordinateSystem None = CoordinateSystem::None;

View ViewIn(CoordinateSystem coorSys, std::string_view foliCode = "S1",
            std::string_view lineCode = "L1") {
  View view;
  view.CoorSys = coorSys;
  view.FoliCode = foliCode;
  view.LineCode = lineCode;
  return view;
}

SpecimenRecord Rotated(SpecimenRecord r, const View& view) {
  EXPECT_TRUE(RotateRecord(r, view));
  return r;
}

void ExpectAxis(double dec, double inc, double expectedDec, double expectedInc) {
  EXPECT_NEAR(std::remainder(dec - expectedDec, 360), 0, 1e-3);
  EXPECT_NEAR(inc, expectedInc, 1e-3);
}

TEST(DeriveFactors, ValuesAndFactorsAreThoseOfTheBlockInView) {
  SpecimenRecord r = Oriented();
  r.HasIm = true;
  for (const TensorBlock block : {InPhase, OutOfPhase}) {
    Matrix<3, 3> A, D, W;
    TensorForm<ToMatrix>(A, block == InPhase ? r.Tensor : r.TensorIm);
    EIGEN_JK(A, D, W);
    ASSERT_TRUE(DeriveFactors(r, DefaultFactors, block));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(r.K[i], Number(D(i, i)));  // in 64 bits
    for (int i = 1; i <= 8; ++i)
      EXPECT_EQ(r.Fac[i].Value(),
                static_cast<float>(*AnisoFactor(DefaultFactors[i], D(1, 1), D(2, 2), D(3, 3))));
  }
}

TEST(DeriveFactors, TheZeroTensorOfNoBlockAndAFactorBeyond32BitsFail) {
  SpecimenRecord r = Oriented(), wide;
  ASSERT_TRUE(DeriveFactors(r, DefaultFactors, TensorBlock{3}));
  EXPECT_EQ(r.K[1], 0.0);
  EXPECT_FALSE(r.Fac[1].IsComputed());
  EXPECT_EQ(r.Fac[1].Shown(), 1e9f);
  wide.Tensor = TensorOf({1e30, 1.0, 1e-30});
  ASSERT_TRUE(DeriveFactors(wide, {4, 4, 4, 4, 4, 4, 4, 4}, InPhase));
  EXPECT_FALSE(wide.Fac[1].IsComputed());
}

TEST(RotateRecord, EachSystemIsReachedAndNamed) {
  const std::tuple<const char*, const char*, CoordinateSystem, CoordinateSystem> cases[] = {
      {"S1", "L1", Specimen, Specimen},
      {"S1", "L1", Geographic, Geographic},
      {"S1", "L1", Paleogeographic, Paleogeographic},
      {"S1", "L1", Tectonic, Tectonic},
      {"S1", "0", Paleogeographic, Paleogeographic},
      {"S1", "0", Tectonic, Tectonic},
      {"S2", "L1", Paleogeographic, Geographic},
      {"S2", "L1", Tectonic, Geographic},
      {"S1", "L2", Tectonic, Geographic},
      {"s1", "L1", Paleogeographic, Geographic},
      {"S1", "L1", None, None},
  };
  const SpecimenRecord geographic = Rotated(Oriented(), ViewIn(Geographic));
  EXPECT_EQ(geographic.FoliDec[1], 300);
  EXPECT_EQ(geographic.LineInc[1], 20);
  for (const auto& [foli, line, coorSys, level] : cases) {
    const SpecimenRecord r = Rotated(Oriented(), ViewIn(coorSys, foli, line));
    EXPECT_EQ(r.CoorLevel, level) << foli << line << NamesOf(coorSys).Short;
    // Without the plane or the line the geographic fields remain.
    EXPECT_EQ(r == geographic, level == Geographic) << foli << line << NamesOf(coorSys).Short;
  }
}

TEST(RotateRecord, TheRecordsOrientationParametersTurnItsTensor) {
  // Where Kmax points, which lies along the specimen's X.
  const std::tuple<Array1<std::int16_t, 4>, double, double> cases[] = {
      {{6, 0, 6, 0}, 70, 20},
      {{12, 0, 9, 0}, 340, 20},   // azimuth less 90; the arrow at 12 turns X round to 160/-20
      {{6, 90, 9, 90}, 340, 70},  // the plunge of the axis, and a last parameter without effect
  };
  SpecimenRecord r = Oriented();
  r.Tensor = TensorOf({1.2, 1.0, 0.9});
  for (const auto& [parameters, dec, inc] : cases) {
    r.OP = parameters;
    r = Rotated(r, ViewIn(Geographic));
    ExpectAxis(r.Dec[1], r.Inc[1], dec, inc);
  }
}

TEST(RotateRecord, TensorsFromMarloStandInGeographicCoordinatesAlready) {
  for (const char* program : {"Marlo", "marlo"}) {
    SpecimenRecord r = Oriented();
    r.SourceProgram = program;
    r = Rotated(r, ViewIn(Geographic));
    EXPECT_EQ(r.CoorLevel, Geographic);
    // Not turned, so not rounded to 32 bits either.
    EXPECT_EQ(r.TensorRot == r.Tensor, *program == 'M');
  }
}

TEST(RotateRecord, OfTwoPlanesWithTheSameCodeTheSecondWinsAndOfTwoLinesTheFirst) {
  SpecimenRecord both = Oriented(), only = Oriented();
  both.FoliName[2] = "S1";
  both.FoliAz[2] = only.FoliAz[1] = 80;
  both.FoliDip[2] = only.FoliDip[1] = 50;
  both.LineName[2] = "L1";
  both.LineTrend[2] = 17;
  both.LinePlunge[2] = 43;
  EXPECT_EQ(Rotated(both, ViewIn(Paleogeographic)).TensorRot,
            Rotated(only, ViewIn(Paleogeographic)).TensorRot);
  both.LineName[1] = "L0";
  only.LineTrend[1] = 17;
  only.LinePlunge[1] = 43;
  EXPECT_EQ(Rotated(both, ViewIn(Paleogeographic)).TensorRot,
            Rotated(only, ViewIn(Paleogeographic)).TensorRot);
}

TEST(RotateRecord, TheChosenPlaneBecomesHorizontalOrVerticalOrStandsAcrossTheLineLaidFlat) {
  View view = ViewIn(Paleogeographic, "S1", "0");
  const SpecimenRecord flat = Rotated(Oriented(), view);
  ExpectAxis(flat.FoliDec[1], flat.FoliInc[1], 300, 0);  // the dip direction keeps its value
  view.TectoPlane = PaleoPlane::Vertical;
  EXPECT_NEAR(Rotated(flat, view).FoliInc[1], 90, 1e-3);
  const SpecimenRecord r = Rotated(flat, ViewIn(Paleogeographic));
  ExpectAxis(r.LineDec[1], r.LineInc[1], 200, 0);  // a plunging line keeps its trend
  EXPECT_EQ(r.FoliDec[1], r.LineDec[1] - 90);
}

TEST(RotateRecord, TheLineGoesToTheEndOfTheAxisThatTheViewNames) {
  const std::tuple<float, bool, bool, double> cases[] = {
      {200, false, false, 0}, {200, true, false, 180}, {20, true, false, 0},
      {200, false, true, 90}, {300, true, true, 270},  {100, true, true, 90}};
  for (const auto& [trend, northSouth, eastWest, dec] : cases) {
    SpecimenRecord r = Oriented();
    // Less than the plunge: a line that came to point upward would be turned over.
    r.FoliDip[1] = 5;
    r.LineTrend[1] = trend;
    View view = ViewIn(Tectonic);
    view.TectoNorthSouth = northSouth;
    view.TectoEastWest = eastWest;
    r = Rotated(r, view);
    ExpectAxis(r.LineDec[1], r.LineInc[1], dec, 0);
  }
  // "0" is the strike 90 degrees before the dip direction: when it comes to north, a line down the
  // dip comes to east, by the plane's dip of 30 less steep.
  SpecimenRecord r = Oriented();
  r.LineTrend[1] = 300;
  r.LinePlunge[1] = 50;
  r = Rotated(r, ViewIn(Tectonic, "S1", "0"));
  ExpectAxis(r.LineDec[1], r.LineInc[1], 90, 20);
}

TEST(RotateRecord, ALineThatCameTparametersointUpwardEndsAtTheOtherEnd) {
  SpecimenRecord r = Oriented();  // the line plunges 20 down the dip of a plane that dips 30
  r.LineTrend[1] = 300;
  for (const auto& [coorSys, dec] : {std::pair{Paleogeographic, 120}, {Tectonic, 180}}) {
    r = Rotated(r, ViewIn(coorSys));
    ExpectAxis(r.LineDec[1], r.LineInc[1], dec, 0);
  }
}

const double Infinity = std::numeric_limits<double>::infinity();

TEST(AnisoFactor, TheWholeCatalogueOfAPositiveAMixedAndANegativeSet) {
  // Fractions by hand, the others from mpmath. No two factors agree on all three sets, and none
  // with its inverse. The negative set is the positive one mirrored: where the formula takes the
  // values as given, its number is another one.
  constexpr double X = 1e9;  // none
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
    EXPECT_NEAR(AnisoFactor(i, 5, 3, 2).value_or(X), expected[i].OfPositive, 1e-13 * 60) << i;
    EXPECT_NEAR(AnisoFactor(i, 5, 2, -3).value_or(X), expected[i].OfMixed, 1e-13 * 160) << i;
    EXPECT_NEAR(AnisoFactor(i, -2, -3, -5).value_or(X), expected[i].OfNegative, 1e-13 * 60) << i;
  }
}

TEST(AnisoFactor, TheCatalogueHas38DifferentTextsAndNothingBeyond) {
  std::set<std::string_view> texts = {""};
  for (int i = 1; i <= LastFactor; ++i) texts.insert(FactorText(i));
  EXPECT_EQ(texts.size(), 39u);
  EXPECT_EQ(FactorText(28), "(k2^2)/(k1*k3)");
  EXPECT_EQ(FactorText(0), "");
  for (const int index : {-1, 39, 32767, -32768}) {
    EXPECT_EQ(AnisoFactor(index, 4, 2, 1), std::nullopt);
    EXPECT_EQ(FactorText(index), "");
  }
}

TEST(AnisoFactor, EveryStepOfAFactorIsGuardedAndOnlyItsOwnStepsCanFailIt) {
  constexpr auto Failed = std::nullopt;
  const std::tuple<int, double, double, double, std::optional<double>> cases[] = {
      // clang-format off
      // In plain floating point k2 / k3 = -0, k1 / k2 is infinite, and (-1) / infinity is a finite 0.
      {30, 1, 0, -1, Failed},     {18, 1, 0, -1, Failed},
      {5, 1, 0.5, 0, Failed},     {25, 2, 1, 1, Failed},
      {22, 1, 0.5, -1, Failed},   {35, 1, 0.5, -1, Failed},  // roots of a negative
      {26, 2, 1, 1, 0},                 {35, 2, 1, 0, 0},  // a root of 0 or a 0 above the line
      {22, 1e200, 1e200, 1e200, Failed},  // b * c overflows on its way
      {12, 1, 1e308, 1e308, Failed},      // 2 / infinity would be 0
      {4, 1, 1, Infinity, Failed},        // 1 / infinity would be 0
      {8, 1e308, 1e308, 1e308, Failed},   {9, 1e308, 1e308, 1e308, 1},  // the sum under m
      {4, 0, -1, -2, 0},                        // a set that reaches 0 isn't mirrored
      // clang-format on
  };
  for (const auto& [index, a, b, c, value] : cases)
    EXPECT_EQ(AnisoFactor(index, a, b, c), value) << index << " of " << a << " " << b;
}

}  // namespace
}  // namespace velorix
