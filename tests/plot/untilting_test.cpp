#include "plot/plots/untilting.h"

#include <gtest/gtest.h>

#include "tests/plot/calls.h"

namespace velorix {
namespace {

constexpr PlotGeometry Place = {.left = 100, .bottom = 500, .width = 1300, .height = 400};

std::string Drawn(const Untilting& untilting, std::vector<DrawCall>* calls = nullptr) {
  const auto recorded =
      Recorded([&](Target& t) { DrawUntilting(t, Place, untilting, "fold.ams, N = 5"); });
  if (calls) *calls = recorded;
  return WordsOf(recorded);
}

// A per cent is 10 units, 0 % stands at 200.
TEST(Untilting, ShowsLimitsAsBandsAndSaysWhatTheyMean) {
  Untilting untilting;
  untilting.Foliation = "S0";
  untilting.Groups.assign(6, {"", 2, 1});
  untilting.LeftOut = 6;
  untilting.Seed = 7;
  for (int percent = -10; percent <= 120; ++percent)
    untilting.Steps.push_back(
        {percent, 1.05, 0.2, 0.9 - 1e-5 * (percent - 98) * (percent - 98), 0.7});
  untilting.Kmax = {98, Interval{91.5, 104}, 1000, "older than the folding"};
  std::vector<DrawCall> calls;
  const std::string words = Drawn(untilting, &calls);
  for (const char* part :
       {"Kmax 98 % (95 %: 91.5 to 104 %): older than the folding", "Kmin: no step is best",
        "6 groups, 12 records, 6 left out; 1000 resamplings, seed 7", "fold.ams, N = 5"})
    EXPECT_NE(words.find(part), words.npos) << part << " in " << words;
  const auto polygons = CallsOf<PolygonCall>(calls);
  const auto isBand = [](const PolygonCall& call) {
    return call.points.front().x == 1115 && call.points[2].x == 1240 &&
           std::abs(call.points.front().y - call.points[2].y) == 400;
  };
  EXPECT_EQ(std::count_if(polygons.begin(), polygons.end(), isBand), 1);
  // The symbol of the best step stands at its place on the curve.
  const auto at98 = [](const PolygonCall& call) {
    return call.points.size() == 4 && call.points[0].x + call.points[2].x == 2 * 1180;
  };
  EXPECT_EQ(std::count_if(polygons.begin(), polygons.end(), at98), 1);
}

TEST(Untilting, OfFewOrNoGroupsSaysSo) {
  Untilting untilting;
  untilting.Foliation = "S9";
  EXPECT_NE(Drawn(untilting).find("0 groups, 0 records, 0 left out"), std::string::npos);
  untilting.Groups.assign(4, {"", 1, 0});
  untilting.Steps = {{-10, 1.05, 0.2, 1, 1}, {120, 1.05, 0.2, 1, 0.5}};
  untilting.Kmin.Step = -10;
  EXPECT_NE(Drawn(untilting).find("Kmin -10 %, no limits for fewer than five groups"),
            std::string::npos);
}

}  // namespace
}  // namespace velorix
