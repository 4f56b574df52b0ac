#include "app/graphics_page.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <set>

#include "plot/metafile_target.h"
#include "plot/recorder.h"
#include "tests/app/script.h"
#include "tests/plot/metafile_reader.h"

namespace velorix {
namespace {

std::string BytesOf(const std::string& path) {
  std::ifstream in(PathOf(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A program with a site in view, whose host keeps what it is given.
class GraphicsPageTest : public ProgramTest {
 protected:
  void SetUp() override {
    OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/jelinek1978.ams");
    Program.XYPlot[1] = {.x = 3, .y = 6};
    Program.XYPlot[2] = {.x = 6, .y = 8, .lines = true};
    Program.Host.WritePicture = [this](const std::string& path, PlaneSize plane, double,
                                       const Host::DrawPicture& draw) {
      Written.push_back({BaseName(path) + "." + ExtensionOf(path), plane});
      Recorder recorder;
      draw(recorder);
      Drawn = recorder.calls;
      return Refuses ? Outcome::Refused("Title", "reason") : Outcome();
    };
  }

  std::vector<DrawCall> Page(double s) const {
    Recorder recorder;
    DrawGraphicsPage(Program, recorder, s);
    return recorder.calls;
  }

  struct Picture {
    std::string Name;
    PlaneSize Plane;
  };
  std::vector<Picture> Written;
  std::vector<DrawCall> Drawn;
  bool Refuses = false;
};

struct Extents {
  int left = 99999, top = 99999, right = -99999, bottom = -99999;
  void Add(LogicalPoint p) {
    left = std::min(left, p.x), right = std::max(right, p.x);
    top = std::min(top, p.y), bottom = std::max(bottom, p.y);
  }
};

/// Where the calls lie; a text by its point.
std::vector<LogicalPoint> PointsOf(const DrawCall& call) {
  if (const auto* c = std::get_if<PolygonCall>(&call)) return c->points;
  if (const auto* c = std::get_if<PolylineCall>(&call)) return c->points;
  if (const auto* c = std::get_if<EllipseCall>(&call))
    return {{c->box.left, c->box.top}, {c->box.right, c->box.bottom}};
  if (const auto* c = std::get_if<PixelCall>(&call)) return {c->point};
  if (const auto* c = std::get_if<TextCall>(&call)) return {c->point};
  return {};
}

TEST_F(GraphicsPageTest, PlotsHaveTheirPlacesWhicheverAreChosen) {
  struct Case {
    bool PageOptions::*Box;
    Extents Frame;  // of the net, or of the plot's paper
  };
  const Case cases[] = {{&PageOptions::chkStereo, {60, 40, 380, 360}},
                        {&PageOptions::chkHisto, {530, 100, 850, 340}},
                        {&PageOptions::chkXYPLot1, {60, 440, 380, 620}},
                        {&PageOptions::chkXYPlot2, {530, 440, 850, 620}}};
  for (const Case& c : cases) {
    Program.Page = {false, false, false, false};
    Program.Page.*c.Box = true;
    const auto calls = Page(1);
    const auto framed = std::count_if(calls.begin(), calls.end(), [&](const DrawCall& call) {
      Extents extents;
      for (const LogicalPoint p : PointsOf(call)) extents.Add(p);
      return extents.left == c.Frame.left && extents.top == c.Frame.top &&
             extents.right == c.Frame.right && extents.bottom == c.Frame.bottom;
    });
    EXPECT_GE(framed, 1) << c.Frame.left << ", " << c.Frame.top;
    if (c.Box == &PageOptions::chkXYPlot2) {
      std::set<int> heights;
      for (const DrawCall& call : calls)
        if (const auto* text = std::get_if<TextCall>(&call)) heights.insert(text->style.height);
      EXPECT_EQ(heights, (std::set<int>{9, 10, 14}));
    }
    Extents all;
    for (const DrawCall& call : calls)
      for (const LogicalPoint p : PointsOf(call)) all.Add(p);
    EXPECT_GE(all.left, 0);
    EXPECT_GE(all.top, 0);
    EXPECT_LE(all.right, GraphicsPage.width);
    EXPECT_LE(all.bottom, GraphicsPage.height);
  }
}

TEST_F(GraphicsPageTest, EveryTargetGetsOneSequenceThatDiffersByTheFactor) {
  const auto one = Page(1), large = Page(BitmapScale);
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
  MetafileTarget metafile(GraphicsPage);
  Replay(one, metafile);
  EXPECT_EQ(GraphicsMetafile(Program).substr(22), metafile.Bits());
  ASSERT_TRUE(ExportGraphics(Program, Path("a.png"), true));
  EXPECT_EQ(Drawn, large);
  ASSERT_TRUE(ExportGraphics(Program, Path("a.svg"), true));
  EXPECT_EQ(Drawn, one);
}

TEST_F(GraphicsPageTest, LeavesThePlacesOfTheScreen) {
  Program.Session.Records[1].PlotX[3] = 77.0;
  ASSERT_TRUE(ExportGraphics(Program, Path("a.wmf"), false));
  EXPECT_EQ(Program.Session.Records[1].PlotX[3], 77.0);
}

TEST_F(GraphicsPageTest, MetafileIsWholeAndTheSameEachTime) {
  ASSERT_TRUE(ExportGraphics(Program, Path("a.wmf"), false));
  ASSERT_TRUE(ExportGraphics(Program, Path("b.wmf"), false));
  const std::string bytes = BytesOf(Path("a.wmf"));
  EXPECT_EQ(bytes, BytesOf(Path("b.wmf")));
  EXPECT_EQ(bytes.substr(0, 22), PlaceableHeader({900, 800}, 100));
  const std::string bits = bytes.substr(22);
  const MetafileReader read(bits);
  EXPECT_GT(read.Of(0x0521).size(), 40u) << "texts";
  EXPECT_GT(read.Of(0x0418).size(), 20u) << "circles";
  Program.Page = {false, false, false, false};
  ASSERT_TRUE(ExportGraphics(Program, Path("a.wmf"), false));
  const std::string empty = BytesOf(Path("a.wmf")).substr(22);
  EXPECT_EQ(MetafileReader(empty).records.size(), 5u) << "the file comes into being all the same";
}

TEST_F(GraphicsPageTest, ExtensionChoosesTheEncoder) {
  const struct {
    const char* Name;
    PlaneSize Plane;  // none: "File was not saved!"
  } cases[] = {{"a.png", {1440, 1280}},
               {"a.PNG", {1440, 1280}},
               {"a.gif", {1440, 1280}},
               {"a.jpg", {1440, 1280}},
               {"a.jpeg", {1440, 1280}},
               {"a.tif", {1440, 1280}},
               {"a.tiff", {1440, 1280}},
               {"a.bmp", {1440, 1280}},
               {"a.svg", {900, 800}},
               {"a.pdf", {900, 800}},
               {"a.emf", {}},
               {"a.wmf", {}},
               {"a", {}},
               {"a.", {}},
               {"a.jpg2", {}}};
  for (const auto& c : cases) {
    Written.clear();
    Asked.Boxes.clear();
    const bool wanted = c.Plane.width > 0;
    EXPECT_EQ(ExportGraphics(Program, Path(c.Name), true), wanted) << c.Name;
    ASSERT_EQ(Written.size(), wanted ? 1u : 0u) << c.Name;
    if (wanted) {
      EXPECT_EQ(Written[0].Plane, c.Plane) << c.Name;
    }
    const std::string box = "Export graphics|" + Path(c.Name) + "\nFile was not saved!|&OK";
    EXPECT_EQ(Asked.Boxes, wanted ? std::vector<std::string>() : std::vector{box}) << c.Name;
  }
  Refuses = true;
  Asked.Boxes.clear();
  EXPECT_FALSE(ExportGraphics(Program, Path("a.png"), true));
  EXPECT_EQ(Asked.Boxes.size(), 1u);
}

TEST_F(GraphicsPageTest, OnlyTheMetafileFailsInSilence) {
  EXPECT_FALSE(ExportGraphics(Program, Path("none/a.wmf"), false));
  EXPECT_TRUE(Asked.Boxes.empty());
  Program.Host.WritePicture = nullptr;  // a build without encoders
  EXPECT_FALSE(ExportGraphics(Program, Path("a.png"), true));
  EXPECT_EQ(Asked.Boxes.size(), 1u);
}

TEST_F(GraphicsPageTest, DialogAsksBeforeItWritesOverAFile) {
  std::ofstream(PathOf(Path("old.png"))) << "old";
  Asked.Files = {FileAnswer{Path("old.png"), 5}, FileAnswer{Path("old.png"), 1}};
  Asked.Buttons = {1, 0};
  Menu("mnuGraphicsSave");
  ASSERT_EQ(Asked.FileQuestions.size(), 3u) << "opening the site, and two for the page";
  EXPECT_EQ(Asked.FileQuestions[1].Title, "Save graphics");
  EXPECT_EQ(Asked.FileQuestions[1].DefaultName, "jelinek1978");
  EXPECT_EQ(Asked.Boxes,
            std::vector<std::string>(
                2, "Save graphics|This file already exists.\nOverwrite existing file?|&Yes|&No"));
  EXPECT_TRUE(BytesOf(Path("old.png")).starts_with("\xD7\xCD\xC6\x9A"))
      << "the first filter writes a metafile under any name";
  EXPECT_TRUE(Written.empty());
  Asked.Files = {FileAnswer{Path("new.bmp"), 2}};
  Menu("mnuGraphicsSave");
  ASSERT_EQ(Written.size(), 1u);
  EXPECT_EQ(Written[0].Name, "new.bmp");
}

TEST_F(GraphicsPageTest, ClipboardAndPrinterGetThePage) {
  std::string metafile, document;
  Program.Host.CopyPicture = [&](const std::string& bytes, PlaneSize plane,
                                 const Host::DrawPicture& draw) {
    metafile = bytes;
    EXPECT_EQ(plane, GraphicsPage);
    Recorder recorder;
    draw(recorder);
    Drawn = recorder.calls;
  };
  Menu("mnuGraphicsCopy");
  EXPECT_EQ(metafile, GraphicsMetafile(Program));
  EXPECT_EQ(Drawn, Page(1));
  Program.Host.PrintPicture = [&](const std::string& name, PlaneSize, const Host::DrawPicture&) {
    document = name;
    return Outcome::Refused("", "out of paper");
  };
  Menu("mnuGraphicsPrint");
  EXPECT_EQ(document, "Pelt4Q");
  EXPECT_EQ(Asked.Boxes, std::vector<std::string>{"Print|out of paper|&OK"});
}

}  // namespace
}  // namespace velorix
