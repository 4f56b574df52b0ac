#include "text/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "base/fault.h"

namespace velorix {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Largest = std::numeric_limits<double>::max();

TEST(Numbers, NumberOfReadsTheLongestNumericPrefix) {
  const struct {
    const char* text;
    double wanted;
  } cases[] = {
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
  for (const auto& c : cases) EXPECT_EQ(NumberOf(c.text), c.wanted) << c.text;
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
  for (const auto& [text, wanted] : cases) EXPECT_EQ(NumberOf(text), wanted) << text;
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
  for (const auto& [text, wanted] : cases) EXPECT_EQ(DigitsOfText(text), wanted);
  EXPECT_THROW(DigitsOfText("32768"), Fault);
  EXPECT_THROW(DigitsOfText(std::string(100, '9')), Fault);
}

TEST(Numbers, FormatNumberRoundsHalvesAwayFromZeroByTheExactValue) {
  const struct {
    double value;
    const char *picture, *wanted;
  } cases[] = {
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
  for (const auto& c : cases)
    EXPECT_EQ(FormatNumber(c.value, c.picture), c.wanted) << c.value << " " << c.picture;
  for (double x : {Infinity, -Infinity, std::nan("")}) EXPECT_EQ(FormatNumber(x, "0.0"), "");
  for (const char* picture : {"0,0", "#.0", "0.0E+00", "0.0.0"})
    EXPECT_THROW(FormatNumber(1, picture), Fault) << picture;
}

// The C library prints the exact decimal value, halves to even; beside halves both must agree.
TEST(Numbers, FormatNumberAgreesWithTheExactPrinterOnRandomValues) {
  std::mt19937_64 random(1);
  const char* pictures[] = {"0", "0.0", "0.00", "0.000", "0.0000", "0.00000", "0.000000"};
  for (int i = 0; i < 70000; ++i) {
    const int decimals = i % 7;
    double value = std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(i % 70) - 90);
    if (i % 3 == 0) {  // close to a half, on both sides
      const double unit = std::pow(10, -decimals);
      value = (static_cast<double>(random() % 1000) + 0.5) * unit;
      value = std::nextafter(value, i % 2 ? 0 : 1e9);
    }
    if (std::fmod(std::ldexp(value, decimals + 1), 2) == 1) continue;
    char text[64];
    std::snprintf(text, sizeof text, " %.*f", decimals, value);
    ASSERT_EQ(FormatNumber(value, pictures[decimals]), text);
  }
}

TEST(Numbers, SplitExponentKeepsAllDigitsOfTheMantissa) {
  const std::pair<double, ExponentParts> cases[] = {
      // clang-format off
      {1234.5, {1.2345, 3}}, {-0.00012, {-1.2, -4}}, {0, {0, 0}}, {Infinity, {0, 0}},
      {1.2345678901234567, {1.2345678901234567, 0}}, {Largest, {1.7976931348623157, 308}},
      {5e-324, {4.9406564584124654, -324}},
      // clang-format on
  };
  for (const auto& [value, wanted] : cases) EXPECT_EQ(SplitExponent(value), wanted) << value;
}

TEST(Numbers, SignificantTextRoundsTheMantissaAndCarriesIntoTheExponent) {
  const struct {
    double value;
    int digits;
    const char* wanted;
  } cases[] = {
      // clang-format off
      {1234.5,   4, "1.235E+03"},  {-1234.5,  4, "-1.235E+03"},  {1.5e-5,  4, "1.500E-05"},
      {0,        4, " 0.000E+00"}, {-0.0,     3, " 0.00E+00"},   {9.9996,  4, "1.000E+01"},
      {9.9994,   4, "9.999E+00"},  {2.5,      1, "3E+00"},       {0.15,    1, "1E-01"},
      {1e100,    2, "1.0E+100"},   {5e-324,   3, "4.94E-324"},   {999.95,  4, "1.000E+03"},
      {0.0001,   4, "1.000E-04"},  {1,        1, "1E+00"},       {123456,  6, "1.23456E+05"},
      // clang-format on
  };
  for (const auto& c : cases) EXPECT_EQ(SignificantText(c.value, c.digits), c.wanted) << c.value;
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
  for (const auto& [text, wanted] : cases) EXPECT_EQ(text, wanted);
}

TEST(Numbers, NumberOfReadsPlainTextBackToTheSameValue) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 20000; ++i) {
    const auto bits = random();
    const auto value = std::bit_cast<double>(bits);
    const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (!std::isfinite(value) || !std::isfinite(single)) continue;
    ASSERT_EQ(NumberOf(PlainText(value)), value) << PlainText(value);
    ASSERT_EQ(static_cast<float>(NumberOf(PlainText(single))), single) << PlainText(single);
  }
}

}  // namespace
}  // namespace velorix
