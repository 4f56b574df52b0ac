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

}  // namespace
}  // namespace velorix
