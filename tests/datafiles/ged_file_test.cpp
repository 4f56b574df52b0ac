#include "datafiles/ged_file.h"

#include <gtest/gtest.h>

#include "base/fault.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

// Laid by hand, column by column.
const std::string Header = "4   Dolni Lhota     49.5   16.7   GRANCRETTUFFMORA6  0  12 90 \r\n";
const std::string First = "DL1         312 45  AB  120 30  118 5   0L          10  80    \r\n";
const std::string Second = "DL2         12.513.5-10 200 350 90  0   00                    \r\n";

std::string Refusal(const std::string& text, int before = 0) {
  RecordArray records;
  records.Grow(before);
  const Outcome outcome = ReadGedText("/data/Site.GED", text, records);
  EXPECT_EQ(records.Count(), before);
  return outcome ? "read" : outcome.Title + "|" + outcome.Text;
}

TEST(GedFile, ReadsSiteAndSamples) {
  RecordArray records;
  records.Grow(1);
  ASSERT_TRUE(ReadGedText("x.ged", Header + First + Second, records));
  ASSERT_EQ(records.Count(), 3);
  const SpecimenRecord& a = records[2];
  EXPECT_EQ(a.Name + "|" + a.Site + "|" + a.Rock + a.Strat + a.Litho + a.Regio,
            "DL1|Dolni Lhota|GRANCRETTUFFMORA");
  EXPECT_EQ(a.Lon, 49.5f);
  EXPECT_EQ(a.Lat, 16.7f);
  EXPECT_EQ(a.OP, (Array1<std::int16_t, 4>{6, 0, 12, 90}));
  EXPECT_EQ(a.OrientAz, 312);
  EXPECT_EQ(a.OrientInc, 45);
  EXPECT_EQ(a.FoliName[1] + a.LineName[1] + a.FoliName[2] + a.LineName[2], "AB0L");
  EXPECT_EQ(a.FoliAz[1], 120);
  EXPECT_EQ(a.FoliDip[1], 30);
  EXPECT_EQ(a.LineTrend[1], 118);
  EXPECT_EQ(a.LinePlunge[1], 5);
  EXPECT_EQ(a.FoliAz[2], 0);  // empty
  EXPECT_EQ(a.LineTrend[2], 10);
  EXPECT_EQ(a.LinePlunge[2], 80);
  const SpecimenRecord& b = records[3];
  EXPECT_EQ(b.OrientAz, 12);  // half degrees to even
  EXPECT_EQ(b.OrientInc, 14);
  EXPECT_EQ(b.FoliName[1] + b.LineName[1], "-0");  // first and last character
  EXPECT_EQ(b.Site, a.Site);
}

TEST(GedFile, LinesEndAsTheyLike) {
  std::string unixText = Header + First + Second;
  std::erase(unixText, '\r');
  unixText.pop_back();  // the last line has no end
  RecordArray dos, unix;
  ASSERT_TRUE(ReadGedText("x.ged", Header + First + Second, dos));
  ASSERT_TRUE(ReadGedText("x.ged", unixText, unix));
  EXPECT_TRUE(std::equal(dos.begin(), dos.end(), unix.begin(), unix.end()));
}

TEST(GedFile, RefusesInItsWords) {
  std::string badAngle = First, badP = Header, badCount = Header, bad3 = Second;
  badAngle[28] = 'x';
  badP[50] = '?';
  badCount[0] = 'x';
  bad3[24] = ',';
  const std::string reading = "Error in reading file!|Error in file: /DATA/SITE.GED\n\nIn line: ";
  const std::string opening = "Error in opening file: <<site.ged>>|";
  EXPECT_EQ(Refusal("", 2), opening + "File is empty!");
  EXPECT_EQ(Refusal(Header), "|");  // no sample: without a word
  EXPECT_EQ(Refusal(badP + First), reading + "1");
  EXPECT_EQ(Refusal(badCount + First), reading + "1");
  EXPECT_EQ(Refusal(Header + First + badAngle, 1), reading + "3");
  EXPECT_EQ(Refusal(Header + bad3 + First), reading + "2");
  EXPECT_EQ(Refusal(Header + "short\r\n" + First + "x" + First),
            opening + "Error in line: 2\nError in line: 4\n");
  EXPECT_EQ(Refusal(Header + First + "\r\n"), opening + "Error in line: 3\n");
  const std::string many = Refusal(std::string(2000000, '\n'));
  EXPECT_TRUE(many.ends_with("Error in line: 100\nand 1999900 more lines\n"));
  std::string tooLarge = First;
  tooLarge.replace(12, 4, "9E99");
  try {
    Refusal(Header + tooLarge);
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "Overflow (/data/Site.GED, line 2)");
  }
}

TEST(GedFile, GedToGedExchangesTheCoordinatesAndMakesAnAbsentCodeAZero) {
  const std::string noCodes = "DL3             45                                            \r\n";
  RecordArray records, again;
  ASSERT_TRUE(ReadGedText("x.ged", Header + First + Second + noCodes, records));
  const std::string text = GedText(records);
  EXPECT_EQ(text.substr(0, 64),
            "5   Dolni Lhota     16.7   49.5   GRANCRETTUFFMORA6  0  12 90 \r\n");
  EXPECT_EQ(text.substr(64, 64),
            "DL1         312 45  AB  120 30  118 5   0L  0   0   10  80    \r\n");
  ASSERT_TRUE(ReadGedText("x.ged", text, again));
  ASSERT_EQ(again.Count(), records.Count());
  for (int slot = 1; slot <= 2; ++slot) records[3].FoliName[slot] = records[3].LineName[slot] = "0";
  for (int i = 1; i <= 3; ++i) {
    std::swap(again[i].Lon, again[i].Lat);
    EXPECT_EQ(again[i], records[i]);
  }
}

TEST(GedFile, EveryByteOfNamesAndCodesComesBack) {
  for (int code = 33; code < 256; ++code) {
    std::string sample = First;
    sample[1] = sample[20] = sample[21] = static_cast<char>(code);
    RecordArray records;
    ASSERT_TRUE(ReadGedText("x.ged", Header + sample, records));
    EXPECT_EQ(GedText(records).substr(64, 24), sample.substr(0, 24)) << code;
  }
}

TEST(GedFile, CutsWhatItsFieldsCannotHold) {
  RecordArray records;
  records.Grow(1);
  SpecimenRecord& r = records[1];
  r.Name = "a name of many letters";
  r.Site = "Žár";
  r.OrientAz = 1234.5f;
  r.OrientInc = -12.5f;
  r.FoliName[1] = "S1";
  const std::string text = GedText(records);
  EXPECT_EQ(text.substr(64, 24), "a name of ma1234-12.S10 ");
  EXPECT_EQ(text.substr(4, 4), "\x8E\xE1r ");
}

TEST(GedFile, AFileOfNoRecordsIsNotWritten) {
  TempFolder folder;
  const std::string path = folder.File("old.ged");
  RecordArray records;
  ASSERT_TRUE(ReadGedText("x.ged", Header + First, records));
  ASSERT_TRUE(WriteGedFile(path, records));
  EXPECT_FALSE(WriteGedFile(path, RecordArray()));
  RecordArray again;
  EXPECT_TRUE(ReadGedFile(path, again));
  EXPECT_EQ(again.Count(), 1);
  EXPECT_EQ(folder.FileCount(), 1);
}

TEST(GedFile, FieldsLieWithoutGapsInALineAsThePageTells) {
  const std::string page = BytesOf(VELORIX_SOURCE_DIR "/docs/formats/ged.md");
  for (const auto fields : {GedHeaderFields(), GedSampleFields()}) {
    int end = 0;
    for (const GedField& field : fields) {
      EXPECT_EQ(field.Offset, end) << field.Name;
      const std::string row = "| " + std::to_string(field.Offset) + " | " +
                              std::to_string(field.Width) + " | " + field.Name + " |";
      EXPECT_NE(page.find(row), page.npos) << row;
      end += field.Width;
    }
    EXPECT_EQ(end, GedLineLength);
  }
}

}  // namespace
}  // namespace velorix
