#include "app/files/graphics_page.h"

#include <array>
#include <cmath>
#include <set>

#include "plot/drawing/metafile_target.h"
#include "tests/app/script.h"
#include "tests/plot/metafile_reader.h"

namespace velorix {
namespace {

/// A program with a site in view, whose host keeps what it is given.
class GraphicsPageTest : public ProgramTest {
 protected:
  void SetUp() override {
    OpenFile(std::string(VELORIX_SOURCE_DIR) + "/examples/jelinek1978.ams");
    Program.XYPlot[1] = {
        .x = Column::Km, .y = Column::Fac3, .colour = Column::KmaxDec, .coding = true};
    Program.XYPlot[2] = {
        .x = Column::Fac3, .y = Column::Fac5, .colour = Column::Km, .coding = true, .lines = true};
    Program.Stereo.colourByValue = true;
    Program.Stereo.colourParameter = Column::Fac5;
    Program.Host.WritePicture = [this](const std::string& path, PlaneSize plane, double,
                                       const Host::DrawPicture& draw) {
      Written.push_back(path);
      Plane = plane;
      Drawn = CallsOf(draw);
      return Refuses ? Outcome::Refused("Title", "reason") : Outcome();
    };
  }

  std::vector<DrawCall> Page(double s) const {
    return CallsOf([&](Target& target) { DrawGraphicsPage(Program, target, s); });
  }
  bool Export(const std::string& name) {
    Asked.Boxes.clear();
    Written.clear();
    return ExportGraphics(Program, Path(name), !name.ends_with(".wmf"));
  }

  Texts Written;
  PlaneSize Plane;
  std::vector<DrawCall> Drawn;
  bool Refuses = false;
};

/// Where the calls lie; a text by its point.
std::vector<LogicalPoint> PointsOf(const DrawCall& call) {
  if (const auto* c = std::get_if<PolygonCall>(&call)) return c->points;
  if (const auto* c = std::get_if<PolylineCall>(&call)) return c->points;
  if (const auto* c = std::get_if<EllipseCall>(&call))
    return {{c->box.left, c->box.top}, {c->box.right, c->box.bottom}};
  if (const auto* c = std::get_if<PixelCall>(&call)) return {c->point};
  if (const auto* c = std::get_if<RampCall>(&call))
    return {{c->sides.front(), c->bottom}, {c->sides.back(), c->bottom}};
  if (const auto* c = std::get_if<TextCall>(&call)) return {c->point};
  return {};
}

/// Left, top, right, bottom.
using Extents = std::array<int, 4>;
Extents ExtentsOf(const DrawCall& call) {
  Extents e = {99999, 99999, -99999, -99999};
  for (const LogicalPoint p : PointsOf(call))
    e = {std::min(e[0], p.x), std::min(e[1], p.y), std::max(e[2], p.x), std::max(e[3], p.y)};
  return e;
}

TEST_F(GraphicsPageTest, PlotsHaveTheirPlacesWhicheverAreChosen) {
  const struct {
    bool PageOptions::*Box;
    Extents Frame;  // of the net, or of the plot's paper
  } cases[] = {{&PageOptions::stereonet, {60, 40, 380, 360}},
               {&PageOptions::histogram, {530, 100, 850, 340}},
               {&PageOptions::xyPlot1, {60, 440, 380, 620}},
               {&PageOptions::xyPlot2, {530, 440, 850, 620}}};
  const struct {
    double s;
    std::set<int> Heights;  // of the last plot's texts
  } scales[] = {{1, {8, 9, 10, 14}}, {BitmapScale, {13, 14, 16, 22}}};
  for (const auto& [s, wanted] : scales) {
    std::set<int> heights;
    for (const auto& c : cases) {
      SCOPED_TRACE(c.Frame[0]);
      Program.Page = {false, false, false, false};
      Program.Page.*c.Box = true;
      Extents frame = c.Frame;
      for (int& side : frame) side = static_cast<int>(std::lround(side * s));
      bool framed = false;
      heights.clear();
      for (const DrawCall& call : Page(s)) {
        const Extents e = ExtentsOf(call);
        framed |= e == frame;
        EXPECT_TRUE(e[0] >= 0 && e[1] >= 0 && e[2] <= GraphicsPage.width * s &&
                    e[3] <= GraphicsPage.height * s)
            << call;
        if (const auto* text = std::get_if<TextCall>(&call)) heights.insert(text->style.height);
      }
      EXPECT_TRUE(framed);
    }
    EXPECT_EQ(heights, wanted);
  }
}

TEST_F(GraphicsPageTest, ColourScalesOfXYPlotsStandBetweenThemOrBeforeThePagesEdge) {
  for (const double s : {1.0, BitmapScale}) {
    std::set<std::pair<int, int>> bars;
    for (const DrawCall& call : Page(s))
      if (const auto* ramp = std::get_if<RampCall>(&call); ramp && ramp->bottom == 620 * s)
        bars.emplace(std::lround(ramp->sides.front() / s), std::lround(ramp->sides.back() / s));
    // From 23 to 31 units right of the frames.
    EXPECT_EQ(bars, (std::set<std::pair<int, int>>{{403, 411}, {873, 881}})) << s;
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
  Program.Page = {false, false, false, false};
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

TEST_F(GraphicsPageTest, OnlyTheMetafileFailsInSilence) {
  const auto fails = [this](const std::string& name) {
    EXPECT_FALSE(Export(name));
    EXPECT_EQ(Asked.Boxes, Texts{"Export graphics|" + Path(name) + "\nFile was not saved!|&OK"});
  };
  for (const char* name : {"a.emf", "a", "a.", "a.jpg2"}) {
    fails(name);
    EXPECT_EQ(Written, Texts());
  }
  EXPECT_FALSE(ExportGraphics(Program, Path("a.wmf"), true)) << "the filter decides";
  Refuses = true;
  fails("a.png");
  Program.Host.WritePicture = nullptr;  // a build without encoders
  fails("a.png");
  EXPECT_FALSE(Export("none/a.wmf"));
  EXPECT_EQ(Asked.Boxes, Texts());
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

TEST_F(GraphicsPageTest, ClipboardAndPrinterGetThePage) {
  std::string metafile, document;
  Program.Host.CopyPicture = [&](const std::string& bytes, PlaneSize plane,
                                 const Host::DrawPicture& draw) {
    metafile = bytes;
    EXPECT_EQ(plane, GraphicsPage);
    Drawn = CallsOf(draw);
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
  EXPECT_EQ(Asked.Boxes, Texts{"Print|out of paper|&OK"});
}

}  // namespace
}  // namespace velorix
