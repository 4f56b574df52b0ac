#include "text/upper_case.h"

#include <gtest/gtest.h>

namespace velorix {
namespace {

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
  for (const auto& [text, wanted] : cases) EXPECT_EQ(UpperCase(text), wanted);
}

TEST(LowerCase, IsTheWayBack) {
  EXPECT_EQ(LowerCase("ŽLUŤOUČKÝ KŮŇ Ÿ.GED"), "žluťoučký kůň ÿ.ged");
  EXPECT_EQ(LowerCase("ŁÓDŹ Ğ × ΚΛΣ ПОРОДА Ё"), "łódź ğ × κλσ порода ё");
  for (const char* letter : {"a", "é", "ğ", "ł", "ž", "λ", "ж", "ђ"})
    EXPECT_EQ(LowerCase(UpperCase(letter)), letter);
}

}  // namespace
}  // namespace velorix
