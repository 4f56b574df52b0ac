#include "plot/stereo.h"

#include <gtest/gtest.h>

#include <limits>

#include "plot/axes.h"
#include "plot/recorder.h"
#include "store/session.h"

namespace velorix {
namespace {

/// Kmax north and level, Kint east and level, Kmin vertical; shown in geographic coordinates.
SpecimenRecord Upright() {
  SpecimenRecord record;
  record.Active = true;
  record.CoorLevel = Geographic;
  const double dec[] = {0, 90, 0}, inc[] = {0, 0, 90};
  for (int k = 1; k <= 3; ++k) record.Dec[k] = dec[k - 1], record.Inc[k] = inc[k - 1];
  return record;
}

RecordArray Store(std::initializer_list<SpecimenRecord> records) {
  RecordArray store;
  for (const SpecimenRecord& record : records) store.Add(record);
  return store;
}

/// No layer but the net.
StereoOptions NetOnly() {
  StereoOptions options;
  options.chkCaption = {};
  options.chkData = options.chkMean = options.chkMeanEllipses = false;
  return options;
}
StereoOptions DataOnly() {
  StereoOptions options = NetOnly();
  options.chkData = true;
  return options;
}

std::vector<DrawCall> Drawn(const RecordArray& records, const StereoOptions& options,
                            std::int16_t coorSys = Geographic, std::int16_t reImMode = InPhase,
                            const StereoGeometry& geometry = {}) {
  Recorder recorder;
  DrawStereo(records, coorSys, recorder, geometry, options, reImMode);
  return recorder.calls;
}

/// What the layers above the net drew, one call a line.
std::string OverTheNet(const RecordArray& records, const StereoOptions& options,
                       std::int16_t coorSys = Geographic, std::int16_t reImMode = InPhase) {
  const std::vector<DrawCall> net = Drawn({}, NetOnly(), coorSys, reImMode);
  const std::vector<DrawCall> all = Drawn(records, options, coorSys, reImMode);
  EXPECT_TRUE(all.size() >= net.size() && std::equal(net.begin(), net.end(), all.begin()));
  return ToText({all.begin() + static_cast<std::ptrdiff_t>(net.size()), all.end()});
}

std::string TextStartingWith(const std::vector<DrawCall>& calls, std::string_view start) {
  for (const DrawCall& call : calls)
    if (const auto* text = std::get_if<TextCall>(&call); text && text->text.starts_with(start))
      return text->text;
  return {};
}

TEST(DrawStereo, BeginsTransparentAndWithTheBlackNet) {
  Recorder expected;
  expected.SetTransparent();
  DrawNet(expected, Tectonic, EqualArea, {180, 190, 310}, Black, 14);
  EXPECT_EQ(Drawn({}, NetOnly(), Tectonic), expected.calls);
}

TEST(DrawStereo, CaptionsNameSystemProjectionAndCount) {
  StereoOptions options = NetOnly();
  options.chkCaption[0] = true;
  EXPECT_EQ(OverTheNet(Store({Upright(), Upright()}), options),
            "text \"Geographic\" (10,50) height 15 0 align 24\n"
            "text \"Coordinate\" (10,66) height 15 0 align 24\n"
            "text \"System\" (10,82) height 15 0 align 24\n"
            "text \"Equal-Area\" (350,50) height 15 0 align 26\n"
            "text \"Projection\" (350,66) height 15 0 align 26\n"
            "text \"N = 2\" (350,82) height 15 0 align 26\n");
  EXPECT_EQ(TextStartingWith(Drawn({}, options, Specimen), "Spec"), "Specimen");
  EXPECT_EQ(TextStartingWith(Drawn({}, options, Paleogeographic), "Pal"), "Paleogeographic");
  EXPECT_EQ(TextStartingWith(Drawn({}, options, Tectonic), "Tec"), "Tectonic");
}

TEST(DrawStereo, LegendHasARowForEachAxisThatIsOn) {
  StereoOptions options = NetOnly();
  options.chkCaption[1] = true;
  options.chkK = {true, false, true};
  EXPECT_EQ(OverTheNet({}, options),
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
  EXPECT_EQ(OverTheNet({}, options),
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
  EXPECT_EQ(OverTheNet({}, options), "text \"S0\" (285,322) height 15 0 align 24\n");
  options.chkFoli = {false, true, true, true, false};
  EXPECT_EQ(OverTheNet({}, options), "");
}

TEST(DrawStereo, SymbolsHaveTheirAxisTypeColourAndSize) {
  EXPECT_EQ(OverTheNet(Store({Upright()}), DataOnly()),
            "polygon (176,30) (176,40) (184,40) (184,30) pen 0 0 1 brush FF\n"
            "polygon (330,193) (335,184) (340,193) pen 0 0 1 brush FF00\n"
            "ellipse (174,184) (186,196) pen 0 0 1 brush FF0000\n");
  StereoOptions options = DataOnly();
  options.chkK = {false, true, false};
  EXPECT_EQ(OverTheNet(Store({Upright()}), options),
            "polygon (330,193) (335,184) (340,193) pen 0 0 1 brush FF00\n");
  options.chkData = false;
  EXPECT_EQ(OverTheNet(Store({Upright()}), options), "");
}

TEST(DrawStereo, SelectedRecordsLieOnTopInYellow) {
  SpecimenRecord selected = Upright();
  selected.Selected = true;
  StereoOptions options = DataOnly();
  options.chkK = {false, false, true};
  EXPECT_EQ(OverTheNet(Store({selected, Upright()}), options),
            "ellipse (174,184) (186,196) pen 0 0 1 brush FF0000\n"
            "ellipse (174,184) (186,196) pen 0 0 1 brush FFFF\n");
}

TEST(DrawStereo, LeavesOutRecordsThatTheViewDoesNotShow) {
  const auto change = [](auto how) {
    SpecimenRecord record = Upright();
    how(record);
    return record;
  };
  const RecordArray store = Store({
      Upright(),
      change([](SpecimenRecord& r) { r.Active = false; }),
      change([](SpecimenRecord& r) { r.CoorLevel = Tectonic; }),
      change([](SpecimenRecord& r) { r.HasIm = true; }),
  });
  const struct {
    std::int16_t coorSys, reImMode;
    const char* count;
  } rows[] = {
      {Geographic, 1, "N = 2"}, {Geographic, 2, "N = 1"}, {Geographic, 3, "N = 0"},
      {Tectonic, 1, "N = 1"},   {Specimen, 1, "N = 0"},
  };
  StereoOptions options = DataOnly();
  options.chkCaption[0] = true;
  for (const auto& row : rows) {
    const std::vector<DrawCall> calls = Drawn(store, options, row.coorSys, row.reImMode);
    EXPECT_EQ(TextStartingWith(calls, "N ="), row.count) << row.coorSys << " " << row.reImMode;
    const auto circles = std::count_if(calls.begin(), calls.end(), [](const DrawCall& call) {
      const auto* ellipse = std::get_if<EllipseCall>(&call);
      return ellipse && ellipse->brush == Axes[3].colour;
    });
    EXPECT_EQ("N = " + std::to_string(circles), row.count);
  }
}

TEST(DrawStereo, ADirectionThatIsNotFiniteIsNotDrawnButItsRecordCounts) {
  SpecimenRecord record = Upright();
  record.Dec[1] = std::numeric_limits<double>::quiet_NaN();
  record.Inc[2] = std::numeric_limits<float>::infinity();
  EXPECT_EQ(OverTheNet(Store({record}), DataOnly()),
            "ellipse (174,184) (186,196) pen 0 0 1 brush FF0000\n");
  EXPECT_EQ(TextStartingWith(Drawn(Store({record}), {}), "N ="), "N = 1");
}

TEST(DrawStereo, AFactorOnTheGeometryScalesEveryPlace) {
  const RecordArray store = Store({Upright()});
  const auto twice = Drawn(store, {}, Geographic, InPhase, {360, 380, 620, 18, 28});
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

TEST(StereoOptions, FirstPictureShowsDataMeanEllipsesAndCaptions) {
  const StereoOptions options;
  EXPECT_TRUE(options.chkCaption[0] && options.chkCaption[1]);
  EXPECT_TRUE(options.chkK[1] && options.chkK[2] && options.chkK[3]);
  EXPECT_TRUE(options.chkData && options.chkMean && options.chkMeanEllipses);
  EXPECT_FALSE(options.chkDataLines || options.chkDataEllipses || options.chkBootStrap);
  EXPECT_FALSE(options.chkStereoColorCoding || options.chkFoli[0] || options.chkFoli[4]);
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
