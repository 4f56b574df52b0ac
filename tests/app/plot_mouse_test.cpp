#include "app/display/plot_mouse.h"

#include <cmath>
#include <random>

#include "app/commands/display.h"
#include "app/display/symbol_names.h"
#include "tests/app/script.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

class PlotMouse : public ProgramTest {
 protected:
  /// A record whose axes plunge like this: Kmax north, Kint east, Kmin at the centre, all moved by
  /// `turn` degrees of declination.
  void Add(double turn) {
    SpecimenRecord r = Record("r" + std::to_string(Now.RecordCount() + 1));
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
  /// Where a direction lies on the screen's net.
  static Point OnScreen(double dec, double inc) {
    const double r = 155 * std::sqrt(1 - std::sin(inc / 57.29578));
    return {180 + r * std::sin(dec / 57.29578), 190 - r * std::cos(dec / 57.29578)};
  }
  std::string NameAt(const Point& place, double zoom = 1) {
    return NameInStereo(Now, Program.Plots.Stereo, Program.GroupStats, Program.Plots.Marks, place,
                        zoom);
  }
  static Lasso LassoOf(const std::vector<Point>& points) {
    Lasso lasso;
    for (const Point& point : points) lasso.Add(point);
    return lasso;
  }
  /// The records in a box round the place of a direction on the screen's net, from lower right to
  /// upper left.
  std::string Select(double dec, double inc, int keys = NoKeys, float half = 4) {
    const Point p = OnScreen(dec, inc);
    const auto x = static_cast<float>(p.x), y = static_cast<float>(p.y);
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
  Program.Drawn.XYPlot[1] = {
      .x = {}, .y = {}, .symbols = {{10, 100}, {std::nan(""), 100}, {30, 100}}};
  const auto in = [&](int plot, MouseBox box) {
    return Text(RecordsInXYPlot(Now, Program.Drawn.XYPlot[plot], box));
  };
  EXPECT_EQ(in(1, {30, 100, 0, 0}), "1 3 ");  // edges included
  EXPECT_EQ(in(2, {-10, -10, 500, 500}), "");
}

TEST_F(PlotMouse, NamesTheTopmostSymbolOfTheNet) {
  Add(0), Add(90);  // Kint of the first and Kmax of the second in one place
  const Point both = OnScreen(90, 30), beside = {both.x + 4, both.y};
  EXPECT_EQ(NameAt(both), "r2, Kmax 90.0 / 30.0");
  EXPECT_EQ(NameAt({both.x + 8, both.y}), "");
  EXPECT_EQ(NameAt(beside), NameAt(both));
  EXPECT_EQ(NameAt(beside, 2), "");  // symbols of an enlarged picture take less of the plane
  Now.Records[1].Selected = true;    // selected ones are drawn last
  EXPECT_EQ(NameAt(both), "r1, Kint 90.0 / 30.0");
  Program.GroupStats.GroupN = 2;
  Program.GroupStats.MeanDec[3] = 90.04;
  Program.GroupStats.MeanInc[3] = 29.96;
  EXPECT_EQ(NameAt(both), "Mean, Kmin 90.0 / 30.0");
  Program.Plots.Stereo.showAxis[3] = false;
  Program.Plots.Marks.By = MarkBy::Shapes;
  Program.Plots.Marks.Groups = {{"A", 1}, {"B", 1}};
  Program.Plots.Marks.Means = {{1, Program.GroupStats}};
  Program.Plots.Marks.Means[0].Stats.MeanDec[1] = 90;
  Program.Plots.Marks.Means[0].Stats.MeanInc[1] = 30;
  EXPECT_EQ(NameAt(both), "Mean of B, Kmax 90.0 / 30.0");
  Program.Plots.Marks = {};
  for (SpecimenRecord& record : Now.Records) record.Active = false;
  EXPECT_EQ(NameAt(both), "");
}

TEST_F(PlotMouse, MissesNoSymbolOfTheNet) {
  std::mt19937 random(5);
  const auto upTo = [&](double end) { return end * static_cast<double>(random()) / 4294967296.0; };
  Add(0);
  Program.Plots.Stereo.showAxis = {true, false, false};
  int hits = 0;
  for (int i = 0; i < 20000; ++i) {
    Now.Records[1].Dec[1] = upTo(360);
    Now.Records[1].Inc[1] = upTo(1) < 0.2 ? upTo(3) : 90 - upTo(90);
    const Point symbol = OnScreen(Now.Records[1].Dec[1], Now.Records[1].Inc[1]);
    const double zoom = 1 + upTo(3), reach = 0.6 * 9 / zoom, off = upTo(2 * reach),
                 way = upTo(6.28);
    if (std::fabs(off - reach) < 1e-3) continue;
    const Point mouse = {symbol.x + off * std::cos(way), symbol.y + off * std::sin(way)};
    ASSERT_EQ(!NameAt(mouse, zoom).empty(), off < reach) << i;
    hits += off < reach;
  }
  EXPECT_GT(hits, 9000);
}

TEST_F(PlotMouse, NamesRecordsAndClassesOfPlots) {
  for (int i = 0; i < 3; ++i) Add(0);
  Now.Records[1].Km = 1.25e-4f;
  Now.Records[1].Fac[3] = 1.108f;
  Now.Records[2].Fac[3] = Factor::Failed();
  const XYPlotOptions options = {.x = Column::Km, .y = Column::Fac3};
  const std::optional<DrawnXYPlot> drawn = {
      {.x = {}, .y = {}, .symbols = {{10, 100}, {30, 100}, {std::nan(""), 100}}}};
  const auto name = [&](double x, double zoom) {
    return NameInXYPlot(Now, options, drawn, {x, 100}, zoom);
  };
  EXPECT_EQ(name(14, 1), "r1, Kmean 1.250E-04, P 1.108");
  EXPECT_EQ(name(14, 2) + name(20, 1) + NameInXYPlot(Now, options, {}, {10, 100}, 1), "");
  EXPECT_NE(name(30, 1).find(", P not computed"), std::string::npos);

  Now.Records[2].Inc[1] = 35.0;
  Now.Records[3].Inc[1] = 75.0;
  std::vector<HistoBar> bars;
  Recorded([&](Target& target) {
    bars = DrawHisto(target, PlotGeometry(), std::array{30.0, 35.0, 75.0}, Column::KmaxInc,
                     Now.Settings);
  });
  // The frame goes from 60 to 345 for 90 degrees and has its bottom at 245.
  const auto classAt = [&](double inc) {
    return NameInHisto(Column::KmaxInc, Now.Settings, bars, {60 + 285 * inc / 90, 241}, 1);
  };
  EXPECT_EQ(classAt(25), "Kmax_Inc 20 to 30 deg, 1 specimen");
  EXPECT_EQ(classAt(31), "Kmax_Inc 30 to 40 deg, 2 specimens");  // 30 counts in both
  EXPECT_EQ(classAt(45) + classAt(95), "");
  for (HistoBar& bar : bars) bar.top.y = 244;  // too low to be hit
  EXPECT_EQ(classAt(75), "Kmax_Inc 70 to 80 deg, 1 specimen");
  const auto lassoed = [&](double from, double to) {
    const double left = 60 + 285 * from / 90, right = 60 + 285 * to / 90;
    return Text(RecordsInHisto(Now, Column::KmaxInc, bars,
                               LassoOf({{left, 0}, {right, 0}, {right, 260}, {left, 260}})));
  };
  EXPECT_EQ(lassoed(26, 34) + "|" + lassoed(24, 26) + "|" + lassoed(34, 80), "|1 |1 2 3 ");
}

TEST_F(PlotMouse, ALassoHoldsWhatItGoesRoundAnOddNumberOfTimes) {
  const Lasso star = LassoOf({{0, -10}, {6, 8}, {-9.5, -3}, {9.5, -3}, {-6, 8}});
  EXPECT_FALSE(star.IsClick());
  EXPECT_TRUE(star.Holds({0, -8}) && star.Holds({5, 6.5}));  // the points, not the middle
  EXPECT_FALSE(star.Holds({0, 0}) || star.Holds({0, 8}) || star.Holds({std::nan(""), -8}));
  const Lasso eight = LassoOf({{0, 0}, {10, 10}, {10, 0}, {0, 10}});  // its halves cancel
  EXPECT_TRUE(!eight.IsClick() && eight.Holds({1, 5}) && eight.Holds({9, 5}));
  EXPECT_FALSE(eight.Holds({5, 1}));
  for (const auto& points : std::vector<std::vector<Point>>{
           {}, {{1, 1}}, {{1, 1}, {1, 1}, {5, 5}}, {{1, 1}, {5, 5}, {3, 3}, {9, 9}}})
    EXPECT_TRUE(LassoOf(points).IsClick());
}

TEST_F(PlotMouse, ALassoSelectsAsABoxDoes) {
  for (double turn : {0, 90, 180}) Add(turn);
  const Point p = OnScreen(90, 30);  // Kint of the first, Kmax of the second
  const Lasso lasso = LassoOf({{p.x - 5, p.y - 2}, {p.x + 6, p.y}, {p.x - 5, p.y + 3}});
  const auto text = [&](int keys) {
    return Text(*RecordsInStereo(Now, Program.Plots.Stereo, lasso, keys));
  };
  EXPECT_EQ(text(NoKeys) + "|" + text(CtrlKey) + "|" + text(AltKey) + "|" + text(ShiftKey),
            "1 2 |2 |1 |");
  Program.Drawn.XYPlot[1] = {.x = {}, .y = {}, .symbols = {p, {p.x, p.y + 9}, {p.x + 1, p.y}}};
  EXPECT_EQ(Text(RecordsInXYPlot(Now, Program.Drawn.XYPlot[1], lasso)), "1 3 ");
  Program.Plots.Stereo.showData = false;
  EXPECT_FALSE(RecordsInStereo(Now, Program.Plots.Stereo, lasso, NoKeys));
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
  EXPECT_EQ(ReadXYPlot(Program.Drawn.XYPlot[1], 100, 100), "");  // nothing drawn yet
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
