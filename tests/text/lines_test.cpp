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

TEST(Lines, SplitBlanksSplitsAtRunsOfBlanksOnly) {
  const struct {
    const char* line;
    Parts wanted;
  } cases[] = {
      {"  two   words  ", {"two", "words"}},
      {"a", {"a"}},
      {" a ", {"a"}},
      {"", {""}},
      {"    ", {""}},
      {"a\tb c", {"a\tb", "c"}},
  };
  for (const auto& c : cases) EXPECT_EQ(PartsOf(SplitBlanks(c.line)), c.wanted) << c.line;
}

TEST(Lines, TokensCountFromOneAndAnIndexPastThemIsAnError) {
  Tokens tokens = SplitBlanks("x y");
  EXPECT_EQ(tokens.Token(2), "y");
  EXPECT_THROW(tokens.Token(3), Fault);
  EXPECT_THROW(tokens.Token(0), Fault);
  SplitBlanks("z", tokens);  // the next line takes the place of the former one
  EXPECT_EQ(PartsOf(tokens), Parts{"z"});
}

TEST(Lines, SplitAtCharHasAHundredTokensFromTheStart) {
  const std::string text = "120//35/";
  const Tokens tokens = SplitAtChar(text, '/');
  EXPECT_EQ(tokens.Token(1), "120");
  EXPECT_EQ(tokens.Token(2), "35");
  EXPECT_EQ(tokens.Token(3), "");
  EXPECT_EQ(tokens.Token(100), "");
  EXPECT_THROW(tokens.Token(101), Fault);
  std::string long_;
  for (int i = 0; i < 100; ++i) long_ += "a/";
  EXPECT_EQ(SplitAtChar(long_, '/').Token(100), "a");
  long_ += "b";
  EXPECT_THROW(SplitAtChar(long_, '/'), Fault);
}

TEST(Lines, CleanNameDropsCodesBelow30AndStripControlsBelow32) {
  const std::string text = std::string("  N\0A\t1 \x1D\x1E\x1F\xC3\xA9  ", 15);
  EXPECT_EQ(CleanName(text), "NA1 \x1E\x1F\xC3\xA9");
  EXPECT_EQ(StripControls(text), "  NA1 \xC3\xA9  ");
}

}  // namespace
}  // namespace velorix
