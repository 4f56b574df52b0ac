#include "text/lines.h"

#include <gtest/gtest.h>

namespace velorix {
namespace {

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
  for (const auto& [line, wanted] : cases) {
    EXPECT_EQ(PartsOf(SplitBlanks(line)), wanted) << line;
    SplitBlanks(line, tokens);  // takes the place of the former line
    EXPECT_EQ(PartsOf(tokens), wanted) << line;
  }
  EXPECT_THROW(tokens.Token(3), Fault);
  EXPECT_THROW(tokens.Token(0), Fault);
}

TEST(Lines, SplitAtCharHasAHundredTokensFromTheStart) {
  const Tokens tokens = SplitAtChar("120//35/", '/');
  const std::pair<int, const char*> wanted[] = {{1, "120"}, {2, "35"}, {3, ""}, {100, ""}};
  for (const auto& [i, token] : wanted) EXPECT_EQ(tokens.Token(i), token) << i;
  EXPECT_THROW(tokens.Token(101), Fault);
  std::string line;
  for (int i = 0; i < 100; ++i) line += "a/";
  EXPECT_EQ(SplitAtChar(line, '/').Token(100), "a");
  EXPECT_THROW(SplitAtChar(line += "b", '/'), Fault);
}

TEST(Lines, CleanNameDropsCodesBelow30AndStripControlsBelow32) {
  const std::string text = std::string("  N\0A\t1 \x1D\x1E\x1F\xC3\xA9  ", 15);
  EXPECT_EQ(CleanName(text), "NA1 \x1E\x1F\xC3\xA9");
  EXPECT_EQ(StripControls(text), "  NA1 \xC3\xA9  ");
}

}  // namespace
}  // namespace velorix
