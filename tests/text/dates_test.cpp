#include "text/dates.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "base/timer.h"
#include "text/line_through.h"

namespace velorix {
namespace {

TEST(Dates, DateAndTimeTextPadTheirParts) {
  const std::pair<double, const char*> dates[] = {
      // clang-format off
      {0, ""}, {1, "31-12-1899"}, {43196, "06-04-2018"}, {43196.99, "06-04-2018"},
      {36585, "29-02-2000"}, {-1.25, "29-12-1899"}, {-657434, "01-01-0100"},
      {2958465, "31-12-9999"},
      // clang-format on
  };
  for (const auto& [date, wanted] : dates) EXPECT_EQ(DateText(date), wanted) << date;
  for (double date : {-657435.0, 2958466.0, 1e300, std::nan("")})
    EXPECT_THROW(DateText(date), Fault) << date;
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

TEST(LineThrough, GoesThroughBothPointsAndRefusesUprightLines) {
  EXPECT_EQ(LineThrough(0, 1, 3, 7), (StraightLine{2, 1}));
  EXPECT_EQ(LineThrough(3, 7, 0, 1), (StraightLine{2, 1}));
  EXPECT_THROW(LineThrough(2, 1, 2, 5), Fault);
}

}  // namespace
}  // namespace velorix
