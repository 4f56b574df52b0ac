#include "plot/net/stereo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>

#include "plot/axes/axes.h"
#include "store/session.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

/// Kmax north and level, Kint east and level, Kmin vertical; shown in geographic coordinates.
SpecimenRecord Upright() {
  SpecimenRecord r;
  r.Active = true;
  r.CoorLevel = Geographic;
  r.Dec[2] = r.Inc[3] = 90.0;
  r.Dec[1] = r.Dec[3] = r.Inc[1] = r.Inc[2] = 0.0;
  for (int k = 1; k <= 3; ++k) r.Vec[k][k] = r.VecIm[k][k] = 1.0;
  r.FoliName[1] = "S0";
  r.FoliDec[1] = 120.0;
  r.FoliInc[1] = 30.0;
  r.LineName[2] = "L1";
  r.LineDec[2] = 90.0;
  r.LineInc[2] = 0.0;
  return r;
}

/// `count` records of this kind, the one numbered `selected` selected.
RecordArray Uprights(int count, int selected = 0) {
  RecordArray records;
  for (int i = 1; i <= count; ++i) {
    records.Add(Upright());
    records[i].Selected = i == selected;
  }
  return records;
}

using O = StereoOptions;

/// These layers over the net and no others, of these axes.
StereoOptions Only(std::initializer_list<bool O::*> layers = {},
                   const Array1<bool, 3>& axes = {true, true, true}) {
  StereoOptions options;
  options.showCaptions = options.showLegend = false;
  options.showData = options.showMean = options.showMeanEllipses = false;
  for (const auto layer : layers) options.*layer = true;
  options.showAxis = axes;
  options.foliationCodes = {"S0"};
  options.lineationCodes = {"L1"};
  return options;
}

/// The switches of planes, as circles, poles and strike sticks, and of lines.
void SetGeology(StereoOptions& options, const std::array<bool, 5>& on) {
  options.showPlanes = on[0];
  options.planesAsCircles = on[1];
  options.planesAsPoles = on[2];
  options.planesAsStrikes = on[3];
  options.showLines = on[4];
}

std::vector<DrawCall> Drawn(const RecordArray& records, const StereoOptions& options,
                            CoordinateSystem coorSys = Geographic, TensorBlock block = InPhase,
                            const GroupStats& stats = GroupStats(),
                            const StereoGeometry& geometry = {}) {
  return Recorded(
      [&](Target& t) { DrawStereo(records, coorSys, t, geometry, options, block, stats); });
}

/// What the layers above the net drew.
std::vector<DrawCall> OverTheNet(const RecordArray& records, const StereoOptions& options,
                                 const GroupStats& stats = GroupStats(),
                                 CoordinateSystem coorSys = Geographic,
                                 TensorBlock block = InPhase) {
  const auto net = Drawn({}, Only(), coorSys, block);
  const auto all = Drawn(records, options, coorSys, block, stats);
  EXPECT_TRUE(all.size() >= net.size() && std::equal(net.begin(), net.end(), all.begin()));
  return {all.begin() + static_cast<std::ptrdiff_t>(net.size()), all.end()};
}

TEST(DrawStereo, CaptionsAndSymbolsAreThoseOfTheSystemAndTheBlockInView) {
  RecordArray store = Uprights(4);
  store[2].Active = false;
  store[3].CoorLevel = Tectonic;
  store[4].HasIm = true;
  const std::tuple<CoordinateSystem, int, std::size_t, std::string> rows[] = {
      {Geographic, 1, 2, "Geographic"}, {Geographic, 2, 1, "Geographic"},
      {Geographic, 3, 0, "Geographic"}, {Tectonic, 1, 1, "Tectonic"},
      {Specimen, 1, 0, "Specimen"},     {Paleogeographic, 1, 0, "Paleogeographic"}};
  StereoOptions options = Only({&O::showData});
  options.showCaptions = true;
  for (const auto& [coorSys, block, count, name] : rows) {
    const auto calls =
        OverTheNet(store, options, GroupStats(), coorSys, static_cast<TensorBlock>(block));
    EXPECT_EQ(WordsOf(calls),
              name + "|Coordinate|System|Equal-Area|Projection|N = " + std::to_string(count) + "|");
    EXPECT_EQ(CallsOf<EllipseCall>(calls).size(), count);
  }
}

TEST(DrawStereo, ADirectionThatIsNotFiniteIsNotDrawnButItsRecordCounts) {
  RecordArray store = Uprights(1);
  store[1].Dec[1] = std::numeric_limits<double>::quiet_NaN();
  store[1].Inc[2] = std::numeric_limits<float>::infinity();
  EXPECT_EQ(ToText(OverTheNet(store, Only({&O::showData}))),
            "ellipse (174,184) (186,196) pen 0 0 1 brush FF0000\n");
  EXPECT_NE(WordsOf(Drawn(store, {})).find("N = 1|"), std::string::npos);
}

/// The lower right corner of what was drawn, a letter of the legend's codes taken as wide as high.
PlaneSize Extent(const std::vector<DrawCall>& calls) {
  PlaneSize extent;
  for (const DrawCall& call : calls) {
    std::vector<LogicalPoint> ends = PointsOf(call);
    if (const auto* text = std::get_if<TextCall>(&call)) {
      const int height = text->style.height, below = text->style.alignment == CentreTop ? 1 : 4;
      const bool code = height == 15 && text->style.alignment == LeftBaseline;
      const int width = code ? static_cast<int>(text->text.size()) * height : 0;
      ends = {{text->point.x + width, text->point.y + height / below}};
    }
    for (const LogicalPoint p : ends)
      extent = {std::max(extent.width, p.x), std::max(extent.height, p.y)};
  }
  return extent;
}

TEST(StereoPlane, HoldsAllThatIsDrawn) {
  StereoOptions geological;
  SetGeology(geological, {true, true, true, true, true});
  for (int i = 0; i < 30; ++i) {
    geological.foliationCodes.push_back("S" + std::to_string(i));
    geological.lineationCodes.push_back("L" + std::to_string(i));
  }
  StereoOptions longCodes = geological;
  longCodes.foliationCodes.push_back("LONGFOLIATION");
  longCodes.lineationCodes.push_back("LONGERLINEATION");
  const StereoOptions scale = Only({&O::showData, &O::colourByValue});
  StereoOptions level = geological;
  level.level = ErrorLevel::Confidence95;
  for (const StereoOptions& options :
       {StereoOptions{}, Only(), geological, longCodes, scale, level}) {
    const PlaneSize plane = StereoPlane(options), extent = Extent(Drawn(Uprights(2), options));
    EXPECT_LT(extent.width, plane.width);
    EXPECT_LT(extent.height, plane.height);
  }
  EXPECT_EQ(StereoPlane({}), (PlaneSize{360, 366}));
}

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

/// Lines l and symbols s in their order, those of selected records y and Y; runs as one.
std::string KindsOf(const std::vector<DrawCall>& calls) {
  std::string kinds;
  for (const DrawCall& call : calls) {
    const bool selected = (ToText(call) + " ").find(" FFFF ") != std::string::npos;
    const char kind = (selected ? "Yy" : "sl")[std::holds_alternative<PolylineCall>(call)];
    if (!kinds.ends_with(kind)) kinds += kind;
  }
  return kinds;
}

TEST(StereoGeology, OnlyListedCodesAreDrawnEachInThePenOfItsPlace) {
  StereoOptions options = Only();
  SetGeology(options, {true, true, true, false, false});
  options.foliationCodes = {"S1", "S0"};  // the second of the list is thin, dashed and has a plus
  const auto calls = OverTheNet(Uprights(1), options);
  EXPECT_EQ(std::get<PolylineCall>(calls.at(0)).pen, (Pen{Dashed, PlaneColour, 1}));
  EXPECT_EQ(KindsOf(calls), "lsl");
  EXPECT_EQ(CallsOf<EllipseCall>(calls).size(), 1u);
  EXPECT_TRUE(OverTheNet(Uprights(1), options, GroupStats(), Specimen).empty());
  options.foliationCodes = {"s0"};
  EXPECT_TRUE(OverTheNet(Uprights(1), options).empty());
}

TEST(StereoGroup, TheBootstrapNeedsAStoreOfAtMostAHundred) {
  const StereoOptions options = Only({&O::showBootstrapCloud, &O::showBootstrapContours});
  GroupStats stats = Group(100);
  for (int k = 1; k <= 3; ++k) {
    stats.BootPoints[k].resize(500);
    stats.BootContour[k].resize(200);
  }
  stats.BootPoints[1][0] = {90, 0};
  const auto calls = OverTheNet(Uprights(100), options, stats);
  ASSERT_EQ(calls.size(), 3u * 500 + 3);
  EXPECT_EQ(ToText(calls[0]).find("polygon (334,"), 0u) << calls[0];
  EXPECT_TRUE(OverTheNet(Uprights(101), options, stats).empty());
  stats.Reached = GroupStats::TensorErrors;
  EXPECT_TRUE(OverTheNet(Uprights(100), options, stats).empty());
}

TEST(StereoRecords, CirclesEllipsesAndSymbolsOfSelectedRecordsComeLast) {
  StereoOptions options = Only({&O::showData, &O::showDataEllipses}, {false, false, true});
  options.showGreatCircle[3] = true;
  RecordArray records = Uprights(2, 1);
  for (SpecimenRecord& r : records) r.E[3] = r.E2[3] = 10.0;
  // Circles; the unselected ellipse and symbol, then the selected ones.
  EXPECT_EQ(KindsOf(OverTheNet(records, options)), "lylsyY");
}

TEST(StereoGroup, EllipsesOf95PercentAreWiderAndNamed) {
  StereoOptions options;
  GroupStats stats = Group(5);
  stats.MeanE1At95 = stats.MeanE2At95 = {10, 10, 10};
  options.meanOf = "hill.ams, in-phase, geographic, N = 5";
  const auto standard = Drawn(Uprights(5), options, Geographic, InPhase, stats);
  options.level = ErrorLevel::Confidence95;
  const auto at95 = Drawn(Uprights(5), options, Geographic, InPhase, stats);
  EXPECT_EQ(WordsOf(standard).find("hill"), std::string::npos);
  EXPECT_NE(WordsOf(at95).find("N = 5|95 % confidence angles of the mean (Jelinek 1978)|hill.ams, "
                               "in-phase, geographic, N = 5|"),
            std::string::npos);
  // Round Kmin in the middle: its ellipse is a circle, of the radius of its angle.
  const auto radius = [](const std::vector<DrawCall>& calls) {
    const auto lines = CallsOf<PolylineCall>(calls);
    const LogicalPoint p = lines.back().points.front();
    return std::hypot(p.x - 180.0, p.y - 190.0);
  };
  EXPECT_NEAR(radius(standard), 155 * std::sqrt(2) * std::sin(2.5 / DegPerRad), 1.5);
  EXPECT_NEAR(radius(at95), 155 * std::sqrt(2) * std::sin(5 / DegPerRad), 1.5);
  options.showCaptions = false;
  EXPECT_TRUE(GroupLines(options).empty());
}

TEST(StereoRecords, DataLinesRunToTheOriginForRecordsOutOfView) {
  const StereoOptions options = Only({&O::showData, &O::showDataLines}, {false, true, false});
  RecordArray records = Uprights(3);
  records[2].Active = false;
  EXPECT_EQ(ToText(OverTheNet(records, options).at(0)),
            "polyline (335,190) (0,0) (335,190) pen 0 FF00 1");
  EXPECT_TRUE(CallsOf<PolylineCall>(OverTheNet(Uprights(1), options)).empty());
}

TEST(FieldNet, ColoursItsPointsAndShowsAStrip) {
  const FieldPoint points[] = {{{0, 90}, 5}, {{90, 0}, 7}, {{10, NAN}, 6}};
  const auto calls = Recorded([&](Target& t) { DrawFieldNet(t, Geographic, {}, points); });
  const auto circles = CallsOf<EllipseCall>(calls);  // the primitive circle first
  ASSERT_EQ(circles.size(), 3u);
  EXPECT_TRUE(circles[1].brush == Red && circles[2].brush == Blue);
  EXPECT_EQ(std::get<PolylineCall>(calls.back()).pen.colour, Blue);
}

}  // namespace
}  // namespace velorix
