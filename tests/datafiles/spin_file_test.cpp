#include "datafiles/spin_file.h"

#include <gtest/gtest.h>

#include "tests/datafiles/fault_of.h"

namespace velorix {
namespace {

const std::string Line =
    "SP-1 0.35 0.33 0.32 -0.01 0.02 0.03 2.5E-06 1.25E-03 ten eleven 320.5 1.0 -2.5 rest";

RecordArray Read(const std::string& text, const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(ReadSpinText(text, "x.txt", records, settings));
  return records;
}

std::string FaultIn(const std::string& text) {
  RecordArray records;
  records.Add(SpecimenRecord());
  const std::string fault = FaultOf([&] { (void)ReadSpinText(text, "x.txt", records, {}); });
  EXPECT_EQ(records.Count(), 1);
  return fault;
}

TEST(ReadSpinFile, ALineIsASpecimen) {
  Settings settings;
  settings.P = {12, 90, 3, -90};
  const RecordArray records = Read(Line, settings);
  ASSERT_EQ(records.Count(), 1);
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
  EXPECT_EQ(records[1], expected);
}

TEST(ReadSpinFile, ATensorOfTraceThreeGetsTraceNine) {
  EXPECT_EQ(Read("a 1 1 1 0 0 0 0 0 0 0 0 0 0")[1].Tensor[1], Number(3.0));
}

TEST(ReadSpinFile, LineEndsOfAnyKindAreTheSame) {
  const RecordArray records = Read(Line + "\r\n  " + Line + "  \n" + Line);
  ASSERT_EQ(records.Count(), 3);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(records[i], Read(Line)[1]) << i;
}

TEST(ReadSpinFile, WhatIsNoNumberIsZero) {
  const SpecimenRecord r = Read("\xFC - + x 1,5 .5x 1E0y nan inf 0 0 -e 1D1 \t")[1];
  EXPECT_EQ(r.Name, "ü");
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(r.Tensor[i], 0.0);
  EXPECT_EQ(r.Tensor[4], 3.0);
  EXPECT_EQ(r.Tensor[5], 1.5);
  EXPECT_EQ(r.Km, 0);
  EXPECT_EQ(r.RunAux1, (std::array<std::uint8_t, 4>{0, 0, 0x20, 0x41}));
}

TEST(ReadSpinFile, WhatIsWrongIsToldWithFileAndLine) {
  const struct {
    std::string Text, Fault;
  } cases[] = {
      {Line + "\n" + Line.substr(0, Line.find(" -2.5")), "Subscript out of range (x.txt, line 2)"},
      {Line + "\n\n", "Subscript out of range (x.txt, line 2)"},
      {"\n" + Line, "Subscript out of range (x.txt, line 1)"},
      {"a\t1\t1\t1\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0", "Subscript out of range (x.txt, line 1)"},
      {"a 1E308 1 1 0 0 0 0 0 0 0 0 0 0", "Overflow (x.txt, line 1)"},
      {"a 1 1 1 0 0 0 0 0 0 0 1E39 0 0", "Overflow (x.txt, line 1)"},
      {"a 1 1 1 0 0 0 0 0 0 0 0 -1E39 0", "Overflow (x.txt, line 1)"},
      {"a 1 1 1 0 0 0 0 0 0 0 0 0 1E999", "Overflow (x.txt, line 1)"},
  };
  for (const auto& c : cases) EXPECT_EQ(FaultIn(c.Text), c.Fault) << c.Text;
}

}  // namespace
}  // namespace velorix
