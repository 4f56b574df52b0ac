#include "text/dates.h"

#include <gtest/gtest.h>

#include "base/timer.h"

namespace velorix {
namespace {

TEST(Dates, TimeTextPadsItsParts) {
  EXPECT_EQ(TimeText(0), " 00:00:00");  // with a blank in front
  EXPECT_EQ(TimeText(3723.9), " 01:02:03");
  EXPECT_EQ(TimeText(86399.99), " 23:59:59");
}

TEST(Timer, ElapsedCarriesOverMidnight) {
  EXPECT_EQ(Elapsed(12.5f, 10.0f), 2.5f);
  EXPECT_EQ(Elapsed(1.0f, 86399.0f), 2.0f);
  EXPECT_EQ(Elapsed(9.9921875f, 10.0f), -0.0078125f);  // the 32 bits' own step, no midnight
  EXPECT_EQ(Elapsed(9.875f, 10.0f), 86399.875f);
}

TEST(Timer, TimerLiesWithinTheDayAndMovesOn) {
  const float start = Timer();
  EXPECT_GE(start, 0.0f);
  EXPECT_LE(start, 86401.0f);
  while (Elapsed(start) == 0) {
  }
  EXPECT_LT(Elapsed(start), 60.0f);
}

}  // namespace
}  // namespace velorix
