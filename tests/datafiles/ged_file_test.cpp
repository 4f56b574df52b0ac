#include "datafiles/formats/ged_file.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/datafiles/fault_of.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

// Laid by hand, column by column.
const std::string Header = "4   Dolni Lhota     49.5   16.7   GRANCRETTUFFMORA6  0  12 90 \r\n";
const std::string First = "DL1         312 45  AB  120 30  118 5   0L          10  80    \r\n";
const std::string Second =
    "\xDCL2         12.513.5\xD8-\xDF 200 350 90  0   00                    \r\n";

RecordArray Read(const std::string& text) {
  RecordArray records;
  EXPECT_TRUE(ReadGedText("x.ged", text, records));
  return records;
}

TEST(GedFile, ReadsSiteAndSamples) {
  SpecimenRecord a, b;
  // clang-format off
  a.Name = "DL1";         a.Site = "Dolni Lhota";   a.Lon = 49.5f;   a.Lat = 16.7f;
  a.Rock = "GRAN";        a.Strat = "CRET";         a.Litho = "TUFF";  a.Regio = "MORA";
  a.OP = {6, 0, 12, 90};  a.OrientAz = 312;         a.OrientInc = 45;
  b = a;
  a.FoliName = {"A", "0", "", ""};  a.LineName = {"B", "L", "", ""};
  a.FoliAz = {120, 0};    a.FoliDip = {30, 0};      a.LineTrend = {118, 10};  a.LinePlunge = {5, 80};
  b.Name = "ÜL2";         b.OrientAz = 12;          b.OrientInc = 14;  // half degrees to even
  b.FoliName = {"Ø", "0", "", ""};  b.LineName = {"ß", "0", "", ""};  // first and last character
  b.FoliAz = {200, 0};    b.FoliDip = {350, 0};     b.LineTrend = {90, 0};
  // clang-format on
  const RecordArray records = Read(Header + First + Second);
  ASSERT_EQ(records.Count(), 2);
  EXPECT_EQ(records[1], a);
  EXPECT_EQ(records[2], b);
}

TEST(GedFile, RefusesInItsWords) {
  const auto with = [](std::string line, std::size_t at, const char* text) {
    return line.replace(at, std::strlen(text), text);
  };
  const std::string reading = "Error in reading file!|Error in file: /DATA/SITE.GED\n\nIn line: ";
  const std::string opening = "Error in opening file: <<site.ged>>|";
  const std::pair<std::string, std::string> cases[] = {
      // clang-format off
      {Header, "|"},  // no sample: without a word
      {with(Header, 50, "?") + First, reading + "1"},
      {with(Header, 0, "x") + First, reading + "1"},
      {Header + First + with(First, 28, "x"), reading + "3"},
      {Header + with(Second, 24, ",") + First, reading + "2"},
      {Header + "short\r\n" + First + "x" + First, opening + "Error in line: 2\nError in line: 4\n"},
      {Header + First + "\r\n", opening + "Error in line: 3\n"},
      // clang-format on
  };
  RecordArray records;
  const auto read = [&](const std::string& text) {
    return ReadGedText("/data/Site.GED", text, records);
  };
  for (const auto& [text, refusal] : cases) {
    const Outcome outcome = read(text);
    EXPECT_EQ(outcome.Title + "|" + outcome.Text, refusal);
    EXPECT_TRUE(!outcome && records.Empty()) << text;
  }
  for (const std::size_t angle : {12u, 16u, 24u, 28u, 32u, 36u, 44u, 48u, 52u, 56u})
    for (const char* wrong : {"4O  ", "1,5 ", "--5 ", "12- ", "1e2 "}) {
      EXPECT_EQ(read(Header + First + with(First, angle, wrong)).Text, cases[3].second.substr(23))
          << angle << wrong;
      EXPECT_TRUE(records.Empty());
    }
  const std::string many = read(std::string(2000000, '\n')).Text;
  EXPECT_TRUE(many.ends_with("Error in line: 100\nand 1999900 more lines\n"));
  const std::string tooLarge = with(First, 12, "9E99");
  EXPECT_EQ(FaultOf([&] { (void)read(Header + tooLarge); }), "Overflow (/data/Site.GED, line 2)");
}

TEST(GedFile, GedToGedExchangesTheCoordinatesAndMakesAnAbsentCodeAZero) {
  const std::string noCodes = "DL3             45                                            \r\n";
  RecordArray records = Read(Header + First + Second + noCodes);
  const std::string text = GedText(records);
  EXPECT_EQ(text.substr(0, 128),
            "5   Dolni Lhota     16.7   49.5   GRANCRETTUFFMORA6  0  12 90 \r\n"
            "DL1         312 45  AB  120 30  118 5   0L  0   0   10  80    \r\n");
  const RecordArray again = Read(text);
  ASSERT_EQ(again.Count(), records.Count());
  for (int slot = 1; slot <= 2; ++slot) records[3].FoliName[slot] = records[3].LineName[slot] = "0";
  for (int i = 1; i <= 3; ++i) {
    std::swap(records[i].Lon, records[i].Lat);
    EXPECT_EQ(again[i], records[i]);
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
  const TempFolder folder;
  const std::string path = folder.File("old.ged");
  const RecordArray records = Read(Header + First);
  ASSERT_TRUE(WriteGedFile(path, records));
  EXPECT_FALSE(WriteGedFile(path, RecordArray()));
  EXPECT_EQ(BytesOf(path), GedText(records));
}

}  // namespace
}  // namespace velorix
