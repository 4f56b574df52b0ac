#include "tensor/derivation.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <utility>

#include "tensor/aniso_factor.h"
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
constexpr CoordinateSystem AllSystems[] = {None, Specimen, Geographic, Paleogeographic, Tectonic};

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
      EXPECT_EQ(r.Fac[i],
                static_cast<float>(AnisoFactor(DefaultFactors[i], D(1, 1), D(2, 2), D(3, 3))));
  }
}

TEST(DeriveFactors, TheZeroTensorOfNoBlockAndAFactorBeyond32BitsFail) {
  SpecimenRecord r = Oriented(), wide;
  ASSERT_TRUE(DeriveFactors(r, DefaultFactors, TensorBlock{3}));
  EXPECT_EQ(r.K[1], 0.0);
  EXPECT_EQ(r.Fac[1], 1e9f);
  wide.Tensor = TensorOf({1e30, 1.0, 1e-30});
  ASSERT_TRUE(DeriveFactors(wide, {4, 4, 4, 4, 4, 4, 4, 4}, InPhase));
  EXPECT_EQ(wide.Fac[1], 1e9f);
}

TEST(RotateRecord, TheOutOfPhaseBlockIsRotatedIntoTheSameFieldsAndWithoutOneNothingChanges) {
  SpecimenRecord r = Oriented(), swapped = r;
  View view = ViewIn(Tectonic);
  swapped.Tensor = r.TensorIm;
  swapped = Rotated(swapped, view);
  view.ReImMode = OutOfPhase;
  EXPECT_FALSE(DeriveFactors(r, DefaultFactors, OutOfPhase));
  EXPECT_FALSE(RotateRecord(r, view));
  EXPECT_EQ(r, Oriented());
  r.HasIm = true;
  r = Rotated(r, view);
  EXPECT_EQ(r.TensorRot, swapped.TensorRot);
  EXPECT_EQ(r.Dec, swapped.Dec);
  EXPECT_EQ(r.TensorRotIm, SpecimenRecord().TensorRotIm);
}

TEST(RotateRecord, EachSystemIsReachedAndNamed) {
  struct {
    const char *Foli, *Line;
    CoordinateSystem CoorSys, Level;
  } const cases[] = {
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
  for (const auto& c : cases) {
    const SpecimenRecord r = Rotated(Oriented(), ViewIn(c.CoorSys, c.Foli, c.Line));
    EXPECT_EQ(r.CoorLevel, c.Level) << c.Foli << c.Line << NamesOf(c.CoorSys).Short;
    // Without the plane or the line the geographic fields remain.
    EXPECT_EQ(r == geographic, c.Level == Geographic)
        << c.Foli << c.Line << NamesOf(c.CoorSys).Short;
  }
}

TEST(RotateRecord, ARecordWithoutSpecimenSystemIsDerivedAllTheSame) {
  SpecimenRecord r = Oriented();
  r.HasCoor[1] = false;
  r = Rotated(r, ViewIn(Specimen));
  EXPECT_EQ(r.CoorLevel, None);
  EXPECT_NE(r.Inc[1], 0);
}

TEST(RotateRecord, TheRecordsOrientationParametersTurnItsTensor) {
  const struct {
    Array1<std::int16_t, 4> OP;
    double Dec, Inc;  // of Kmax, which lies along the specimen's X
  } cases[] = {
      {{6, 0, 6, 0}, 70, 20},
      {{12, 0, 9, 0}, 340, 20},   // azimuth less 90; the arrow at 12 turns X round to 160/-20
      {{6, 90, 9, 90}, 340, 70},  // the plunge of the axis, and a last parameter without effect
  };
  SpecimenRecord r = Oriented();
  r.Tensor = TensorOf({1.2, 1.0, 0.9});
  for (const auto& c : cases) {
    r.OP = c.OP;
    r = Rotated(r, ViewIn(Geographic));
    ExpectAxis(r.Dec[1], r.Inc[1], c.Dec, c.Inc);
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
  const struct {
    float Trend;
    bool NorthSouth, EastWest;
    double Dec;
  } cases[] = {{200, false, false, 0}, {200, true, false, 180}, {20, true, false, 0},
               {200, false, true, 90}, {300, true, true, 270},  {100, true, true, 90}};
  for (const auto& c : cases) {
    SpecimenRecord r = Oriented();
    // Less than the plunge: a line that came to point upward would be turned over.
    r.FoliDip[1] = 5;
    r.LineTrend[1] = c.Trend;
    View view = ViewIn(Tectonic);
    view.TectoNorthSouth = c.NorthSouth;
    view.TectoEastWest = c.EastWest;
    r = Rotated(r, view);
    ExpectAxis(r.LineDec[1], r.LineInc[1], c.Dec, 0);
  }
  // "0" is the strike 90 degrees before the dip direction: when it comes to north, a line down the
  // dip comes to east, by the plane's dip of 30 less steep.
  SpecimenRecord r = Oriented();
  r.LineTrend[1] = 300;
  r.LinePlunge[1] = 50;
  r = Rotated(r, ViewIn(Tectonic, "S1", "0"));
  ExpectAxis(r.LineDec[1], r.LineInc[1], 90, 20);
}

TEST(RotateRecord, ALineThatCameToPointUpwardEndsAtTheOtherEnd) {
  SpecimenRecord r = Oriented();  // the line plunges 20 down the dip of a plane that dips 30
  r.LineTrend[1] = 300;
  for (const auto& [coorSys, dec] : {std::pair{Paleogeographic, 120}, {Tectonic, 180}}) {
    r = Rotated(r, ViewIn(coorSys));
    ExpectAxis(r.LineDec[1], r.LineInc[1], dec, 0);
  }
}

TEST(RotateRecord, PrincipalVectorsBelongToTheRotatedTensor) {
  for (const CoordinateSystem coorSys : AllSystems) {
    SpecimenRecord r = Oriented();
    DeriveFactors(r, DefaultFactors, InPhase);
    r = Rotated(r, ViewIn(coorSys));
    Matrix<3, 3> A;
    TensorForm<ToMatrix>(A, r.TensorRot);
    for (int j = 1; j <= 3; ++j) {
      const Vector<3> v{r.Vec[1][j], r.Vec[2][j], r.Vec[3][j]};
      Vector<3> Av;
      Mvmpy(A, v, Av);
      const Vector<3> d = DirectionToVector(1, {r.Dec[j], r.Inc[j]});
      for (int i = 1; i <= 3; ++i) {
        EXPECT_NEAR(Av[i], r.K[j] * v[i], 1e-6);
        EXPECT_NEAR(d[i], v[i], 1e-6);
      }
      EXPECT_GE(r.Inc[j], 0);
    }
  }
}

TEST(RotateRecord, ThePrincipalSystemHasKminVerticalAndKmaxOnTheMeridian) {
  const SpecimenRecord r = Rotated(Oriented(), ViewIn(None));
  EXPECT_NEAR(std::fabs(std::cos(r.Dec[1] / DegPerRad)), 1, 1e-4);
  EXPECT_NEAR(r.Inc[3], 90, 0.01);
}

TEST(RotateRecord, AFailureLeavesTheRecordAsItWas) {
  SpecimenRecord r = Rotated(Oriented(), ViewIn(Specimen));
  r.OP[1] = 32767;
  const SpecimenRecord before = r;
  EXPECT_THROW(RotateRecord(r, ViewIn(Geographic)), Fault);
  EXPECT_EQ(r, before);
}

TEST(Derivation, TensorsThatAreNotFiniteGiveNanAndNoFailure) {
  for (const float value : {NAN, INFINITY, -INFINITY})
    for (int slot = 1; slot <= 6; ++slot)
      for (const CoordinateSystem coorSys : AllSystems) {
        SpecimenRecord r = Oriented();
        r.Tensor[slot] = value;
        ASSERT_TRUE(DeriveFactors(r, DefaultFactors, InPhase));
        r = Rotated(r, ViewIn(coorSys));
        for (int j = 1; j <= 3; ++j)
          EXPECT_TRUE(std::isnan(r.K[j]) && std::isnan(r.Dec[j]) && std::isnan(r.Inc[j]));
        for (const float factor : r.Fac) EXPECT_EQ(factor, 1e9f);
        EXPECT_EQ(r.CoorLevel, coorSys);
      }
}

TEST(Derivation, AnglesThatAreNotFiniteGiveNanAndNoFailure) {
  SpecimenRecord r = Oriented();
  for (float* const angle : {&r.OrientAz, &r.OrientInc, &r.FoliAz[1], &r.FoliDip[1],
                             &r.LineTrend[1], &r.LinePlunge[1]}) {
    const float before = std::exchange(*angle, NAN);
    EXPECT_TRUE(std::isnan(Rotated(r, ViewIn(Tectonic)).Dec[1])) << angle - &r.OrientAz;
    *angle = before;
  }
}

}  // namespace
}  // namespace velorix
