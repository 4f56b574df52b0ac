#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/number.h"

namespace velorix {

// Numbers become text and back without any locale: the decimal mark is always a point.

/// `text` without the blanks (not tabs) at both ends.
std::string_view StripBlanks(std::string_view text);

/// The value of the longest numeric prefix of `text`: leading blanks, a sign, digits with at most
/// one point, and an exponent behind E, e, D or d when a digit follows. The first character that
/// can't continue a number, a blank too, ends it; a text that starts with no number gives 0. It
/// never fails: beyond the 64-bit range the result is the largest finite value of its sign, below
/// it 0.
double NumberOf(std::string_view text);

/// Whether `text`, stripped of blanks, may stand in a number field: empty, or made of digits, at
/// most one point, signs in the first place or right behind "E", and "E" (upper case only), and not
/// of a lone point or sign. It looks at characters, not at sense: "E" and "1E" pass.
bool IsNumberText(std::string_view text);

/// The digits of `text` in order as one 16-bit integer, 0 when there are none; "Overflow" above
/// 32767.
std::int16_t DigitsOfText(std::string_view text);

/// `value` under a picture of zeros with at most one point, such as "0.000": at least as many whole
/// digits (one at least), exactly as many decimals. Halves round away from zero, by the exact
/// decimal value of the 64-bit float (0.125 under "0.00" is 0.13; 2.675, in truth 2.67499...,
/// is 2.67). A value of 0 or more, -0.0 too, gets one blank in front so that columns of signed
/// numbers line up; a negative one its "-", also when it rounds to zero. A value that is not finite
/// gives the empty text; another picture is "Invalid procedure call or argument".
std::string FormatNumber(double value, std::string_view picture);
/// The same without the blank in front, for a number within a sentence.
std::string TrimmedNumber(double value, std::string_view picture);

/// A value as mantissa (1 <= |Mantissa| <= 10, or 0) and power of ten.
struct ExponentParts {
  double Mantissa = 0;
  std::int16_t Exponent = 0;

  bool operator==(const ExponentParts&) const = default;
};

/// `value` split by its decimal text of 30 decimals; 0 and values that are not finite give 0, 0.
ExponentParts SplitExponent(double value);

/// `value` in exponent form with `digits` (at least 1) significant digits, halves away from zero:
/// "1.235E-05", "-1.000E+10". 0 has a blank in front: " 0.000E+00". A value that is not finite
/// gives the empty text.
std::string SignificantText(double value, int digits);

/// Puts the plain text of a number behind `text`: the shortest that reads back to the same value of
/// its own width. Fixed notation ("0.0001"), or exponent form ("1.5E-05", "1E+09") when the decimal
/// exponent is below -4, or at least 7 for a 32-bit and 15 for a 64-bit float. 0, -0.0 and an unset
/// number give "0", a value that is not finite nothing.
void AppendPlainText(std::string& text, float value);
void AppendPlainText(std::string& text, double value);
void AppendPlainText(std::string& text, int value);
void AppendPlainText(std::string& text, const Number& value);
/// The plain text alone.
template <class Value>
std::string PlainText(const Value& value) {
  std::string text;
  AppendPlainText(text, value);
  return text;
}

}  // namespace velorix
