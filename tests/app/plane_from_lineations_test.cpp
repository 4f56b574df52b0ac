#include "app/plane_from_lineations.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace velorix {
namespace {

std::string Text(CalculatorMode mode, const CalculatorInput& input) {
  const CalculatorResult r = PlaneFromLineations(mode, input);
  return r.Dec + "/" + r.Inc + " " + r.Angle;
}

TEST(PlaneFromLineations, GivesThePlaneThroughTwoLines) {
  const struct {
    CalculatorInput input;
    const char* wanted;
  } cases[] = {
      {{"0", "0", "90", "45"}, "90.0/45.0 90.0 (90.0)"},    // a strike and the line of dip
      {{"90", "45", "0", "0"}, "90.0/45.0 90.0 (90.0)"},    // their order does not matter
      {{"0", "0", "90", "-45"}, "270.0/45.0 90.0 (90.0)"},  // the other end of a line
      {{"10", "0", "40", "0"}, "180.0/-0.0 30.0 (150.0)"},  // wanted: 90 less just over 90
      {{"0", "0", "0", "90"}, "90.0/90.0 90.0 (90.0)"},
      {{"10", "0", "170", "0"}, "180.0/-0.0 20.0 (160.0)"},  // the smaller angle first
      {{"0", "0", "0", "0"}, "180.0/90.0 0.0 (180.0)"},      // the pole of a zero normal
      {{"", "", "", ""}, "180.0/90.0 0.0 (180.0)"},
      {{"0", "0", "90,9", "45x"}, "90.0/45.0 90.0 (90.0)"},  // numbers end at a comma
  };
  for (const auto& c : cases)
    EXPECT_EQ(Text(CalculatorMode::Lineations, c.input), c.wanted)
        << c.input.Dec1 << " " << c.input.Inc1 << " " << c.input.Dec2 << " " << c.input.Inc2;
}

TEST(PlaneFromLineations, GivesTheLineInWhichTwoPlanesMeet) {
  const struct {
    CalculatorInput input;
    const char* wanted;
  } cases[] = {
      {{"90", "45", "0", "90"}, "90.0/45.0 90.0 (90.0)"},
      {{"0", "90", "90", "45"}, "90.0/45.0 90.0 (90.0)"},
      {{"90", "30", "270", "30"}, "360.0/0.0 60.0 (120.0)"},  // wanted: nothing wraps 360
      {{"0", "90", "90", "90"}, "0.0/90.0 90.0 (90.0)"},
      {{"180", "90", "180", "90"}, "0.0/0.0 0.0 (180.0)"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Text(CalculatorMode::Foliations, c.input), c.wanted)
        << c.input.Dec1 << " " << c.input.Inc1 << " " << c.input.Dec2 << " " << c.input.Inc2;
}

TEST(PlaneFromLineations, PlanesThroughACommonLineMeetInIt) {
  const CalculatorInput common = {"123.4", "37.5", "", ""};
  CalculatorInput planes;
  const CalculatorResult a =
      PlaneFromLineations(CalculatorMode::Lineations, {common.Dec1, common.Inc1, "20", "10"});
  const CalculatorResult b =
      PlaneFromLineations(CalculatorMode::Lineations, {common.Dec1, common.Inc1, "300", "60"});
  const CalculatorResult line =
      PlaneFromLineations(CalculatorMode::Foliations, {a.Dec, a.Inc, b.Dec, b.Inc});
  EXPECT_NEAR(std::stod(line.Dec), 123.4, 0.2);
  EXPECT_NEAR(std::stod(line.Inc), 37.5, 0.2);
}

TEST(PlaneFromLineations, RefusesWhatNo32BitFloatHolds) {
  EXPECT_THROW(Text(CalculatorMode::Lineations, {"1E39", "", "", ""}), Fault);
  EXPECT_THROW(Text(CalculatorMode::Foliations, {"", "", "", "-1E400"}), Fault);
  EXPECT_NO_THROW(Text(CalculatorMode::Lineations, {"1E38", "", "", ""}));
}

}  // namespace
}  // namespace velorix
