#include "datafiles/ran_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <span>

#include "base/fault.h"
#include "datafiles/ams_file.h"
#include "examples/ran_sites.h"
#include "tensor/derivation.h"
#include "tests/datafiles/golden_ran.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

using golden::Bytes;

const std::string Header = golden::TextOf(golden::RanHeader());
const std::string OneSpecimen = golden::TextOf(golden::RanSpecimen());

Outcome Read(const std::string& bytes, RecordArray& records, const std::string& path = "x.ran",
             const Settings& settings = {}) {
  return ReadRanBytes(std::as_bytes(std::span(bytes)), path, records, settings);
}

/// The only specimen of a file under a header.
SpecimenRecord Only(const Bytes& specimen, const Bytes& header = golden::RanHeader(),
                    const std::string& path = "x.ran", const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(Read(golden::TextOf(header) + golden::TextOf(specimen), records, path, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

/// The bytes that a file gets for some records.
std::string Written(const std::vector<SpecimenRecord>& list, const std::string& suffix = "") {
  RecordArray records;
  for (const SpecimenRecord& r : list) records.Add(r);
  const TempFolder folder;
  EXPECT_TRUE(WriteRanFile(folder.File("x.ran"), records, false, true, suffix));
  return BytesOf(folder.File("x.ran"));
}

SpecimenRecord WrittenAndRead(const SpecimenRecord& record) {
  RecordArray records;
  EXPECT_TRUE(Read(Written({record}), records));
  return records[1];
}

/// The number of the fault in which something ends, 0 without one.
int FaultOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const Fault& fault) {
    return fault.Number;
  }
  return 0;
}

TEST(ReadRanFile, EveryFieldHasItsPlace) {
  const SpecimenRecord read = Only(golden::RanSpecimen());
  EXPECT_EQ(read, golden::RanRecord());
}

TEST(ReadRanFile, EveryLengthReadsAsItsRoundedNumberOfSpecimens) {
  const std::string whole = Header + OneSpecimen + OneSpecimen;
  const TempFolder folder;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    PutFile(folder.File("x.ran"), whole.substr(0, length));
    RecordArray records;
    const Outcome outcome = ReadRanFile(folder.File("x.ran"), records, {});
    // Halves go to the even number: 96 bytes are none, 160 are two.
    const int expected = length <= 96 ? 0 : length < 160 ? 1 : 2;
    ASSERT_EQ(records.Count(), expected) << length;
    ASSERT_EQ(outcome.Done, expected > 0) << length;
    ASSERT_EQ(outcome.Text.empty(), length > 0) << length;
    if (length >= 128) {
      ASSERT_EQ(records[1], golden::RanRecord()) << length;
    }
  }
}

TEST(ReadRanFile, AnEmptyFileIsNamedInUpperCase) {
  RecordArray records;
  const Outcome outcome = Read("", records, "/data/größe.ran");
  EXPECT_EQ(outcome.Title, "Input error!");
  EXPECT_EQ(outcome.Text, "File <</DATA/GRÖßE.RAN>> is empty!");
}

TEST(ReadRanFile, InstrumentFieldAndFrequencyAreToldByAAndB) {
  constexpr float Nan = std::numeric_limits<float>::quiet_NaN();
  constexpr float Inf = std::numeric_limits<float>::infinity();
  const struct {
    const char* Path;
    float A, B;
    const char* Instrument;
    float Field;
    int FreqIndex;
    const char* FreqName;
    float Frequency;
  } cases[] = {
      // clang-format off
      {"x.ran",   425,     425.4f, "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   425,     425.5f, "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   425,    -424.6f, "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   2700,    2700,   "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   300,     120,    "TQB-4", 423,   0, "F0",  875},
      {"x.ran",   50,      120,    "TQB-4", 70,    0, "F0",  875},  // 70.5
      {"x.ran",  -2700,    120,    "TQB-4", -3807, 0, "F0",  875},
      {"x.ran",   1000,    12,     "NVR1",  0,     1, "1F",  976},
      {"x.ran",   2700,    12,     "NVR1",  700,   2, "2F",  3904},
      {"x.ran",   3600,    12,     "NVR1",  600,   3, "3F",  15616},
      {"x.ran",   4600,    12,     "NVR1",  600,   4, "4F",  0},
      {"x.ran",   12700,   12,     "NVR1",  700,   1, "1F",  976},
      {"x.ran",   2700.5f, 12,     "NVR1",  0.5f,  2, "2F",  3904},
      {"x.ran",   Inf,     12,     "NVR1",  0,     0, "0F",  0},
      {"x.are",   2700,    2700,   "PW-6",  2700,  0, "N/A", 0},
      {"x.are",   40.5f,   12,     "PW-6",  40,    0, "N/A", 0},
      {"x.ARE",   2700,    12,     "NVR1",  700,   2, "2F",  3904},
      {"a.are/x", 2700,    12,     "NVR1",  700,   2, "2F",  3904},
      // clang-format on
  };
  for (const auto& c : cases) {
    Bytes bytes = golden::RanSpecimen();
    golden::PutFloat(bytes, 12, c.A);
    golden::PutFloat(bytes, 16, c.B);
    const SpecimenRecord r = Only(bytes, golden::RanHeader(), c.Path);
    EXPECT_EQ(r.Instrument, c.Instrument) << c.Path << c.A;
    EXPECT_EQ(r.Field, c.Field) << c.Path << c.A;
    EXPECT_EQ(r.FreqIndex, c.FreqIndex) << c.Path << c.A;
    EXPECT_EQ(r.FreqName, c.FreqName) << c.Path << c.A;
    EXPECT_EQ(r.Frequency, c.Frequency) << c.Path << c.A;
  }
  Bytes bytes = golden::RanSpecimen();
  golden::PutFloat(bytes, 12, Nan);
  EXPECT_EQ(Only(bytes).Instrument, "TQB-4");
  EXPECT_TRUE(std::isnan(Only(bytes).Field));
}

TEST(ReadRanFile, MeanSusceptibilityIsTheScaledMeanOfTheDiagonal) {
  Bytes bytes = golden::RanSpecimen();
  const float k[] = {1.1f, 1.01f, 0.9f};
  for (int i = 0; i < 3; ++i) golden::PutFloat(bytes, 20 + 4 * i, k[i]);
  golden::PutFloat(bytes, 16, -321.5f);
  EXPECT_EQ(Only(bytes).Km, (double{k[0]} + k[1] + k[2]) * -321.5 / 3 / 1000000);
}

TEST(ReadRanFile, CodePairsOpenTheSystems) {
  const struct {
    const char *First, *Second;
    const char *Foli1, *Line1, *Foli2, *Line2;
    bool Specimen, Upper;
  } cases[] = {
      // clang-format off
      {"SS", "AB", "",  "",  "",  "",  true,  false},
      {"1 ", "00", "1", "",  "",  "",  false, true},
      {"0L", "0M", "",  "L", "",  "M", false, false},  // lineations alone open nothing
      {"00", "F0", "",  "",  "F", "",  false, true},
      {"  ", "  ", "",  "",  "",  "",  false, false},
      {"ab", "\xF8/", "A", "B", "Ø", "", false, true},
      {"ss", "SS", "S", "S", "S", "S", false, true},
      // clang-format on
  };
  for (const auto& c : cases) {
    Bytes bytes = golden::RanSpecimen();
    golden::PutText(bytes, 44, c.First);
    golden::PutText(bytes, 54, c.Second);
    const SpecimenRecord r = Only(bytes);
    EXPECT_EQ(r.FoliName, (Array1<std::string, 4>{c.Foli1, c.Foli2, "", ""})) << c.First;
    EXPECT_EQ(r.LineName, (Array1<std::string, 4>{c.Line1, c.Line2, "", ""})) << c.First;
    EXPECT_EQ(r.HasCoor, (Array1<bool, 4>{c.Specimen, !c.Specimen, c.Upper, c.Upper})) << c.First;
    EXPECT_EQ(r.FoliAz[1], c.Specimen ? 0 : 294) << c.First;
    EXPECT_EQ(r.LinePlunge[2], c.Specimen ? 0 : 14) << c.First;
  }
}

TEST(ReadRanFile, CoordinatesAreNumbersOrATypeMismatch) {
  constexpr int Type = 13, Overflow = 6;
  const struct {
    const char *First, *Second;
    float Lon, Lat;
    int Fault;
  } cases[] = {
      // clang-format off
      {"15.2   ", "49.4   ", 49.4f, 15.2f, 0},
      {"       ", "49.4   ", 49.4f, 0,     0},
      {" 15.2  ", "+4.94E1", 49.4f, 15.2f, 0},
      {"15.2   ", " 49.4  ", 0,     0,     0},  // a blank in the first place: not looked at
      {"east   ", "       ", 0,     0,     0},
      {"east   ", "49.4   ", 0,     0,     Type},
      {"15.2   ", "49.4 N ", 0,     0,     Type},
      {"15.2   ", "49,4   ", 0,     0,     Type},
      {"15.2   ", "1E     ", 0,     0,     Type},
      {"15.2   ", "-      ", 0,     0,     Type},
      {"15.2   ", "--5    ", 0,     0,     Type},
      {"15.2   ", "nan    ", 0,     0,     Type},
      {"15.2   ", "-inf   ", 0,     0,     Type},
      {"15.2   ", "1E39   ", 0,     0,     Overflow},
      {"15.2   ", "-1E999 ", 0,     0,     Overflow},
      {"15.2   ", "1E-999 ", 0,     15.2f, 0},
      // clang-format on
  };
  for (const auto& c : cases) {
    Bytes header = golden::RanHeader();
    golden::PutText(header, 18, c.First);
    golden::PutText(header, 25, c.Second);
    RecordArray records;
    records.Add(SpecimenRecord());
    const int fault =
        FaultOf([&] { (void)Read(golden::TextOf(header) + OneSpecimen, records, "x.ran"); });
    EXPECT_EQ(fault, c.Fault) << c.First << c.Second;
    ASSERT_EQ(records.Count(), fault == 0 ? 2 : 1) << c.First << c.Second;
    if (fault != 0) continue;
    EXPECT_EQ(records[2].Lon, c.Lon) << c.First << c.Second;
    EXPECT_EQ(records[2].Lat, c.Lat) << c.First << c.Second;
  }
}

TEST(ReadRanFile, OrientationParametersOfZeroComeFromTheSettingsAndTheFourthIsZero) {
  Settings settings;
  settings.P = {9, 90, 12, 90};
  Bytes header = golden::RanHeader();
  golden::PutText(header, 48, "0  abc6.590 ");
  EXPECT_EQ(Only(golden::RanSpecimen(), header, "x.ran", settings).OP,
            (Array1<std::int16_t, 4>{9, 90, 6, 0}));
  golden::PutText(header, 48, "9E9");
  RecordArray records;
  EXPECT_EQ(FaultOf([&] { (void)Read(golden::TextOf(header) + OneSpecimen, records); }), 6);
}

TEST(ReadRanFile, TextsAreStrippedAndTheSiteEndsAtAZero) {
  using namespace std::string_literals;
  Bytes header = golden::RanHeader(), specimen = golden::RanSpecimen();
  golden::PutText(header, 2,
                  "  Pr\xE1"
                  "m \0 rest   "s);
  golden::PutText(header, 32, " a b");
  golden::PutText(header, 36, "    ");
  golden::PutText(specimen, 0, "\t A\x01\x02-1 \0\0\0\0"s);
  const SpecimenRecord r = Only(specimen, header);
  EXPECT_EQ(r.Site, "Prám");
  EXPECT_EQ(r.Rock, "a b");
  EXPECT_EQ(r.Strat, "");
  EXPECT_EQ(r.Name, "A-1");
}

TEST(ReadRanFile, KeptMemoryGivesWhatFreshMemoryGives) {
  RecordArray used;
  used.Grow(2);
  for (SpecimenRecord& r : used) {
    r = golden::Record();
    r.Selected = true;
    r.FoliName[3] = "S3";
    r.TensorRot[1] = r.Dec[1] = r.PlotX[1] = 9.0;
  }
  used.Clear();
  ASSERT_TRUE(Read(Header + OneSpecimen + OneSpecimen, used));
  EXPECT_EQ(used[1], golden::RanRecord());
  EXPECT_EQ(used[2], golden::RanRecord());
}

TEST(ReadRanFile, AFailureLeavesTheArray) {
  const TempFolder folder;
  RecordArray records;
  records.Add(SpecimenRecord());
  PutFile(folder.File("long.ran"), std::string(40000 * 64, 'x'));
  PutFile(folder.File("full.ran"), Header + std::string(32767 * 64, '\0'));
  for (const char* name : {"long.ran", "full.ran"})  // in the second there is one too many
    EXPECT_EQ(FaultOf([&] { (void)ReadRanFile(folder.File(name), records, {}); }), 6);
  EXPECT_THROW((void)ReadRanFile(folder.File("missing.ran"), records, {}),
               std::filesystem::filesystem_error);
  EXPECT_THROW((void)ReadRanFile(Utf8Of(folder.Path), records, {}),
               std::filesystem::filesystem_error);
  EXPECT_EQ(records.Count(), 1);
  records.Clear();
  ASSERT_TRUE(ReadRanFile(folder.File("full.ran"), records, {}));
  EXPECT_EQ(records.Count(), 32767);
}

TEST(ReadRanFile, AnythingEndsInRecordsOrAnError) {
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes(random() % 400, '\0');
    for (char& c : bytes) c = static_cast<char>(round % 2 == 0 ? random() : 32 + random() % 95);
    RecordArray records;
    const int fault = FaultOf([&] { (void)Read(bytes, records); });
    EXPECT_EQ(records.Count(), fault != 0 ? 0 : RanSpecimenCount(bytes.size())) << round;
    EXPECT_TRUE(fault == 0 || fault == 6 || fault == 13) << fault;
  }
}

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

TEST(RanExamples, CommittedFilesAreWhatTheMakerWrites) {
  for (const examples::ExampleFile& file : examples::RanExampleFiles()) {
    const std::string committed = BytesOf(VELORIX_SOURCE_DIR "/examples/" + file.Name);
    EXPECT_TRUE(committed == examples::RanFileBytes(file)) << file.Name;
  }
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
