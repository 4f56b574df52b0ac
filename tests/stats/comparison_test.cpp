#include "stats/study/comparison.h"

#include <gtest/gtest.h>

#include "tests/stats/gauss_table.h"
#include "tests/stats/published_groups.h"

namespace velorix {
namespace {

/// A store of the tensors, shown in the geographic system; the groups' names are those of the
/// sites.
void AddSite(Session& session, const std::string& site, std::span<const TensorColumn> tensors) {
  for (const TensorColumn& t : tensors) {
    SpecimenRecord r;
    r.Active = true;
    r.CoorLevel = Geographic;
    r.Site = site;
    for (int c = 1; c <= 6; ++c) r.TensorRot[c] = 3 * t[c];
    session.Records.Add(r);
  }
}

std::vector<GroupComparison> ComparisonsOf(const Session& session, const BootChoice& boot) {
  std::vector<GroupComparison> all;
  const auto take = [&all](std::size_t, std::size_t, const GroupComparison& c) {
    all.push_back(c);
  };
  EXPECT_TRUE(CompareGroups(session, PartRecords(session, *ParseGroupBy("site")), boot,
                            GaussNumbers(), take));
  return all;
}

// Calculated independently with numpy and scipy, the limits by 200,000 replicates.
TEST(CompareGroups, AgreesWithAnIndependentCalculation) {
  Session session;
  AddSite(session, "dike", Dike);
  AddSite(session, "tr245", Tr245);
  const struct {
    BootMethod Method;
    BootLimits Limits;
  } cases[] = {
      {BootMethod::Parametric, {{0.003794, 0.000275, -0.009201}, {0.006967, 0.003715, -0.005555}}},
      {BootMethod::Simple, {{0.004067, 0.000377, -0.008869}, {0.006883, 0.003350, -0.005696}}}};
  for (const auto& [method, limits] : cases) {
    const std::vector<GroupComparison> all = ComparisonsOf(session, {method, 4000, 1});
    ASSERT_EQ(all.size(), 1u);
    const GroupComparison& c = all.front();
    ASSERT_TRUE(c.Angle && c.Overlap && c.ValueDifference);
    const double angles[] = {23.47246155633547, 18.56749863404491, 28.174318517413926};
    for (int k = 1; k <= 3; ++k) {
      EXPECT_NEAR((*c.Angle)[k], angles[k - 1], 0.01);  // 32-bit tensors in a record
      EXPECT_EQ((*c.Overlap)[k], k == 2);
      EXPECT_EQ(c.AxisDiffers[k], true);
      const double width = limits.Upper[k] - limits.Lower[k];
      EXPECT_NEAR(c.ValueDifference->Lower[k], limits.Lower[k], width / 20) << k;
      EXPECT_NEAR(c.ValueDifference->Upper[k], limits.Upper[k], width / 20) << k;
    }
  }
}

TEST(CompareGroups, LeavesOutWhatAGroupIsTooSmallFor) {
  Session session;
  AddSite(session, "first half", std::span(Tr245).first(4));
  AddSite(session, "second half", std::span(Tr245).last(4));
  AddSite(session, "one", std::span(Dike).first(1));
  AddSite(session, "bad", std::vector<TensorColumn>{{-1, 0, 0, 0, 0, 0}, {1, 1, 1, 0, 0, 0}});
  const std::vector<GroupComparison> all =
      ComparisonsOf(session, {BootMethod::Parametric, 4000, 1});
  ASSERT_EQ(all.size(), 6u);
  EXPECT_TRUE(all[0].Angle && all[0].ValueDifference && !all[0].Overlap);
  for (int k = 1; k <= 3; ++k) EXPECT_EQ(all[0].AxisDiffers[k], false);
  EXPECT_TRUE(all[1].Angle && !all[1].ValueDifference && !all[1].AxisDiffers[1]);
  EXPECT_FALSE(all[2].Angle || all[2].ValueDifference);
}

}  // namespace
}  // namespace velorix
