#include "datafiles/ran_file.h"

#include <cmath>
#include <limits>

#include "tests/datafiles/ran_bytes.h"

namespace velorix {
namespace {

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
  Bytes large = golden::RanSpecimen();
  golden::PutFloat(large, 12, -3e38f);  // its field, 1.41 times that, doesn't fit
  EXPECT_EQ(FaultOf([&] { (void)Read(Header + OneSpecimen + golden::TextOf(large), records); }), 6);
  EXPECT_EQ(records.Count(), 1);
  records.Clear();
  ASSERT_TRUE(ReadRanFile(folder.File("full.ran"), records, {}));
  EXPECT_EQ(records.Count(), 32767);
}

}  // namespace
}  // namespace velorix
