#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"
#include "datafiles/formats/ran_file.h"
#include "tests/datafiles/golden_record.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

using golden::Decoded, golden::Encoded;

const std::string Full = golden::OnDisk();

TEST(ReloadAmsFile, OneBlockComesIntoTheInPhaseFieldsAndDisregardsARecordOfZeros) {
  const TempFolder folder;
  std::string bytes = Full + std::string(1280, '\0');
  golden::PutFloat(bytes, 640 + 356, 1);           // one record has an out-of-phase tensor only
  golden::PutFloat(bytes, 1280 + 232, 1);          // the other an in-phase one
  EXPECT_TRUE(Decoded(bytes.substr(640)).Active);  // when opened
  PutFile(folder.File("x.ams"), bytes);
  for (const bool useIm : {false, true}) {
    RecordArray records;
    ASSERT_TRUE(ReloadAmsFile(folder.File("x.ams"), records, useIm));
    EXPECT_EQ(records[1], golden::Record(useIm ? 300 : 200, 0)) << useIm;
    EXPECT_EQ(records[2].Active, useIm);
    EXPECT_EQ(records[3].Active, !useIm);
  }
}

TEST(WriteAmsFile, AllOrTheSelectedRecordsGoOutInTheirOrder) {
  const TempFolder folder;
  RecordArray records;
  for (const char* name : {"a", "b", "c"}) {
    SpecimenRecord r = golden::Record();
    r.Name = name;
    r.Selected = r.Name != "b";
    r.Active = false;  // plays no part
    records.Add(r);
  }
  const std::string path = folder.File("ümlaut.ams");
  const auto expect = [&](std::initializer_list<int> which) {
    std::string all;
    for (const int i : which) all += Encoded(records[i]);
    EXPECT_TRUE(BytesOf(path) == all) << which.size();
  };
  ASSERT_TRUE(WriteAmsFile(path, records, false, true));
  expect({1, 2, 3});
  ASSERT_TRUE(WriteAmsFile(path, records, false, false));
  expect({1, 3});
  ASSERT_TRUE(WriteAmsFile(path, records, true, true));
  expect({1, 3, 1, 2, 3});
  ASSERT_TRUE(WriteAmsRecord(path, records[2]));
  expect({1, 3, 1, 2, 3, 2});
  EXPECT_EQ(folder.FileCount(), 1);
}

TEST(WriteAmsFile, ABrokenTailIsFilledUpOrOverwrittenAsItsLengthRounds) {
  const TempFolder folder;
  const std::string path = folder.File("x.ams"), added = Encoded(SpecimenRecord());
  for (const std::size_t tail : {0u, 1u, 319u, 320u, 321u, 639u}) {
    PutFile(path, Full + std::string(tail, 'x'));
    ASSERT_TRUE(WriteAmsRecord(path, SpecimenRecord()));
    std::string kept = Full;
    if (tail >= 320) kept += std::string(tail, 'x') + std::string(640 - tail, '\0');
    EXPECT_TRUE(BytesOf(path) == kept + added) << tail;
  }
}

TEST(WriteAmsFile, WithNothingToWriteAnOldFileGoesAllTheSameAndSoForRan) {
  const TempFolder folder;
  const std::string path = folder.File("x");
  RecordArray none, unselected;
  unselected.Grow(1);
  for (const RecordArray* records : {&none, &unselected})
    for (const bool append : {true, false})
      for (const bool isRan : {true, false}) {
        PutFile(path, "old");
        const Outcome outcome = isRan ? WriteRanFile(path, *records, append, false)
                                      : WriteAmsFile(path, *records, append, false);
        EXPECT_EQ(outcome.Done, records == &unselected);
        EXPECT_TRUE(outcome.Text.empty());
        EXPECT_EQ(folder.FileCount(), append ? 1 : 0);
      }
}

using golden::Decoded, golden::Encoded;

const std::string ShortFalse(2, '\0'), ShortTrue = "\xFF\xFF";

TEST(AmsLayout, EveryFieldHasItsPlace) {
  const SpecimenRecord record = Decoded(golden::OnDisk());
  EXPECT_EQ(record, golden::Record());
  EXPECT_EQ(record.K[4].width(), Number::Width::Unset);
  const std::string written = Encoded(record), expected = golden::Written();
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(written[i], expected[i]) << i;
}

TEST(AmsLayout, SpecimenSystemIsInvertedTheOrientationIsNotAndWithoutItAnglesAreZero) {
  const std::tuple<int, int, bool, bool> cases[] = {
      // clang-format off
      {0, 0, true, false}, {-1, 0, false, false}, {-1, -1, false, true}, {0, 1, true, true},
      {256, 256, false, true},
      // clang-format on
  };
  for (const auto& [at544, at90, specimen, geographic] : cases) {
    std::string bytes = golden::OnDisk();
    golden::PutShort(bytes, 544, at544);
    golden::PutShort(bytes, 90, at90);
    SpecimenRecord expected = golden::Record();
    expected.HasCoor = {specimen, geographic, true, true};
    const std::string written = Encoded(expected);  // of a record that has angles
    if (!geographic) expected.OrientAz = expected.OrientInc = 0;
    EXPECT_EQ(Decoded(bytes), expected);
    EXPECT_EQ(written.substr(544, 2), specimen ? ShortFalse : ShortTrue);
    EXPECT_EQ(written.substr(90, 2), geographic ? ShortTrue : ShortFalse);
    EXPECT_EQ(written.substr(92, 8) == std::string(8, '\0'), !geographic);
  }
}

TEST(AmsLayout, TextsArePaddedCutConvertedAndStrippedAtTheEndOrAtBoth) {
  using namespace std::string_literals;
  const std::tuple<std::string, std::string, std::string> sites[] = {
      // clang-format off
      {"",                          "                    ",      ""},
      {" Quarry ",                  " Quarry             ",      " Quarry"},
      {"a site of many characté!!",  "a site of many chara",      "a site of many chara"},
      {"Quarry é",                  "Quarry \xE9            ",  "Quarry é"},
      {"nineteen lettres, é",       "nineteen lettres, \xE9 ",  "nineteen lettres, é"},
      {"Tichý důl",                 "Tich\xFD d?l           ",   "Tichý d?l"},
      {"5 € \u0081",                "5 \x80 \x81               ", "5 € \u0081"},
      {"a\0b"s,                     "a\0b                 "s,    "a\0b"s},
      {"ends in zero\0"s,           "ends in zero\0       "s,    "ends in zero"},
      // clang-format on
  };
  for (const auto& [text, onDisk, readBack] : sites) {
    SpecimenRecord record;
    record.Site = text;
    const std::string bytes = Encoded(record);
    EXPECT_EQ(bytes.substr(472, 20), onDisk);
    EXPECT_EQ(Decoded(bytes).Site, readBack);
  }
  std::string bytes = golden::OnDisk("  A 1  ");
  golden::PutText(bytes, 100, " F");
  golden::PutText(bytes, 142, ShortFalse);
  SpecimenRecord record = Decoded(bytes);
  EXPECT_EQ(record.Name + "|" + record.FoliName[1] + "|" + record.LineName[2], "A 1|F|");
  record.FoliName[1] = "  Fx ";
  EXPECT_EQ(Encoded(record).substr(100, 4), "FxS1");
}

TEST(AmsLayout, AStrikeIsTurnedIntoADipDirectionAndBackWhereP4Is90AndTheFoliationHasACode) {
  const std::tuple<int, const char*, float, float, float> cases[] = {
      // clang-format off
      {90, "S ", 0, 90, 0},         {90, "S ", 269.5f, 359.5f, 269.5f}, {90, " S", 270, 0, 270},
      {90, "S0", 359, 89, 359},     {90, "S ", 360, 90, 0},             {90, "0 ", 45, 135, 45},
      {90, "  ", 45, 45, 45},       {0, "S ", 300, 300, 300},           {89, "S ", 45, 45, 45},
      {-90, "S ", 45, 45, 45},
      // clang-format on
  };
  for (const auto& [p4, code, onDisk, read, written] : cases)
    for (const std::size_t slot : {0u, 1u}) {
      std::string bytes = golden::OnDisk();
      golden::PutShort(bytes, 88, p4);
      golden::PutText(bytes, 100 + 2 * slot, code);
      golden::PutFloat(bytes, 108 + 4 * slot, onDisk);
      const SpecimenRecord record = Decoded(bytes);
      EXPECT_EQ(record.FoliAz.v[slot], read) << p4 << code << onDisk;
      EXPECT_EQ(record.OP[4], p4);
      golden::PutFloat(bytes, 108 + 4 * slot, written);
      EXPECT_EQ(Encoded(record).substr(108 + 4 * slot, 4), bytes.substr(108 + 4 * slot, 4));
    }
}

TEST(AmsLayout, OneOutOfPhaseTensorValueMakesTheBlock) {
  std::string zero = golden::OnDisk();
  for (std::size_t at = 356; at < 380; at += 4) golden::PutFloat(zero, at, -0.0f);
  EXPECT_FALSE(Decoded(zero).HasIm);
  EXPECT_EQ(Decoded(zero).KmIm, 300.5);  // the rest is taken all the same
  for (std::size_t at = 356; at < 380; at += 4)
    for (float value : {1e-40f, -1.0f, std::nanf("")}) {
      std::string bytes = zero;
      golden::PutFloat(bytes, at, value);
      EXPECT_TRUE(Decoded(bytes).HasIm) << at;
    }
}

TEST(AmsLayout, NumbersOf64BitsAreNarrowedAndUnsetOnesAreZero) {
  SpecimenRecord record;
  record.Km = 1.0 / 3;
  record.K[1] = 0.1;
  record.FTest[3] = 2.0 / 3;
  std::string expected = Encoded(SpecimenRecord());
  EXPECT_EQ(expected.substr(180, 292), std::string(292, '\0'));
  golden::PutFloat(expected, 180, 0.333333343f);
  golden::PutFloat(expected, 188, 0.1f);
  golden::PutFloat(expected, 320, 0.666666687f);
  EXPECT_EQ(Encoded(record), expected);
  SpecimenRecord large[3];  // finite, but not in 32 bits
  large[0].KmIm = 1e39;
  large[1].E3[2] = -1e39;
  large[2].Vec[3][1] = 1e39;
  for (const SpecimenRecord& r : large) EXPECT_THROW((void)Encoded(r), Fault);
}

}  // namespace
}  // namespace velorix
