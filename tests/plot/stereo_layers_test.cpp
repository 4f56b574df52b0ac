// The layers of geology, group, colours, curves and lines: what each adds to the picture.

#include <gtest/gtest.h>

#include <algorithm>

#include "plot/axes.h"
#include "plot/recorder.h"
#include "plot/stereo.h"

namespace velorix {
namespace {

constexpr StereoGeometry Screen;

SpecimenRecord Upright() {
  SpecimenRecord r;
  r.Active = r.HasIm = true;
  r.CoorLevel = Geographic;
  const double dec[] = {0, 90, 0}, inc[] = {0, 0, 90};
  for (int k = 1; k <= 3; ++k) {
    r.Dec[k] = dec[k - 1];
    r.Inc[k] = inc[k - 1];
    r.Vec[k][k] = r.VecIm[k][k] = 1.0;
  }
  r.FoliName[1] = "S0";
  r.FoliDec[1] = 120.0;
  r.FoliInc[1] = 30.0;
  r.LineName[2] = "L1";
  r.LineDec[2] = 90.0;
  r.LineInc[2] = 0.0;
  return r;
}

using Line2 = std::vector<LogicalPoint>;

RecordArray Store(int count, int selected = 0) {
  RecordArray records;
  for (int i = 1; i <= count; ++i) {
    records.Add(Upright());
    records[i].Selected = i == selected;
  }
  return records;
}

StereoOptions Nothing() {
  StereoOptions options;
  options.chkCaption = {};
  options.chkData = options.chkMean = options.chkMeanEllipses = false;
  options.lstFoli = {"S0"};
  options.lstLine = {"L1"};
  return options;
}

std::vector<DrawCall> All(const RecordArray& records, const StereoOptions& options,
                          const GroupStats& stats, std::int16_t coorSys, std::int16_t block) {
  Recorder recorder;
  DrawStereo(records, coorSys, recorder, Screen, options, block, stats);
  return recorder.calls;
}

/// The calls that the options add to those of a bare net.
std::vector<DrawCall> Added(const RecordArray& records, const StereoOptions& options,
                            const GroupStats& stats = GroupStats(),
                            std::int16_t coorSys = Geographic, std::int16_t block = InPhase) {
  const auto bare = All(records, Nothing(), stats, coorSys, block);
  const auto all = All(records, options, stats, coorSys, block);
  return {all.begin() + static_cast<std::ptrdiff_t>(bare.size()), all.end()};
}

GroupStats Group(std::int16_t n) {
  GroupStats stats;
  stats.GroupN = n;
  stats.Reached = GroupStats::All;
  stats.Errors = n >= 5 ? 3 : 0;
  const double dec[] = {0, 90, 0}, inc[] = {0, 0, 90};
  for (int k = 1; k <= 3; ++k) {
    stats.MeanDec[k] = dec[k - 1];
    stats.MeanInc[k] = inc[k - 1];
    stats.MeanVec(k, k) = 1;
    stats.MeanE1[k] = 10;
    stats.MeanE2[k] = 5;
    for (auto& d : stats.BootPoints[k]) d = {45, 45};
    for (auto& d : stats.BootContour[k]) d = {45, 45};
  }
  return stats;
}

TEST(StereoGeology, AnUnselectedPlaneGetsOneStickAndASelectedOneTwo) {
  StereoOptions options = Nothing();
  options.chkFoli = {true, false, false, true, false};
  const auto sticks = [&](int selected) { return Added(Store(1, selected), options); };
  // The pole of dip direction 120 points to 300; 90 degrees on is 30, before is 210.
  const std::string at30 = "polyline (258,56) (262,48)", at210 = "polyline (103,324) (98,332)";
  const auto one = sticks(0), two = sticks(1);
  ASSERT_EQ(one.size(), 1u);
  EXPECT_TRUE(ToText(one[0]).starts_with(at30)) << ToText(one);
  EXPECT_EQ(std::get<PolylineCall>(one[0]).pen.colour, PlaneColour);
  ASSERT_EQ(two.size(), 2u);
  EXPECT_TRUE(ToText(two[0]).starts_with(at210)) << ToText(two);
  EXPECT_TRUE(ToText(two[1]).starts_with(at30)) << ToText(two);
  EXPECT_EQ(std::get<PolylineCall>(two[0]).pen.colour, SelectedColour);
}

TEST(StereoGeology, DrawsCirclesPolesAndLinesOfTheListedCodesOnly) {
  StereoOptions options = Nothing();
  options.chkFoli = {true, true, false, false, false};
  const PolylineCall circle = std::get<PolylineCall>(Added(Store(1), options).at(0));
  EXPECT_EQ(circle.pen, (Pen{Solid, PlaneColour, 3}));
  options.lstFoli = {"S1", "S0"};  // the second of the list is thin and dashed
  EXPECT_EQ(std::get<PolylineCall>(Added(Store(1), options).at(0)).pen,
            (Pen{Dashed, PlaneColour, 1}));
  options.lstFoli = {"s0"};
  EXPECT_TRUE(Added(Store(1), options).empty());

  options = Nothing();
  options.chkFoli = {true, false, true, false, true};
  const auto calls = Added(Store(1), options);
  ASSERT_EQ(calls.size(), 4u) << ToText(calls);  // circle and dot, square and dot
  EXPECT_EQ(std::get<EllipseCall>(calls[0]).pen.colour, PlaneColour);
  EXPECT_EQ(std::get<EllipseCall>(calls[0]).brush, White);
  EXPECT_EQ(std::get<PolygonCall>(calls[2]).pen.colour, LineColour);
  EXPECT_TRUE(Added(Store(1), options, GroupStats(), Specimen).empty());
}

TEST(StereoGroup, TheBootstrapNeedsAStoreOfAtMostAHundred) {
  StereoOptions options = Nothing();
  options.chkBootStrap = options.chkBootstrapEllips = true;
  const auto calls = Added(Store(100), options, Group(100));
  EXPECT_EQ(calls.size(), 3u * 500 + 3);
  EXPECT_EQ(std::get<PolylineCall>(calls.back()).pen.colour, 0x800000u);
  EXPECT_EQ(std::get<PolylineCall>(calls.back()).points.size(), 200u);
  EXPECT_TRUE(Added(Store(101), options, Group(100)).empty());
  GroupStats failed = Group(100);
  failed.Reached = GroupStats::TensorErrors;
  EXPECT_TRUE(Added(Store(100), options, failed).empty());
}

TEST(StereoGroup, MeansShowFromOneRecordOnAndTheirEllipsesFromFive) {
  StereoOptions options = Nothing();
  options.chkMean = options.chkMeanEllipses = true;
  options.chkK = {true, false, true};
  options.chkGC[2] = true;
  RecordArray outOfView = Store(1);
  outOfView[1].Active = false;
  EXPECT_TRUE(Added(outOfView, options, Group(0)).empty());
  const auto four = Added(outOfView, options, Group(4));
  // The circle of Kint, then Kmax as a square of 12 and Kmin as a circle of 14.
  const auto symbols = std::find_if(four.begin(), four.end(), [](const DrawCall& call) {
    return !std::holds_alternative<PolylineCall>(call);
  });
  ASSERT_EQ(four.end() - symbols, 2);
  EXPECT_EQ(std::get<PolylineCall>(four[0]).pen, (Pen{Solid, Green, 2}));
  EXPECT_EQ(std::get<PolygonCall>(symbols[0]).pen, (Pen{Solid, Red, 2}));
  EXPECT_EQ(std::get<PolygonCall>(symbols[0]).brush, White);
  EXPECT_EQ(std::get<EllipseCall>(symbols[1]).box, (LogicalBox{173, 183, 187, 197}));
  const auto five = Added(outOfView, options, Group(5));
  ASSERT_GT(five.size(), four.size());
  EXPECT_EQ(std::get<PolylineCall>(five.back()).pen, (Pen{Solid, Blue, 1}));

  GroupStats broken = Group(5);
  broken.Errors = 0;
  broken.MeanDec[1] = NAN;
  EXPECT_EQ(Added(outOfView, options, broken).size(), four.size() - 1);
}

TEST(StereoRecords, CirclesEllipsesAndSymbolsOfSelectedRecordsComeLast) {
  StereoOptions options = Nothing();
  options.chkGC[3] = options.chkData = options.chkDataEllipses = true;
  options.chkK = {false, false, true};
  RecordArray records = Store(2, 1);
  for (SpecimenRecord& r : records) r.E[3] = r.E2[3] = 10.0;
  std::string order;
  for (const DrawCall& call : Added(records, options)) {
    if (const auto* line = std::get_if<PolylineCall>(&call))
      order += line->pen.colour == Yellow ? "y" : "b";
    if (const auto* symbol = std::get_if<EllipseCall>(&call))
      order += symbol->brush == Yellow ? "Y" : "B";
  }
  order.erase(std::unique(order.begin(), order.end()), order.end());
  EXPECT_EQ(order, "bybByY");  // circles; then the unselected ellipse and symbol, then the selected
}

TEST(StereoRecords, EllipsesTakeTheBlockInViewAndNothingThatIsNoNumber) {
  StereoOptions options = Nothing();
  options.chkData = options.chkDataEllipses = true;
  options.chkK = {false, false, true};
  RecordArray records = Store(1);
  records[1].E[3] = records[1].E2[3] = 10.0;
  const auto ellipses = [&](std::int16_t block) {
    const auto calls = Added(records, options, GroupStats(), Geographic, block);
    return std::count_if(calls.begin(), calls.end(), [](const DrawCall& call) {
      return std::holds_alternative<PolylineCall>(call);
    });
  };
  EXPECT_EQ(ellipses(InPhase), 1);
  EXPECT_EQ(ellipses(OutOfPhase), 0);
  records[1].EIm[3] = records[1].E2Im[3] = 10.0;
  EXPECT_EQ(ellipses(OutOfPhase), 1);
  records[1].E2[3] = NAN;
  EXPECT_EQ(ellipses(InPhase), 0);
}

TEST(StereoRecords, DataLinesRunToTheOriginForRecordsOutOfView) {
  StereoOptions options = Nothing();
  options.chkData = options.chkDataLines = true;
  options.chkK = {false, true, false};
  RecordArray records = Store(3);
  records[2].Active = false;
  const auto calls = Added(records, options);
  const PolylineCall line = std::get<PolylineCall>(calls.at(0));
  EXPECT_EQ(line.points, (std::vector<LogicalPoint>{{335, 190}, {0, 0}, {335, 190}}));
  EXPECT_EQ(line.pen, (Pen{Solid, Green, 1}));
  const auto alone = Added(Store(1), options);
  EXPECT_FALSE(std::holds_alternative<PolylineCall>(alone.at(0)));
}

TEST(StereoColours, TheScaleStandsRightOfTheNetInBothWays) {
  StereoOptions options = Nothing();
  options.chkData = options.chkStereoColorCoding = true;
  options.chkK = {true, false, true};
  options.odclStereoColorCoding = 8;  // T, from -1 to 1
  RecordArray records = Store(3, 3);
  records[1].Fac[5] = -1;
  records[2].Fac[5] = 0.5f;
  records[3].Fac[5] = 7;  // a selected record is no part of the scale
  const auto perAxis = Added(records, options);
  // 156 steps of two bars, eleven ticks of a label and two strokes, the title, four and two
  // symbols.
  ASSERT_EQ(perAxis.size(), 2u * 156 + 11 * 3 + 1 + 6) << ToText(perAxis);
  EXPECT_EQ(std::get<PolylineCall>(perAxis[0]).points, (Line2{{390, 345}, {400, 345}}));
  EXPECT_EQ(std::get<PolylineCall>(perAxis[0]).pen.colour, White);
  EXPECT_EQ(std::get<PolylineCall>(perAxis[311]).points, (Line2{{400, 190}, {410, 190}}));
  EXPECT_EQ(std::get<PolylineCall>(perAxis[311]).pen.colour, Blue);
  const TextCall first = std::get<TextCall>(perAxis[312]);
  EXPECT_EQ(first.text, "-1.0");
  EXPECT_EQ(first.point, (LogicalPoint{385, 350}));
  EXPECT_EQ(first.style.alignment, RightBaseline);
  const TextCall title = std::get<TextCall>(perAxis[312 + 33]);
  EXPECT_EQ(title.text, "T ");
  EXPECT_EQ(title.style.rotation, 900);
  EXPECT_EQ(title.style.weight, 600);
  EXPECT_EQ(std::get<PolygonCall>(perAxis[346]).brush, White);      // T = -1
  EXPECT_EQ(std::get<PolygonCall>(perAxis[348]).brush, 0x4040FFu);  // three quarters of the way
  EXPECT_EQ(std::get<PolygonCall>(perAxis[350]).brush, Yellow);

  options.optStereoColorCoding = 1;
  const auto oneRamp = Added(records, options);
  ASSERT_EQ(oneRamp.size(), 156u + 11 * 2 + 1 + 6);
  EXPECT_EQ(std::get<PolylineCall>(oneRamp[0]).points, (Line2{{400, 345}, {410, 345}}));
  EXPECT_EQ(std::get<PolylineCall>(oneRamp[0]).pen.colour, Blue);
  EXPECT_EQ(std::get<TextCall>(oneRamp[156]).point, (LogicalPoint{395, 350}));
  EXPECT_EQ(std::get<PolygonCall>(oneRamp[179]).brush, Blue);
  EXPECT_EQ(std::get<EllipseCall>(oneRamp[180]).brush, Blue);
}

TEST(StereoColours, KmeanTakesAPowerOfTenAndNumbersCountTheShown) {
  StereoOptions options = Nothing();
  options.chkData = options.chkStereoColorCoding = true;
  options.chkK = {false, false, true};
  options.odclStereoColorCoding = 3;
  RecordArray records = Store(4, 2);
  double km = 0.002;
  for (SpecimenRecord& r : records) r.Km = km += 0.001;
  const auto textsOf = [&] {
    std::string texts;
    for (const DrawCall& call : Added(records, options))
      if (const auto* text = std::get_if<TextCall>(&call)) texts += text->text + "|";
    return texts;
  };
  EXPECT_EQ(textsOf(), " 3.0| 3.5| 4.0| 4.5| 5.0| 5.5| 6.0| 6.5|Kmean [10^-3 SI]|");
  options.odclStereoColorCoding = 0;
  records[1].Active = false;  // the selected record is number 1 now, the others 2 and 3
  EXPECT_EQ(textsOf(),
            " 0.0| 0.2| 0.4| 0.6| 0.8| 1.0| 1.2| 1.4| 1.6| 1.8| 2.0| 2.2| 2.4| 2.6| 2.8|"
            " 3.0|# |");
  options.chkK = {};
  EXPECT_EQ(textsOf(), "# |");  // the title stays
}

TEST(FieldNet, ColoursItsPointsAndShowsAStrip) {
  Recorder recorder;
  const FieldPoint points[] = {{{0, 90}, 5}, {{90, 0}, 7}, {{10, NAN}, 6}};
  DrawFieldNet(recorder, Geographic, Screen, points);
  std::vector<Brush> fills;
  for (const DrawCall& call : recorder.calls)
    if (const auto* circle = std::get_if<EllipseCall>(&call)) fills.push_back(circle->brush);
  EXPECT_EQ(fills, (std::vector<Brush>{NoBrush, Red, Blue}));  // the primitive circle first
  EXPECT_EQ(std::get<PolylineCall>(recorder.calls.back()).pen.colour, Blue);
}

}  // namespace
}  // namespace velorix
