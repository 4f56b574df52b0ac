#include "text/upper_case.h"

#include <gtest/gtest.h>

namespace velorix {
namespace {

TEST(UpperCase, KnowsTheLettersOfEuropeAndKeepsTheRest) {
  const struct {
    const char *text, *wanted;
  } cases[] = {{"/home/me/site 1.ams", "/HOME/ME/SITE 1.AMS"},
               {"žluťoučký kůň ÿ", "ŽLUŤOUČKÝ KŮŇ Ÿ"},
               {"straße ÷ łódź ğ", "STRAßE ÷ ŁÓDŹ Ğ"},
               {"κλίση μ ως", "ΚΛίΣΗ Μ Ως"},
               {"порода ёж", "ПОРОДА ЁЖ"},
               {"日本 €", "日本 €"},
               {"bad \xC3", "BAD \xC3"},
               {"bad \xFF\xE0 x", "BAD \xFF\xE0 X"}};
  for (const auto& c : cases) EXPECT_EQ(UpperCase(c.text), c.wanted);
}

}  // namespace
}  // namespace velorix
