#include "plot/net.h"

#include <gtest/gtest.h>

#include "tests/plot/calls.h"

namespace velorix {
namespace {

TEST(DrawNet, NamesTheAxesOfEachCoordinateSystem) {
  const char* const names[] = {"0|90|180|270|", "X|Y|-X|-Y|", "N|90|180|270|",
                               "N|90|180|270|", "X|Y|-X|-Y|", "0|90|180|270|"};
  for (std::int16_t coorSys = 0; coorSys <= 5; ++coorSys) {
    Recorder recorder;
    DrawNet(recorder, coorSys, EqualArea, {180, 190, 310}, Black, 14);
    EXPECT_EQ(WordsOf(recorder.calls), names[coorSys]) << coorSys;
  }
}

TEST(DrawNet, TickLengthGrowsWithTheNet) {
  for (const auto& [diameter, length] : {std::pair{340.0, 5}, {680.0, 10}, {3400.0, 50}}) {
    Recorder recorder;
    DrawNet(recorder, 2, EqualArea, {0, 0, diameter}, Black, 14);
    const auto& last = std::get<PolylineCall>(recorder.calls.back());
    EXPECT_NEAR(last.points[1].y - last.points[0].y, length, 1) << diameter;
  }
}

TEST(DrawNet, OfNoExtentCollapsesToItsCentre) {
  Recorder recorder;
  DrawNet(recorder, 2, EqualArea, {40, 50, 0}, Black, 14);
  EXPECT_EQ(ToText(recorder.calls.front()), "ellipse (40,50) (40,50) pen 0 0 2 brush none");
  EXPECT_EQ(ToText(recorder.calls.back()), "polyline (40,50) (40,50) pen 0 0 1");
}

TEST(DrawNetSymbol, StandsWhereTheNetHasTheDirection) {
  const struct {
    Projection projection;
    Direction direction;
    LogicalPoint at;
  } rows[] = {
      {EqualArea, {0, 0}, {500, 0}},       {EqualArea, {90, 0}, {1000, 500}},
      {EqualArea, {180, 0}, {500, 1000}},  {EqualArea, {0, 90}, {500, 500}},
      {EqualArea, {0, 45}, {500, 229}},    // 500 * 0.5412 above the centre
      {EqualAngle, {0, 45}, {500, 293}},   // 500 * 0.4142
      {EqualArea, {200, 30}, {379, 832}},  // 500 * sqrt(0.5) = 353.55 from the centre
      {EqualArea, {200, -30}, {379, 832}},
  };
  for (const auto& row : rows) {
    Recorder recorder;
    DrawNetSymbol(recorder, {500, 500, 1000}, row.projection, row.direction, -1, 9, Red, {});
    EXPECT_EQ(recorder.calls, std::vector<DrawCall>({PixelCall{row.at, Red}}))
        << row.projection << " " << row.direction.Dec << " " << row.direction.Inc;
  }
}

}  // namespace
}  // namespace velorix
