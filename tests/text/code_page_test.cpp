#include "text/code_page.h"

#include <gtest/gtest.h>

namespace velorix {
namespace {

TEST(CodePage, EveryByteComesBackAsItWas) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes);
  for (char byte : bytes) EXPECT_EQ(ToCodePage(FromCodePage({&byte, 1})), std::string(1, byte));
}

TEST(CodePage, BytesStandForTheCharactersOfWindows1252) {
  const struct {
    const char *bytes, *text;
  } cases[] = {
      {"\x80 \x9F", "€ Ÿ"},
      {"\xE9t\xE9", "été"},
      {"\x8E\x9E\x8A\x9A", "ŽžŠš"},
      {"\x81\x9D", "\xC2\x81\xC2\x9D"},  // unassigned: control characters
      {"eight ascii first \xB0", "eight ascii first °"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FromCodePage(c.bytes), c.text);
    EXPECT_EQ(ToCodePage(c.text), c.bytes);
  }
  std::string kept = "something longer than before";
  FromCodePage("x\x80", kept);
  EXPECT_EQ(kept, "x€");
}

TEST(CodePage, WhatThePageLacksBecomesAQuestionMark) {
  const struct {
    const char *text, *bytes;
  } cases[] = {
      {"Řež", "?e\x9E"},
      {"岩", "?"},
      {"𝄞a", "?a"},
      {"\xC2\x80", "?"},        // the control character whose byte is the euro's
      {"\xC3", "?"},            // cut off
      {"\xE2\x82", "??"},       // cut off
      {"\xC0\xAF", "??"},       // overlong
      {"\xED\xA0\x80", "???"},  // a surrogate
      {"\xF4\x90\x80\x80", "????"},
      {"\xFFz\x80", "?z?"},
  };
  for (const auto& c : cases) EXPECT_EQ(ToCodePage(c.text), c.bytes) << c.text;
}

}  // namespace
}  // namespace velorix
