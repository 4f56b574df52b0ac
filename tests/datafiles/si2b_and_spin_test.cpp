#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "datafiles/formats/principal_tensor.h"
#include "datafiles/formats/si2b_file.h"
#include "datafiles/formats/spin_file.h"
#include "tensor/eigen_jk.h"
#include "tests/datafiles/fault_of.h"

namespace velorix {
namespace {

const std::string Specimen =
    "\xDC-7  min  970.5  200  0  x\n"
    "SI-7  int  1000.5  111  xyz\n"
    "SI-7  max  1029  20  90.0\n";

/// The only specimen of a text.
SpecimenRecord Only(decltype(ReadSi2bText) read, const std::string& text,
                    const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(read(text, "x", records, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

TEST(ReadSi2bFile, ThreeLinesAreASpecimenTheDirectionOfTheMiddleOneIsNotUsed) {
  Settings settings;
  settings.P = {12, 90, 3, -90};
  const SpecimenRecord r = Only(ReadSi2bText, Specimen, settings);
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
  const SpecimenRecord r = Only(ReadSi2bText, "a a 1.1 0 0\na a 2.3 0 0\na a 3.7 90 0\n");
  const float mean = (1.1f + 2.3f + 3.7f) / 3;
  EXPECT_EQ(r.Km, double{mean} * double{0.000001f});
  EXPECT_EQ(r.K[1], Number(3.7 / double{mean}));
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

const std::string Line =
    "SP-1 0.35 0.33 0.32 -0.01 0.02 0.03 2.5E-06 1.25E-03 ten eleven 320.5 1.0 -2.5 rest";

TEST(ReadSpinFile, ALineIsASpecimen) {
  Settings settings;
  settings.P = {12, 90, 3, -90};
  SpecimenRecord expected;
  expected.Name = "SP-1";
  expected.Active = expected.HasCoor[1] = expected.HasCoor[2] = true;
  expected.OP = settings.P;
  expected.Tensor = {Number(0.35 * 3),  Number(0.33 * 3), Number(0.32 * 3),
                     Number(-0.01 * 3), Number(0.02 * 3), Number(0.03 * 3)};
  expected.Km = 1.25e-3;
  expected.KmSD = 2.5e-6;
  expected.Field = 320.5f;
  expected.RunAux1 = {0, 0, 0x80, 0x3F};
  expected.RunAux3 = {0, 0, 0x20, 0xC0};
  EXPECT_EQ(Only(ReadSpinText, Line, settings), expected);
  EXPECT_EQ(Only(ReadSpinText, "  " + Line + "  ", settings), expected);
}

TEST(ReadSpinFile, ATensorOfTraceThreeGetsTraceNine) {
  EXPECT_EQ(Only(ReadSpinText, "a 1 1 1 0 0 0 0 0 0 0 0 0 0").Tensor[1], Number(3.0));
}

TEST(TextFile, WhatIsWrongIsToldWithFileAndLine) {
  const std::tuple<decltype(&ReadSi2bText), std::string, std::string> cases[] = {
      // clang-format off
      {ReadSi2bText, "a a 1 0 0\na a 2 0 0\n", "Input past end of file (x, line 2)"},
      {ReadSi2bText, "a a 1 0 0\na a 2 0 0\na a 3 90 0\n\n", "Subscript out of range (x, line 4)"},
      {ReadSi2bText, "a a 1 0 0\na a 2 0\na a 3 90 0\n", "Subscript out of range (x, line 2)"},
      {ReadSi2bText, "a a 0 0 0\na a 0 0 0\na a 0 90 0\n", "Division by zero (x, line 3)"},
      {ReadSi2bText, "a a 1 0 0\na a 0 0 0\na a -1 90 0\n", "Division by zero (x, line 3)"},
      {ReadSi2bText, "a a 1 30 40\na a 2 0 0\na a 3 30 40\n", "Division by zero (x, line 3)"},
      {ReadSi2bText, "a a 1E39 0 0\na a 2 0 0\na a 3 90 0\n", "Overflow (x, line 3)"},
      {ReadSi2bText, "a a 3E38 0 0\na a 3E38 0 0\na a 3 90 0\n", "Overflow (x, line 3)"},
      {ReadSi2bText, "a a 1E38 0 0\na a -1E38 0 0\na a 1E-10 90 0\n", "Overflow (x, line 3)"},
      {ReadSpinText, Line + "\n" + Line.substr(0, Line.find(" -2.5")), "Subscript out of range (x, line 2)"},
      {ReadSpinText, Line + "\n\n", "Subscript out of range (x, line 2)"},
      {ReadSpinText, "\n" + Line, "Subscript out of range (x, line 1)"},
      {ReadSpinText, "a\t1\t1\t1\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0", "Subscript out of range (x, line 1)"},
      {ReadSpinText, "a 1E308 1 1 0 0 0 0 0 0 0 0 0 0", "Overflow (x, line 1)"},
      {ReadSpinText, "a 1 1 1 0 0 0 0 0 0 0 1E39 0 0", "Overflow (x, line 1)"},
      {ReadSpinText, "a 1 1 1 0 0 0 0 0 0 0 0 -1E39 0", "Overflow (x, line 1)"},
      {ReadSpinText, "a 1 1 1 0 0 0 0 0 0 0 0 0 1E999", "Overflow (x, line 1)"},
      // clang-format on
  };
  for (const auto& [read, text, fault] : cases) {
    RecordArray records;
    EXPECT_EQ(FaultOf([&, read = read, &text = text] { (void)read(text, "x", records, {}); }),
              fault)
        << text;
  }
}

}  // namespace
}  // namespace velorix
