#include "datafiles/si2b_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "datafiles/principal_tensor.h"
#include "tensor/eigen_jk.h"
#include "tests/datafiles/fault_of.h"

namespace velorix {
namespace {

const std::string Specimen =
    "\xDC-7  min  970.5  200  0  x\n"
    "SI-7  int  1000.5  111  xyz\n"
    "SI-7  max  1029  20  90.0\n";

SpecimenRecord Only(const std::string& text, const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(ReadSi2bText(text, "x.AMS", records, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

TEST(ReadSi2bFile, ThreeLinesAreASpecimenTheDirectionOfTheMiddleOneIsNotUsed) {
  Settings settings;
  settings.P = {12, 90, 3, -90};
  const SpecimenRecord r = Only(Specimen, settings);
  SpecimenRecord expected;
  expected.Name = "Ü-7";
  expected.Active = expected.HasCoor[1] = expected.HasCoor[2] = true;
  expected.Field = 60;
  expected.FreqName = "FS";
  expected.Frequency = 19100;
  expected.Instrument = "SI2B";
  expected.OP = settings.P;
  expected.Km = 1000 * double{0.000001f};
  expected.K = {Number(1.029), Number(1.0005), Number(0.9705)};
  expected.Tensor = r.Tensor;  // see below
  EXPECT_EQ(r, expected);
  // The largest is vertical, the smallest points to 200: axes 3, and 20 and 110 degrees.
  const double c = std::cos(20 / DegPerRad), s = std::sin(20 / DegPerRad);
  // clang-format off
  const double tensor[] = {0.9705 * c * c + 1.0005 * s * s, 0.9705 * s * s + 1.0005 * c * c, 1.029,
                           (0.9705 - 1.0005) * s * c, 0, 0};
  // clang-format on
  for (int i = 1; i <= 6; ++i) EXPECT_NEAR(r.Tensor[i], tensor[i - 1], 2e-7) << i;
}

TEST(ReadSi2bFile, TheMeanIsRoundedToThirtyTwoBits) {
  const SpecimenRecord r = Only("a a 1.1 0 0\na a 2.3 0 0\na a 3.7 90 0\n");
  const float mean = (1.1f + 2.3f + 3.7f) / 3;
  EXPECT_EQ(r.Km, double{mean} * double{0.000001f});
  EXPECT_EQ(r.K[1], Number(3.7 / double{mean}));
}

TEST(ReadSi2bFile, WhatIsWrongIsToldWithFileAndLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"a a 1 0 0\na a 2 0 0\n", "Input past end of file (x.AMS, line 2)"},
      {"a a 1 0 0\na a 2 0 0\na a 3 90 0\n\n", "Subscript out of range (x.AMS, line 4)"},
      {"a a 1 0 0\na a 2 0\na a 3 90 0\n", "Subscript out of range (x.AMS, line 2)"},
      {"a a 0 0 0\na a 0 0 0\na a 0 90 0\n", "Division by zero (x.AMS, line 3)"},
      {"a a 1 0 0\na a 0 0 0\na a -1 90 0\n", "Division by zero (x.AMS, line 3)"},
      {"a a 1 30 40\na a 2 0 0\na a 3 30 40\n", "Division by zero (x.AMS, line 3)"},
      {"a a 1E39 0 0\na a 2 0 0\na a 3 90 0\n", "Overflow (x.AMS, line 3)"},
      {"a a 3E38 0 0\na a 3E38 0 0\na a 3 90 0\n", "Overflow (x.AMS, line 3)"},
      {"a a 1E38 0 0\na a -1E38 0 0\na a 1E-10 90 0\n", "Overflow (x.AMS, line 3)"},
  };
  for (const auto& c : cases) {
    RecordArray records;
    EXPECT_EQ(FaultOf([&] { (void)ReadSi2bText(c.first, "x.AMS", records, {}); }), c.second)
        << c.first;
  }
}

TEST(PrincipalToTensor, PrincipalValuesComeBackWhateverTheAngleOfTheDirections) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> turn(0, 360), tilt(-90, 90);
  for (int n = 0; n < 1000; ++n) {
    const Direction c{turn(random), tilt(random)};
    const Vector<6> tensor =
        PrincipalToTensor(1.2, 1.0, 0.8, turn(random), tilt(random), c.Dec, c.Inc);
    Matrix<3, 3> K, D, W;
    TensorForm<ToMatrix>(K, tensor);
    EIGEN_JK(K, D, W);
    for (int i = 1; i <= 3; ++i) EXPECT_NEAR(D(i, i), 1.4 - 0.2 * i, 1e-6);
    // The last direction stands as it was given.
    const Vector<3> given = DirectionToVector(1, c);
    Vector<3> image;
    Mvmpy(K, given, image);
    for (int i = 1; i <= 3; ++i) EXPECT_NEAR(image[i], 0.8 * given[i], 1e-6);
  }
}

}  // namespace
}  // namespace velorix
