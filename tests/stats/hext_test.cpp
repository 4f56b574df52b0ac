#include "stats/group/hext.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/stats/published_groups.h"

namespace velorix {
namespace {

// Calculated independently with numpy and scipy. Published, with 32-bit arithmetic: the angles of
// the site, 25.46, 25.11 and 13.29; sigma of the dike, 0.00180307942, and its critical values.
TEST(Hext, AgreesWithPublishedGroups) {
  const struct {
    const std::vector<TensorColumn>& Group;
    HextStats Is;
  } cases[] = {{Dike,
                {30, 0.0018030803226754, 16.850636658500125, 2.53355454755927, 3.9019514228274357,
                 19.067436598467776, 3.315829501013522, 24.745902050082044, 11.77780673085562,
                 8.169729341204869}},
               {Tr245,
                {42, 0.000641810259112847, 5.77138998591785, 2.437692640311651, 3.5510231007450597,
                 3.6635066928838818, 3.219942293176123, 25.460098175269415, 25.11505154217167,
                 13.289936555656096}}};
  for (const auto& [group, is] : cases) {
    const std::optional<HextStats> hext = Hext(group);
    ASSERT_TRUE(hext);
    EXPECT_EQ(hext->Nf, is.Nf);
    for (const auto field :
         {&HextStats::Sigma, &HextStats::F, &HextStats::FCritical, &HextStats::F12, &HextStats::F23,
          &HextStats::F12Critical, &HextStats::E12, &HextStats::E23, &HextStats::E13})
      EXPECT_NEAR(*hext.*field / is.*field, 1, 1e-9);
  }
}

TEST(Hext, IsNotDefinedWithoutScatterOrAPositiveTrace) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(Hext(std::span(Dike).first(1)));
  EXPECT_FALSE(Hext(std::vector<TensorColumn>(6, Dike[0])));
  for (const TensorColumn& wrong : {TensorColumn{-1, -1, 2, 0, 0, 0}, {1, 1, 1, 0, nan, 0}}) {
    std::vector<TensorColumn> group = Dike;
    group.push_back(wrong);
    EXPECT_FALSE(Hext(group));
  }
}

TEST(Hext, EqualPrincipalValuesHaveNoFAndARightAngle) {
  const std::optional<HextStats> h =
      Hext(std::vector<TensorColumn>{{1, 1, 1, 0.1, 0, 0}, {1, 1, 1, -0.1, 0, 0}});
  ASSERT_TRUE(h);
  EXPECT_EQ(h->F, 0);
  EXPECT_EQ(h->E12, 90);
}

TEST(Hext, VerdictTakesTheFirstTestThatIsNotPassed) {
  HextStats h{.F = 9, .FCritical = 2.5, .F12 = 9, .F23 = 9, .F12Critical = 3.3};
  EXPECT_STREQ(WordsOf(VerdictOf(h)), "triaxial");
  h.F23 = 3.2;
  EXPECT_STREQ(WordsOf(VerdictOf(h)), "prolate not rejected");
  h.F12 = 3.2;
  EXPECT_STREQ(WordsOf(VerdictOf(h)), "oblate not rejected");
  h.F = 2.4;
  EXPECT_STREQ(WordsOf(VerdictOf(h)), "isotropic");
}

}  // namespace
}  // namespace velorix
