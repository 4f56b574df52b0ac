// The layers of geology, group, colours, curves and lines: when each is drawn and in which order.

#include "plot/axes.h"
#include "tests/plot/stereo_drawing.h"

namespace velorix {
namespace {

GroupStats Group(std::int16_t n) {
  GroupStats stats;
  stats.GroupN = n;
  stats.Reached = GroupStats::All;
  stats.Errors = n >= 5 ? 3 : 0;
  for (int k = 1; k <= 3; ++k) {
    stats.MeanDec[k] = Upright().Dec[k];
    stats.MeanInc[k] = Upright().Inc[k];
    stats.MeanVec(k, k) = 1;
    stats.MeanE1[k] = stats.MeanE2[k] = 5;
  }
  return stats;
}

TEST(StereoGeology, AnUnselectedPlaneGetsOneStickAndASelectedOneTwo) {
  StereoOptions options = NetOnly();
  options.chkFoli = {true, false, false, true, false};
  // The pole of dip direction 120 points to 300; 90 degrees on is 30, before is 210.
  EXPECT_EQ(ToText(OverTheNet(Uprights(1), options)),
            "polyline (258,56) (262,48) pen 0 C0C000 1\n");
  EXPECT_EQ(ToText(OverTheNet(Uprights(1, 1), options)),
            "polyline (103,324) (98,332) pen 0 FFFF 1\n"
            "polyline (258,56) (262,48) pen 0 FFFF 1\n");
}

TEST(StereoGeology, OnlyListedCodesAreDrawnEachInThePenOfItsPlace) {
  StereoOptions options = NetOnly();
  options.chkFoli = {true, true, false, false, false};
  options.lstFoli = {"S1", "S0"};  // the second of the list is thin and dashed
  EXPECT_EQ(std::get<PolylineCall>(OverTheNet(Uprights(1), options).at(0)).pen,
            (Pen{Dashed, PlaneColour, 1}));
  EXPECT_TRUE(OverTheNet(Uprights(1), options, GroupStats(), Specimen).empty());
  options.lstFoli = {"s0"};
  EXPECT_TRUE(OverTheNet(Uprights(1), options).empty());
}

TEST(StereoGroup, TheBootstrapNeedsAStoreOfAtMostAHundred) {
  StereoOptions options = NetOnly();
  options.chkBootStrap = options.chkBootstrapEllips = true;
  EXPECT_EQ(OverTheNet(Uprights(100), options, Group(100)).size(), 3u * 500 + 3);
  EXPECT_TRUE(OverTheNet(Uprights(101), options, Group(100)).empty());
  GroupStats failed = Group(100);
  failed.Reached = GroupStats::TensorErrors;
  EXPECT_TRUE(OverTheNet(Uprights(100), options, failed).empty());
}

TEST(StereoGroup, MeansShowFromOneRecordOnAndTheirEllipsesFromFive) {
  StereoOptions options = NetOnly();
  options.chkMean = options.chkMeanEllipses = true;
  RecordArray outOfView = Uprights(1);
  outOfView[1].Active = false;
  const auto drawn = [&](const GroupStats& stats) {
    std::string kinds;  // s symbol, l line
    for (const DrawCall& call : OverTheNet(outOfView, options, stats))
      kinds += std::holds_alternative<PolylineCall>(call) ? 'l' : 's';
    kinds.erase(std::unique(kinds.begin(), kinds.end()), kinds.end());
    return kinds;
  };
  EXPECT_EQ(drawn(Group(0)), "");
  EXPECT_EQ(drawn(Group(4)), "s");
  EXPECT_EQ(drawn(Group(5)), "sl");
  GroupStats broken = Group(5);
  broken.Errors = 0;
  broken.MeanDec[1] = NAN;
  EXPECT_EQ(OverTheNet(outOfView, options, broken).size(), 2u);
}

TEST(StereoRecords, CirclesEllipsesAndSymbolsOfSelectedRecordsComeLast) {
  StereoOptions options = NetOnly();
  options.chkGC[3] = options.chkData = options.chkDataEllipses = true;
  options.chkK = {false, false, true};
  RecordArray records = Uprights(2, 1);
  for (SpecimenRecord& r : records) r.E[3] = r.E2[3] = 10.0;
  std::string order;
  for (const DrawCall& call : OverTheNet(records, options)) {
    if (const auto* line = std::get_if<PolylineCall>(&call))
      order += line->pen.colour == Yellow ? "y" : "b";
    if (const auto* symbol = std::get_if<EllipseCall>(&call))
      order += symbol->brush == Yellow ? "Y" : "B";
  }
  order.erase(std::unique(order.begin(), order.end()), order.end());
  EXPECT_EQ(order, "bybByY");  // circles; then the unselected ellipse and symbol, then the selected
}

TEST(StereoRecords, EllipsesTakeTheBlockInViewAndNothingThatIsNoNumber) {
  StereoOptions options = NetOnly();
  options.chkData = options.chkDataEllipses = true;
  options.chkK = {false, false, true};
  RecordArray records = Uprights(1);
  records[1].HasIm = true;
  records[1].E[3] = records[1].E2[3] = 10.0;
  const auto ellipses = [&](std::int16_t block) {
    return CallsOf<PolylineCall>(OverTheNet(records, options, GroupStats(), Geographic, block))
        .size();
  };
  EXPECT_EQ(ellipses(InPhase), 1u);
  EXPECT_EQ(ellipses(OutOfPhase), 0u);
  records[1].EIm[3] = records[1].E2Im[3] = 10.0;
  EXPECT_EQ(ellipses(OutOfPhase), 1u);
  records[1].E2[3] = NAN;
  EXPECT_EQ(ellipses(InPhase), 0u);
}

TEST(StereoRecords, DataLinesRunToTheOriginForRecordsOutOfView) {
  StereoOptions options = NetOnly();
  options.chkData = options.chkDataLines = true;
  options.chkK = {false, true, false};
  RecordArray records = Uprights(3);
  records[2].Active = false;
  const auto calls = OverTheNet(records, options);
  const PolylineCall line = std::get<PolylineCall>(calls.at(0));
  EXPECT_EQ(line.points, (std::vector<LogicalPoint>{{335, 190}, {0, 0}, {335, 190}}));
  EXPECT_EQ(line.pen, (Pen{Solid, Green, 1}));
  const auto alone = OverTheNet(Uprights(1), options);
  EXPECT_FALSE(std::holds_alternative<PolylineCall>(alone.at(0)));
}

TEST(StereoColours, TheScaleStandsRightOfTheNetInBothWays) {
  StereoOptions options = NetOnly();
  options.chkData = options.chkStereoColorCoding = true;
  options.chkK = {true, false, true};
  options.odclStereoColorCoding = 8;  // T, from -1 to 1
  RecordArray records = Uprights(3, 3);
  records[1].Fac[5] = -1;
  records[2].Fac[5] = 0.5f;
  records[3].Fac[5] = 7;  // a selected record is no part of the scale
  const auto perAxis = OverTheNet(records, options);
  // 156 steps of two bars, eleven ticks of a label and two strokes, the title, four and two
  // symbols.
  ASSERT_EQ(perAxis.size(), 2u * 156 + 11 * 3 + 1 + 6) << ToText(perAxis);
  EXPECT_EQ(ToText(perAxis[0]), "polyline (390,345) (400,345) pen 0 FFFFFF 1");
  EXPECT_EQ(ToText(perAxis[311]), "polyline (400,190) (410,190) pen 0 FF0000 1");
  EXPECT_EQ(ToText(perAxis[312]), "text \"-1.0\" (385,350) height 13 0 align 26");
  EXPECT_EQ(std::get<TextCall>(perAxis[345]).text, "T ");
  EXPECT_EQ(std::get<PolygonCall>(perAxis[346]).brush, White);      // T = -1
  EXPECT_EQ(std::get<PolygonCall>(perAxis[348]).brush, 0x4040FFu);  // three quarters of the way
  EXPECT_EQ(std::get<PolygonCall>(perAxis[350]).brush, Yellow);

  options.optStereoColorCoding = 1;
  const auto oneRamp = OverTheNet(records, options);
  ASSERT_EQ(oneRamp.size(), 156u + 11 * 2 + 1 + 6);
  EXPECT_EQ(ToText(oneRamp[0]), "polyline (400,345) (410,345) pen 0 FF0000 1");
  EXPECT_EQ(std::get<TextCall>(oneRamp[156]).point, (LogicalPoint{395, 350}));
  EXPECT_EQ(std::get<PolygonCall>(oneRamp[179]).brush, Blue);
}

TEST(StereoColours, KmeanTakesAPowerOfTenAndNumbersCountTheShown) {
  StereoOptions options = NetOnly();
  options.chkData = options.chkStereoColorCoding = true;
  options.chkK = {false, false, true};
  options.odclStereoColorCoding = 3;
  RecordArray records = Uprights(4, 2);
  double km = 0.002;
  for (SpecimenRecord& r : records) r.Km = km += 0.001;
  const auto textsOf = [&] { return WordsOf(OverTheNet(records, options)); };
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
  DrawFieldNet(recorder, Geographic, {}, points);
  std::vector<Brush> fills;
  for (const EllipseCall& circle : CallsOf<EllipseCall>(recorder.calls))
    fills.push_back(circle.brush);
  EXPECT_EQ(fills, (std::vector<Brush>{NoBrush, Red, Blue}));  // the primitive circle first
  EXPECT_EQ(std::get<PolylineCall>(recorder.calls.back()).pen.colour, Blue);
}

}  // namespace
}  // namespace velorix
