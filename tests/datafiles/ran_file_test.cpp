#include "datafiles/formats/ran_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>

#include "tests/datafiles/fault_of.h"
#include "tests/datafiles/golden_record.h"
#include "tests/datafiles/temp_folder.h"
#include "text/numbers.h"

namespace velorix {
namespace {

// A header and a specimen laid out by hand from the description of the format, not from the
// program's own tables.

std::string Header() {
  using namespace std::string_literals;
  return "\3\0Scripps Beach   -117.2532.875 doleMio dikeCali12 90 3  0  \0\0\0\0"s;
}

std::string OneSpecimen() {
  std::string bytes(64, '\0');
  golden::PutText(bytes, 0, "DK-01a      ");
  golden::PutFloat(bytes, 12, 2700);
  golden::PutFloat(bytes, 16, 150);
  golden::PutFloats(bytes, 20, 1, 6);  // k11, k22, k33, k12, k23, k13: 1 to 6
  golden::PutText(bytes, 44, "SL");
  golden::PutText(bytes, 54, "T0");
  const int angles[] = {294, 25, -5, 7, 0, 11, 12, 13, 14};  // 0 in the place of the second codes
  for (std::size_t i = 0; i < 9; ++i)
    if (i != 4) golden::PutShort(bytes, 46 + 2 * i, angles[i]);
  return bytes;
}

/// What the two say together: the site's coordinates come back exchanged.
SpecimenRecord RanRecord() {
  SpecimenRecord r;
  // clang-format off
  r.Name = "DK-01a";                  r.Active = true;
  r.Field = 700;                      r.FreqIndex = 2;
  r.FreqName = "2F";                  r.Frequency = 3904;
  r.Instrument = "NVR1";              r.SourceProgram = "Marlo";
  r.Site = "Scripps Beach";           r.Lon = 32.875f;     r.Lat = -117.25f;
  r.Rock = "dole";  r.Strat = "Mio";  r.Litho = "dike";    r.Regio = "Cali";
  r.OP = {12, 90, 3, 0};              r.HasCoor = {false, true, true, true};
  r.FoliName = {"S", "T", "", ""};    r.LineName = {"L", "", "", ""};
  r.FoliAz = {294, 11, 0, 0};         r.FoliDip = {25, 12, 0, 0};
  r.LineTrend = {-5, 13, 0, 0};       r.LinePlunge = {7, 14, 0, 0};
  // clang-format on
  r.Km = 300e-6;  // a mean of 2 times 150
  golden::Count(r.Tensor, 1, 6);
  for (int i = 1; i <= 3; ++i) r.E[i] = r.E2[i] = r.E3[i] = 0.0f;
  for (int i = 0; i <= 3; ++i) r.FTest[i] = 0.0f;
  return r;
}

Outcome Read(const std::string& bytes, RecordArray& records, const std::string& path = "x.ran",
             const Settings& settings = {}) {
  return ReadRanBytes(std::as_bytes(std::span(bytes)), path, records, settings);
}

/// The only specimen of a file under a header.
SpecimenRecord Only(const std::string& specimen, const std::string& header = Header(),
                    const std::string& path = "x.ran", const Settings& settings = {}) {
  RecordArray records;
  EXPECT_TRUE(Read(header + specimen, records, path, settings));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

/// The bytes that a file gets for a record.
std::string Written(const SpecimenRecord& record, const std::string& suffix = "") {
  const TempFolder folder;
  EXPECT_TRUE(WriteRanRecord(folder.File("x.ran"), record, suffix));
  return BytesOf(folder.File("x.ran"));
}

TEST(ReadRanFile, EveryFieldHasItsPlace) { EXPECT_EQ(Only(OneSpecimen()), RanRecord()); }

TEST(ReadRanFile, AAndBTellInstrumentFieldFrequencyAndTheMeanSusceptibility) {
  constexpr float Inf = std::numeric_limits<float>::infinity();
  const std::tuple<const char*, float, float, const char*> cases[] = {
      // clang-format off
      {"x.ran",   425,     425.5f, "TQB-3 423 F0 0 875"},
      {"x.ran",   425,    -424.6f, "TQB-3 423 F0 0 875"},
      {"x.ran",   2700,    2700,   "TQB-3 423 F0 0 875"},
      {"x.ran",   300,     120,    "TQB-4 423 F0 0 875"},
      {"x.ran",   50,      120,    "TQB-4 70 F0 0 875"},  // 70.5
      {"x.ran",  -2700,    120,    "TQB-4 -3807 F0 0 875"},
      {"x.ran",   1000,    12,     "NVR1 0 1F 1 976"},
      {"x.ran",   3600,    12,     "NVR1 600 3F 3 15616"},
      {"x.ran",   4600,    12,     "NVR1 600 4F 4 0"},
      {"x.ran",   12700,   12,     "NVR1 700 1F 1 976"},
      {"x.ran",   2700.5f, 12,     "NVR1 0.5 2F 2 3904"},
      {"x.ran",   Inf,     12,     "NVR1 0 0F 0 0"},
      {"x.are",   2700,    2700,   "PW-6 2700 N/A 0 0"},
      {"x.are",   40.5f,   12,     "PW-6 40 N/A 0 0"},
      {"x.ARE",   2700,    12,     "NVR1 700 2F 2 3904"},
      {"a.are/x", 2700,    12,     "NVR1 700 2F 2 3904"},
      // clang-format on
  };
  std::string bytes = OneSpecimen();
  const float k[] = {1.1f, 1.01f, 0.9f};
  for (std::size_t i = 0; i < 3; ++i) golden::PutFloat(bytes, 20 + 4 * i, k[i]);
  for (const auto& [path, a, b, expected] : cases) {
    golden::PutFloat(bytes, 12, a);
    golden::PutFloat(bytes, 16, b);
    const SpecimenRecord r = Only(bytes, Header(), path);
    EXPECT_EQ(r.Instrument + " " + PlainText(r.Field) + " " + r.FreqName + " " +
                  PlainText(r.FreqIndex) + " " + PlainText(r.Frequency),
              expected);
    EXPECT_EQ(r.Km, (double{k[0]} + k[1] + k[2]) * b / 3 / 1000000);
  }
  golden::PutFloat(bytes, 12, std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(Only(bytes).Instrument, "TQB-4");
  EXPECT_TRUE(std::isnan(Only(bytes).Field));
  golden::PutFloat(bytes, 12, -3e38f);  // its field, 1.41 times that, doesn't fit
  RecordArray records;
  EXPECT_EQ(FaultOf([&] { (void)Read(Header() + OneSpecimen() + bytes, records); }), "Overflow");
  EXPECT_TRUE(records.Empty());
}

TEST(ReadRanFile, CodePairsOpenTheSystems) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*, const char*,
                   bool, bool>
      cases[] = {
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
  for (const auto& [first, second, foli1, line1, foli2, line2, specimen, upper] : cases) {
    std::string bytes = OneSpecimen();
    golden::PutText(bytes, 44, first);
    golden::PutText(bytes, 54, second);
    SpecimenRecord expected = RanRecord();
    expected.FoliName = {foli1, foli2, "", ""};
    expected.LineName = {line1, line2, "", ""};
    expected.HasCoor = {specimen, !specimen, upper, upper};
    if (specimen) {
      expected.FoliAz = expected.FoliDip = expected.LineTrend = expected.LinePlunge = {};
      expected.E = expected.E2 = expected.E3 = {};
      expected.FTest = {};
    }
    EXPECT_EQ(Only(bytes), expected) << first;
  }
}

TEST(ReadRanFile, CoordinatesAreNumbersOrATypeMismatch) {
  const std::tuple<const char*, const char*, const char*, float, float> cases[] = {
      // clang-format off
      {"15.2   ", "49.4   ", "", 49.4f, 15.2f},       {"       ", "49.4   ", "", 49.4f, 0},
      {" 15.2  ", "+4.94E1", "", 49.4f, 15.2f},       {"15.2   ", "1E-999 ", "", 0,     15.2f},
      {"15.2   ", " 49.4  ", "", 0,     0},  // a blank in the first place: not looked at
      {"east   ", "       ", "", 0,     0},
      {"east   ", "49.4   ", "Type mismatch", 0, 0},  {"15.2   ", "49.4 N ", "Type mismatch", 0, 0},
      {"15.2   ", "49,4   ", "Type mismatch", 0, 0},  {"15.2   ", "1E     ", "Type mismatch", 0, 0},
      {"15.2   ", "-      ", "Type mismatch", 0, 0},  {"15.2   ", "--5    ", "Type mismatch", 0, 0},
      {"15.2   ", "nan    ", "Type mismatch", 0, 0},  {"15.2   ", "-inf   ", "Type mismatch", 0, 0},
      {"15.2   ", "1E39   ", "Overflow", 0, 0},       {"15.2   ", "-1E999 ", "Overflow", 0, 0},
      // clang-format on
  };
  for (const auto& [first, second, fault, lon, lat] : cases) {
    const std::string header = Header().replace(18, 7, first).replace(25, 7, second);
    RecordArray records;
    EXPECT_EQ(FaultOf([&] { (void)Read(header + OneSpecimen(), records); }), fault) << second;
    for (const SpecimenRecord& r : records) EXPECT_TRUE(r.Lon == lon && r.Lat == lat) << first;
  }
}

TEST(ReadRanFile, OrientationParametersOfZeroComeFromTheSettingsAndTheFourthIsZero) {
  Settings settings;
  settings.P = {9, 90, 12, 90};
  const std::string header = Header().replace(48, 12, "0  abc6.590 ");
  EXPECT_EQ(Only(OneSpecimen(), header, "x.ran", settings).OP,
            (Array1<std::int16_t, 4>{9, 90, 6, 0}));
  RecordArray records;
  const std::string bad = Header().replace(48, 3, "9E9") + OneSpecimen();
  EXPECT_EQ(FaultOf([&] { (void)Read(bad, records); }), "Overflow");
}

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

TEST(WriteRanFile, WithoutAnOrientationTheTensorStandsInTheSpecimenSystem) {
  SpecimenRecord r = RanRecord();
  r.HasCoor = {true, false, false, false};
  r.SourceProgram = "";  // a tensor that an orientation would turn
  r.OrientAz = 30;
  r.Km = -150e-6;  // its sign is lost
  EXPECT_EQ(Written(r).substr(64), OneSpecimen().replace(44, 20, "SS" + std::string(18, '\0')));
}

TEST(WriteRanFile, CodesOfTwoCharactersLeaveNoPlaceForTheLineation) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"F", "L", "FL"},   {"", "L", "0L"},  {"F", "", "F0"},  {"", "", "00"},
      {"S0", "L1", "S0"}, {"", "L1", "0L"}, {"S", "S", "SS"}, {"Ø", "é", "\xD8\xE9"}};
  for (const auto& [foli, line, onDisk] : cases) {
    SpecimenRecord r = RanRecord();
    r.FoliName[1] = foli;
    r.LineName[1] = line;
    EXPECT_EQ(Written(r).substr(64 + 44, 2), onDisk);
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
  for (const std::size_t length : {0u, 20u, 32u, 64u, 90u}) {  // no whole specimen: begun again
    PutFile(path, std::string(length, 'x'));
    ASSERT_TRUE(WriteRanRecord(path, RanRecord()));
    EXPECT_EQ(BytesOf(path), alone) << length;
  }
}

}  // namespace
}  // namespace velorix
