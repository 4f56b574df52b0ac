#include "stats/study/untilting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace velorix {
namespace {

using Triple = std::array<double, 3>;

Triple AxisAt(double dec, double inc) {
  constexpr double degree = std::numbers::pi / 180;
  return {std::cos(inc * degree) * std::cos(dec * degree),
          std::cos(inc * degree) * std::sin(dec * degree), std::sin(inc * degree)};
}

/// A direction of a horizontal bed after the bed was tilted: its parts along strike, along the dip
/// direction and downward.
Triple Tilted(const Triple& v, double dipDirection, double dip) {
  const Triple along = AxisAt(dipDirection, 0), down = AxisAt(dipDirection, dip),
               strike = AxisAt(dipDirection + 90, 0), normal = AxisAt(dipDirection + 180, 90 - dip);
  const auto dot = [&v](const Triple& w) { return v[0] * w[0] + v[1] * w[1] + v[2] * w[2]; };
  Triple tilted;
  for (std::size_t i = 0; i < 3; ++i)
    tilted[i] = dot(along) * down[i] + dot(strike) * strike[i] + v[2] * normal[i];
  return tilted;
}

/// A fold with its axis to the north, a site a dip, two specimens a site. The fabric, Kmax some 60
/// degrees from the axis and Kmin normal to bedding, is acquired when the beds have a share of
/// their dip.
Session Fold(double shareWhenMagnetized, int sites = 10) {
  constexpr double trends[] = {64, 57, 61, 68, 52, 55, 66, 60, 58, 63},
                   plunges[] = {3, -4, -2, 5, 6, 1, -5, -1, -1, 2};
  Session session;
  session.FoliCode = "S0";
  for (int site = 0; site < sites; ++site) {
    const double dipDirection = site % 2 == 0 ? 90 : 270, dip = 25 + 4 * site;
    for (int specimen = 0; specimen < 2; ++specimen) {
      const double trend = trends[site] + 3 * specimen, plunge = plunges[site];
      const Triple kmax = AxisAt(trend, plunge), kint = AxisAt(trend + 90, 0),
                   kmin = AxisAt(trend + 180, 90 - plunge);
      SpecimenRecord r;
      r.Active = r.HasCoor[2] = true;
      r.CoorLevel = Geographic;
      r.SourceProgram = "Marlo";
      r.Site = "site " + std::to_string(site);
      r.FoliName[1] = "S0";
      r.FoliAz[1] = static_cast<float>(dipDirection);
      r.FoliDip[1] = static_cast<float>(dip);
      double t[3][3] = {};
      const Triple axes[] = {kmax, kint, kmin};
      const double values[] = {1.04, 1.01, 0.95};
      for (int k = 0; k < 3; ++k) {
        const Triple v = Tilted(axes[k], dipDirection, dip * (1 - shareWhenMagnetized));
        for (std::size_t i = 0; i < 3; ++i)
          for (std::size_t j = 0; j < 3; ++j) t[i][j] += values[k] * v[i] * v[j];
      }
      const double six[] = {t[0][0], t[1][1], t[2][2], t[0][1], t[1][2], t[0][2]};
      for (int c = 1; c <= 6; ++c) r.Tensor[c] = static_cast<float>(six[c - 1]);
      session.Records.Add(r);
    }
  }
  return session;
}

Untilting UntiltingOf(const Session& session, std::optional<std::uint32_t> seed = {}) {
  return *UntiltGroups(session, PartRecords(session, *ParseGroupBy("site")), seed);
}

// Calculated independently: rotations by quaternions, eigenvalues in closed form, other random
// numbers.
TEST(UntiltGroups, FindsWhenTheFabricOfAFoldWasAcquired) {
  const struct {
    double Share;
    int Best;
    const char* Verdict;
  } cases[] = {{0, 99, "older than the folding"},
               {1, -1, "younger"},
               {0.5, 49, "during the folding, or not resolved"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Share);
    const Untilting u = UntiltingOf(Fold(c.Share), 1);
    for (const UntiltBest* best : {&u.Kmax, &u.Kmin}) {
      EXPECT_EQ(best->Step, c.Best);
      EXPECT_EQ(best->Verdict, c.Verdict);
    }
    ASSERT_TRUE(u.Kmax.Limits && u.Kmin.Limits);
    EXPECT_NEAR(u.Kmax.Limits->Lower, c.Best - 5, 1);
    EXPECT_NEAR(u.Kmax.Limits->Upper, c.Best + 6, 1);
    EXPECT_NEAR(u.Kmin.Limits->Lower, c.Best - 4, 1);
    EXPECT_NEAR(u.Kmin.Limits->Upper, c.Best + 5, 1);
  }
  const UntiltStep step = UntiltingOf(Fold(0)).Steps[50];
  EXPECT_EQ(step.Percent, 40);
  EXPECT_NEAR(*step.P, 1.0638624274406445, 1e-7);  // 32-bit tensors in a record
  EXPECT_NEAR(*step.T, 0.3079648152809214, 1e-5);
  EXPECT_NEAR(*step.TauMax, 0.8420239863832539, 1e-7);
  EXPECT_NEAR(*step.TauMin, 0.8058462769352027, 1e-7);
}

TEST(UntiltGroups, ResamplesAlikeFromOneSeedAndNotBelowFiveGroups) {
  const Session fold = Fold(0, 7);
  const Untilting a = UntiltingOf(fold, 1), again = UntiltingOf(fold, 1);
  EXPECT_EQ(a.Kmax.Limits, again.Kmax.Limits);
  EXPECT_EQ(UntiltingOf(fold).Seed, GaussSeed);
  bool differs = false;
  for (std::uint32_t seed = 2; seed < 6; ++seed)
    differs |= UntiltingOf(fold, seed).Kmax.Limits != a.Kmax.Limits;
  EXPECT_TRUE(differs);
  const Untilting four = UntiltingOf(Fold(0, 4));
  EXPECT_TRUE(four.Kmax.Step);
  EXPECT_FALSE(four.Kmax.Limits);
  EXPECT_EQ(four.Kmax.Verdict, "");
  int steps = 0;
  EXPECT_FALSE(UntiltGroups(fold, PartRecords(fold, *ParseGroupBy("site")), {},
                            [&steps](int done) { return (steps = done) < 3; }));
  EXPECT_EQ(steps, 3);
}

TEST(UntiltGroups, LeavesOutWhatCannotBeUntilted) {
  Session fold = Fold(0, 8);  // records 2 s + 1 and 2 s + 2 are those of site s
  fold.Records[1].FoliName[1] = "S1";
  fold.Records[3].FoliName[1] = fold.Records[4].FoliName[1] = "";
  fold.Records[5].Tensor[1] = std::numeric_limits<float>::quiet_NaN();
  fold.Records[7].FoliDip[1] = std::numeric_limits<float>::infinity();
  for (int c : {1, 2, 3}) fold.Records[9].Tensor[c] = -1.0f;
  fold.Records[11].FoliName[2] = "S0";  // of two with the code the second
  fold.Records[11].FoliDip[2] = std::numeric_limits<float>::quiet_NaN();
  const Untilting u = UntiltingOf(fold);
  const std::optional<int> used[] = {1, 0, {}, {}, {}, {}, 2, 2};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(u.Groups[i].Used, used[i]) << i;
  EXPECT_EQ(u.LeftOut, 3);
  EXPECT_EQ(u.UsedGroups(), 3);
  EXPECT_TRUE(u.Kmax.Step && !u.Kmax.Limits);

  fold.FoliCode = "";  // of no record, though some have no name in a slot
  const Untilting none = UntiltingOf(fold);
  EXPECT_EQ(none.LeftOut, 16);
  EXPECT_FALSE(none.Steps[0].P || none.Steps[0].TauMax || none.Kmax.Step);

  Session limb = Fold(1, 8);  // all turn alike, so that no step is best
  for (SpecimenRecord& record : limb.Records) record.FoliAz[1] = record.FoliDip[1] = 30;
  EXPECT_FALSE(UntiltingOf(limb).Kmax.Step);
}

TEST(UntiltVerdict, GoesByTheEndsOfTheLimits) {
  const std::pair<Interval, const char*> cases[] = {
      {{0.5, 100}, "older than the folding"},
      {{0, 99.5}, "younger"},
      {{0.5, 99.5}, "during the folding, or not resolved"},
      {{0, 100}, "not decided"},
      {{101, 110}, "not decided"},
      {{-10, -1}, "not decided"}};
  for (const auto& [limits, verdict] : cases)
    EXPECT_EQ(UntiltVerdict(limits), verdict) << limits.Lower << " to " << limits.Upper;
}

}  // namespace
}  // namespace velorix
