#include "app/edit/plane_from_lineations.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace velorix {
namespace {

constexpr auto Lineations = CalculatorMode::Lineations, Foliations = CalculatorMode::Foliations;

TEST(PlaneFromLineations, GivesThePlaneThroughTwoLinesAndTheLineInWhichTwoPlanesMeet) {
  const std::tuple<CalculatorMode, CalculatorInput, const char*> cases[] = {
      {Lineations, {"0", "0", "90", "45"}, "90.0/45.0 90.0 (90.0)"},    // strike and line of dip
      {Lineations, {"90", "45", "0", "0"}, "90.0/45.0 90.0 (90.0)"},    // in any order
      {Lineations, {"0", "0", "90", "-45"}, "270.0/45.0 90.0 (90.0)"},  // the line's other end
      {Lineations, {"10", "0", "40", "0"}, "180.0/0.0 30.0 (150.0)"},  // 90 - just over 90: no -0.0
      {Lineations, {"0", "0", "0", "90"}, "90.0/90.0 90.0 (90.0)"},
      {Lineations, {"10", "0", "170", "0"}, "180.0/0.0 20.0 (160.0)"},  // the smaller angle first
      {Lineations, {"5", "0", "5", "40"}, "95.0/90.0 40.0 (140.0)"},  // the normal is just above 0
      {Lineations, {"", "", "", ""}, "180.0/90.0 0.0 (180.0)"},       // the pole of a zero normal
      {Lineations, {"0", "0", "90,9", "45x"}, "90.0/45.0 90.0 (90.0)"},  // numbers end at a comma
      {Foliations, {"90", "45", "0", "90"}, "90.0/45.0 90.0 (90.0)"},
      {Foliations, {"0", "90", "90", "45"}, "90.0/45.0 90.0 (90.0)"},
      {Foliations, {"90", "30", "270", "30"}, "0.0/0.0 60.0 (120.0)"},  // just below 360
      {Foliations, {"0", "90", "90", "90"}, "0.0/90.0 90.0 (90.0)"},
      {Foliations, {"180", "90", "180", "90"}, "0.0/0.0 0.0 (180.0)"},
  };
  for (const auto& [mode, input, wanted] : cases) {
    const CalculatorResult r = PlaneFromLineations(mode, input);
    EXPECT_EQ(r.Dec + "/" + r.Inc + " " + r.Angle, wanted)
        << input.Dec1 << " " << input.Inc1 << " " << input.Dec2 << " " << input.Inc2;
  }
}

TEST(PlaneFromLineations, NotesParallelDirectionsAndKeepsTheirNumbers) {
  constexpr char Lines[] = "The two lines are parallel.", Planes[] = "The two planes are parallel.";
  const std::tuple<CalculatorMode, CalculatorInput, const char*, const char*> cases[] = {
      {Lineations, {"30", "40", "30", "40"}, "0.0 (180.0)", Lines},
      {Lineations, {"2", "10", "2", "10"}, "0.0 (180.0)", Lines},  // the cosine rounds beyond 1
      {Lineations, {"30", "40", "210", "-40"}, "0.0 (180.0)", Lines},
      {Lineations, {"10", "0", "370", "0"}, "0.0 (180.0)", Lines},
      {Lineations, {"30", "40", "30", "40.01"}, "0.0 (180.0)", ""},
      {Foliations, {"2", "80", "2", "80"}, "0.0 (180.0)", Planes},
      {Foliations, {"90", "90", "270", "90"}, "0.0 (180.0)", Planes},
      {Foliations, {"90", "45", "91", "45"}, "0.7 (179.3)", ""}};
  for (const auto& [mode, input, angle, note] : cases) {
    const CalculatorResult r = PlaneFromLineations(mode, input);
    EXPECT_EQ(r.Angle, angle) << input.Dec1 << "/" << input.Inc1;
    EXPECT_EQ(r.Note, note) << input.Dec1 << "/" << input.Inc1;
  }
  const CalculatorResult equal = PlaneFromLineations(Lineations, {"2", "10", "2", "10"});
  EXPECT_EQ(equal.Dec + "/" + equal.Inc, "180.0/90.0");  // the plane of a zero normal
}

TEST(PlaneFromLineations, PlanesThroughACommonLineMeetInIt) {
  const CalculatorResult a = PlaneFromLineations(Lineations, {"123.4", "37.5", "20", "10"});
  const CalculatorResult b = PlaneFromLineations(Lineations, {"123.4", "37.5", "300", "60"});
  const CalculatorResult line = PlaneFromLineations(Foliations, {a.Dec, a.Inc, b.Dec, b.Inc});
  EXPECT_NEAR(std::stod(line.Dec), 123.4, 0.2);
  EXPECT_NEAR(std::stod(line.Inc), 37.5, 0.2);
}

TEST(PlaneFromLineations, RefusesWhatNo32BitFloatHolds) {
  EXPECT_THROW(PlaneFromLineations(Lineations, {"1E39", "", "", ""}), Fault);
  EXPECT_THROW(PlaneFromLineations(Foliations, {"", "", "", "-1E400"}), Fault);
  EXPECT_NO_THROW(PlaneFromLineations(Lineations, {"1E38", "", "", ""}));
}

}  // namespace
}  // namespace velorix
