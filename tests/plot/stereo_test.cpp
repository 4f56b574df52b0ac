#include "plot/stereo.h"

#include <limits>

#include "tests/plot/stereo_drawing.h"

namespace velorix {
namespace {

bool Says(const std::vector<DrawCall>& calls, const std::string& word) {
  return ("|" + WordsOf(calls)).find("|" + word + "|") != std::string::npos;
}

TEST(DrawStereo, BeginsTransparentAndWithTheBlackNet) {
  Recorder expected;
  expected.SetTransparent();
  DrawNet(expected, Tectonic, EqualArea, {180, 190, 310}, Black, 14);
  EXPECT_EQ(Drawn({}, NetOnly(), Tectonic), expected.calls);
}

TEST(DrawStereo, ACaptionNamesTheSystemInView) {
  StereoOptions options = NetOnly();
  options.chkCaption[0] = true;
  EXPECT_TRUE(Says(Drawn({}, options, Specimen), "Specimen"));
  EXPECT_TRUE(Says(Drawn({}, options, Paleogeographic), "Paleogeographic"));
  EXPECT_TRUE(Says(Drawn({}, options, Tectonic), "Tectonic"));
}

TEST(DrawStereo, LegendHasARowForEachAxisThatIsOn) {
  StereoOptions options = NetOnly();
  options.chkCaption[1] = true;
  options.chkK = {true, false, true};
  EXPECT_EQ(ToText(OverTheNet({}, options)),
            "text \"Max\" (33,322) height 15 0 align 24\n"
            "polygon (13,311) (13,320) (22,320) (22,311) pen 0 0 1 brush FF\n"
            "text \"Min\" (33,337) height 15 0 align 24\n"
            "ellipse (12,326) (23,337) pen 0 0 1 brush FF0000\n");
}

TEST(DrawStereo, LegendListsPlanesInASecondColumnAndLinesInAThird) {
  StereoOptions options = NetOnly();
  options.chkCaption[1] = true;
  options.chkK = {};
  options.chkFoli = {true, true, true, false, true};
  options.lstFoli = {"S0", "K"};
  options.lstLine = {"L1"};
  EXPECT_EQ(ToText(OverTheNet({}, options)),
            "text \"S0\" (285,322) height 15 0 align 24\n"
            "ellipse (298,310) (310,321) pen 0 C0C000 1 brush FFFFFF\n"
            "ellipse (303,314) (305,317) pen 0 C0C000 1 brush FFFFFF\n"
            "polyline (315,316) (346,316) pen 0 C0C000 3\n"
            "text \"K\" (285,337) height 15 0 align 24\n"
            "ellipse (298,326) (310,337) pen 0 C0C000 1 brush FFFFFF\n"
            "polyline (304,326) (304,337) pen 0 C0C000 1\n"
            "polyline (298,331) (310,331) pen 0 C0C000 1\n"
            "polyline (315,331) (346,331) pen 1 C0C000 1\n"
            "text \"L1\" (358,322) height 15 0 align 24\n"
            "polygon (372,311) (372,320) (381,320) (381,311) pen 0 800080 1 brush FFFFFF\n"
            "ellipse (376,315) (378,316) pen 0 800080 1 brush FFFFFF\n");
  options.chkFoli = {true, false, false, true, false};  // strike sticks: the code alone
  options.lstFoli = {"S0"};
  EXPECT_EQ(ToText(OverTheNet({}, options)), "text \"S0\" (285,322) height 15 0 align 24\n");
  options.chkFoli = {false, true, true, true, false};
  EXPECT_EQ(ToText(OverTheNet({}, options)), "");
}

TEST(DrawStereo, LeavesOutRecordsThatTheViewDoesNotShow) {
  RecordArray store = Uprights(4);
  store[2].Active = false;
  store[3].CoorLevel = Tectonic;
  store[4].HasIm = true;
  const struct {
    std::int16_t coorSys, reImMode;
    int count;
  } rows[] = {{Geographic, 1, 2}, {Geographic, 2, 1}, {Geographic, 3, 0}, {Tectonic, 1, 1}};
  StereoOptions options = NetOnly();
  options.chkData = options.chkCaption[0] = true;
  for (const auto& row : rows) {
    const std::vector<DrawCall> calls = Drawn(store, options, row.coorSys, row.reImMode);
    EXPECT_TRUE(Says(calls, "N = " + std::to_string(row.count)));
    const auto circles = CallsOf<EllipseCall>(calls).size() - 1;  // without the primitive circle
    EXPECT_EQ(circles, static_cast<std::size_t>(row.count));
  }
}

TEST(DrawStereo, ADirectionThatIsNotFiniteIsNotDrawnButItsRecordCounts) {
  RecordArray store = Uprights(1);
  store[1].Dec[1] = std::numeric_limits<double>::quiet_NaN();
  store[1].Inc[2] = std::numeric_limits<float>::infinity();
  StereoOptions options = NetOnly();
  options.chkData = true;
  EXPECT_EQ(ToText(OverTheNet(store, options)),
            "ellipse (174,184) (186,196) pen 0 0 1 brush FF0000\n");
  EXPECT_TRUE(Says(Drawn(store, {}), "N = 1"));
}

TEST(DrawStereo, AFactorOnTheGeometryScalesEveryPlace) {
  const RecordArray store = Uprights(1);
  const auto twice = Drawn(store, {}, Geographic, InPhase, GroupStats(), {360, 380, 620, 18, 28});
  const auto once = Drawn(store, {});
  ASSERT_EQ(twice.size(), once.size());
  for (std::size_t i = 0; i < once.size(); ++i) {
    const auto* small = std::get_if<TextCall>(&once[i]);
    if (!small) continue;
    const auto& large = std::get<TextCall>(twice[i]);
    EXPECT_NEAR(large.point.x, 2 * small->point.x, 1) << small->text;
    EXPECT_NEAR(large.point.y, 2 * small->point.y, 1) << small->text;
    EXPECT_NEAR(large.style.height, 2 * small->style.height, 1) << small->text;
  }
}

/// The lower right corner of what was drawn, a letter of the legend's codes taken as wide as high.
PlaneSize Extent(const std::vector<DrawCall>& calls) {
  PlaneSize extent;
  const auto reach = [&extent](int x, int y) {
    extent = {std::max(extent.width, x), std::max(extent.height, y)};
  };
  for (const DrawCall& call : calls) {
    if (const auto* polygon = std::get_if<PolygonCall>(&call))
      for (const LogicalPoint p : polygon->points) reach(p.x, p.y);
    if (const auto* line = std::get_if<PolylineCall>(&call))
      for (const LogicalPoint p : line->points) reach(p.x, p.y);
    if (const auto* ellipse = std::get_if<EllipseCall>(&call))
      reach(ellipse->box.right, ellipse->box.bottom);
    if (const auto* text = std::get_if<TextCall>(&call)) {
      const bool below = text->style.alignment == CentreTop;
      const bool code = text->style.height == 15 && text->style.alignment == LeftBaseline;
      const int length = static_cast<int>(text->text.size()) * text->style.height;
      reach(text->point.x + (code ? length : 0),
            text->point.y + (below ? text->style.height : text->style.height / 4));
    }
  }
  return extent;
}

TEST(StereoPlane, HoldsAllThatIsDrawn) {
  StereoOptions geological;
  geological.chkFoli = {true, true, true, true, true};
  for (int i = 0; i < 30; ++i) {
    geological.lstFoli.push_back("S" + std::to_string(i));
    geological.lstLine.push_back("L" + std::to_string(i));
  }
  StereoOptions longCodes = geological;
  longCodes.lstFoli.push_back("LONGFOLIATION");
  longCodes.lstLine.push_back("LONGERLINEATION");
  for (const StereoOptions& options : {StereoOptions{}, NetOnly(), geological, longCodes}) {
    const PlaneSize plane = StereoPlane(options), extent = Extent(Drawn({}, options));
    EXPECT_LT(extent.width, plane.width);
    EXPECT_LT(extent.height, plane.height);
  }
  EXPECT_EQ(StereoPlane({}), (PlaneSize{360, 366}));
}

}  // namespace
}  // namespace velorix
