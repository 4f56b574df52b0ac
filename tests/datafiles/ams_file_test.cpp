#include "datafiles/ams_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/fault.h"
#include "tests/datafiles/golden_record.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

const std::string Examples = VELORIX_SOURCE_DIR "/examples/";

/// A record with something in every field, as on disk; with a name of its own when one is given.
std::string Full(const std::string& name = "") {
  golden::Bytes bytes = golden::OnDisk();
  if (!name.empty()) golden::PutText(bytes, 0, name + std::string(20 - name.size(), ' '));
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A record of zero bytes but for one number.
std::string WithFloat(int at, float value) {
  golden::Bytes bytes(640);
  golden::PutFloat(bytes, at, value);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

SpecimenRecord Decoded(const std::string& bytes) {
  SpecimenRecord r;
  DecodeAmsRecord(reinterpret_cast<const std::byte*>(bytes.data()), r);
  return r;
}

std::string Encoded(const SpecimenRecord& record) {
  std::string bytes(640, '\x7F');
  EncodeAmsRecord(record, reinterpret_cast<std::byte*>(bytes.data()));
  return bytes;
}

TEST(ReadAmsFile, EveryLengthReadsAsItsRoundedNumberOfRecords) {
  const std::string whole = Full() + Full() + Full();
  const TempFolder folder;
  const std::string path = folder.File("x.ams");
  for (std::size_t length = 0; length <= 1300; ++length) {
    PutFile(path, whole.substr(0, length));
    RecordArray records;
    const Outcome outcome = ReadAmsFile(path, records);
    // Halves go to the even number: 320 bytes are none, 960 are two.
    const int expected = length <= 320 ? 0 : length < 960 ? 1 : 2;
    ASSERT_EQ(records.Count(), expected) << length;
    ASSERT_EQ(outcome.Done, expected > 0) << length;
    ASSERT_EQ(outcome.Text.empty(), length > 0) << length;
    for (int i = 1; i <= expected; ++i) {
      std::string part = whole.substr(0, length).substr((i - 1) * 640, 640);
      part.resize(640, '\0');
      ASSERT_EQ(records[i], Decoded(part)) << length;
    }
  }
}

TEST(ReadAmsFile, AFailureLeavesTheArray) {
  const TempFolder folder;
  RecordArray records;
  records.Add(SpecimenRecord());
  PutFile(folder.File("long.ams"), std::string(40000 * 640, 'x'));
  PutFile(folder.File("full.ams"), std::string(32767 * 640, '\0'));
  EXPECT_THROW((void)ReadAmsFile(folder.File("long.ams"), records), Fault);
  EXPECT_THROW((void)ReadAmsFile(folder.File("full.ams"), records), Fault);  // one too many
  EXPECT_EQ(records.Count(), 1);
  records.Clear();
  ASSERT_TRUE(ReadAmsFile(folder.File("full.ams"), records));
  EXPECT_EQ(records.Count(), 32767);
}

TEST(ReadAmsFile, KeptMemoryGivesWhatFreshMemoryGives) {
  RecordArray used;
  used.Grow(150);
  for (SpecimenRecord& r : used) {  // a record as full as it gets, then let go
    r = golden::Record();
    r.CoorLevel = r.RecordNo = 3;
    r.Selected = true;
    r.FoliName[3] = "S3";
    r.FoliAz[3] = r.LinePlunge[4] = r.Fac[1] = 5;
    for (int i = 1; i <= 6; ++i) r.K[i] = r.TensorRot[i] = r.TensorRotIm[i] = r.KSDIm[i] = 9.0;
    for (int i = 1; i <= 3; ++i) r.Dec[i] = r.IncIm[i] = r.KSD[i] = 9.0;
    for (int i = 1; i <= 4; ++i) r.PlotX[i] = r.FoliDec[i] = r.LineInc[i] = 9.0;
  }
  std::string bytes;
  for (int i = 0; i < 150; ++i) bytes += i % 3 == 0 ? Full() : WithFloat(212, 1);
  const TempFolder folder;
  PutFile(folder.File("x.ams"), bytes);
  for (const int useIm : {-1, 0, 1}) {
    const auto read = [&](RecordArray& into) {
      return useIm < 0 ? ReadAmsFile(folder.File("x.ams"), into)
                       : ReloadAmsFile(folder.File("x.ams"), into, useIm == 1);
    };
    RecordArray fresh;
    used.Clear();
    ASSERT_TRUE(read(fresh));
    ASSERT_TRUE(read(used));
    ASSERT_EQ(fresh.Count(), used.Count());
    for (int i = 1; i <= fresh.Count(); ++i) ASSERT_EQ(fresh[i], used[i]) << i;
  }
}

TEST(ReloadAmsFile, OneBlockComesIntoTheInPhaseFields) {
  const TempFolder folder;
  PutFile(folder.File("x.ams"), Full());
  const SpecimenRecord opened = golden::Record(), empty;
  for (const bool useIm : {false, true}) {
    RecordArray records;
    ASSERT_TRUE(ReloadAmsFile(folder.File("x.ams"), records, useIm));
    SpecimenRecord expected = opened;
    if (useIm) {
      expected.Km = opened.KmIm;
      expected.KmSD = opened.KmSDIm;
      expected.K = opened.KIm;
      expected.KSD = opened.KSDIm;
      expected.Tensor = opened.TensorIm;
      expected.Vec = opened.VecIm;
      expected.E = opened.EIm;
      expected.E2 = opened.E2Im;
      expected.E3 = opened.E3Im;
      expected.FTest = opened.FTestIm;
    }
    expected.HasIm = false;
    expected.KmIm = expected.KmSDIm = 0;
    expected.KIm = expected.KSDIm = expected.TensorIm = empty.TensorIm;
    expected.VecIm = empty.VecIm;
    expected.EIm = expected.E2Im = expected.E3Im = empty.EIm;
    expected.FTestIm = empty.FTestIm;
    EXPECT_EQ(records[1], expected) << useIm;
  }
}

TEST(ReloadAmsFile, RefusesLikeOpening) {
  const TempFolder folder;
  RecordArray records;
  PutFile(folder.File("x.ams"), "");
  const Outcome empty = ReloadAmsFile(folder.File("x.ams"), records, true);
  EXPECT_EQ(empty.Text, ReadAmsFile(folder.File("x.ams"), records).Text);
  EXPECT_FALSE(empty.Done || empty.Text.empty());
  EXPECT_THROW((void)ReloadAmsFile(Utf8Of(folder.Path), records, false),
               std::filesystem::filesystem_error);
  PutFile(folder.File("long.ams"), std::string(40000 * 640, 'x'));
  EXPECT_THROW((void)ReloadAmsFile(folder.File("long.ams"), records, false), Fault);
  EXPECT_TRUE(records.Empty());
}

TEST(ReloadAmsFile, ARecordWithAZeroTensorComesBackDisregarded) {
  const TempFolder folder;
  PutFile(folder.File("x.ams"), WithFloat(356, 1) + WithFloat(232, 1));
  RecordArray opened, re, im;
  ASSERT_TRUE(ReadAmsFile(folder.File("x.ams"), opened));
  ASSERT_TRUE(ReloadAmsFile(folder.File("x.ams"), re, false));
  ASSERT_TRUE(ReloadAmsFile(folder.File("x.ams"), im, true));
  EXPECT_TRUE(opened[1].Active && opened[2].Active);
  EXPECT_TRUE(!re[1].Active && re[2].Active);
  EXPECT_TRUE(im[1].Active && !im[2].Active);
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
  const auto bytes = [&](std::initializer_list<int> which) {
    std::string all;
    for (const int i : which) all += Encoded(records[i]);
    return all;
  };
  const std::string path = folder.File("ümlaut.ams");
  ASSERT_TRUE(WriteAmsFile(path, records, false, true));
  EXPECT_EQ(BytesOf(path), bytes({1, 2, 3}));
  ASSERT_TRUE(WriteAmsFile(path, records, false, false));
  EXPECT_EQ(BytesOf(path), bytes({1, 3}));
  ASSERT_TRUE(WriteAmsFile(path, records, true, true));
  EXPECT_EQ(BytesOf(path), bytes({1, 3, 1, 2, 3}));
  ASSERT_TRUE(WriteAmsRecord(path, records[2]));
  EXPECT_EQ(BytesOf(path), bytes({1, 3, 1, 2, 3, 2}));
  ASSERT_TRUE(WriteAmsRecord(folder.File("new.ams"), records[2]));
  EXPECT_EQ(BytesOf(folder.File("new.ams")), bytes({2}));
  EXPECT_EQ(folder.FileCount(), 2);
}

TEST(AmsRoundTrip, AmsToAmsLosesTheDeviationsOfPrincipalValuesAndNothingElse) {
  const TempFolder folder;
  PutFile(folder.File("golden.ams"), Full() + Full("other"));
  for (const std::string& path : {folder.File("golden.ams"), Examples + "granite.ams",
                                  Examples + "tr245.ams", Examples + "u1359b.ams"}) {
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
  const std::string path = folder.File("x.ams");
  const std::string one = Full(), added = Encoded(SpecimenRecord());
  for (const int tail : {1, 319, 320, 321, 639}) {
    PutFile(path, one + std::string(tail, 'x'));
    ASSERT_TRUE(WriteAmsRecord(path, SpecimenRecord()));
    std::string kept = one;
    if (tail >= 320) kept += std::string(tail, 'x') + std::string(640 - tail, '\0');
    EXPECT_TRUE(BytesOf(path) == kept + added) << tail;
  }
}

TEST(WriteAmsFile, WithNothingToWriteAnOldFileGoesAllTheSame) {
  const TempFolder folder;
  const std::string path = folder.File("x.ams");
  RecordArray unselected;
  unselected.Grow(1);
  const RecordArray none;
  for (const RecordArray* records : {&none, static_cast<const RecordArray*>(&unselected)})
    for (const bool append : {true, false}) {
      PutFile(path, "old");
      const Outcome outcome = WriteAmsFile(path, *records, append, false);
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

TEST(WriteAmsFile, APlaceThatCannotBeWrittenFailsWithTheSystemsReason) {
  const TempFolder folder;
  RecordArray records;
  records.Add(SpecimenRecord());
  PutFile(folder.File("file"), "old");
  for (const std::string& path : {folder.File("missing/x.ams"), folder.File("file/x.ams")})
    for (const bool append : {false, true}) {
      try {
        (void)WriteAmsFile(path, records, append, true);
        ADD_FAILURE() << path;
      } catch (const std::filesystem::filesystem_error& fault) {
        EXPECT_NE(fault.code().value(), 0);
      }
    }
  EXPECT_EQ(folder.FileCount(), 1);
}

TEST(AmsRecordCount, HalvesGoToTheEvenNumberAndSixteenBitsEndIt) {
  EXPECT_EQ(AmsRecordCount(640 * 7 + 320), 8);
  EXPECT_EQ(AmsRecordCount(640 * 8 + 320), 8);
  EXPECT_EQ(AmsRecordCount(640ull * 32767 + 319), 32767);
  EXPECT_THROW(AmsRecordCount(640ull * 32767 + 320), Fault);
  EXPECT_THROW(AmsRecordCount(std::numeric_limits<std::uintmax_t>::max()), Fault);
}

}  // namespace
}  // namespace velorix
