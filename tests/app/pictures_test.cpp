// The pictures of a published site, as calls on a target. What changes them on purpose is looked at
// and approved: VELORIX_APPROVE=1 writes the golden files anew.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "app/data_table.h"
#include "plot/histogram.h"
#include "plot/recorder.h"
#include "plot/stereo.h"
#include "plot/xy_plot.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Pictures : public ProgramTest {
 protected:
  void SetUp() override { OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/jelinek1978.ams"); }

  static void ExpectGolden(const std::string& name, const Recorder& recorder) {
    ExpectGolden(name, ToText(recorder.calls));
  }
  static void ExpectGolden(const std::string& name, const std::string& drawn) {
    const std::string path = std::string(VELORIX_SOURCE_DIR) + "/tests/app/golden/" + name + ".txt";
    if (std::getenv("VELORIX_APPROVE")) std::ofstream(path, std::ios::binary) << drawn;
    std::ifstream in(path, std::ios::binary);
    const std::string golden{std::istreambuf_iterator<char>(in), {}};
    EXPECT_TRUE(drawn == golden) << name << " is drawn otherwise than approved";
  }
};

TEST_F(Pictures, AreDrawnAsApproved) {
  Session& session = Program.Session;
  session.Records[2].Selected = true;
  Recorder net, plot, coloured, histogram;
  DrawStereo(session.Records, session.CoorSys, net, StereoGeometry{}, Program.Stereo,
             session.ReImMode, Program.GroupStats, session.Settings);
  ExpectGolden("stereonet", net);
  DrawXYPlot(session, plot, PlotGeometry(), {.x = 6, .y = 8});
  ExpectGolden("xy_plot", plot);
  DrawXYPlot(session, coloured, PlotGeometry(),
             {.x = 12, .y = 16, .colour = 6, .coding = true, .lines = true});
  ExpectGolden("xy_plot_coloured", coloured);
  DrawHisto(histogram, PlotGeometry(), DataTableValues(6, session), 6, session.Settings);
  ExpectGolden("histogram", histogram);
}

// Each layer by its option: what drawing gains when it is switched on. Long layers show their first
// calls and their number.
TEST_F(Pictures, GainEachLayerByItsOption) {
  struct Layer {
    const char* name;
    void (*on)(StereoOptions&);
  };
  const Layer layers[] = {
      {"chkCaption(0)", [](StereoOptions& o) { o.chkCaption[0] = true; }},
      {"chkCaption(1)", [](StereoOptions& o) { o.chkCaption[1] = true; }},
      {"chkFoli(0) circles",
       [](StereoOptions& o) {
         o.chkFoli = {true, true, false, false, false};
       }},
      {"chkFoli(0) poles",
       [](StereoOptions& o) {
         o.chkFoli = {true, false, true, false, false};
       }},
      {"chkFoli(0) strikes",
       [](StereoOptions& o) {
         o.chkFoli = {true, false, false, true, false};
       }},
      {"chkFoli(4)", [](StereoOptions& o) { o.chkFoli[4] = true; }},
      {"chkBootStrap", [](StereoOptions& o) { o.chkBootStrap = true; }},
      {"chkBootstrapEllips", [](StereoOptions& o) { o.chkBootstrapEllips = true; }},
      {"chkData", [](StereoOptions& o) { o.chkData = true; }},
      {"chkDataLines", [](StereoOptions& o) { o.chkData = o.chkDataLines = true; }},
      {"chkDataEllipses", [](StereoOptions& o) { o.chkData = o.chkDataEllipses = true; }},
      {"chkStereoColorCoding", [](StereoOptions& o) { o.chkData = o.chkStereoColorCoding = true; }},
      {"chkGC(1)", [](StereoOptions& o) { o.chkGC[1] = true; }},
      {"chkMean", [](StereoOptions& o) { o.chkMean = true; }},
      {"chkMeanEllipses", [](StereoOptions& o) { o.chkMeanEllipses = true; }}};
  Session& session = Program.Session;
  OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/granite.ams");
  session.Records[2].Selected = true;
  const auto draw = [&](const StereoOptions& options) {
    Recorder recorder;
    DrawStereo(session.Records, session.CoorSys, recorder, StereoGeometry{}, options,
               session.ReImMode, Program.GroupStats, session.Settings);
    return recorder.calls;
  };
  StereoOptions none = Program.Stereo;
  none.chkCaption = {};
  none.chkData = none.chkMean = none.chkMeanEllipses = false;
  const std::vector<DrawCall> bare = draw(none);
  std::string text;
  for (const Layer& layer : layers) {
    StereoOptions options = none;
    layer.on(options);
    std::vector<DrawCall> gained = draw(options);
    for (const DrawCall& call : bare)
      if (const auto same = std::find(gained.begin(), gained.end(), call); same != gained.end())
        gained.erase(same);
    text += std::string("# ") + layer.name + ": " + std::to_string(gained.size()) + " calls\n";
    constexpr std::size_t Shown = 12;
    if (gained.size() > Shown) gained.resize(Shown);
    text += ToText(gained);
  }
  ExpectGolden("stereonet_layers", text);
}

// The page's, the metafile's and the image's pictures are the screen's, times one factor.
TEST_F(Pictures, AreOneSequenceOfCallsAtAnyScale) {
  const auto kinds = [&](double s) {
    PlotGeometry g;
    g.left *= s, g.bottom *= s, g.width *= s, g.height *= s;
    g.fontHeight = static_cast<std::int16_t>(g.fontHeight * s);
    g.symbolSize = static_cast<std::int16_t>(g.symbolSize * s);
    Recorder recorder;
    DrawXYPlot(Program.Session, recorder, g, {.x = 6, .y = 8, .colour = 3, .lines = true});
    DrawHisto(recorder, g, DataTableValues(6, Program.Session), 6, Program.Session.Settings);
    std::string text;
    for (const DrawCall& call : recorder.calls) {
      text += std::to_string(call.index());
      if (const auto* words = std::get_if<TextCall>(&call)) text += words->text;
    }
    return text;
  };
  EXPECT_EQ(kinds(1), kinds(2));
}

}  // namespace
}  // namespace velorix
