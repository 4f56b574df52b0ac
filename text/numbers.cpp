#include "text/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/fault.h"
#include "text/float_chars.h"

namespace velorix {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSign(char c) { return c == '+' || c == '-'; }

/// The shortest text that reads back to `value`: fixed from 0.0001 to below `limit`, beyond that in
/// exponent form. The standard's exponents have a sign and two digits, as here; only the letter
/// is small.
template <class Float>
void AppendShortest(std::string& to, Float value, Float limit) {
  if (!std::isfinite(value)) return;
  if (value == 0) {
    to += '0';
    return;
  }
  const Float size = std::abs(value);
  char text[40];
  // Below the limit the shortest text of a whole number is all its digits, which an integer gives
  // much faster.
  const auto whole = size < limit ? static_cast<std::int64_t>(value) : 0;
  if (static_cast<Float>(whole) == value) {
    to.append(text, std::to_chars(text, std::end(text), whole).ptr);
    return;
  }
  const bool fixed = size >= static_cast<Float>(1e-4) && size < limit;
  char* const end = std::to_chars(text, std::end(text), value,
                                  fixed ? std::chars_format::fixed : std::chars_format::scientific)
                        .ptr;
  if (!fixed) *std::find(text, end, 'e') = 'E';
  to.append(text, end);
}

constexpr int ExactDecimals = 766;  // behind the first digit: they show any float exactly

/// The digits of a value, d.ddd times ten to the Exponent.
struct Decimal {
  std::string Digits;
  int Exponent = 0;
};

/// `value` > 0 with `decimals` decimals behind the first digit.
Decimal DigitsOf(double value, int decimals) {
  char text[ExactDecimals + 12];
  const char* const end =
      std::to_chars(text, std::end(text), value, std::chars_format::scientific, decimals).ptr;
  const std::string_view whole(text, static_cast<std::size_t>(end - text));
  const std::size_t e = whole.find('e');
  Decimal decimal{std::string(whole.substr(0, e)), static_cast<int>(NumberOf(whole.substr(e + 1)))};
  if (decimals > 0) decimal.Digits.erase(1, 1);
  return decimal;
}

/// Adds one to the last of the decimal digits in `text`, a point among them left alone.
void CountUp(std::string& text) {
  for (std::size_t i = text.size(); i-- > 0;) {
    if (text[i] == '.') continue;
    if (text[i] != '9') {
      ++text[i];
      return;
    }
    text[i] = '0';
  }
  text.insert(text.begin(), '1');
}

struct Picture {
  int Whole = 0, Decimals = 0;
};

Picture ReadPicture(std::string_view text) {
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  if (text.substr(0, point).find_first_not_of('0') != text.npos ||
      decimals.find_first_not_of('0') != text.npos || text.size() > 300)
    FailArgument();
  return {std::max(static_cast<int>(point), 1), static_cast<int>(decimals.size())};
}

/// A value rounded to decimals: Whole and Fraction counted in units of the last decimal.
struct Fixed {
  std::uint64_t Whole = 0, Fraction = 0;
};

constexpr std::uint64_t PowersOfTen[] = {1, 10, 100, 1000, 10000, 100000, 1000000};

/// Rounds `value` >= 0 with integers alone. False when that could not be decided: too many
/// decimals, too large a value, or one that lies too close to a half for 44 binary places.
bool RoundFast(double value, int decimals, Fixed& fixed) {
  if (decimals >= static_cast<int>(std::size(PowersOfTen)) || value >= 1e15) return false;
  constexpr std::uint64_t one = std::uint64_t{1} << 44, half = one / 2;
  const std::uint64_t unit = PowersOfTen[decimals];
  fixed.Whole = static_cast<std::uint64_t>(value);
  const double fraction = (value - static_cast<double>(fixed.Whole)) * 0x1p44;  // exact
  const std::uint64_t places = static_cast<std::uint64_t>(fraction);
  const std::uint64_t product = places * unit, rest = product % one;
  fixed.Fraction = product / one;
  if (rest >= half) {
    if (++fixed.Fraction == unit) ++fixed.Whole, fixed.Fraction = 0;
    return true;
  }
  // The places cut off add less than one unit to the product.
  return rest + unit < half || static_cast<double>(places) == fraction;
}

/// `value` >= 0 with `decimals` decimals in full, halves away from zero.
std::string RoundExactly(double value, int decimals) {
  // to_chars rounds halves to even. A value lies on a half only as an odd multiple of
  // 2^-(decimals + 1); then one decimal more is its whole text, and ends in the 5 to be cut.
  const bool half = std::fmod(std::ldexp(value, decimals + 1), 2) == 1;
  char text[640];
  const char* const end = std::to_chars(text, std::end(text), value, std::chars_format::fixed,
                                        half ? decimals + 1 : decimals)
                              .ptr;
  std::string result(static_cast<const char*>(text), end);
  if (half) {
    result.erase(result.size() - (decimals == 0 ? 2 : 1));  // the 5, and a point without decimals
    CountUp(result);
  }
  return result;
}

/// The numeric prefix of a text behind its sign; empty (End is the start) without a digit.
struct Prefix {
  const char *MantissaEnd = nullptr, *End = nullptr;
  std::ptrdiff_t Size = 0;  // power of ten of the first digit that isn't 0; 0 without one
};

/// The exponent that starts at `p`, its letter included, into `exponent`; gives its end, or `p`
/// when none stands there.
const char* TakeExponent(const char* p, const char* end, int& exponent) {
  if (p == end || !(*p == 'E' || *p == 'e' || *p == 'D' || *p == 'd')) return p;
  const char* q = p + 1;
  const bool down = q < end && *q == '-';
  if (q < end && IsSign(*q)) ++q;
  if (q == end || !IsDigit(*q)) return p;
  for (; q < end && IsDigit(*q); ++q)
    if (exponent < 100000000) exponent = exponent * 10 + (*q - '0');
  if (down) exponent = -exponent;
  return q;
}

Prefix FindPrefix(const char* p, const char* end) {
  const char* const first = p;
  Prefix prefix;
  bool digit = false, nonzero = false, point = false;
  for (; p < end && (IsDigit(*p) || (*p == '.' && !point)); ++p) {
    if (*p == '.') {
      point = true;
      continue;
    }
    digit = true;
    if (nonzero) {
      prefix.Size += !point;
    } else {
      prefix.Size -= point;
      nonzero = *p != '0';
    }
  }
  if (!digit) return {first, first, 0};
  int exponent = 0;
  prefix.MantissaEnd = p;
  prefix.End = TakeExponent(p, end, exponent);
  prefix.Size = nonzero ? prefix.Size + exponent : 0;
  return prefix;
}

}  // namespace

std::string_view StripBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

double NumberOf(std::string_view text) {
  const char* p = text.data();
  const char* const end = p + text.size();
  while (p < end && *p == ' ') ++p;
  const bool negative = p < end && *p == '-';
  if (p < end && IsSign(*p)) ++p;

  const Prefix prefix = FindPrefix(p, end);
  if (prefix.End == p) return 0;
  double value = 0;
  std::from_chars_result result{};
  const char letter = prefix.MantissaEnd < prefix.End ? *prefix.MantissaEnd : 'e';
  if (letter == 'D' || letter == 'd') {
    std::string other(p, prefix.End);  // FromChars takes e alone
    other[static_cast<std::size_t>(prefix.MantissaEnd - p)] = 'e';
    result = FromChars(other.data(), other.data() + other.size(), value);
  } else {
    result = FromChars(p, prefix.End, value);
  }
  if (result.ec != std::errc{} || !std::isfinite(value))
    value = prefix.Size > 0 ? std::numeric_limits<double>::max() : 0;
  return negative ? -value : value;
}

bool IsNumberText(std::string_view text) {
  text = StripBlanks(text);
  if (text == "." || text == "-" || text == "+") return false;
  bool point = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '.') {
      if (point) return false;
      point = true;
    } else if (IsSign(c)) {
      if (i > 0 && text[i - 1] != 'E') return false;
    } else if (!IsDigit(c) && c != 'E') {  // a lower-case e is refused
      return false;
    }
  }
  return true;
}

std::int16_t DigitsOfText(std::string_view text) {
  int value = 0;
  for (char c : text)
    if (IsDigit(c)) {
      value = value * 10 + (c - '0');
      if (value > 32767) FailOverflow();
    }
  return static_cast<std::int16_t>(value);
}

std::string FormatNumber(double value, std::string_view picture) {
  const Picture shape = ReadPicture(picture);
  if (!std::isfinite(value)) return {};
  const char sign = value < 0 ? '-' : ' ';  // -0.0 counts as 0
  value = std::abs(value);

  Fixed fixed;
  if (shape.Whole <= 20 && RoundFast(value, shape.Decimals, fixed)) {
    char text[64];
    char* const end = std::end(text);
    char* out = end;
    for (int i = 0; i < shape.Decimals; ++i, fixed.Fraction /= 10)
      *--out = static_cast<char>('0' + fixed.Fraction % 10);
    if (shape.Decimals > 0) *--out = '.';
    int whole = 0;
    for (; fixed.Whole > 0 || whole < shape.Whole; ++whole, fixed.Whole /= 10)
      *--out = static_cast<char>('0' + fixed.Whole % 10);
    *--out = sign;
    return {out, end};
  }
  std::string digits = RoundExactly(value, shape.Decimals);
  const std::size_t whole = std::min(digits.find('.'), digits.size());
  if (whole < static_cast<std::size_t>(shape.Whole))
    digits.insert(0, static_cast<std::size_t>(shape.Whole) - whole, '0');
  return sign + digits;
}

std::string TrimmedNumber(double value, std::string_view picture) {
  return std::string(StripBlanks(FormatNumber(value, picture)));
}

ExponentParts SplitExponent(double value) {
  if (!std::isfinite(value) || value == 0) return {};
  char text[48];
  const char* const end =
      std::to_chars(text, std::end(text), value, std::chars_format::scientific, 30).ptr;
  const std::string_view whole(text, static_cast<std::size_t>(end - text));
  const std::size_t e = whole.find('e');
  return {NumberOf(whole.substr(0, e)), static_cast<std::int16_t>(NumberOf(whole.substr(e + 1)))};
}

std::string SignificantText(double value, int digits) {
  if (digits < 1 || digits > ExactDecimals - 2) FailArgument();
  if (!std::isfinite(value)) return {};
  const std::size_t count = static_cast<std::size_t>(digits);
  Decimal d{std::string(count, '0'), 0};
  if (value != 0) {
    d = DigitsOf(std::abs(value), digits + 2);   // three digits more than shown decide,
    if (d.Digits.compare(count, 3, "500") == 0)  // unless they are themselves rounded to a half
      d = DigitsOf(std::abs(value), ExactDecimals);
    const bool up = d.Digits[count] >= '5';
    d.Digits.resize(count);
    if (up) CountUp(d.Digits);
    if (d.Digits.size() > count) {
      d.Digits.pop_back();
      ++d.Exponent;
    }
  }
  if (digits > 1) d.Digits.insert(1, 1, '.');
  const int size = std::abs(d.Exponent);
  std::string text = value == 0 ? " " : value < 0 ? "-" : "";  // only 0 has a blank
  text.append(d.Digits).append(d.Exponent < 0 ? "E-" : "E+").append(size < 10 ? "0" : "");
  return text + std::to_string(size);
}

void AppendPlainText(std::string& text, float value) { AppendShortest(text, value, 1e7f); }

void AppendPlainText(std::string& text, double value) { AppendShortest(text, value, 1e15); }

void AppendPlainText(std::string& text, int value) {
  char digits[16];
  text.append(digits, std::to_chars(digits, std::end(digits), value).ptr);
}

void AppendPlainText(std::string& text, const Number& value) {
  switch (value.width()) {
    case Number::Width::Single:
      return AppendPlainText(text, value.Single());
    case Number::Width::Double:
      return AppendPlainText(text, static_cast<double>(value));
    case Number::Width::Unset:
      text += '0';
  }
}

}  // namespace velorix
