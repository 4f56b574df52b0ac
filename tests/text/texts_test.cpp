#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "base/fault.h"
#include "base/timer.h"
#include "text/code_page.h"
#include "text/dates.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Largest = std::numeric_limits<double>::max();

TEST(Numbers, NumberOfReadsTheLongestNumericPrefix) {
  const std::tuple<const char*, double> cases[] = {
      // clang-format off
      {"12.5abc", 12.5},   {"abc", 0},        {"1,5", 1},          {"", 0},
      {"   7", 7},         {"-.5", -0.5},     {"+.5", 0.5},        {"5.", 5},
      {"1E3", 1000},       {"1e3", 1000},     {"1D3", 1000},       {"1d-3", 0.001},
      {"5.E+1", 50},       {"12E", 12},       {"12E+", 12},        {"12Ex", 12},
      {"1 2", 1},          {"1.2.3", 1.2},    {"- 5", 0},          {"--5", 0},
      {"+-5", 0},          {".", 0},          {"-", 0},            {".E5", 0},
      {"\t7", 0},          {"inf", 0},        {"nan", 0},          {"0x10", 0},
      {"1-2", 1},          {"1E3.5", 1000},   {"1_000", 1},        {"00012", 12},
      // clang-format on
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(NumberOf(text), expected) << text;
}

TEST(Numbers, NumberOfNeverFailsBeyondTheRangeOfFloats) {
  const std::string zeros(400, '0');
  const std::pair<std::string, double> cases[] = {
      // clang-format off
      {"1E999", Largest}, {"-1D+999", -Largest}, {"1E99999999999999999999", Largest},
      {"1E-99999999999999999999", 0}, {"0E999", 0}, {std::string(400, '9'), Largest},
      {"0." + zeros + "1", 0}, {"0." + zeros + "1E401", 1}, {std::string("1\0002", 3), 1},
      // clang-format on
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(NumberOf(text), expected) << text;
}

TEST(Numbers, IsNumberTextJudgesCharactersAndNotSense) {
  for (const char* text : {"", "   ", "1E-3", "-1.5", "+1", " 12 ", ".5", "5.", "1E", "E", "E+"})
    EXPECT_TRUE(IsNumberText(text)) << text;
  for (const char* text :
       {"-", "+", ".", " - ", "1.2.3", "12-", "1e3", "1 2", "abc", "1,5", "--1", "\t1"})
    EXPECT_FALSE(IsNumberText(text)) << text;
}

TEST(Numbers, DigitsOfTextJoinsAllDigitsIntoASixteenBitInteger) {
  const std::pair<const char*, int> cases[] = {
      {"1F", 1}, {"F12", 12}, {"a3-2.7x67", 32767}, {"FS", 0}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(DigitsOfText(text), expected);
  EXPECT_THROW(DigitsOfText("32768"), Fault);
  EXPECT_THROW(DigitsOfText(std::string(100, '9')), Fault);
}

TEST(Numbers, FormatNumberRoundsHalvesAwayFromZeroByTheExactValue) {
  const std::tuple<double, const char*, const char*> cases[] = {
      // clang-format off
      {0.0,       "0.000", " 0.000"},    {-0.0,      "0.000", " 0.000"},
      {-0.0004,   "0.000", "-0.000"},    {-1e-300,   "0",     "-0"},
      {0.5,       "0",     " 1"},        {-2.5,      "0",     "-3"},
      {0.125,     "0.00",  " 0.13"},     {2.675,     "0.00",  " 2.67"},
      {0.0625,    "0.000", " 0.063"},    {0.9995,    "0.000", " 1.000"},
      {9.9996,    "0.000", " 10.000"},   {359.95,    "0.0",   " 359.9"},
      {7,         "000",   " 007"},
      {0.49999999999999994, "0", " 0"},  {1e22,      "0.0",   " 10000000000000000000000.0"},
      {4503599627370497.5, "0", " 4503599627370498"},
      {0.00390625, "0.0000000", " 0.0039063"},
      {99.99999999, "0.0000000", " 100.0000000"},
      {0.05,      ".0",    " 0.1"},      {12.04,     "000.0", " 012.0"},
      // clang-format on
  };
  for (const auto& [value, picture, expected] : cases)
    EXPECT_EQ(FormatNumber(value, picture), expected) << value << " " << picture;
  for (double x : {Infinity, -Infinity, std::nan("")}) EXPECT_EQ(FormatNumber(x, "0.0"), "");
  for (const char* picture : {"0,0", "#.0", "0.0E+00", "0.0.0"})
    EXPECT_THROW(FormatNumber(1, picture), Fault) << picture;
}

TEST(Numbers, SplitExponentKeepsAllDigitsOfTheMantissa) {
  const std::pair<double, ExponentParts> cases[] = {
      // clang-format off
      {1234.5, {1.2345, 3}}, {-0.00012, {-1.2, -4}}, {0, {0, 0}}, {Infinity, {0, 0}},
      {1.2345678901234567, {1.2345678901234567, 0}}, {Largest, {1.7976931348623157, 308}},
      {5e-324, {4.9406564584124654, -324}},
      // clang-format on
  };
  for (const auto& [value, expected] : cases) EXPECT_EQ(SplitExponent(value), expected) << value;
}

TEST(Numbers, SignificantTextRoundsTheMantissaAndCarriesIntoTheExponent) {
  const std::tuple<double, int, const char*> cases[] = {
      // clang-format off
      {1234.5,   4, "1.235E+03"},  {-1234.5,  4, "-1.235E+03"},  {1.5e-5,  4, "1.500E-05"},
      {0,        4, " 0.000E+00"}, {-0.0,     3, " 0.00E+00"},   {9.9996,  4, "1.000E+01"},
      {9.9994,   4, "9.999E+00"},  {2.5,      1, "3E+00"},       {0.15,    1, "1E-01"},
      {1e100,    2, "1.0E+100"},   {5e-324,   3, "4.94E-324"},   {999.95,  4, "1.000E+03"},
      {0.0001,   4, "1.000E-04"},  {1,        1, "1E+00"},       {123456,  6, "1.23456E+05"},
      // clang-format on
  };
  for (const auto& [value, digits, expected] : cases)
    EXPECT_EQ(SignificantText(value, digits), expected) << value;
  EXPECT_EQ(SignificantText(Infinity, 4), "");
  EXPECT_THROW(SignificantText(1, 0), Fault);
}

TEST(Numbers, PlainTextIsTheShortestAndTurnsToExponentsWhereItsOwnWidthEnds) {
  const std::pair<std::string, const char*> cases[] = {
      // clang-format off
      {PlainText(Number(12.3f)), "12.3"}, {PlainText(double{12.3f}), "12.300000190734863"},
      {PlainText(Number()), "0"},         {PlainText(Number(-0.0)), "0"},
      {PlainText(std::int16_t{-32768}), "-32768"},
      {PlainText(std::numeric_limits<int>::min()), "-2147483648"},
      {PlainText(float(Infinity)), ""},   {PlainText(std::nan("")), ""},
      {PlainText(0.0001f), "0.0001"},     {PlainText(0.0001), "0.0001"},
      {PlainText(1.5e-5f), "1.5E-05"},    {PlainText(1.5e-5), "1.5E-05"},
      {PlainText(-0.00012f), "-0.00012"}, {PlainText(-0.00012), "-0.00012"},
      {PlainText(1234567.0f), "1234567"}, {PlainText(-12345678.0f), "-1.2345678E+07"},
      {PlainText(1e7f), "1E+07"},         {PlainText(1e7), "10000000"},
      {PlainText(123456789012345.0), "123456789012345"},
      {PlainText(1e15), "1E+15"},         {PlainText(5e-324), "5E-324"},
      {PlainText(-1.7976931348623157e308), "-1.7976931348623157E+308"},
      // clang-format on
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(text, expected);
}

TEST(CodePage, BytesStandForTheCharactersOfWindows1252) {
  const std::pair<const char*, const char*> cases[] = {
      // clang-format off
      {"\x80 \x9F", "€ Ÿ"}, {"\xE9t\xE9", "été"}, {"\x8E\x9E\x8A\x9A", "ŽžŠš"},
      {"\x81\x9D", "\xC2\x81\xC2\x9D"},  // unassigned: control characters
      {"eight ascii first \xB0", "eight ascii first °"},
      // clang-format on
  };
  std::string kept = "something longer than before";
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(FromCodePage(bytes), text);
    EXPECT_EQ(ToCodePage(text), bytes);
    FromCodePage(bytes, kept);
    EXPECT_EQ(kept, text);
  }
}

TEST(CodePage, WhatThePageLacksBecomesAQuestionMark) {
  const std::pair<const char*, const char*> cases[] = {
      // clang-format off
      {"Řež", "?e\x9E"}, {"岩", "?"}, {"𝄞a", "?a"}, {"\xFFz\x80", "?z?"},
      {"\xC2\x80", "?"},                      // the control character whose byte is the euro's
      {"\xC3", "?"}, {"\xE2\x82", "??"},      // cut off
      {"\xC0\xAF", "??"},                     // overlong
      {"\xED\xA0\x80", "???"}, {"\xF4\x90\x80\x80", "????"},  // a surrogate; beyond the last one
      // clang-format on
  };
  for (const auto& [text, bytes] : cases) EXPECT_EQ(ToCodePage(text), bytes) << text;
}

TEST(UpperCase, KnowsTheLettersOfEuropeAndKeepsTheRest) {
  const std::pair<const char*, const char*> cases[] = {
      // clang-format off
      {"/home/me/site 1.ams", "/HOME/ME/SITE 1.AMS"}, {"žluťoučký kůň ÿ", "ŽLUŤOUČKÝ KŮŇ Ÿ"},
      {"straße ÷ łódź ğ", "STRAßE ÷ ŁÓDŹ Ğ"},         {"κλίση μ ως", "ΚΛίΣΗ Μ Ως"},
      {"порода ёж", "ПОРОДА ЁЖ"},                     {"日本 €", "日本 €"},
      {"bad \xC3", "BAD \xC3"},                       {"bad \xFF\xE0 x", "BAD \xFF\xE0 X"},
      {"too long \xC1\xA1", "TOO LONG \xC1\xA1"},
      // clang-format on
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(UpperCase(text), expected);
}

TEST(LowerCase, IsTheWayBack) {
  EXPECT_EQ(LowerCase("ŽLUŤOUČKÝ KŮŇ Ÿ.GED"), "žluťoučký kůň ÿ.ged");
  EXPECT_EQ(LowerCase("ŁÓDŹ Ğ × ΚΛΣ ПОРОДА Ё"), "łódź ğ × κλσ порода ё");
  for (const char* letter : {"a", "é", "ğ", "ł", "ž", "λ", "ж", "ђ"})
    EXPECT_EQ(LowerCase(UpperCase(letter)), letter);
}

using Parts = std::vector<std::string>;

Parts PartsOf(const Tokens& tokens) {
  Parts parts;
  for (int i = 1; i <= tokens.Count(); ++i) parts.emplace_back(tokens.Token(i));
  return parts;
}

TEST(Lines, SplitBlanksSplitsAtRunsOfBlanksOnlyAndAnIndexPastTheTokensIsAnError) {
  const std::pair<const char*, Parts> cases[] = {{"  two   words  ", {"two", "words"}},
                                                 {" a ", {"a"}},
                                                 {"", {""}},
                                                 {"    ", {""}},
                                                 {"a", {"a"}},
                                                 {"a\tb c", {"a\tb", "c"}}};
  Tokens tokens;
  for (const auto& [line, expected] : cases) {
    EXPECT_EQ(PartsOf(SplitBlanks(line)), expected) << line;
    SplitBlanks(line, tokens);  // takes the place of the former line
    EXPECT_EQ(PartsOf(tokens), expected) << line;
  }
  EXPECT_THROW(tokens.Token(3), Fault);
  EXPECT_THROW(tokens.Token(0), Fault);
}

TEST(Lines, SplitAtCharHasAHundredTokensFromTheStart) {
  const Tokens tokens = SplitAtChar("120//35/", '/');
  const std::pair<int, const char*> expected[] = {{1, "120"}, {2, "35"}, {3, ""}, {100, ""}};
  for (const auto& [i, token] : expected) EXPECT_EQ(tokens.Token(i), token) << i;
  EXPECT_THROW(tokens.Token(101), Fault);
  std::string line;
  for (int i = 0; i < 100; ++i) line += "a/";
  EXPECT_EQ(SplitAtChar(line, '/').Token(100), "a");
  EXPECT_THROW(SplitAtChar(line += "b", '/'), Fault);
}

TEST(Paths, NamesAreTakenApartAtTheLastSeparatorAndTheLastPoint) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      // clang-format off
      {"/home/x/site 1.ams", "/home/x", "site 1", "ams"}, {"a.b.AMS", "", "a.b", "AMS"},
      {"/x.d/plain", "/x.d", "plain", ""},                {"/top.ran", "/", "top", "ran"},
      {"x/.ams", "x", "", "ams"},                         {"x/ends.", "x", "ends", ""},
      {"x/", "x", "", ""},                                {"", "", "", ""},
      // clang-format on
  };
  for (const auto& [path, folder, base, extension] : cases) {
    EXPECT_EQ(FolderOf(path), folder) << path;
    EXPECT_EQ(BaseName(path), base) << path;
    EXPECT_EQ(ExtensionOf(path), extension) << path;
  }
}

TEST(Paths, JoinPathPutsExactlyOneSeparatorBetween) {
  const std::string folder = std::string("folder") + PathSeparator;
  EXPECT_EQ(JoinPath("folder", "name"), folder + "name");
  EXPECT_EQ(JoinPath(folder, "name"), folder + "name");
  EXPECT_EQ(JoinPath("", "name"), "name");
  EXPECT_EQ(JoinPath("/", "name"), "/name");
}

TEST(CompactPath, ShortensTheFoldersThenTheName) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"/a/b.ams", 8, "/a/b.ams"},
      {"/home/me/data/site/x.ams", 20, "/home/me/.../x.ams"},
      {"/home/me/data/site/x.ams", 10, "/.../x.ams"},
      {"/home/me/data/site/x.ams", 9, ".../x.ams"},
      {"/home/me/data/site/x.ams", 8, "x.ams"},
      {"/home/me/data/site/x.ams", 4, "x..."},
      {"/data/žluťoučká měření.ams", 8, "žluťo..."},
      {"C:\\data\\žluť\\x.ams", 18, "C:\\data\\žluť\\x.ams"},
      {"C:\\data\\žluť\\x.ams", 17, "C:\\data\\...\\x.ams"},
      {"x.ams", 4, "x..."},
      {"x.ams", 3, "..."},
      {"x.ams", 1, "."},
      {"x.ams", 0, ""},
      {"x.ams", -5, ""}};
  for (const auto& [path, room, expected] : cases)
    EXPECT_EQ(CompactPath(path, room), expected) << path << room;
}

TEST(Paths, TextBeyondAsciiSurvivesTheWayThroughThePlatformsPath) {
  EXPECT_EQ(Utf8Of(PathOf("Žulová/měření 岩.ams")), "Žulová/měření 岩.ams");
}

TEST(Dates, TimeTextPadsItsParts) {
  EXPECT_EQ(TimeText(0), " 00:00:00");  // with a blank in front
  EXPECT_EQ(TimeText(3723.9), " 01:02:03");
  EXPECT_EQ(TimeText(86399.99), " 23:59:59");
}

TEST(Timer, ElapsedCarriesOverMidnight) {
  EXPECT_EQ(Elapsed(12.5f, 10.0f), 2.5f);
  EXPECT_EQ(Elapsed(1.0f, 86399.0f), 2.0f);
  EXPECT_EQ(Elapsed(9.9921875f, 10.0f), -0.0078125f);  // the 32 bits' own step, no midnight
  EXPECT_EQ(Elapsed(9.875f, 10.0f), 86399.875f);
}

TEST(Timer, TimerLiesWithinTheDayAndMovesOn) {
  const float start = Timer();
  EXPECT_GE(start, 0.0f);
  EXPECT_LE(start, 86401.0f);
  while (Elapsed(start) == 0) {
  }
  EXPECT_LT(Elapsed(start), 60.0f);
}

}  // namespace
}  // namespace velorix
