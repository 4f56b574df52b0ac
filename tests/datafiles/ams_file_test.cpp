#include "datafiles/ams_file.h"

#include <gtest/gtest.h>

#include "base/fault.h"
#include "datafiles/ran_file.h"
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

TEST(AmsRoundTrip, AmsToAmsLosesTheDeviationsOfPrincipalValuesAndNothingElse) {
  const std::string examples = VELORIX_SOURCE_DIR "/examples/";
  const TempFolder folder;
  PutFile(folder.File("golden.ams"), Full + golden::OnDisk("other "));
  for (const std::string& path : {folder.File("golden.ams"), examples + "granite.ams",
                                  examples + "tr245.ams", examples + "u1359b.ams"}) {
    RecordArray records, again;
    ASSERT_TRUE(ReadAmsFile(path, records));
    ASSERT_TRUE(WriteAmsFile(folder.File("1.ams"), records, false, true));
    ASSERT_TRUE(ReadAmsFile(folder.File("1.ams"), again));
    ASSERT_TRUE(WriteAmsFile(folder.File("2.ams"), again, false, true));
    EXPECT_TRUE(BytesOf(folder.File("1.ams")) == BytesOf(folder.File("2.ams"))) << path;
    ASSERT_EQ(again.Count(), records.Count());
    for (int i = 1; i <= records.Count(); ++i) {
      EXPECT_NE(records[i].KSD[1], 0.0) << path;
      for (int j = 1; j <= 3; ++j) records[i].KSD[j] = records[i].KSDIm[j] = 0.0f;
      EXPECT_EQ(again[i], records[i]) << path << i;
    }
  }
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

TEST(WriteAmsFile, AnAppendBeyondTheSixteenBitsLeavesTheFile) {
  const TempFolder folder;
  const std::string path = folder.File("x.ams"), bytes(std::size_t{32767} * 640, '\0');
  PutFile(path, bytes);
  EXPECT_THROW((void)WriteAmsRecord(path, SpecimenRecord()), Fault);
  EXPECT_TRUE(BytesOf(path) == bytes);
}

}  // namespace
}  // namespace velorix
