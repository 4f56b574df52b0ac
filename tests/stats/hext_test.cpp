#include "stats/hext.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace velorix {
namespace {

// Groups with trace 1, examples that PmagPy ships with: a dike at Scripps Beach, and a site in
// geographic coordinates.
const std::vector<TensorColumn> Dike = {
    {0.33586472, 0.32757074, 0.33656454, 0.0056526, 0.00449771, -0.00036542},
    {0.33815295, 0.32601482, 0.33583224, 0.00754076, 0.00405271, -0.0001627},
    {0.33806428, 0.32925552, 0.33268023, 0.00480824, -0.00168595, 0.0009308},
    {0.33939844, 0.32750368, 0.33309788, 0.00763409, 0.00264978, 0.00070303},
    {0.3348785, 0.32816416, 0.33695734, 0.00574405, 0.00278172, -0.00073475},
    {0.33485019, 0.32948497, 0.33566481, 0.00597801, 0.00426423, -0.00040056}};
const std::vector<TensorColumn> Tr245 = {
    {0.3341268, 0.33282742, 0.33304584, -0.00015292, 0.00124846, 0.00135721},
    {0.335563, 0.33198264, 0.33245432, 0.0008726, 0.00024138, 0.00096167},
    {0.33584911, 0.33140624, 0.33274472, 0.00131844, 0.00118815, 2.988e-05},
    {0.33479759, 0.33142531, 0.33377719, -0.00047491, 0.00049539, 0.000443},
    {0.33505613, 0.33114848, 0.33379537, -0.00101373, 0.00028536, 0.00034849},
    {0.33406156, 0.33226913, 0.33366925, -2.266e-05, 0.00098544, 5.555e-05},
    {0.33486593, 0.33216035, 0.33297372, -0.00035492, 0.00039254, 0.00015402},
    {0.33510643, 0.33196402, 0.33292958, 0.00075968, 0.00057242, 0.0001011}};

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
