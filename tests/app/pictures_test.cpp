// The pictures of a published site, as calls on a target. What changes them on purpose is looked at
// and approved: VELORIX_APPROVE=1 writes the golden files anew.

#include <gtest/gtest.h>

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
    const std::string path = std::string(VELORIX_SOURCE_DIR) + "/tests/app/golden/" + name + ".txt";
    const std::string drawn = ToText(recorder.calls);
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
