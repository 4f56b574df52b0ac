// The pictures of a published site, as calls on a target.

#include <algorithm>
#include <sstream>

#include "app/tables/data_table.h"
#include "plot/net/stereo.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "tests/app/golden.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Pictures : public ProgramTest {
 protected:
  void Open(const char* name) {
    OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/" + name);
    Now.Records[2].Selected = true;
  }
  std::vector<DrawCall> Net(const StereoOptions& options) const {
    return CallsOf([&](Target& target) {
      DrawStereo(Now.Records, Now.CoorSys, target, StereoGeometry{}, options, Now.ReImMode,
                 Program.GroupStats, Now.Settings);
    });
  }
  std::vector<DrawCall> Plot(const XYPlotOptions& options) const {
    return CallsOf([&](Target& target) { DrawXYPlot(Now, target, PlotGeometry(), options); });
  }

  Session& Now = Program.Session;
};

TEST_F(Pictures, AreDrawnAsApproved) {
  Open("jelinek1978.ams");
  ExpectGolden("stereonet.txt", ToText(Net(Program.Stereo)));
  ExpectGolden("xy_plot.txt", ToText(Plot({.x = Column::Fac3, .y = Column::Fac5})));
  ExpectGolden("xy_plot_coloured.txt", ToText(Plot({.x = Column::KmaxDec,
                                                    .y = Column::KminDec,
                                                    .colour = Column::Fac3,
                                                    .coding = true,
                                                    .lines = true})));
  ExpectGolden("histogram.txt", ToText(CallsOf([&](Target& target) {
                 DrawHisto(target, PlotGeometry(), DataTableValues(Column::Fac3, Now), Column::Fac3,
                           Now.Settings);
               })));
}

// Each layer by its option: what drawing gains when it is switched on. Long layers show their first
// calls and their number.
TEST_F(Pictures, GainEachLayerByItsOption) {
  struct Layer {
    const char* name;
    void (*on)(StereoOptions&);
  };
  // clang-format off
  const Layer layers[] = {
      {"chkCaption(0)", [](StereoOptions& o) { o.showCaptions = true; }},
      {"chkCaption(1)", [](StereoOptions& o) { o.showLegend = true; }},
      {"chkFoli(0) circles", [](StereoOptions& o) { o.showPlanes = true; o.planesAsPoles = false; }},
      {"chkFoli(0) poles", [](StereoOptions& o) { o.showPlanes = true; o.planesAsCircles = false; }},
      {"chkFoli(0) strikes", [](StereoOptions& o) { o.showPlanes = o.planesAsStrikes = true; o.planesAsCircles = o.planesAsPoles = false; }},
      {"chkFoli(4)", [](StereoOptions& o) { o.showLines = true; }},
      {"chkBootStrap", [](StereoOptions& o) { o.showBootstrapCloud = true; }},
      {"chkBootstrapEllips", [](StereoOptions& o) { o.showBootstrapContours = true; }},
      {"chkData", [](StereoOptions& o) { o.showData = true; }},
      {"chkDataLines", [](StereoOptions& o) { o.showData = o.showDataLines = true; }},
      {"chkDataEllipses", [](StereoOptions& o) { o.showData = o.showDataEllipses = true; }},
      {"chkStereoColorCoding", [](StereoOptions& o) { o.showData = o.colourByValue = true; }},
      {"chkGC(1)", [](StereoOptions& o) { o.showGreatCircle[1] = true; }},
      {"chkMean", [](StereoOptions& o) { o.showMean = true; }},
      {"chkMeanEllipses", [](StereoOptions& o) { o.showMeanEllipses = true; }}};
  // clang-format on
  Open("granite.ams");
  StereoOptions none = Program.Stereo;
  none.showCaptions = none.showLegend = false;
  none.showData = none.showMean = none.showMeanEllipses = false;
  const std::vector<DrawCall> bare = Net(none);
  std::string text;
  for (const Layer& layer : layers) {
    StereoOptions options = none;
    layer.on(options);
    std::vector<DrawCall> gained = Net(options);
    for (const DrawCall& call : bare)
      if (const auto same = std::find(gained.begin(), gained.end(), call); same != gained.end())
        gained.erase(same);
    std::istringstream calls(ToText(gained));  // one a line, but each line of a colour scale
    Texts lines;
    for (std::string line; std::getline(calls, line);) lines.push_back(line + "\n");
    text += std::string("# ") + layer.name + ": " + std::to_string(lines.size()) + " calls\n";
    constexpr std::size_t Shown = 12;
    if (lines.size() > Shown) lines.resize(Shown);
    for (const std::string& line : lines) text += line;
  }
  ExpectGolden("stereonet_layers.txt", text);
}

}  // namespace
}  // namespace velorix
