#include "datafiles/formats/asc_file.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/datafiles/fault_of.h"
#include "tests/datafiles/golden_record.h"

namespace velorix {
namespace {

using golden::Put;
using Lines = std::vector<std::string>;

// Places in a report of one specimen, counted from 0.
enum Place { Name = 0, A = 3, B = 5, C = 10, Caption = 13, D = 17, E = 24, F = 26, G = 38, H = 39 };

/// A report of one specimen, laid by hand.
Lines Report() {
  Lines lines(41, "filler");
  lines[Name] = "GR1-1A           ANISOTROPY OF SUSCEPTIBILITY";
  lines[A] = "Azi  120.5   Orient.par. :   6   0   6   90   Dem.fac. :  17.25";
  lines[B] = "Dip  35   Demag factor  : YES  Holder -5.5  T1 T2 3.75";
  lines[C] = "sl  130/45  40/5.5   B0  310/20  220/70";
  lines[C + 1] = "";
  lines[Caption] = "Field  Freq  Mean  Standard   Tests for anisotropy";
  lines[D] = "400  F2  1.5E-03  0.25   101.5  12.5  13.5";
  lines[D + 3] = "Mean";  // no caption any more
  lines[E] = "1.05 1.01 0.94   11.5 22.5 33.5";
  lines[F] = "+-  0.001 0.002 0.003   4.5 5.5 6.5";
  lines[G] = "Specimen  D  1 2 3   1.02 0.99 0.98999";
  lines[H] = "system  I  1 2 3   -0.01 0.02 0.03";
  return lines;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

Lines With(int place, const std::string& line) {
  Lines lines = Report();
  lines[static_cast<std::size_t>(place)] = line;
  return lines;
}

SpecimenRecord Only(const Lines& lines) {
  RecordArray records;
  EXPECT_TRUE(ReadAscText(Joined(lines), "x.asc", records));
  EXPECT_EQ(records.Count(), 1);
  return records[1];
}

/// The specimen of `Report`.
SpecimenRecord Expected() {
  SpecimenRecord r;
  // clang-format off
  r.Name = "GR1-1A";                  r.Active = true;
  r.Field = 400;                      r.FreqName = "F2";       r.FreqIndex = 2;
  r.OP = {6, 0, 6, 90};               r.OrientAz = 120.5f;     r.OrientInc = 35;
  r.HasCoor = {true, true, true, true};
  r.FoliName = {"S", "B", "", ""};    r.LineName = {"L", "", "", ""};
  r.FoliAz = {130, 310};              r.FoliDip = {45, 20};
  r.LineTrend = {40, 220};            r.LinePlunge = {5.5f, 70};
  r.RunAux1 = {0, 0, 0x70, 0x40};  r.RunAux2 = -1;
  r.RunAux3 = {0, 0, 0xB0, 0xC0};  r.RunAux4 = {0, 0, 0x8A, 0x41};
  r.Km = 1.5e-3;                      r.KmSD = 0.25;
  Put(r.K, {1.05, 1.01, 0.94});       Put(r.KSD, {0.001, 0.002, 0.003});
  Put(r.E, {4.5, 5.5, 6.5});          Put(r.E2, {11.5, 22.5, 33.5});
  Put(r.FTest, {101.5, 12.5, 13.5});  Put(r.Tensor, {1.02, 0.99, 0.98999, -0.01, 0.02, 0.03});
  // clang-format on
  return r;
}

TEST(ReadAscFile, EveryPlaceOfAReportComesIntoItsField) { EXPECT_EQ(Only(Report()), Expected()); }

TEST(ReadAscFile, AFormFeedAloneOrBeforeANameEndsASpecimen) {
  const std::string one = Joined(Report()), other = Joined(With(Name, "other"));
  const std::tuple<std::string, Lines> cases[] = {
      // clang-format off
      {one, {"GR1-1A"}},                              {one + other, {"GR1-1A"}},
      {one + "\f\r\n", {"GR1-1A"}},                   {one + "\f", {"GR1-1A"}},
      {one + "\f" + other, {"GR1-1A", "other"}},
      {one + "\f\r\n" + other + "\f\r\n", {"GR1-1A", "other"}},
      {one + "\f\n" + one + "\f" + other + "\f", {"GR1-1A", "GR1-1A", "other"}},
      {one + "\fx", {"GR1-1A"}},  // a name at the very end begins nothing
      {Joined(With(Name, "")) + "\f\n" + Joined(With(Name, "")), {"", ""}},  // however short
      {Joined(With(Name, "\fx")) + "\f\n" + Joined(With(Name, "x")), {"x", "x"}},
      // clang-format on
  };
  for (const auto& [text, expected] : cases) {
    RecordArray records;
    EXPECT_TRUE(ReadAscText(text, "x.asc", records));
    Lines names;
    for (const SpecimenRecord& r : records) names.push_back(r.Name);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(records[records.Count()].Tensor, Expected().Tensor);
  }
}

TEST(ReadAscFile, NamesAreFifteenCharactersWithoutControlsAndBlanksAtTheEnds) {
  const std::pair<const char*, const char*> cases[] = {
      {"  ab cd  ", "ab cd"},
      {"123456789012345678", "123456789012345"},
      {"\x01\x02 a\tb \x03", "ab"},  // trimmed again behind the controls
      {"\x1E x", "\x1E x"},          // 30 and 31 stay
      {"\xDCml\xE4ut", "Ümläut"},    // single-byte on disk
      {"\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4\xE4", "äääääääääääääää"},
  };
  for (const auto& [line, name] : cases) EXPECT_EQ(Only(With(Name, line)).Name, name) << line;
}

TEST(ReadAscFile, CodesOfZeroAreNoneAndOpenNoSystem) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*, bool> cases[] =
      {
          {"00 130/45 40/5.5 00 310/20 220/70", "", "", "", "", false},
          {"0 130/45 40/5.5 0 310/20 220/70", "", "", "", "", false},
          {"0l 130/45 40/5.5 00 310/20 220/70", "", "L", "", "", true},
          {"00 130/45 40/5.5 m0 310/20 220/70", "", "", "M", "", true},
          {"x 130/45 40/5.5 0-y 310/20 220/70", "X", "X", "", "Y", true},
          {"\xE4\xF6 130/45 40/5.5 00 310/20 220/70", "Ä", "Ö", "", "", true},
      };
  for (const auto& [line, foli1, line1, foli2, line2, upper] : cases) {
    SpecimenRecord expected = Expected();
    expected.FoliName = {foli1, foli2, "", ""};
    expected.LineName = {line1, line2, "", ""};
    expected.HasCoor = {true, true, upper, upper};
    EXPECT_EQ(Only(With(C, line)), expected) << line;
  }
}

TEST(ReadAscFile, AnOrientationOpensTheGeographicSystemAndItsParametersRoundHalvesToEven) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"0", "0.0", false}, {"none", "-", false}, {"0", "-1", true}, {"0.5", "0", true}};
  for (const auto& [az, inc, geographic] : cases) {
    Lines lines = With(A, std::string("Azi ") + az + " 3 4 2.5 3.5 -0.5 12abc 9 10 11");
    lines[B] = std::string("Dip ") + inc + " 3 4 5 no 7 8 9 10 11";
    const SpecimenRecord r = Only(lines);
    EXPECT_EQ(r.RunAux2, 0);
    EXPECT_EQ(r.OP, (Array1<std::int16_t, 4>{2, 4, 0, 12}));
    EXPECT_EQ(r.HasCoor, (Array1<bool, 4>{true, geographic, true, true})) << az << inc;
  }
}

TEST(ReadAscFile, TheCaptionTellsHowTheFieldIsGiven) {
  const std::tuple<const char*, const char*, const char*, float, std::int16_t, double> cases[] = {
      {"Field", "400 F2 1 2 3 4 5", "F2", 400, 2, 1},
      {"Field", "400 F 1 2 3 4 5", "F", 400, 0, 1},
      {"Field x", "200.5 1 2 3 4 5", "", 200.5, 0, 1},
      {"Field", "200 f1 2 3 4 5", "", 200, 0, 0},
      {"Field", "200 1E400 2 3 4 5", "", 200, 0, std::numeric_limits<double>::max()},
      {" Mean susceptibility", "1 no 2 3 4 5", "F1", 425, 1, 1},
  };
  for (const auto& [caption, line, freqName, field, freqIndex, km] : cases) {
    Lines lines = With(Caption, caption);
    lines[D] = line;
    SpecimenRecord expected = Expected();
    expected.FreqName = freqName;
    expected.Field = field;
    expected.FreqIndex = freqIndex;
    expected.Km = km;
    expected.KmSD = 2;
    Put(expected.FTest, {3.0, 4.0, 5.0});
    EXPECT_EQ(Only(lines), expected) << line;
  }
}

TEST(ReadAscFile, ConfidenceAnglesComeFromTheirLineOrFromThePrincipalValues) {
  const std::pair<const char*, std::array<double, 3>> cases[] = {
      {"+- 0.001 0.002 0.003", {33.5, 11.5, 22.5}},
      {"+- 0.001 0.002 0.003 4.5", {4.5, 11.5, 22.5}},
      {"+- 0.001 0.002 0.003 4.5 5.5", {4.5, 5.5, 22.5}},
  };
  for (const auto& [line, angles] : cases) {
    SpecimenRecord expected = Expected();
    Put(expected.E, {angles[0], angles[1], angles[2]});
    EXPECT_EQ(Only(With(F, line)), expected) << line;
  }
}

TEST(ReadAscFile, WhatIsWrongIsToldWithFileAndLine) {
  const std::tuple<int, const char*, const char*> cases[] = {
      // clang-format off
      {A, "Azi 1 3 4 6 0 6", "Subscript out of range (/data/x.asc, line 4)"},
      {A, "Azi 1E39 3 4 6 0 6 0 9 10 11", "Overflow (/data/x.asc, line 4)"},
      {A, "Azi 1 3 4 6 0 32767.5 0 9 10 11", "Overflow (/data/x.asc, line 4)"},
      {B, "", "Subscript out of range (/data/x.asc, line 6)"},
      {C, "SL 1/2 3/4 SL 5/6", "Subscript out of range (/data/x.asc, line 11)"},
      {D, "400 F40000 1 2 3 4 5", "Overflow (/data/x.asc, line 18)"},
      {D, "400 F1 1 2 3 4", "Subscript out of range (/data/x.asc, line 18)"},
      {E, "1 2 3 4 5", "Subscript out of range (/data/x.asc, line 25)"},
      {F, "+- 1 2", "Subscript out of range (/data/x.asc, line 27)"},
      {G, "1 2 3 4 5 6 7", "Subscript out of range (/data/x.asc, line 39)"},
      {H, "\t\t", "Subscript out of range (/data/x.asc, line 40)"},
      {Caption, "field", "Subscript out of range (/data/x.asc, line 32)"},  // finds the next "Mean"
      // clang-format on
  };
  for (const auto& [place, line, fault] : cases) {
    RecordArray records;
    const std::string text = Joined(With(place, line));
    EXPECT_EQ(FaultOf([&] { (void)ReadAscText(text, "/data/x.asc", records); }), fault) << line;
  }
}

}  // namespace
}  // namespace velorix
