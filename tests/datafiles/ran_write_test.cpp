#include <limits>

#include "tensor/derivation.h"
#include "tests/datafiles/fault_of.h"
#include "tests/datafiles/ran_bytes.h"

namespace velorix {
namespace {

TEST(WriteRanFile, EveryFieldHasItsPlace) {
  SpecimenRecord r = RanRecord();
  std::swap(r.Lon, r.Lat);
  r.Km = 150e-6;
  r.Rock = "dolerite";
  r.FoliAz[1] = 293.5f;  // halves to the even number
  r.FoliDip[1] = 24.6f;
  r.LineTrend[1] = -4.6f;
  r.LinePlunge[1] = 6.6f;
  EXPECT_EQ(Written(r), Header() + OneSpecimen());
}

TEST(WriteRanFile, NumbersInTextsStandLeftAndAreCutAtTheirWidth) {
  SpecimenRecord r = RanRecord();
  r.Lon = 0.0f;
  r.Lat = -123.456f;
  r.OP = {1000, -90, 6, 90};
  EXPECT_EQ(Written(r).substr(18, 14), "0      -123.45");
  EXPECT_EQ(Written(r).substr(48, 12), "100-906  90 ");
}

TEST(WriteRanFile, WithoutAnOrientationTheTensorStandsInTheSpecimenSystem) {
  SpecimenRecord r = RanRecord();
  r.HasCoor = {true, false, false, false};
  r.SourceProgram = "";  // a tensor that an orientation would turn
  r.OrientAz = 30;
  r.Km = -150e-6;  // its sign is lost
  EXPECT_EQ(Written(r).substr(64), OneSpecimen().replace(44, 20, "SS" + std::string(18, '\0')));
}

TEST(WriteRanFile, CodesOfTwoCharactersLeaveNoPlaceForTheLineation) {
  const struct {
    const char *Foli, *Line, *OnDisk;
  } cases[] = {{"F", "L", "FL"},   {"", "L", "0L"},  {"F", "", "F0"},  {"", "", "00"},
               {"S0", "L1", "S0"}, {"", "L1", "0L"}, {"S", "S", "SS"}, {"Ø", "é", "\xD8\xE9"}};
  for (const auto& c : cases) {
    SpecimenRecord r = RanRecord();
    r.FoliName[1] = c.Foli;
    r.LineName[1] = c.Line;
    EXPECT_EQ(Written(r).substr(64 + 44, 2), c.OnDisk);
  }
}

TEST(WriteRanFile, TheFirstRecordsSiteWinsAndTheHeaderCountsOn) {
  const TempFolder folder;
  const std::string path = folder.File("ü.ran");
  RecordArray records;
  for (const char* name : {"a", "b", "c"}) {
    SpecimenRecord r = RanRecord();
    r.Name = r.Site = name;
    r.Selected = r.Name != "a";
    r.Active = false;  // plays no part
    records.Add(r);
  }
  const auto content = [&] {  // header's count, site and the specimens' names
    const std::string bytes = BytesOf(path);
    std::string text = std::to_string(bytes[0]) + bytes.substr(2, 2);
    for (std::size_t at = 64; at < bytes.size(); at += 64) text += bytes[at];
    return text;
  };
  ASSERT_TRUE(WriteRanFile(path, records, false, false));
  EXPECT_EQ(content(), "4b bc");
  ASSERT_TRUE(WriteRanFile(path, records, true, true));
  EXPECT_EQ(content(), "7b bcabc");
  ASSERT_TRUE(WriteRanRecord(path, records[1]));
  EXPECT_EQ(content(), "8b bcabca");
  ASSERT_TRUE(WriteRanFile(path, records, false, true));
  EXPECT_EQ(content(), "5a abc");
  EXPECT_EQ(folder.FileCount(), 1);
}

TEST(WriteRanFile, ABrokenTailIsFilledUpOrOverwrittenAsItsLengthRounds) {
  const TempFolder folder;
  const std::string path = folder.File("x.ran"), two = Header() + OneSpecimen();
  const std::string alone = Written(RanRecord());
  for (const std::size_t tail : {1u, 31u, 32u, 33u, 63u}) {
    PutFile(path, two + std::string(tail, 'x'));
    ASSERT_TRUE(WriteRanRecord(path, RanRecord()));
    std::string kept = two;
    if (tail > 32) kept += std::string(tail, 'x') + std::string(64 - tail, '\0');
    EXPECT_EQ(BytesOf(path).substr(2), (kept + alone.substr(64)).substr(2)) << tail;
  }
  for (const std::size_t length : {0u, 20u, 32u, 64u, 90u}) {  // no whole specimen: begun anew
    PutFile(path, std::string(length, 'x'));
    ASSERT_TRUE(WriteRanRecord(path, RanRecord()));
    EXPECT_EQ(BytesOf(path), alone) << length;
  }
}

TEST(WriteRanFile, NamesAreCutAtTwelveCharactersAndTheSuffixFirst) {
  SpecimenRecord r = RanRecord();
  const struct {
    const char *Name, *Suffix, *OnDisk;
  } cases[] = {{"A1", "-re", "A1-re       "},
               {"ABCDEFGHIJK", "-re", "ABCDEFGHIJK-"},
               {"ABCDEFGHIJKLM", "-re", "ABCDEFGHIJKL"},
               {"žluťoučký-12-3", "", "\x9Elu?ou?k\xFD-12"}};
  for (const auto& c : cases) {
    r.Name = c.Name;
    EXPECT_EQ(Written(r, c.Suffix).substr(64, 12), c.OnDisk);
  }
}

TEST(WriteRanFile, ARecordThatDoesNotFitLeavesTheOldFile) {
  const TempFolder folder;
  const std::string path = folder.File("x.ran"), old = Header() + OneSpecimen();
  std::vector<SpecimenRecord> bad(5, RanRecord());
  bad[0].FoliAz[1] = 32768;
  bad[1].LinePlunge[2] = std::numeric_limits<float>::quiet_NaN();
  bad[2].Km = 1e33;
  bad[3].SourceProgram = "";
  bad[3].OP[1] = 32767;
  bad[4].Tensor[1] = 1e39;
  for (const SpecimenRecord& r : bad)
    for (const bool append : {false, true}) {
      RecordArray records;
      records.Add(RanRecord());
      records.Add(r);
      PutFile(path, old);
      EXPECT_EQ(FaultOf([&] { (void)WriteRanFile(path, records, append, true); }), "Overflow");
      EXPECT_EQ(BytesOf(path), old);
    }
}

TEST(WriteRanFile, MoreRecordsThanTheHeaderCountsAreAnOverflow) {
  const TempFolder folder;
  const std::string path = folder.File("x.ran");
  RecordArray records;
  records.Grow(32765);
  ASSERT_TRUE(WriteRanFile(path, records, false, true));
  const std::string bytes = BytesOf(path);
  EXPECT_EQ(bytes.substr(0, 2), "\xFF\x7F");
  EXPECT_EQ(FaultOf([&] { (void)WriteRanRecord(path, records[1]); }), "Overflow");
  EXPECT_TRUE(BytesOf(path) == bytes);
}

// A file read and written once keeps tensors, names, codes and angles; coordinates change places,
// B becomes the mean susceptibility, and A is what the inferred field says.
TEST(RanRoundTrip, RanToRanExchangesTheCoordinatesAndKeepsTheRest) {
  SpecimenRecord expected = Only(OneSpecimen());
  const SpecimenRecord again = WrittenAndRead(expected);
  std::swap(expected.Lon, expected.Lat);
  EXPECT_NEAR(again.Km, 2 * expected.Km, 1e-10);  // scaled by the tensor's mean, which is 2 here
  expected.Km = again.Km;
  EXPECT_EQ(again, expected);
}

TEST(RanRoundTrip, TheFieldDriftsWithTheInstrumentThatItIsTakenFor) {
  SpecimenRecord r = RanRecord();
  r.FreqIndex = 0;
  r.Field = 300;
  // In the end 1184 is taken for frequency 1, field 184.
  for (const float field : {423.0f, 596.0f, 840.0f, 1184.0f, 184.0f}) {
    r.Km = 120e-6;
    r = WrittenAndRead(r);
    EXPECT_EQ(r.Instrument, field == 184 ? "NVR1" : "TQB-4");
    EXPECT_EQ(r.Field, field);
  }
}

TEST(RanRoundTrip, AmsToRanToAmsKeepsTheTurnedTensorAndTheFirstCharactersOfTexts) {
  SpecimenRecord original = golden::Record();
  original.SourceProgram = "EXAMPLES";
  original.OP = {6, 0, 6, 90};
  golden::Put(original.Tensor, {1.1f, 1.0f, 0.9f, 0.01f, 0.02f, -0.03f});
  original.Km = 2e-4f;
  const TempFolder folder;
  RecordArray ams, ran, again;
  ASSERT_TRUE(WriteAmsRecord(folder.File("1.ams"), original));
  ASSERT_TRUE(ReadAmsFile(folder.File("1.ams"), ams));
  ASSERT_TRUE(WriteRanFile(folder.File("2.ran"), ams, false, true));
  ASSERT_TRUE(ReadRanFile(folder.File("2.ran"), ran, {}));
  ASSERT_TRUE(WriteAmsFile(folder.File("3.ams"), ran, false, true));
  ASSERT_TRUE(ReadAmsFile(folder.File("3.ams"), again));

  SpecimenRecord expected = RanRecord(), turned = ams[1];
  expected.Field = 400;
  expected.FreqIndex = 3;
  expected.FreqName = "3F";
  expected.Frequency = 15616;
  expected.Strat = "Mioc";
  expected.OP = {6, 0, 6, 0};
  expected.FoliName = {"S", "S", "", ""};
  expected.LineName = {"", "1", "", ""};  // of the pairs "S0" and "S1"
  expected.FoliAz = original.FoliAz;
  expected.FoliDip = original.FoliDip;
  expected.LineTrend = original.LineTrend;
  expected.LinePlunge = original.LinePlunge;
  expected.Km = again[1].Km;
  EXPECT_NEAR(expected.Km, original.Km, 1e-10);
  ASSERT_TRUE(RotateRecord(turned, View()));
  for (int i = 1; i <= 6; ++i) expected.Tensor[i] = turned.TensorRot[i].Single();
  // An AMS file has 32-bit zeros where a RAN file has nothing at all.
  EXPECT_EQ(again[1], golden::Decoded(golden::Encoded(expected)));
}

}  // namespace
}  // namespace velorix
