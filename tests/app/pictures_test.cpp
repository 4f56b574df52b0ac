// The pictures of a published site, as calls on a target.

#include <algorithm>
#include <sstream>

#include "app/commands/picture_commands.h"
#include "app/tables/data_table.h"
#include "plot/drawing/metafile_target.h"
#include "plot/net/stereo.h"
#include "plot/plots/histogram.h"
#include "plot/plots/xy_plot.h"
#include "tests/app/script.h"
#include "tests/datafiles/golden_file.h"
#include "tests/plot/calls.h"
#include "tests/plot/metafile_reader.h"

namespace velorix {
namespace {

/// What a stereonet's option does.
struct Layer {
  const char* name;
  void (*on)(StereoOptions&);
};

class Pictures : public ProgramTest {
 protected:
  void Open(const char* name) {
    OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/" + name);
    Now.Records[2].Selected = true;
  }
  std::vector<DrawCall> Net(const StereoOptions& options) const {
    return Recorded([&](Target& target) {
      DrawStereo(Now.Records, Now.CoorSys, target, StereoGeometry{}, options, Now.ReImMode,
                 Program.GroupStats, Now.Settings);
    });
  }
  std::vector<DrawCall> Plot(const XYPlotOptions& options) const {
    return Recorded([&](Target& target) { DrawXYPlot(Now, target, PlotGeometry(), options); });
  }

  /// What the site's drawing gains by each layer: its number of calls, the first and the last.
  std::string Gained(std::span<const Layer> layers, std::size_t first, std::size_t last) {
    Open("granite.ams");
    StereoOptions none = Program.Plots.Stereo;
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
      if (lines.size() > first + last)
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(first),
                    lines.end() - static_cast<std::ptrdiff_t>(last));
      for (const std::string& line : lines) text += line;
    }
    return text;
  }
};

TEST_F(Pictures, AreDrawnAsApproved) {
  Open("jelinek1978.ams");
  ExpectGolden("app", "stereonet.txt", ToText(Net(Program.Plots.Stereo)));
  ExpectGolden("app", "xy_plot.txt", ToText(Plot({.x = Column::Fac3, .y = Column::Fac5})));
  ExpectGolden("app", "xy_plot_coloured.txt",
               ToText(Plot({.x = Column::KmaxDec,
                            .y = Column::KminDec,
                            .colour = Column::Fac3,
                            .coding = true,
                            .lines = true})));
  ExpectGolden("app", "histogram.txt", ToText(Recorded([&](Target& target) {
                 DrawHisto(target, PlotGeometry(), DataTableValues(Column::Fac3, Now), Column::Fac3,
                           Now.Settings);
               })));
}

// Each layer by its option: what drawing gains when it is switched on. Long layers show their first
// calls and their number.
TEST_F(Pictures, GainEachLayerByItsOption) {
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
  ExpectGolden("app", "stereonet_layers.txt", Gained(layers, 12, 0));
}

TEST_F(Pictures, HaveTheirLegendInThreeColumnsAndTheirColourScaleInBothWays) {
  // clang-format off
  const Layer layers[] = {
      {"legend", [](StereoOptions& o) { o.showLegend = o.showPlanes = o.showLines = true; o.showAxis[2] = false; o.foliationCodes.push_back("K"); }},
      {"legend of sticks", [](StereoOptions& o) { o.showLegend = o.showPlanes = o.planesAsStrikes = true; o.planesAsCircles = o.planesAsPoles = false; }},
      {"ramps of Kmean", [](StereoOptions& o) { o.showData = o.colourByValue = true; o.colourParameter = Column::Km; o.showAxis[2] = false; }},
      {"one ramp of T", [](StereoOptions& o) { o.showData = o.colourByValue = true; o.colourParameter = Column::Fac5; o.colourRamp = ColourRamp::One; }},
      {"title alone", [](StereoOptions& o) { o.showData = o.colourByValue = true; o.showAxis = {}; }}};
  // clang-format on
  ExpectGolden("app", "stereonet_scales.txt", Gained(layers, 14, 40));
}

/// A program with a site in view, whose host keeps what it is given.
class GraphicsPageTest : public ProgramTest {
 protected:
  void SetUp() override {
    OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/jelinek1978.ams");
    Program.Plots.XYPlot[1] = {
        .x = Column::Km, .y = Column::Fac3, .colour = Column::KmaxDec, .coding = true};
    Program.Plots.XYPlot[2] = {
        .x = Column::Fac3, .y = Column::Fac5, .colour = Column::Km, .coding = true, .lines = true};
    Program.Plots.Stereo.colourByValue = true;
    Program.Plots.Stereo.colourParameter = Column::Fac5;
    Program.Host.WritePicture = [this](const std::string& path, PlaneSize plane,
                                       const PictureScale&, const Host::DrawPicture& draw) {
      Written.push_back(path);
      Plane = plane;
      Drawn = Recorded(draw);
      return Refuses ? Outcome::Refused("Title", "reason") : Outcome();
    };
  }

  std::vector<DrawCall> Page(double s) const {
    return Recorded([&](Target& target) { DrawGraphicsPage(PageOf(Program), target, s); });
  }
  bool Export(const std::string& name) {
    Asked.Boxes.clear();
    Written.clear();
    return ExportGraphics(Program, {Path(name), !name.ends_with(".wmf")});
  }

  Texts Written;
  PlaneSize Plane;
  std::vector<DrawCall> Drawn;
  bool Refuses = false;
};

TEST_F(GraphicsPageTest, PlotsHaveTheirPlacesWhicheverAreChosen) {
  const auto all = Page(1);
  ExpectGolden("app", "graphics_page.txt", ToText(all));
  for (const PlotKind plot : AllPlots) {
    Program.Plots.OnPage = PerPlot(false);
    Program.Plots.OnPage[plot] = true;
    const auto alone = Page(1);
    EXPECT_GT(alone.size(), 50u);
    EXPECT_NE(std::search(all.begin(), all.end(), alone.begin(), alone.end()), all.end());
  }
}

TEST_F(GraphicsPageTest, EveryTargetGetsOneSequenceThatDiffersByTheFactor) {
  auto one = Page(1), large = Page(BitmapScale);
  const auto all = std::pair{one, large};
  ASSERT_EQ(one.size(), large.size());
  for (std::size_t i = 0; i < one.size(); ++i) {
    ASSERT_EQ(one[i].index(), large[i].index()) << i;
    const auto a = PointsOf(one[i]), b = PointsOf(large[i]);
    ASSERT_EQ(a.size(), b.size()) << i;
    for (std::size_t k = 0; k < a.size(); ++k) {
      EXPECT_NEAR(a[k].x * BitmapScale, b[k].x, 3) << one[i] << large[i];
      EXPECT_NEAR(a[k].y * BitmapScale, b[k].y, 3) << one[i] << large[i];
    }
    if (const auto* text = std::get_if<TextCall>(&one[i])) {
      const auto& other = std::get<TextCall>(large[i]);
      EXPECT_EQ(text->text, other.text);
      EXPECT_NEAR(text->style.height * BitmapScale, other.style.height, 1.7) << one[i];
    }
  }
  ASSERT_TRUE(Export("a.png"));
  EXPECT_EQ(Drawn, all.second);
  ASSERT_TRUE(Export("a.svg"));
  EXPECT_EQ(Drawn, all.first);
}

TEST_F(GraphicsPageTest, MetafileIsThePageBehindItsHeader) {
  ASSERT_TRUE(Export("a.wmf"));
  MetafileTarget metafile(GraphicsPage);
  Replay(Page(1), metafile);
  EXPECT_EQ(Bytes("a.wmf"), PlaceableHeader({900, 800}, 100) + metafile.Bits());
  Program.Plots.OnPage = PerPlot(false);
  ASSERT_TRUE(Export("a.wmf"));
  const std::string empty = Bytes("a.wmf").substr(22);
  EXPECT_EQ(MetafileReader(empty).records.size(), 5u) << "the file comes into being all the same";
}

TEST_F(GraphicsPageTest, ExtensionChoosesTheEncoder) {
  for (const char* name : {"a.png", "a.PNG", "a.gif", "a.jpg", "a.jpeg", "a.tif", "a.tiff", "a.bmp",
                           "a.svg", "a.pdf"}) {
    EXPECT_TRUE(Export(name));
    EXPECT_EQ(Written, Texts{Path(name)});
    const bool vectors = name == std::string("a.svg") || name == std::string("a.pdf");
    EXPECT_EQ(Plane, (vectors ? PlaneSize{900, 800} : PlaneSize{1440, 1280})) << name;
  }
}

TEST_F(GraphicsPageTest, EveryFailureIsReportedAndOnlyTheMetafileHasNoBox) {
  const auto fails = [this](const std::string& name) {
    EXPECT_FALSE(Export(name));
    EXPECT_EQ(Asked.Boxes, Texts{"Export graphics|" + Path(name) + "\nFile was not saved!|&OK"});
  };
  for (const char* name : {"a.emf", "a", "a.", "a.jpg2"}) {
    fails(name);
    EXPECT_EQ(Seen.Status, Path(name) + ": No encoder has this extension.");
    EXPECT_EQ(Written, Texts());
  }
  EXPECT_FALSE(ExportGraphics(Program, {Path("a.wmf"), true})) << "the filter decides";
  Refuses = true;
  fails("a.png");
  Program.Host.WritePicture = nullptr;  // a build without encoders
  fails("a.png");
  EXPECT_FALSE(Export("none/a.wmf"));
  EXPECT_EQ(Asked.Boxes, Texts());
  EXPECT_TRUE(Seen.Status.starts_with(Path("none/a.wmf") + ": This file could not be written: "))
      << Seen.Status;
  Program.Host.CopyPicture = [](const std::string&, PlaneSize, const Host::DrawPicture&) {
    return Outcome::Refused("", "taken");
  };
  Menu("mnuGraphicsCopy");
  EXPECT_EQ(Seen.Status, "taken");
}

TEST_F(GraphicsPageTest, DialogAsksBeforeItWritesOverAFile) {
  Answer(Put("old.png", "old"), 5);
  Answer(Path("old.png"), 1);
  Asked.Buttons = {1, 0};
  Menu("mnuGraphicsSave");
  EXPECT_EQ(Asked.FileQuestions.back().Title, "Save graphics");
  EXPECT_EQ(Asked.FileQuestions.back().DefaultName, "jelinek1978");
  EXPECT_EQ(Asked.Boxes,
            Texts(2, "Save graphics|This file already exists.\nOverwrite existing file?|&Yes|&No"));
  EXPECT_TRUE(Bytes("old.png").starts_with("\xD7\xCD\xC6\x9A"))
      << "the first filter writes a metafile under any name";
  Answer(Path("new.bmp"), 2);
  Menu("mnuGraphicsSave");
  EXPECT_EQ(Written, Texts{Path("new.bmp")});
}

// Vectors on paper and in files are this program's own, so they can carry the line; the other
// targets stay as they are.
TEST_F(GraphicsPageTest, AMeanOfAnotherViewIsNamedOnceAndBelowTheNetOfVectors) {
  ChooseCoorSys(Program, Specimen);
  std::vector<DrawCall> named = Page(1);
  named.push_back(TextCall{"Mean: geographic, N = 8", {60, 402}, {.height = 11}});
  const std::string notice = "The mean belongs to another view: geographic, N = 8.";
  const auto save = [this](const char* name, int filter) {
    Answer(Path(name), filter);
    Menu("mnuGraphicsSave");
    return Seen.Status;
  };
  EXPECT_EQ(save("a.svg", 7), "Written: " + Path("a.svg") + ". " + notice);
  EXPECT_EQ(Drawn, named);
  save("a.png", 5);
  EXPECT_EQ(Drawn, Page(BitmapScale));
  Program.Host.CopyPicture = [&](const std::string&, PlaneSize, const Host::DrawPicture& draw) {
    Drawn = Recorded(draw);
    return Outcome();
  };
  Menu("mnuGraphicsCopy");
  EXPECT_EQ(Drawn, Page(1));
  EXPECT_EQ(Seen.Status, notice);
  Program.Host.PrintPicture = [&](const std::string&, PlaneSize, const Host::DrawPicture& draw) {
    Drawn = Recorded(draw);
    return Outcome();
  };
  Menu("mnuGraphicsPrint");
  EXPECT_EQ(Drawn, named);
  Program.Plots.OnPage[PlotKind::Stereonet] = false;  // a page without the mean says nothing of it
  EXPECT_EQ(save("b.svg", 7), "Written: " + Path("b.svg"));
  EXPECT_EQ(Drawn, Page(1));
}

TEST_F(GraphicsPageTest, ClipboardAndPrinterGetThePage) {
  std::string metafile, document;
  Program.Host.CopyPicture = [&](const std::string& bytes, PlaneSize plane,
                                 const Host::DrawPicture& draw) {
    metafile = bytes;
    EXPECT_EQ(plane, GraphicsPage);
    Drawn = Recorded(draw);
    return Outcome();
  };
  Menu("mnuGraphicsCopy");
  EXPECT_EQ(metafile, GraphicsMetafile(PageOf(Program)));
  EXPECT_EQ(Drawn, Page(1));
  Program.Host.PrintPicture = [&](const std::string& name, PlaneSize, const Host::DrawPicture&) {
    document = name;
    return Outcome::Refused("", "out of paper");
  };
  Menu("mnuGraphicsPrint");
  EXPECT_EQ(document, "Pelt4Q");
  EXPECT_EQ(Asked.Boxes, Texts{"Print|out of paper|&OK"});
}

}  // namespace
}  // namespace velorix
