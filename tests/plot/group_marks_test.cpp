#include "plot/net/group_marks.h"

#include <gtest/gtest.h>

#include <set>

#include "plot/axes/axes.h"
#include "plot/figure/styled_target.h"
#include "plot/net/stereo.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

/// From the red, green and blue of the palette's paper.
constexpr Colour Rgb(unsigned red, unsigned green, unsigned blue) {
  return red | green << 8 | blue << 16;
}
constexpr Colour BlueOfGroups = Rgb(0, 114, 178), Vermilion = Rgb(213, 94, 0);

/// Three records, of the groups "a", "b" and "a"; Kmax north, Kint east, Kmin vertical.
struct Study {
  velorix::Session Session;
  GroupMarks Marks;
  StereoOptions Net;
  XYPlotOptions Plot = {.x = Column::Field, .y = Column::F, .colour = Column::Field};

  explicit Study(MarkBy by = MarkBy::Nothing) {
    for (int i = 1; i <= 3; ++i) {
      SpecimenRecord r;
      r.Active = true;
      r.CoorLevel = Geographic;
      r.Dec[2] = r.Inc[3] = 90.0;
      r.Dec[1] = r.Dec[3] = r.Inc[1] = r.Inc[2] = 0.0;
      r.Field = static_cast<float>(i);
      r.FTest[0] = static_cast<double>(i);
      Session.Records.Add(r);
    }
    Marks = {by, true, {{"a", 2}, {"b", 1}}, {0, 1, 0}, {}};
    Net.showCaptions = Net.showLegend = Net.showMean = Net.showMeanEllipses = false;
  }
  std::vector<DrawCall> DrawNet() const {
    return Recorded([&](Target& t) {
      DrawStereo(Session.Records, Geographic, t, {}, Net, InPhase, {}, Session.Settings, Marks);
    });
  }
  std::vector<DrawCall> DrawPlot() const {
    return Recorded([&](Target& t) { DrawXYPlot(Session, t, PlotGeometry(), Plot, Marks); });
  }
  std::vector<DrawCall> DrawHistogram(const std::vector<double>& values) const {
    return Recorded([&](Target& t) {
      DrawHisto(t, PlotGeometry(), values, Column::F, Session.Settings,
                ShownGroups(Session, Marks));
    });
  }
};

/// The filled shapes, as their number of corners (0 for an ellipse) and their colour.
using Shapes = std::vector<std::pair<std::size_t, Colour>>;
Shapes ShapesOf(const std::vector<DrawCall>& calls) {
  Shapes shapes;
  for (const DrawCall& call : calls) {
    if (const auto* p = std::get_if<PolygonCall>(&call); p && p->brush && p->pen.style != NoLine)
      shapes.emplace_back(p->points.size(), *p->brush);
    if (const auto* e = std::get_if<EllipseCall>(&call); e && e->brush)
      shapes.emplace_back(0, *e->brush);
  }
  return shapes;
}

TEST(GroupMark, ManyGroupsHaveMarksOfTheirOwnApartFromSelectionAndLines) {
  std::set<std::pair<Colour, int>> colours;
  std::set<std::pair<int, int>> symbols;
  for (std::size_t i = 0; i < DistinctMarks; ++i) {
    const GroupMark mark = MarkOfGroup(i);
    colours.emplace(mark.colour, static_cast<int>(mark.finish));
    symbols.emplace(mark.symbol, static_cast<int>(mark.finish));
    EXPECT_TRUE(mark.colour != Black && mark.colour != SelectedColour);
  }
  EXPECT_EQ(colours.size(), DistinctMarks);
  EXPECT_EQ(symbols.size(), DistinctMarks);
  EXPECT_EQ(MarkOfGroup(0).colour, BlueOfGroups);
  EXPECT_EQ(MarkOfGroup(DistinctMarks), MarkOfGroup(0));
}

TEST(GroupMark, AWideOutlineIsAFifthOfItsSymbolAndTwoLinesAtLeast) {
  const std::tuple<std::int16_t, double, int> rows[] = {// size, width of a line, outline
                                                        {9, 1, 2},
                                                        {20, 1, 4},
                                                        {47, 7, 14},
                                                        {140, 7, 28}};
  for (const auto& [size, line, outline] : rows) {
    Recorder recorder;
    StyledTarget figure(recorder, {.PenWidth = line});
    DrawMark(figure, 1, Finish::Light, 500, 500, size, Red);
    EXPECT_EQ(CallsOf<PolygonCall>(recorder.calls).at(0).pen.width, outline) << size;
  }
}

TEST(GroupMarks, InTheNetColoursLeaveTheShapesToTheAxesAndShapesTheColours) {
  Study study(MarkBy::Colours);
  study.Session.Records[3].Selected = true;
  EXPECT_EQ(ShapesOf(study.DrawNet()), (Shapes{{4, BlueOfGroups},
                                               {3, BlueOfGroups},
                                               {0, BlueOfGroups},
                                               {4, Vermilion},
                                               {3, Vermilion},
                                               {0, Vermilion},
                                               {4, Yellow},
                                               {3, Yellow},
                                               {0, Yellow}}));
  study.Marks.By = MarkBy::Shapes;
  EXPECT_EQ(ShapesOf(study.DrawNet()), (Shapes{{0, Red},
                                               {0, Green},
                                               {0, Blue},
                                               {4, Red},
                                               {4, Green},
                                               {4, Blue},
                                               {0, Yellow},
                                               {0, Yellow},
                                               {0, Yellow}}));
  // Values that colour the symbols leave the shapes to the groups, or with one ramp to the axes.
  study.Marks.By = MarkBy::Colours;
  study.Net.colourByValue = true;
  const auto corners = [&study] {
    std::vector<std::size_t> found;
    for (const auto& [shape, colour] : ShapesOf(study.DrawNet())) found.push_back(shape);
    return found;
  };
  EXPECT_EQ(corners(), (std::vector<std::size_t>{0, 0, 0, 4, 4, 4, 0, 0, 0}));
  study.Net.colourRamp = ColourRamp::One;
  EXPECT_EQ(corners(), (std::vector<std::size_t>{4, 3, 0, 4, 3, 0, 4, 3, 0}));
}

TEST(GroupMarks, XYPlotAndHistogramShowEachGroup) {
  Study study(MarkBy::Colours);
  study.Session.Records[3].Selected = true;
  EXPECT_EQ(ShapesOf(study.DrawPlot()), (Shapes{{0, BlueOfGroups}, {0, Vermilion}, {0, Yellow}}));
  study.Marks.By = MarkBy::Shapes;
  EXPECT_EQ(ShapesOf(study.DrawPlot()), (Shapes{{0, BlueOfGroups}, {4, Vermilion}, {0, Yellow}}));
  study.Plot.coding = true;
  const Shapes valued = ShapesOf(study.DrawPlot());
  EXPECT_TRUE(valued.size() == 3 && valued[0].first == 0 && valued[1].first == 4);
  EXPECT_TRUE(valued[0].second != BlueOfGroups && valued[1].second != Vermilion);

  // The second group stands on the first; 3 lies on the boundary of two classes and counts in both.
  Shapes bars;
  std::vector<int> tops;
  for (const PolygonCall& p : CallsOf<PolygonCall>(study.DrawHistogram({1, 1, 3})))
    if (p.pen.style == Solid) {
      bars.emplace_back(p.points[0].x, *p.brush);
      tops.push_back(p.points[2].y);
    }
  ASSERT_EQ(bars.size(), 4u);
  for (std::size_t i = 0; i < bars.size(); ++i)
    EXPECT_EQ(bars[i].second, i == 1 ? Vermilion : BlueOfGroups) << i;
  EXPECT_TRUE(bars[0].first == bars[1].first && bars[2].first < bars[3].first);
  EXPECT_TRUE(tops[0] > tops[1] && tops[2] == tops[0]);
}

TEST(GroupMarks, WithoutGroupsEveryPictureIsAsBefore) {
  Study off, none(MarkBy::Colours);
  none.Marks.Of.clear();  // of another store
  none.Marks.Groups.clear();
  EXPECT_EQ(off.DrawNet(), Recorded([&](Target& t) {
              DrawStereo(off.Session.Records, Geographic, t, {}, off.Net, InPhase);
            }));
  EXPECT_EQ(off.DrawPlot(),
            Recorded([&](Target& t) { DrawXYPlot(off.Session, t, PlotGeometry(), off.Plot); }));
  EXPECT_EQ(off.DrawNet(), none.DrawNet());
  EXPECT_EQ(off.DrawPlot(), none.DrawPlot());
  EXPECT_EQ(WithLegend({360, 290}, off.Marks), (PlaneSize{360, 290}));
}

TEST(GroupMarks, EachMeanHasItsEllipsesInTheColourOfItsGroup) {
  Study study(MarkBy::Colours);
  GroupStats stats;
  stats.GroupN = 5;
  stats.Reached = GroupStats::All;
  stats.Errors = 3;
  for (int k = 1; k <= 3; ++k) {
    stats.MeanVec(k, k) = 1;
    stats.MeanE1[k] = 30, stats.MeanE2[k] = 10;
  }
  stats.MeanDec[2] = stats.MeanInc[3] = 90;
  study.Marks.Means = {{1, stats}, {7, GroupStats()}};  // the second one's statistics failed
  study.Net.showData = false;
  const auto linesOf = [&](Colour colour) {
    std::size_t lines = 0;
    for (const PolylineCall& line : CallsOf<PolylineCall>(study.DrawNet()))
      lines += line.pen.colour == colour && line.points.size() > 10;
    return lines;
  };
  EXPECT_EQ(ShapesOf(study.DrawNet()), (Shapes{{4, White}, {3, White}, {0, White}}));
  EXPECT_GE(linesOf(Vermilion), 3u);
  EXPECT_EQ(linesOf(BlueOfGroups), 0u);
  study.Marks.By = MarkBy::Shapes;
  EXPECT_EQ(ShapesOf(study.DrawNet()), (Shapes{{4, White}, {4, White}, {4, White}}));
  EXPECT_TRUE(linesOf(Red) >= 1 && linesOf(Vermilion) == 0);
}

TEST(GroupMarks, TheLegendNamesWhatFitsAndCountsTheRest) {
  constexpr PlaneSize plane = {360, 290};
  Study study(MarkBy::Shapes);
  const auto legend = [&] {
    return Recorded([&](Target& t) { DrawLegendBelow(t, plane, study.Marks, {}); });
  };
  study.Marks.Groups = {{"Mont Blanc, quarry of the north 07", 1}, {"gone", 0}, {"", 1}};
  const std::string two = WordsOf(legend());
  EXPECT_TRUE(two.starts_with("Mont Bl") && two.ends_with(" 07|(no name)|")) << two;
  EXPECT_NE(two.find("..."), two.npos);
  EXPECT_EQ(ShapesOf(legend()), (Shapes{{0, BlueOfGroups}, {3, Rgb(0, 158, 115)}}));
  for (int i = 3; i < 500; ++i) study.Marks.Groups.push_back({"quarry of the north", 1});
  const PlaneSize whole = WithLegend(plane, study.Marks);
  for (const DrawCall& call : legend())
    for (const LogicalPoint& p : PointsOf(call))
      EXPECT_TRUE(p.x > 0 && p.y > plane.height && p.x < whole.width && p.y < whole.height) << call;
  const std::string words = WordsOf(legend());
  const auto names = static_cast<std::size_t>(std::count(words.begin(), words.end(), '|')) - 1;
  EXPECT_TRUE(words.ends_with("|... and " + std::to_string(499 - names) + " more|")) << words;
  study.Marks.Legend = false;
  EXPECT_TRUE(legend().empty());
}

}  // namespace
}  // namespace velorix
