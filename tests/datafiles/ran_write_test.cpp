#include <gtest/gtest.h>

#include <limits>

#include "datafiles/ams_file.h"
#include "tensor/derivation.h"
#include "tests/datafiles/ran_bytes.h"

namespace velorix {
namespace {

TEST(WriteRanFile, EveryFieldHasItsPlace) {
  SpecimenRecord r = golden::RanRecord();
  std::swap(r.Lon, r.Lat);
  r.Km = 150e-6;
  r.Rock = "dolerite";
  r.Strat = "Mio";
  r.FoliAz[1] = 293.5f;  // halves to the even number
  r.FoliDip[1] = 25.4f;
  EXPECT_EQ(Written({r}), Header + OneSpecimen);
}

TEST(WriteRanFile, NumbersInTextsStandLeftAndAreCutAtTheirWidth) {
  SpecimenRecord r = golden::RanRecord();
  r.Lon = 0.0f;
  r.Lat = -123.456f;
  r.OP = {1000, -90, 6, 90};
  EXPECT_EQ(Written({r}).substr(18, 14), "0      -123.45");
  EXPECT_EQ(Written({r}).substr(48, 12), "100-906  90 ");
}

TEST(WriteRanFile, WithoutAnOrientationTheTensorStandsInTheSpecimenSystem) {
  SpecimenRecord r = golden::RanRecord();
  r.HasCoor = {true, false, false, false};
  r.SourceProgram = "";  // a tensor that an orientation would turn
  r.OrientAz = 30;
  r.Km = -150e-6;  // its sign is lost
  Bytes expected = golden::RanSpecimen();
  std::fill(expected.begin() + 44, expected.end(), std::byte{0});
  golden::PutText(expected, 44, "SS");
  EXPECT_EQ(Written({r}).substr(64), golden::TextOf(expected));
}

TEST(WriteRanFile, WithAnOrientationTheTensorIsTurnedUnlessItWasBefore) {
  SpecimenRecord r = golden::Record();
  r.OP = {6, 0, 6, 0};
  r.OrientInc = 30;
  for (const char* program : {"EXAMPLES", "Marlo"}) {
    r.SourceProgram = program;
    SpecimenRecord turned = r;
    ASSERT_TRUE(RotateRecord(turned, View()));
    const SpecimenRecord read = WrittenAndRead(r);
    for (int i = 1; i <= 6; ++i) EXPECT_EQ(read.Tensor[i], turned.TensorRot[i].Single()) << i;
    EXPECT_EQ(read.Tensor == r.Tensor, r.SourceProgram == "Marlo");
  }
}

TEST(WriteRanFile, CodesOfTwoCharactersLeaveNoPlaceForTheLineation) {
  const struct {
    const char *Foli, *Line, *OnDisk;
  } cases[] = {{"F", "L", "FL"},   {"", "L", "0L"},  {"F", "", "F0"},  {"", "", "00"},
               {"S0", "L1", "S0"}, {"", "L1", "0L"}, {"S", "S", "SS"}, {"Ø", "é", "\xD8\xE9"}};
  for (const auto& c : cases) {
    SpecimenRecord r = golden::RanRecord();
    r.FoliName[1] = c.Foli;
    r.LineName[1] = c.Line;
    EXPECT_EQ(Written({r}).substr(64 + 44, 2), c.OnDisk);
  }
}

TEST(WriteRanFile, TheFirstRecordsSiteWinsAndTheHeaderCountsOn) {
  const TempFolder folder;
  const std::string path = folder.File("ü.ran");
  RecordArray records;
  for (const char* name : {"a", "b", "c"}) {
    SpecimenRecord r = golden::RanRecord();
    r.Name = r.Site = r.Rock = name;
    r.Selected = r.Name != "a";
    r.Active = false;  // plays no part
    records.Add(r);
  }
  const auto expect = [&](const char* site, const std::string& names, int headerCount) {
    const std::string bytes = BytesOf(path);
    EXPECT_EQ(bytes.substr(2, 16), site + std::string(15, ' '));
    EXPECT_EQ(bytes.size(), 64 * (names.size() + 1));
    for (std::size_t i = 0; i < names.size(); ++i)
      EXPECT_EQ(bytes.substr(64 * (i + 1), 2), (std::string{names[i], ' '}));
    EXPECT_EQ(bytes[0] + 256 * bytes[1], headerCount);
  };
  ASSERT_TRUE(WriteRanFile(path, records, false, false));
  expect("b", "bc", 4);
  ASSERT_TRUE(WriteRanFile(path, records, true, true));
  expect("b", "bcabc", 7);
  ASSERT_TRUE(WriteRanRecord(path, records[1]));
  expect("b", "bcabca", 8);
  ASSERT_TRUE(WriteRanFile(path, records, false, true));
  expect("a", "abc", 5);
  PutFile(path, Header);  // a header without specimens gives way
  ASSERT_TRUE(WriteRanRecord(path, records[3]));
  expect("c", "c", 3);
  EXPECT_EQ(folder.FileCount(), 1);
}

TEST(WriteRanFile, ABrokenTailIsFilledUpOrOverwrittenAsItsLengthRounds) {
  const TempFolder folder;
  const std::string path = folder.File("x.ran"), two = Header + OneSpecimen;
  const std::string added = Written({golden::RanRecord()}).substr(64);
  for (const std::size_t tail : {1u, 31u, 32u, 33u, 63u}) {
    PutFile(path, two + std::string(tail, 'x'));
    ASSERT_TRUE(WriteRanRecord(path, golden::RanRecord()));
    std::string kept = two;
    if (tail > 32) kept += std::string(tail, 'x') + std::string(64 - tail, '\0');
    EXPECT_EQ(BytesOf(path).substr(2), (kept + added).substr(2)) << tail;
  }
  for (const std::size_t length : {0u, 20u, 32u, 50u, 90u}) {  // no whole specimen: begun anew
    PutFile(path, std::string(length, 'x'));
    ASSERT_TRUE(WriteRanRecord(path, golden::RanRecord()));
    EXPECT_EQ(BytesOf(path), Written({golden::RanRecord()})) << length;
  }
}

TEST(WriteRanFile, NamesAreCutAtTwelveCharactersAndTheSuffixFirst) {
  SpecimenRecord r = golden::RanRecord();
  const struct {
    const char *Name, *Suffix, *OnDisk;
  } cases[] = {{"A1", "-re", "A1-re       "},
               {"ABCDEFGHIJK", "-re", "ABCDEFGHIJK-"},
               {"ABCDEFGHIJKLM", "-re", "ABCDEFGHIJKL"},
               {"žluťoučký-12-3", "", "\x9Elu?ou?k\xFD-12"}};
  for (const auto& c : cases) {
    r.Name = c.Name;
    EXPECT_EQ(Written({r}, c.Suffix).substr(64, 12), c.OnDisk);
  }
}

TEST(WriteRanFile, EveryByteOfANameComesBack) {
  for (int code = 33; code < 256; ++code) {
    Bytes specimen = golden::RanSpecimen();
    golden::PutText(specimen, 0,
                    std::string{static_cast<char>(code), 'x', static_cast<char>(code)});
    EXPECT_EQ(Written({Only(specimen)}).substr(64, 12), golden::TextOf(specimen).substr(0, 12));
  }
}

TEST(WriteRanFile, ARecordThatDoesNotFitLeavesTheOldFile) {
  const TempFolder folder;
  const std::string path = folder.File("x.ran");
  std::vector<SpecimenRecord> bad(5, golden::RanRecord());
  bad[0].FoliAz[1] = 32768;
  bad[1].LinePlunge[2] = std::numeric_limits<float>::quiet_NaN();
  bad[2].Km = 1e33;
  bad[3].SourceProgram = "";
  bad[3].OP[1] = 32767;
  bad[4].Tensor[1] = 1e39;
  for (const SpecimenRecord& r : bad)
    for (const bool append : {false, true}) {
      RecordArray records;
      records.Add(golden::RanRecord());
      records.Add(r);
      PutFile(path, Header + OneSpecimen);
      EXPECT_EQ(FaultOf([&] { (void)WriteRanFile(path, records, append, true); }), 6);
      EXPECT_EQ(BytesOf(path), Header + OneSpecimen);
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
  EXPECT_EQ(FaultOf([&] { (void)WriteRanRecord(path, records[1]); }), 6);
  EXPECT_TRUE(BytesOf(path) == bytes);
  records.Grow(1);
  EXPECT_EQ(FaultOf([&] { (void)WriteRanFile(path, records, false, true); }), 6);
  EXPECT_TRUE(BytesOf(path) == bytes);
}

TEST(WriteRanFile, WithNothingToWriteAnOldFileGoesAllTheSame) {
  const TempFolder folder;
  const std::string path = folder.File("x.ran");
  RecordArray unselected;
  unselected.Grow(1);
  for (const bool append : {true, false}) {
    PutFile(path, "old");
    EXPECT_TRUE(WriteRanFile(path, unselected, append, false));
    EXPECT_EQ(folder.FileCount(), append ? 1 : 0);
  }
  EXPECT_FALSE(WriteRanFile(path, RecordArray(), false, true));
}

// A file read and written once keeps tensors, names, codes and angles; coordinates change places,
// B becomes the mean susceptibility, and A is what the inferred field says.
TEST(RanRoundTrip, RanToRanExchangesTheCoordinatesAndKeepsTheRest) {
  const SpecimenRecord once = Only(golden::RanSpecimen());
  SpecimenRecord expected = once;
  std::swap(expected.Lon, expected.Lat);
  const SpecimenRecord again = WrittenAndRead(once);
  expected.Km = again.Km;  // scaled by the tensor's mean, which is 2 here
  EXPECT_EQ(again, expected);
  EXPECT_NEAR(again.Km, 2 * once.Km, 1e-10);
}

TEST(RanRoundTrip, ATensorOfMeanOneKeepsItsSusceptibility) {
  SpecimenRecord r = golden::RanRecord();
  const float k[] = {1.0625f, 1, 0.9375f, 0.01f, 0.02f, -0.03f};
  for (int i = 1; i <= 6; ++i) r.Tensor[i] = k[i - 1];
  r.Km = 1.5e-4;
  const std::string first = Written({r});
  SpecimenRecord again = WrittenAndRead(r);
  EXPECT_FLOAT_EQ(static_cast<float>(again.Km), 1.5e-4f);
  std::swap(again.Lon, again.Lat);
  EXPECT_EQ(Written({again}), first);
}

TEST(RanRoundTrip, TheFieldDriftsWithTheInstrumentThatItIsTakenFor) {
  SpecimenRecord r = golden::RanRecord();
  r.FreqIndex = 0;
  r.Field = 300;
  r.Km = 120e-6;
  for (const float field : {423.0f, 596.0f, 840.0f, 1184.0f}) {
    r = WrittenAndRead(r);
    r.Km = 120e-6;
    EXPECT_EQ(r.Instrument, "TQB-4");
    EXPECT_EQ(r.Field, field);
  }
  EXPECT_EQ(WrittenAndRead(r).Instrument, "NVR1");  // 1184 is taken for frequency 1, field 184
  EXPECT_EQ(WrittenAndRead(r).Field, 184);
}

TEST(RanRoundTrip, AmsToRanToAmsKeepsTheTurnedTensorAndTheFirstCharactersOfTexts) {
  SpecimenRecord original = golden::Record();
  original.SourceProgram = "EXAMPLES";
  original.OP = {6, 0, 6, 90};
  const float k[] = {1.1f, 1, 0.9f, 0.01f, 0.02f, -0.03f};
  for (int i = 1; i <= 6; ++i) original.Tensor[i] = k[i - 1];
  original.Km = 2e-4f;
  const TempFolder folder;
  RecordArray ams, ran, again;
  ASSERT_TRUE(WriteAmsRecord(folder.File("1.ams"), original));
  ASSERT_TRUE(ReadAmsFile(folder.File("1.ams"), ams));
  ASSERT_TRUE(WriteRanFile(folder.File("2.ran"), ams, false, true));
  ASSERT_TRUE(ReadRanFile(folder.File("2.ran"), ran, {}));
  ASSERT_TRUE(WriteAmsFile(folder.File("3.ams"), ran, false, true));
  ASSERT_TRUE(ReadAmsFile(folder.File("3.ams"), again));

  SpecimenRecord expected;  // all that is left of it, everything else being empty
  expected.Name = original.Name;
  expected.Active = true;
  expected.Field = 400;
  expected.FreqIndex = 3;
  expected.FreqName = "3F";
  expected.Frequency = 15616;
  expected.Instrument = "NVR1";
  expected.SourceProgram = "Marlo";
  expected.Site = original.Site;
  expected.Lon = original.Lat;
  expected.Lat = original.Lon;
  expected.Rock = "dole";
  expected.Strat = "Mioc";
  expected.Litho = "dike";
  expected.Regio = "Cali";
  expected.OP = {6, 0, 6, 0};
  expected.HasCoor = {false, true, true, true};
  expected.FoliName = {"S", "S", "", ""};
  expected.LineName = {"", "1", "", ""};  // of the pairs "S0" and "S1"
  expected.FoliAz = original.FoliAz;
  expected.FoliDip = original.FoliDip;
  expected.LineTrend = original.LineTrend;
  expected.LinePlunge = original.LinePlunge;
  expected.Km = again[1].Km;
  EXPECT_NEAR(expected.Km, original.Km, 1e-10);
  SpecimenRecord turned = ams[1];
  ASSERT_TRUE(RotateRecord(turned, View()));
  for (int i = 1; i <= 6; ++i) expected.Tensor[i] = turned.TensorRot[i].Single();
  // An AMS file has 32-bit zeros where a RAN file has nothing at all.
  for (int i = 1; i <= 3; ++i) {
    expected.K[i] = expected.KSD[i] = expected.KIm[i] = expected.KSDIm[i] = 0.0f;
    for (int j = 1; j <= 3; ++j) expected.Vec[i][j] = expected.VecIm[i][j] = 0.0f;
    expected.E[i] = expected.E2[i] = expected.E3[i] = 0.0f;
    expected.EIm[i] = expected.E2Im[i] = expected.E3Im[i] = 0.0f;
  }
  for (int i = 0; i <= 3; ++i) expected.FTest[i] = expected.FTestIm[i] = 0.0f;
  for (int i = 1; i <= 6; ++i) expected.TensorIm[i] = 0.0f;
  EXPECT_EQ(again[1], expected);
}

TEST(RanExamples, TheSameSiteHasTheSameGeographicTensorsFromBothFormats) {
  const struct {
    const char *Ams, *Other;
  } sites[] = {{"granite.ams", "granite.ran"}, {"tr245.ams", "tr245.are"}};
  for (const auto& site : sites) {
    const std::string folder = VELORIX_SOURCE_DIR "/examples/";
    RecordArray ams, other;
    ASSERT_TRUE(ReadAmsFile(folder + site.Ams, ams));
    ASSERT_TRUE(ReadRanFile(folder + site.Other, other, {}));
    ASSERT_EQ(ams.Count(), other.Count());
    for (int i = 1; i <= ams.Count(); ++i) {
      EXPECT_EQ(ams[i].HasCoor[2], other[i].HasCoor[2]) << i;  // not so for a loose block
      View view;
      view.CoorSys = ams[i].HasCoor[2] ? Geographic : Specimen;
      ASSERT_TRUE(RotateRecord(ams[i], view) && RotateRecord(other[i], view));
      EXPECT_EQ(ams[i].CoorLevel, other[i].CoorLevel) << i;
      for (int j = 1; j <= 3; ++j) {
        EXPECT_NEAR(ams[i].Dec[j], other[i].Dec[j], 1e-3) << site.Other << i;
        EXPECT_NEAR(ams[i].Inc[j], other[i].Inc[j], 1e-3) << site.Other << i;
      }
      EXPECT_NEAR(ams[i].Km / other[i].Km, 1, 1e-6) << i;
    }
  }
}

}  // namespace
}  // namespace velorix
