#include "datafiles/spin_file.h"

#include <gtest/gtest.h>

#include "tests/datafiles/fault_of.h"

namespace velorix {
namespace {

const std::string Line =
    "SP-1 0.35 0.33 0.32 -0.01 0.02 0.03 2.5E-06 1.25E-03 ten eleven 320.5 1.0 -2.5 rest";

SpecimenRecord Only(const std::string& text, const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(ReadSpinText(text, "x.txt", records, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

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
  EXPECT_EQ(Only(Line, settings), expected);
  EXPECT_EQ(Only("  " + Line + "  ", settings), expected);
}

TEST(ReadSpinFile, ATensorOfTraceThreeGetsTraceNine) {
  EXPECT_EQ(Only("a 1 1 1 0 0 0 0 0 0 0 0 0 0").Tensor[1], Number(3.0));
}

TEST(ReadSpinFile, WhatIsNoNumberIsZero) {
  const SpecimenRecord r = Only("\xFC - + x 1,5 .5x 1E0y nan inf 0 0 -e 1D1 \t");
  EXPECT_EQ(r.Name, "ü");
  const double tensor[] = {0, 0, 0, 3, 1.5, 3};
  for (int i = 1; i <= 6; ++i) EXPECT_EQ(r.Tensor[i], tensor[i - 1]) << i;
  EXPECT_EQ(r.Km, 0);
  EXPECT_EQ(r.RunAux1, (std::array<std::uint8_t, 4>{0, 0, 0x20, 0x41}));
}

TEST(ReadSpinFile, WhatIsWrongIsToldWithFileAndLine) {
  const std::pair<std::string, std::string> cases[] = {
      {Line + "\n" + Line.substr(0, Line.find(" -2.5")), "Subscript out of range (x.txt, line 2)"},
      {Line + "\n\n", "Subscript out of range (x.txt, line 2)"},
      {"\n" + Line, "Subscript out of range (x.txt, line 1)"},
      {"a\t1\t1\t1\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0", "Subscript out of range (x.txt, line 1)"},
      {"a 1E308 1 1 0 0 0 0 0 0 0 0 0 0", "Overflow (x.txt, line 1)"},
      {"a 1 1 1 0 0 0 0 0 0 0 1E39 0 0", "Overflow (x.txt, line 1)"},
      {"a 1 1 1 0 0 0 0 0 0 0 0 -1E39 0", "Overflow (x.txt, line 1)"},
      {"a 1 1 1 0 0 0 0 0 0 0 0 0 1E999", "Overflow (x.txt, line 1)"},
  };
  for (const auto& c : cases) {
    RecordArray records;
    EXPECT_EQ(FaultOf([&] { (void)ReadSpinText(c.first, "x.txt", records, {}); }), c.second)
        << c.first;
  }
}

}  // namespace
}  // namespace velorix
