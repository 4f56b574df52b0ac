#include "datafiles/ran_file.h"

#include <cmath>
#include <limits>

#include "tests/datafiles/fault_of.h"
#include "tests/datafiles/ran_bytes.h"

namespace velorix {
namespace {

TEST(ReadRanFile, EveryFieldHasItsPlace) { EXPECT_EQ(Only(OneSpecimen()), RanRecord()); }

TEST(ReadRanFile, AAndBTellInstrumentFieldFrequencyAndTheMeanSusceptibility) {
  constexpr float Inf = std::numeric_limits<float>::infinity();
  const struct {
    const char* Path;
    float A, B;
    const char* Instrument;
    float Field;
    std::int16_t FreqIndex;
    const char* FreqName;
    float Frequency;
  } cases[] = {
      // clang-format off
      {"x.ran",   425,     425.5f, "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   425,    -424.6f, "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   2700,    2700,   "TQB-3", 423,   0, "F0",  875},
      {"x.ran",   300,     120,    "TQB-4", 423,   0, "F0",  875},
      {"x.ran",   50,      120,    "TQB-4", 70,    0, "F0",  875},  // 70.5
      {"x.ran",  -2700,    120,    "TQB-4", -3807, 0, "F0",  875},
      {"x.ran",   1000,    12,     "NVR1",  0,     1, "1F",  976},
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
  std::string bytes = OneSpecimen();
  const float k[] = {1.1f, 1.01f, 0.9f};
  for (std::size_t i = 0; i < 3; ++i) golden::PutFloat(bytes, 20 + 4 * i, k[i]);
  for (const auto& c : cases) {
    golden::PutFloat(bytes, 12, c.A);
    golden::PutFloat(bytes, 16, c.B);
    SpecimenRecord expected = RanRecord();
    expected.Instrument = c.Instrument;
    expected.Field = c.Field;
    expected.FreqIndex = c.FreqIndex;
    expected.FreqName = c.FreqName;
    expected.Frequency = c.Frequency;
    golden::Put(expected.Tensor, {k[0], k[1], k[2]});
    expected.Km = (double{k[0]} + k[1] + k[2]) * c.B / 3 / 1000000;
    EXPECT_EQ(Only(bytes, Header(), c.Path), expected) << c.Path << c.A;
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
    std::string bytes = OneSpecimen();
    golden::PutText(bytes, 44, c.First);
    golden::PutText(bytes, 54, c.Second);
    SpecimenRecord expected = RanRecord();
    expected.FoliName = {c.Foli1, c.Foli2, "", ""};
    expected.LineName = {c.Line1, c.Line2, "", ""};
    expected.HasCoor = {c.Specimen, !c.Specimen, c.Upper, c.Upper};
    if (c.Specimen) {
      expected.FoliAz = expected.FoliDip = expected.LineTrend = expected.LinePlunge = {};
      expected.E = expected.E2 = expected.E3 = {};
      expected.FTest = {};
    }
    EXPECT_EQ(Only(bytes), expected) << c.First;
  }
}

TEST(ReadRanFile, CoordinatesAreNumbersOrATypeMismatch) {
  const struct {
    const char *First, *Second, *Fault;
    float Lon, Lat;
  } cases[] = {
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
  for (const auto& c : cases) {
    const std::string header = Header().replace(18, 7, c.First).replace(25, 7, c.Second);
    RecordArray records;
    EXPECT_EQ(FaultOf([&] { (void)Read(header + OneSpecimen(), records); }), c.Fault) << c.Second;
    for (const SpecimenRecord& r : records)
      EXPECT_TRUE(r.Lon == c.Lon && r.Lat == c.Lat) << c.First;
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

TEST(ReadRanFile, TextsAreStrippedAndTheSiteEndsAtAZero) {
  using namespace std::string_literals;
  const std::string header = Header().replace(2, 16, "  Pr\xE1m \0 rest    "s, 0, 16);
  const SpecimenRecord r = Only(OneSpecimen().replace(0, 12, "\t A\x01\x02-1 \0\0\0\0"s),
                                std::string(header).replace(32, 8, " a b    "));
  EXPECT_EQ(r.Site + "|" + r.Rock + "|" + r.Strat + "|" + r.Name, "Prám|a b||A-1");
}

}  // namespace
}  // namespace velorix
