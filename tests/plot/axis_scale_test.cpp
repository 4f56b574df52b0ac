#include "plot/axis_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/fault.h"
#include "plot/parameters.h"

namespace velorix {
namespace {

void ExpectNear(const AxisRange& axis, const AxisRange& wanted) {
  const double near = 1e-9 * wanted.step;
  EXPECT_NEAR(axis.lower, wanted.lower, near);
  EXPECT_NEAR(axis.upper, wanted.upper, near);
  EXPECT_NEAR(axis.first, wanted.first, near);
  EXPECT_NEAR(axis.step, wanted.step, near);
  EXPECT_NEAR(axis.minor, wanted.minor, near);
}

TEST(AxisScale, RoundsTheDataOutToWholeSteps) {
  const struct {
    double lower, upper;
    AxisRange wanted;
  } cases[] = {{0, 100, {0, 120, 0, 20, 10}},  // mantissa 1
               {0, 20, {0, 25, 0, 5, 1}},      // mantissa exactly 2 takes the middle step
               {0, 50, {0, 55, 0, 5, 1}},      // exactly 5 too
               {5, 5, {5, 5.5, 5, 0.5, 0.1}},
               {-5, -5, {-5, -4.5, -5, 0.5, 0.1}},
               {0, 0, {0, 0.2, 0, 0.2, 0.1}},
               {-0.37, 0.41, {-0.4, 0.5, -0.4, 0.1, 0.02}},
               {1.013, 1.047, {1.01, 1.05, 1.01, 0.005, 0.001}},
               {0, 19, {0, 20, 0, 2, 1}},            // just below mantissa 2
               {0, 51, {0, 60, 0, 10, 2}},           // just above 5
               {0, 1, {0, 1.2, 0, 0.2, 0.1}},        // mantissa 1 of the next power
               {3, 7, {3, 7.5, 3, 0.5, 0.1}},        // an end on a step gets one step more
               {3, 7.2, {3, 7.5, 3, 0.5, 0.1}},      // 14.4 steps round to 14
               {3, 7.3, {3, 8, 3, 0.5, 0.1}},        // 14.6 to 15
               {3, 7.25, {3, 7.5, 3, 0.5, 0.1}},     // halves to even: 14.5 to 14
               {3.25, 7.75, {3, 8.5, 3, 0.5, 0.1}},  // 15.5 to 16
               {-8, -2, {-8, -1, -8, 1, 0.2}},
               // The power of ten comes from an exponential, a hair off: so an end on a step may
               // go one step down.
               {-0.3, 0.3, {-0.4, 0.4, -0.4, 0.1, 0.02}},
               {2.5e-4, 3.1e-4, {2.5e-4, 3.2e-4, 2.5e-4, 1e-5, 2e-6}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.lower) + " to " + std::to_string(c.upper));
    ExpectNear(AxisScale(c.lower, c.upper), c.wanted);
  }
  EXPECT_THROW(AxisScale(0, INFINITY), Fault);
  EXPECT_THROW(AxisScale(NAN, 1), Fault);
}

TEST(AxisScale, NeverGivesMoreThanAHundredAndOneTicks) {
  int ticks = 0;
  ForEachTick({0, 120, 0, 20, 10}, [&](double) { ++ticks; });
  EXPECT_EQ(ticks, 7);
  ticks = 0;
  ForEachTick({0, 1, 0, 0, 0}, [&](double) { ++ticks; });
  EXPECT_EQ(ticks, MaxTicks);
}

TEST(TickPicture, FollowsTheStepOrThePowerOfTen) {
  const struct {
    double step;
    const char* picture;
  } plain[] = {{20, "0"},      {1, "0"},         {0.5, "0.0"},
               {0.02, "0.00"}, {0.005, "0.000"}, {1e-6, "0.000"}};
  for (const auto& p : plain) EXPECT_STREQ(TickPicture(p.step), p.picture) << p.step;
  const struct {
    double lower, step;
    const char* picture;
  } power[] = {{2e-3, 1e-3, "0"}, {2e-3, 5e-4, "0.0"}, {1e-3, 2e-9, "0.00000"}, {1e-5, 1e-3, "0"}};
  for (const auto& p : power) EXPECT_STREQ(PowerTickPicture(p.lower, p.step), p.picture);
}

TEST(Parameters, HaveTheirFixedEndsUnitsAndWords) {
  Settings settings;
  settings.FacName[1] = "Lambda";
  const struct {
    int index;
    const char *title, *unit;
    double lower, upper, step;
  } cases[] = {{0, "#", "", 0, 7, 0.5},
               {1, "Field", "A/m", 0, 7.5, 0.5},
               {4, "Lambda", "", 1, 7.5, 0.5},
               {8, "T", "", -1, 1, 0.5},
               {10, "Q", "", 2, 7.5, 0.5},
               {12, "Kmax_Dec", "deg", 0, 360, 30},
               {17, "Kmin_Inc", "deg", 0, 90, 10},
               {23, "13", "deg", 2, 7.5, 0.5}};
  for (const auto& c : cases) {
    EXPECT_EQ(ParameterTitle(c.index, settings), c.title);
    EXPECT_STREQ(ParameterUnit(c.index), c.unit);
    const AxisRange axis = ParameterScale(c.index, 2, 7);
    EXPECT_NEAR(axis.lower, c.lower, 1e-9) << c.index;
    EXPECT_NEAR(axis.first, c.lower, 1e-9) << c.index;
    EXPECT_NEAR(axis.upper, c.upper, 1e-9) << c.index;
    EXPECT_NEAR(axis.step, c.step, 1e-9) << c.index;
  }
}

TEST(Parameters, TakeTheBlockInView) {
  SpecimenRecord r;
  r.Km = 1;
  r.KmIm = 2;
  r.E[1] = 13.0;
  r.EIm[1] = 14.0;
  r.Fac[8] = 8;
  r.Inc[3] = 30.0;
  const struct {
    int index;
    double kre, kim;
  } cases[] = {{0, 5, 5}, {3, 1, 2}, {11, 8, 8}, {17, 30, 30}, {23, 13, 14}};
  for (const auto& c : cases) {
    EXPECT_EQ(ParameterValue(c.index, r, InPhase, 5), c.kre);
    EXPECT_EQ(ParameterValue(c.index, r, OutOfPhase, 5), c.kim);
  }
}

}  // namespace
}  // namespace velorix
