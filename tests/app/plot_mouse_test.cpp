#include "app/display/plot_mouse.h"

#include <cmath>

#include "app/commands/display.h"
#include "tests/app/script.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

class PlotMouse : public ProgramTest {
 protected:
  /// A record whose axes plunge like this: Kmax north, Kint east, Kmin at the centre, all moved by
  /// `turn` degrees of declination.
  void Add(double turn) {
    SpecimenRecord r = Record("r");
    r.CoorLevel = Geographic;
    const double dec[] = {0, 90, 0}, inc[] = {30, 30, 90};
    for (int k = 1; k <= 3; ++k) {
      r.Dec[k] = dec[k - 1] + turn;
      r.Inc[k] = inc[k - 1];
    }
    Now.Records.Add(r);
    Renumber(Now.Records);
  }
  static std::string Text(const std::vector<int>& ids) {
    std::string text;
    for (const int id : ids) text += std::to_string(id) + " ";
    return text;
  }
  /// The records in a box round the place of a direction on the screen's net, from lower right to
  /// upper left.
  std::string Select(double dec, double inc, int keys = NoKeys, float half = 4) {
    const double r = 155 * std::sqrt(1 - std::sin(inc / 57.29578));
    const float x = static_cast<float>(180 + r * std::sin(dec / 57.29578));
    const float y = static_cast<float>(190 - r * std::cos(dec / 57.29578));
    return Text(*RecordsInStereo(Now, Program.Plots.Stereo,
                                 {x + half, y + half, x - half, y - half}, keys));
  }
};

TEST_F(PlotMouse, SelectsByAnyShownAxisOrByTheOneOfTheKey) {
  for (double turn : {0, 90, 180}) Add(turn);
  // clang-format off
  const std::tuple<bool, double, double, int, const char*> cases[] = {
      {true, 0, 30, NoKeys, "1 "},    {true, 90, 30, NoKeys, "1 2 "},  // Kint and Kmax
      {true, 90, 30, CtrlKey, "2 "},  {true, 90, 30, AltKey, "1 "},
      {true, 90, 30, ShiftKey, ""},   {true, 0, 90, ShiftKey, "1 2 3 "},
      {false, 90, 30, NoKeys, "1 "},  {true, 0, 90, CtrlKey | AltKey, ""},
      {false, 90, 30, CtrlKey, ""}};
  // clang-format on
  for (const auto& [kmaxShown, dec, inc, keys, selected] : cases) {
    Program.Plots.Stereo.showAxis[1] = kmaxShown;
    EXPECT_EQ(Select(dec, inc, keys), selected) << dec << " " << inc << " " << keys;
  }
}

TEST_F(PlotMouse, AClickFindsNoRecordAndAHiddenNetAnswersNothing) {
  Add(0);
  for (const bool data : {true, false}) {
    Program.Plots.Stereo.showData = data;
    const auto hit = RecordsInStereo(Now, Program.Plots.Stereo, {50, 50, 50, 50}, NoKeys);
    EXPECT_EQ(hit.has_value(), data);
    EXPECT_TRUE(!hit || hit->empty());
  }
}

TEST_F(PlotMouse, LeavesOutDisregardedRecordsAndThoseOfAnotherSystem) {
  for (int i = 0; i < 3; ++i) Add(0);
  Now.Records[1].Active = false;
  Now.Records[2].CoorLevel = Specimen;
  EXPECT_EQ(Select(0, 30), "3 ");
}

TEST_F(PlotMouse, SelectsBySymbolsPlacesOnAPlot) {
  for (int i = 0; i < 4; ++i) Add(0);
  // The second has no symbol, and the fourth came after the plot was drawn.
  Program.XYDrawn[1] = {.x = {}, .y = {}, .symbols = {{10, 100}, {std::nan(""), 100}, {30, 100}}};
  const auto in = [&](int plot, MouseBox box) {
    return Text(RecordsInXYPlot(Now, Program.XYDrawn[plot], box));
  };
  EXPECT_EQ(in(1, {30, 100, 0, 0}), "1 3 ");  // edges included
  EXPECT_EQ(in(2, {-10, -10, 500, 500}), "");
}

TEST_F(PlotMouse, ReadsDirectionsOffTheNet) {
  const auto read = [](double x, double y) {
    const StereoReadOut out = ReadStereo(x, y);
    return out.dec + out.inc;
  };
  EXPECT_EQ(read(180, 190), "Dec = 0.0Inc = 90.0");
  EXPECT_EQ(read(335, 190), "Dec = 90.0Inc = 0.0");
  EXPECT_EQ(read(180, 345), "Dec = 180.0Inc = 0.0");
  EXPECT_EQ(read(336, 190) + read(-900, 5000), "");  // outside
  for (double x = 20; x < 340; x += 0.37)            // no place fails
    for (const double y : {35.0, 189.99, 190.0, 190.0001, 344.9}) EXPECT_NO_THROW(read(x, y));
}

TEST_F(PlotMouse, ReadsValuesOffAnXYPlot) {
  EXPECT_EQ(ReadXYPlot(Program.XYDrawn[1], 100, 100), "");  // nothing drawn yet
  DrawnXYPlot axes;
  axes.x.label = "Field";
  axes.x.range = {0, 10, 0, 1, 0.5};
  axes.y = {{2e-4, 4e-4, 2e-4, 1e-5, 1e-6}, "Kmean", "SI"};
  axes.y.power = true;
  EXPECT_EQ(ReadXYPlot(axes, 202.5, 142.5), "Field =  5.000   Kmean =  3.000 10^-4");
  EXPECT_EQ(ReadXYPlot(axes, 59, 142.5), "");
}

TEST_F(PlotMouse, TheCrossReachesPastTheEdges) {
  std::string lines;
  for (const char* end : {"(100,8000)", "(100,0)", "(0,50)", "(11300,50)"})
    lines += std::string("polyline (100,50) ") + end + " pen 0 80C0FF 1\n";
  EXPECT_EQ(ToText(Recorded([](Target& target) { DrawMeasuringCross(target, 100, 50); })), lines);
}

}  // namespace
}  // namespace velorix
