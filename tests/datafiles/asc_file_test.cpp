#include "datafiles/asc_file.h"

#include <gtest/gtest.h>

#include <bit>
#include <vector>

#include "base/fault.h"
#include "tests/datafiles/fault_of.h"
#include "text/lines.h"

namespace velorix {
namespace {

using Lines = std::vector<std::string>;

// Places in a report of one specimen, counted from 0.
enum Place { Name = 0, A = 3, B = 5, C = 10, Caption = 13, D = 17, E = 24, F = 26, G = 38, H = 39 };

/// A report of one specimen, laid by hand.
Lines Report() {
  return {
      "GR1-1A           ANISOTROPY OF SUSCEPTIBILITY",
      "1",
      "",
      "Azi  120.5   Orient.par. :   6   0   6   90   Dem.fac. :  17.25",
      "",
      "Dip  35   Demag factor  : YES  Holder -5.5  T1 T2 3.75",
      "7",
      "8",
      "9",
      "10",
      "sl  130/45  40/5.5   B0  310/20  220/70",
      "12",
      "",
      "Field  Freq  Mean  Standard   Tests for anisotropy",
      "[A/m]  susc.  error  F F12 F23",
      "a",
      "b",
      "400  F2  1.5E-03  0.25   101.5  12.5  13.5",
      "c",
      "d",
      "Mean",  // no caption any more
      "e",
      "f",
      "g",
      "1.05 1.01 0.94   11.5 22.5 33.5",
      "",
      "+-  0.001 0.002 0.003   4.5 5.5 6.5",
      "1",
      "2",
      "3",
      "4",
      "5",
      "6",
      "7",
      "8",
      "9",
      "10",
      "11",
      "Specimen  D  1 2 3   1.02 0.99 0.98999",
      "system  I  1 2 3   -0.01 0.02 0.03",
      "",
      "the end",
  };
}

std::string Joined(const Lines& lines, const std::string& end = "\n") {
  std::string text;
  for (const std::string& line : lines) text += line + end;
  return text;
}

Lines With(int place, const std::string& line) {
  Lines lines = Report();
  lines[static_cast<std::size_t>(place)] = line;
  return lines;
}

RecordArray Read(const std::string& text) {
  RecordArray records;
  EXPECT_TRUE(ReadAscText(text, "x.asc", records));
  return records;
}
SpecimenRecord Only(const Lines& lines) {
  const RecordArray records = Read(Joined(lines));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

std::array<std::uint8_t, 4> BytesOf32(float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  const auto byte = [bits](int i) { return static_cast<std::uint8_t>(bits >> 8 * i); };
  return {byte(0), byte(1), byte(2), byte(3)};
}

/// The specimen of `Report`.
SpecimenRecord Expected() {
  SpecimenRecord r;
  r.Name = "GR1-1A";
  r.Active = true;
  r.Field = 400;
  r.FreqName = "F2";
  r.FreqIndex = 2;
  r.OP = {6, 0, 6, 90};
  r.OrientAz = 120.5f;
  r.OrientInc = 35;
  r.HasCoor = {true, true, true, true};
  r.FoliName = {"S", "B", "", ""};
  r.LineName = {"L", "", "", ""};
  r.FoliAz = {130, 310};
  r.FoliDip = {45, 20};
  r.LineTrend = {40, 220};
  r.LinePlunge = {5.5f, 70};
  r.RunAux1 = BytesOf32(3.75f);
  r.RunAux2 = -1;
  r.RunAux3 = BytesOf32(-5.5f);
  r.RunAux4 = BytesOf32(17.25f);
  r.Km = 1.5e-3;
  r.KmSD = 0.25;
  const auto put = [](auto& to, std::initializer_list<double> values) {
    std::copy(values.begin(), values.end(), to.begin());
  };
  put(r.FTest, {101.5, 12.5, 13.5});
  put(r.K, {1.05, 1.01, 0.94});
  put(r.E2, {11.5, 22.5, 33.5});
  put(r.KSD, {0.001, 0.002, 0.003});
  put(r.E, {4.5, 5.5, 6.5});
  put(r.Tensor, {1.02, 0.99, 0.98999, -0.01, 0.02, 0.03});
  return r;
}

TEST(ReadAscFile, EveryPlaceOfAReportComesIntoItsField) { EXPECT_EQ(Only(Report()), Expected()); }

TEST(ReadAscFile, LineEndsOfAnyKindAreTheSame) {
  const SpecimenRecord expected = Expected();
  const Lines lines = Report();
  std::string mixed;
  for (std::size_t i = 0; i < lines.size(); ++i) mixed += lines[i] + (i % 3 == 0 ? "\r\n" : "\n");
  std::string open = Joined(lines, "\r\n");
  open.resize(open.size() - 2);
  for (const std::string& text : {Joined(lines, "\r\n"), mixed, open})
    EXPECT_EQ(Read(text)[1], expected);
}

TEST(ReadAscFile, AFormFeedAloneOrBeforeANameEndsASpecimen) {
  const std::string one = Joined(Report(), "\r\n");
  const std::string other = Joined(With(Name, "other"), "\r\n");
  const struct {
    std::string Text;
    std::vector<std::string> Names;
  } cases[] = {
      {one, {"GR1-1A"}},
      {one + "\f\r\n", {"GR1-1A"}},
      {one + "\f", {"GR1-1A"}},
      {one + "\f" + other, {"GR1-1A", "other"}},
      {one + "\f\r\n" + other + "\f\r\n", {"GR1-1A", "other"}},
      {one + "\f\n" + one + "\f" + other + "\f", {"GR1-1A", "GR1-1A", "other"}},
      {one + "\fx", {"GR1-1A"}},  // a name at the very end begins nothing
  };
  for (const auto& c : cases) {
    const RecordArray records = Read(c.Text);
    std::vector<std::string> names;
    for (const SpecimenRecord& r : records) names.push_back(r.Name);
    EXPECT_EQ(names, c.Names);
  }
}

TEST(ReadAscFile, WithoutFormFeedsThereIsOneSpecimen) {
  EXPECT_EQ(Read(Joined(Report()) + Joined(Report())).Count(), 1);
}

TEST(ReadAscFile, NamesAreFifteenCharactersWithoutControlsAndBlanksAtTheEnds) {
  const struct {
    const char *Line, *Name;
  } cases[] = {
      {"  ab cd  ", "ab cd"},
      {"123456789012345678", "123456789012345"},
      {"\x01\x02 a\tb \x03", "ab"},  // trimmed again behind the controls
      {"\x1E x", "\x1E x"},          // 30 and 31 stay: wanted
      {"\xDCml\xE4ut", "Ümläut"},    // single-byte on disk
      {"\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4", "äääääääääääääää"},
      {"\x01\x02", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(Only(With(Name, c.Line)).Name, c.Name) << c.Line;
}

TEST(ReadAscFile, TheFirstLineIsTheNamesHoweverShort) {
  for (const char* name : {"", "x", "\fx"}) {
    SpecimenRecord expected = Expected();
    expected.Name = StripControls(name);
    EXPECT_EQ(Only(With(Name, name)), expected);
    EXPECT_EQ(Read(Joined(Report()) + "\f\n" + Joined(With(Name, name)))[2], expected);
  }
}

TEST(ReadAscFile, CodesOfZeroAreNoneAndOpenNoSystem) {
  const struct {
    const char* Line;
    const char* Codes[4];  // foliation and lineation of slot 1, of slot 2
    bool Upper;
  } cases[] = {
      {"00 1/2 3/4 00 5/6 7/8", {"", "", "", ""}, false},
      {"0 1/2 3/4 0 5/6 7/8", {"", "", "", ""}, false},
      {"0l 1/2 3/4 00 5/6 7/8", {"", "L", "", ""}, true},
      {"00 1/2 3/4 m0 5/6 7/8", {"", "", "M", ""}, true},
      {"x 1/2 3/4 0-y 5/6 7/8", {"X", "X", "", "Y"}, true},
      {"\xE4\xF6 1/2 3/4 00 5/6 7/8", {"Ä", "Ö", "", ""}, true},
  };
  for (const auto& c : cases) {
    const SpecimenRecord r = Only(With(C, c.Line));
    EXPECT_EQ(r.FoliName[1], c.Codes[0]) << c.Line;
    EXPECT_EQ(r.LineName[1], c.Codes[1]) << c.Line;
    EXPECT_EQ(r.FoliName[2], c.Codes[2]) << c.Line;
    EXPECT_EQ(r.LineName[2], c.Codes[3]) << c.Line;
    EXPECT_TRUE(r.HasCoor[3] == c.Upper && r.HasCoor[4] == c.Upper) << c.Line;
    EXPECT_EQ(r.LinePlunge[2], 8) << c.Line;
  }
}

TEST(ReadAscFile, AMissingNumberOfAPairIsZero) {
  const SpecimenRecord r = Only(With(C, "SL  130  /45  00  x/7/8  220//70"));
  EXPECT_EQ(r.FoliAz[1], 130);
  EXPECT_EQ(r.FoliDip[1], 0);
  EXPECT_EQ(r.LineTrend[1], 45);  // separators at the ends don't count
  EXPECT_EQ(r.LinePlunge[1], 0);
  EXPECT_EQ(r.FoliAz[2], 0);
  EXPECT_EQ(r.FoliDip[2], 7);
  EXPECT_EQ(r.LinePlunge[2], 70);
}

TEST(ReadAscFile, AnOrientationOpensTheGeographicSystem) {
  const auto has = [](const char* az, const char* inc) {
    Lines lines = With(A, std::string("Azi ") + az + " 3 4 6 0 6 0 9 10 11");
    lines[B] = std::string("Dip ") + inc + " 3 4 5 no 7 8 9 10 11";
    const SpecimenRecord r = Only(lines);
    EXPECT_EQ(r.RunAux2, 0);
    EXPECT_TRUE(r.HasCoor[1]);
    return r.HasCoor[2];
  };
  EXPECT_FALSE(has("0", "0.0"));
  EXPECT_FALSE(has("none", "-"));
  EXPECT_TRUE(has("0", "-1"));
  EXPECT_TRUE(has("0.5", "0"));
}

TEST(ReadAscFile, OrientationParametersRoundHalvesToEven) {
  const SpecimenRecord r = Only(With(A, "Azi 1 3 4 2.5 3.5 -0.5 12abc 9 10 11"));
  EXPECT_EQ(r.OP, (Array1<std::int16_t, 4>{2, 4, 0, 12}));
}

TEST(ReadAscFile, TheCaptionTellsHowTheFieldIsGiven) {
  const struct {
    const char *Caption, *Line, *FreqName;
    float Field;
    int FreqIndex;
    double Km, KmSD, F, F23;
  } cases[] = {
      {"Field", "400 F2 1 2 3 4 5", "F2", 400, 2, 1, 2, 3, 5},
      {"Field", "400 F 1 2 3 4 5", "F", 400, 0, 1, 2, 3, 5},
      {"Field x", "200.5 1 2 3 4 5", "", 200.5, 0, 1, 2, 3, 5},
      {"Field", "200 f1 2 3 4 5", "", 200, 0, 0, 2, 3, 5},
      {" Mean susceptibility", "1 no 2 3 4 5", "F1", 425, 1, 1, 2, 3, 5},
  };
  for (const auto& c : cases) {
    Lines lines = With(Caption, c.Caption);
    lines[D] = c.Line;
    const SpecimenRecord r = Only(lines);
    EXPECT_EQ(r.FreqName, c.FreqName) << c.Line;
    EXPECT_EQ(r.Field, c.Field) << c.Line;
    EXPECT_EQ(r.FreqIndex, c.FreqIndex) << c.Line;
    EXPECT_EQ(r.Km, c.Km) << c.Line;
    EXPECT_EQ(r.KmSD, c.KmSD) << c.Line;
    EXPECT_EQ(r.FTest[0], Number(c.F)) << c.Line;
    EXPECT_EQ(r.FTest[2], Number(c.F23)) << c.Line;
  }
}

TEST(ReadAscFile, LinesBeforeTheCaptionMayBeAnyNumber) {
  Lines lines = Report();
  lines.insert(lines.begin() + Caption, {"", "x Field", "MEAN", "Fields", "  ", "field"});
  EXPECT_EQ(Only(lines), Expected());
}

TEST(ReadAscFile, ACaptionInAnotherCaseIsSearchedForToTheEnd) {
  Lines lines = With(Caption, "FIELD");
  lines[20] = "mean";
  RecordArray records;
  EXPECT_EQ(FaultOf([&] { (void)ReadAscText(Joined(lines), "x.asc", records); }),
            "Input past end of file (x.asc, line 42)");
}

TEST(ReadAscFile, ConfidenceAnglesComeFromTheirLineOrFromThePrincipalValues) {
  const struct {
    const char* Line;
    double E[3];
  } cases[] = {
      {"+- 1 2 3", {33.5, 11.5, 22.5}},
      {"+- 1 2 3 4.5", {4.5, 11.5, 22.5}},
      {"+- 1 2 3 4.5 5.5", {4.5, 5.5, 22.5}},
      {"+- 1 2 3 4.5 5.5 6.5", {4.5, 5.5, 6.5}},
  };
  for (const auto& c : cases) {
    const SpecimenRecord r = Only(With(F, c.Line));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(r.E[i], Number(c.E[i - 1])) << c.Line << i;
    EXPECT_EQ(r.E2[1], Number(11.5));
  }
}

TEST(ReadAscFile, WhatIsWrongIsToldWithFileAndLine) {
  const struct {
    int Place;
    const char* Line;
    const char* Text;
  } cases[] = {
      {A, "Azi 1 3 4 6 0 6", "Subscript out of range (/data/x.asc, line 4)"},
      {A, "Azi 1E39 3 4 6 0 6 0 9 10 11", "Overflow (/data/x.asc, line 4)"},
      {A, "Azi 1 3 4 6 0 32768 0 9 10 11", "Overflow (/data/x.asc, line 4)"},
      {B, "", "Subscript out of range (/data/x.asc, line 6)"},
      {C, "SL 1/2 3/4 SL 5/6", "Subscript out of range (/data/x.asc, line 11)"},
      {D, "400 F40000 1 2 3 4 5", "Overflow (/data/x.asc, line 18)"},
      {D, "400 F1 1 2 3 4", "Subscript out of range (/data/x.asc, line 18)"},
      {E, "1 2 3 4 5", "Subscript out of range (/data/x.asc, line 25)"},
      {F, "+- 1 2", "Subscript out of range (/data/x.asc, line 27)"},
      {G, "1 2 3 4 5 6 7", "Subscript out of range (/data/x.asc, line 39)"},
      {H, "\t\t", "Subscript out of range (/data/x.asc, line 40)"},
      {Caption, "field", "Subscript out of range (/data/x.asc, line 32)"},  // finds the next "Mean"
  };
  for (const auto& c : cases) {
    RecordArray records;
    records.Add(SpecimenRecord());
    const std::string text = Joined(With(c.Place, c.Line));
    EXPECT_EQ(FaultOf([&] { (void)ReadAscText(text, "/data/x.asc", records); }), c.Text) << c.Line;
    EXPECT_EQ(records.Count(), 1);
  }
}

}  // namespace
}  // namespace velorix
