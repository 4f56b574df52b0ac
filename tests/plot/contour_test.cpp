#include "plot/plots/contour.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "store/session.h"
#include "tests/datafiles/golden_file.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

struct ContourPicture : ::testing::Test {
  ContourPicture() { BuildContourGrid(Grid, 0, 300, 3); }

  void Run(int smooth) {
    ASSERT_TRUE(CountDensity(Grid, Data, static_cast<std::int16_t>(smooth), Count));
  }
  std::vector<DrawCall> Draw() {
    return Recorded([&](Target& t) { DrawContour(t, Grid, Data, Count, Geographic, Options); });
  }
  /// The picture of the nodes, empty when there is none.
  RasterCall Nodes() {
    for (const RasterCall& raster : CallsOf<RasterCall>(Draw()))
      if (raster.corner == LogicalPoint{30, 30}) return raster;
    return {};
  }

  ContourGrid Grid;
  ContourData Data;
  DensityCount Count;
  ContourOptions Options;
};

TEST_F(ContourPicture, IsMadeOfTheseCalls) {
  BuildContourGrid(Grid, 0, 12, 3);
  Data.Add(90, 30);
  Run(2);
  Options.showGridPoints = true;
  // Computed nodes are yellow, lines black, below level 1 it is white; levels 1 and 2.
  ExpectGolden("plot", "contour.txt", ToText(Draw()));
}

// One direction on the rim, so that each level has two areas; the step is 3.
TEST_F(ContourPicture, DrawsLevelsAsCurvesWhereAsked) {
  Data.Add(90, 0);
  Run(20);
  Options.curves = true;
  ASSERT_EQ(LevelsOf(Count.ContourMax).Step, 3);
  const auto levels = static_cast<std::size_t>(Count.ContourMax / 3);
  const auto regions = CallsOf<RegionCall>(Draw());
  ASSERT_EQ(regions.size(), levels);
  EXPECT_EQ(Nodes().width, 0) << "no picture of nodes";
  for (const RegionCall& region : regions) EXPECT_EQ(region.borders.size(), 2u);
  for (std::size_t i = 1; i < levels; ++i) EXPECT_NE(regions[i].fill, regions[i - 1].fill);
  const auto longLines = [this] {
    const auto lines = CallsOf<PolylineCall>(Draw());
    return std::count_if(lines.begin(), lines.end(),
                         [](const PolylineCall& line) { return line.points.size() > 2; });
  };
  EXPECT_EQ(longLines(), static_cast<std::ptrdiff_t>(2 * levels));
  Options.discrete = false;  // lines over the nodes' own colours
  EXPECT_EQ(CallsOf<RegionCall>(Draw()).size(), 0u);
  EXPECT_EQ(Nodes().width, 301);
  EXPECT_EQ(longLines(), static_cast<std::ptrdiff_t>(2 * levels));
  Options.showContours = false;
  EXPECT_EQ(longLines(), 0);
}

TEST_F(ContourPicture, ColoursNodesByLevelOrByDensity) {
  BuildContourGrid(Grid, 0, 12, 3);
  Data.Add(45, 60);
  std::string pictures;
  for (const int smooth : {5, 20})  // steps 1 and above
    for (const ContourDisplayInfo& info : ContourDisplays)
      for (const bool discrete : {true, false}) {
        Options.display = info.Key;
        Run(smooth);
        Options.discrete = discrete;
        pictures += ToText(Nodes()) + "\n";
      }
  ExpectGolden("plot", "contour_nodes.txt", pictures);
}

TEST_F(ContourPicture, ShowsEachDatumInTheSymbolOfItsKindWhenWantedOrNotCounted) {
  const std::tuple<ContourDisplay, std::int16_t, std::int16_t, Colour> cases[] = {
      {ContourDisplay::Kmax, 1, 5, 255},
      {ContourDisplay::Kint, 2, 5, 65280},
      {ContourDisplay::Kmin, 3, 6, 0xFF0000},
      {ContourDisplay::FoliationPole, 3, 6, 0xC0C000},
      {ContourDisplay::Lineation, 1, 5, 0x800080}};
  Data.Add(20, 30);
  Data.Add(110, -10);  // drawn at (110, 10), as everything upward is
  for (const auto& [display, symbol, size, colour] : cases) {
    Options.display = display;
    Recorder expected;
    for (const Direction d : {Direction{20, 30}, {110, 10}})
      DrawNetSymbol(expected, {180, 180, 300}, Projection::EqualArea, d, symbol, size, colour,
                    {.width = 0});
    for (const auto& [counted, chosen] : {std::pair{false, false}, {true, false}, {true, true}}) {
      Count = {};
      if (counted) Run(20);
      Options.showData = chosen;
      const bool shown = ToText(Draw()).find(ToText(expected.calls)) != std::string::npos;
      EXPECT_EQ(shown, chosen || !counted) << symbol;
      EXPECT_EQ(Nodes().pixels.empty(), !counted);
    }
  }
}

TEST_F(ContourPicture, LegendTellsLevelsMaximumAndCount) {
  for (int i = 0; i < 12; ++i) Data.Add(45 + i, 60);
  Run(20);
  Count.ContourMax = 25.3f;
  for (const bool discrete : {true, false}) {
    Options.discrete = discrete;
    EXPECT_EQ(WordsOf(Draw()),
              "N|90|180|270|Kmax|N = 12|0|1|3|5|7|9|11|13|15|17|19|21|23|25|Max 25.3|");
  }
}

TEST_F(ContourPicture, KnowsTheNodeAndTheLegendUnderAPlace) {
  // The place, and its node, -1 for none.
  const std::tuple<double, double, int, int> cases[] = {
      {180, 180, 150, 150},     {180.9, 180.9, 150, 150}, {30.5, 180.5, 0, 150},
      {330.5, 180.5, 300, 150}, {29.9, 180.5, -1, 0},     {331, 180.5, -1, 0},
      {40, 40, -1, 0},          {1e9, -1e9, -1, 0},       {std::nan(""), 1, -1, 0}};
  for (const auto& [x, y, i, j] : cases) {
    const auto node = ContourNodeAt(Grid, x, y);
    EXPECT_EQ(node ? static_cast<int>(*node) : -1, i < 0 ? -1 : Grid.Index(i, j)) << x << " " << y;
  }
  for (const int x : {300, 380, 500}) EXPECT_EQ(IsOnContourLegend(x, 200), x == 380);
}

TEST(Raster, IsAPixelForEachUnitOnATargetThatKnowsNoBetter) {
  struct PlainTarget : Recorder {
    void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override {
      Target::Raster(corner, width, pixels);  // NOLINT(bugprone-parent-virtual-call): on purpose
    }
  } target;
  const Colour pixels[] = {Red, NoColour, Blue, Black, Black, NoColour};
  target.Raster({10, 20}, 3, pixels);
  EXPECT_EQ(ToText(target.calls),
            "pixel (10,20) FF\npixel (12,20) FF0000\npixel (10,21) 0\npixel (11,21) 0\n");
  Recorder recorder, again;
  recorder.Raster({10, 20}, 3, pixels);
  EXPECT_EQ(ToText(recorder.calls), "raster (10,20) width 3: 1 FF 1 none 1 FF0000 2 0 1 none\n");
  Replay(recorder.calls, again);
  EXPECT_EQ(again.calls, recorder.calls);
}

}  // namespace
}  // namespace velorix
