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

View ViewIn(int coorSys, std::string_view foliCode = "S1", std::string_view lineCode = "L1") {
  View view;
  view.CoorSys = static_cast<std::int16_t>(coorSys);
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

// Eight specimens of one sample set, trace 1, order k11, k22, k33, k12, k23, k13. Tensors in
// specimen, geographic and tilt-corrected coordinates from the example files of PmagPy
// (github.com/PmagPy/PmagPy, BSD-3). Its azimuth and plunge of the specimen's X axis, plunge
// positive downward, are our OrientAz and OrientInc under P1 = P3 = 6, P2 = 0. Its bedding, strike
// 204 by the right-hand rule and dip 25, is our FoliAz = 204 + 90 and FoliDip = 25, with the line
// along the strike ("0").
struct Published {
  std::array<double, 6> Specimen;
  double Azimuth, Plunge, Geographic[6], Tilt[6];
};
// clang-format off
const Published Tr245[] = {
    {{0.33146983, 0.33413991, 0.33439025, 0.00075095, -0.00083439, -0.00016688}, 80, -46,
     {0.33412680, 0.33282742, 0.33304584, -0.00015292, 0.00124846, 0.00135721},
     {0.33455709, 0.33192658, 0.33351630, -0.00043562, 0.00092779, 0.00105006}},
    {{0.33335924, 0.33335924, 0.33328149, -0.00155521, -0.00132193, 0.00116641}, 52, -23,
     {0.33556300, 0.33198264, 0.33245432, 0.00087260, 0.00024138, 0.00096167},
     {0.33585501, 0.33191565, 0.33222935, 0.00055960, -0.00005316, 0.00064732}},
    {{0.33097634, 0.33573565, 0.33328801, 0.00163176, 0.00013598, 0.00000000}, 123, -29,
     {0.33584911, 0.33140624, 0.33274472, 0.00131844, 0.00118815, 0.00002988},
     {0.33586669, 0.33084923, 0.33328408, 0.00142266, 0.00013234, 0.00009203}},
    {{0.33150032, 0.33465424, 0.33384550, -0.00064696, -0.00056609, -0.00048522}, 68, -26,
     {0.33479759, 0.33142531, 0.33377719, -0.00047491, 0.00049539, 0.00044300},
     {0.33488664, 0.33138493, 0.33372843, -0.00056597, -0.00039085, 0.00004873}},
    {{0.33121985, 0.33521196, 0.33356816, -0.00046966, -0.00046966, -0.00086104}, 68, -26,
     {0.33505613, 0.33114848, 0.33379537, -0.00101373, 0.00028536, 0.00034849},
     {0.33506602, 0.33127019, 0.33366373, -0.00105193, -0.00057257, -0.00029959}},
    {{0.33179569, 0.33405599, 0.33414826, -0.00009226, -0.00004613, -0.00027677}, 86, -34,
     {0.33406156, 0.33226913, 0.33366925, -0.00002266, 0.00098544, 0.00005555},
     {0.33407688, 0.33177567, 0.33414748, 0.00007007, 0.00018447, 0.00005073}},
    {{0.33243158, 0.33439898, 0.33316940, 0.00106564, 0.00032789, 0.00000000}, 108, -31,
     {0.33486593, 0.33216035, 0.33297372, -0.00035492, 0.00039254, 0.00015402},
     {0.33483925, 0.33197853, 0.33318222, -0.00028447, 0.00003518, -0.00029262}},
    {{0.33175480, 0.33512712, 0.33311811, 0.00078928, 0.00000000, -0.00007175}, 115, -25,
     {0.33510643, 0.33196402, 0.33292958, 0.00075968, 0.00057242, 0.00010110},
     {0.33513144, 0.33175036, 0.33311823, 0.00077914, -0.00006402, 0.00004612}},
};
// clang-format on

TEST(RotateRecord, PublishedTensorsComeOutInGeographicAndTiltCorrectedCoordinates) {
  for (const Published& p : Tr245) {
    SpecimenRecord r = Oriented();
    r.Tensor = TensorOf(p.Specimen);
    r.OrientAz = static_cast<float>(p.Azimuth);
    r.OrientInc = static_cast<float>(p.Plunge);
    r.FoliAz[1] = 204 + 90;
    r.FoliDip[1] = 25;
    const SpecimenRecord geographic = Rotated(r, ViewIn(Geographic));
    const SpecimenRecord tilted = Rotated(geographic, ViewIn(Paleogeographic, "S1", "0"));
    for (int i = 1; i <= 6; ++i) {
      EXPECT_NEAR(geographic.TensorRot[i], p.Geographic[i - 1], 2e-6) << i;
      EXPECT_NEAR(tilted.TensorRot[i], p.Tilt[i - 1], 2e-6) << i;
    }
  }
}

TEST(DeriveFactors, ValuesAndFactorsAreThoseOfTheBlockInView) {
  SpecimenRecord r = Oriented();
  r.HasIm = true;
  for (const std::int16_t block : {InPhase, OutOfPhase}) {
    Matrix<3, 3> A, D, W;
    TensorForm(A, block == InPhase ? r.Tensor : r.TensorIm, 0);
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
  ASSERT_TRUE(DeriveFactors(r, DefaultFactors, 3));
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
    int CoorSys, Level;
  } const cases[] = {
      {"S1", "L1", 1, 1}, {"S1", "L1", 2, 2}, {"S1", "L1", 3, 3}, {"S1", "L1", 4, 4},
      {"S1", "0", 3, 3},  {"S1", "0", 4, 4},  {"S2", "L1", 3, 2}, {"S2", "L1", 4, 2},
      {"S1", "L2", 4, 2}, {"s1", "L1", 3, 2}, {"S1", "L1", 0, 0},
  };
  const SpecimenRecord geographic = Rotated(Oriented(), ViewIn(Geographic));
  EXPECT_EQ(geographic.FoliDec[1], 300);
  EXPECT_EQ(geographic.LineInc[1], 20);
  for (const auto& c : cases) {
    const SpecimenRecord r = Rotated(Oriented(), ViewIn(c.CoorSys, c.Foli, c.Line));
    EXPECT_EQ(r.CoorLevel, c.Level) << c.Foli << c.Line << c.CoorSys;
    // Without the plane or the line the geographic fields remain.
    EXPECT_EQ(r == geographic, c.Level == 2) << c.Foli << c.Line << c.CoorSys;
  }
}

TEST(RotateRecord, ARecordWithoutSpecimenSystemIsDerivedAllTheSame) {
  SpecimenRecord r = Oriented();
  r.HasCoor[1] = false;
  r = Rotated(r, ViewIn(Specimen));
  EXPECT_EQ(r.CoorLevel, 0);
  EXPECT_NE(r.Inc[1], 0);
}

TEST(RotateRecord, TensorsFromMarloStandInGeographicCoordinatesAlready) {
  for (const char* program : {"Marlo", "marlo"}) {
    SpecimenRecord r = Oriented();
    r.SourceProgram = program;
    r = Rotated(r, ViewIn(Geographic));
    EXPECT_EQ(r.CoorLevel, 2);
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
  view.TectoPlane = Vertical;
  EXPECT_NEAR(Rotated(flat, view).FoliInc[1], 90, 1e-3);
  const SpecimenRecord r = Rotated(flat, ViewIn(Paleogeographic));
  ExpectAxis(r.LineDec[1], r.LineInc[1], 200, 0);  // a plunging line keeps its trend
  EXPECT_EQ(r.FoliDec[1], r.LineDec[1] - 90);
}

TEST(RotateRecord, TheLineGoesToTheEndOfTheAxisThatTheViewNames) {
  struct {
    float Trend;
    bool NorthSouth, EastWest;
    double Dec;
  } const cases[] = {{200, false, false, 0}, {200, true, false, 180}, {20, true, false, 0},
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
  for (int coorSys = 0; coorSys <= 4; ++coorSys) {
    SpecimenRecord r = Oriented();
    DeriveFactors(r, DefaultFactors, InPhase);
    r = Rotated(r, ViewIn(coorSys));
    Matrix<3, 3> A;
    TensorForm(A, r.TensorRot, 0);
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
  const SpecimenRecord r = Rotated(Oriented(), ViewIn(0));
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
      for (int coorSys = 0; coorSys <= 4; ++coorSys) {
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
