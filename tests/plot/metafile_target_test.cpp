#include "plot/metafile_target.h"

#include "plot/drawing.h"
#include "tests/plot/metafile_reader.h"

namespace velorix {
namespace {

constexpr PlaneSize Window = {900, 800};

std::string TextOf(const MetafileReader::Record& record) {
  return record.bytes.substr(2, static_cast<std::size_t>(record.words[0]));
}

TEST(PlaceableHeaderTest, HasTheChecksumOfItsWords) {
  const unsigned char wanted[] = {0xD7, 0xCD, 0xC6, 0x9A, 0,    0, 0, 0, 0, 0,    0x84,
                                  0x03, 0x20, 0x03, 0x64, 0x00, 0, 0, 0, 0, 0xD1, 0x57};
  static_assert((0x5711 ^ 900 ^ 800 ^ 100) == 0x57D1);
  EXPECT_EQ(PlaceableHeader(Window, 100), std::string(std::begin(wanted), std::end(wanted)));
}

TEST(MetafileTest, EmptyPictureHasItsWindowAndNoObjects) {
  MetafileTarget target(Window);
  const std::string bits = target.Bits();
  const MetafileReader read(bits);
  ASSERT_EQ(read.records.size(), 5u);
  EXPECT_EQ(read.records[0].function, 0x020C);
  EXPECT_EQ(read.records[0].words, (std::vector<int>{800, 900}));
  EXPECT_EQ(read.records[1].function, 0x0103);
  EXPECT_EQ(read.records[1].words, std::vector<int>{8});
}

TEST(MetafileTest, PictureForAHostThatTellsTheExtentHasNone) {
  MetafileTarget target(std::nullopt);
  const MetafileReader read(target.Bits());
  EXPECT_EQ(read.Of(0x020C).at(0).words, (std::vector<int>{0, 0}));
  EXPECT_TRUE(read.Of(0x0103).empty());
}

TEST(MetafileTest, ShapesKeepPointsPenAndBrush) {
  MetafileTarget target(Window);
  target.SetTransparent();
  target.SetTransparent();
  DrawCircle(target, 100, 50, 10, {.style = Dashed, .colour = 0x102030, .width = 3}, Green);
  DrawRectangle(target, 1, 2, 30, 40, {.style = NoLine}, 0);
  DrawLine(target, 5, 6, -7, 8, {});
  target.Pixel({9, 10}, Red);
  const MetafileReader read(target.Bits());
  EXPECT_EQ(read.Of(0x0102).size(), 1u);
  EXPECT_EQ(read.Of(0x0418).at(0).words, (std::vector<int>{60, 110, 40, 90}));
  EXPECT_EQ(read.Of(0x0324).at(0).words, (std::vector<int>{4, 1, 2, 30, 2, 30, 40, 1, 40}));
  EXPECT_EQ(read.Of(0x0325).at(0).words, (std::vector<int>{2, 5, 6, -7, 8}));
  EXPECT_EQ(read.Of(0x041F).at(0).words, (std::vector<int>{255, 0, 10, 9}));
  const auto pens = read.Of(0x02FA);
  ASSERT_EQ(pens.size(), 3u);
  EXPECT_EQ(pens[0].words, (std::vector<int>{1, 3, 0, 0x2030, 0x10}));
  EXPECT_EQ(pens[1].words, (std::vector<int>{5, 1, 0, 0, 0}));
  const auto brushes = read.Of(0x02FC);
  ASSERT_EQ(brushes.size(), 2u);
  EXPECT_EQ(brushes[0].words, (std::vector<int>{0, static_cast<std::int16_t>(0xFF00), 0, 0}));
  EXPECT_EQ(brushes[1].words, (std::vector<int>{1, 0, 0, 0})) << "hollow";
}

TEST(MetafileTest, TextsAreSetInArialAndTheCodePage) {
  MetafileTarget target(Window);
  DrawText(target, "N = 12", 10, 20, {.height = 14, .alignment = CentreBaseline});
  DrawTextVertical(target, "Žďár µ 漢", 30, 40, {.height = 9, .colour = Blue, .weight = 600});
  DrawText(target, "", 0, 0, {.height = 99});
  const MetafileReader read(target.Bits());
  const auto fonts = read.Of(0x02FB);
  ASSERT_EQ(fonts.size(), 2u);
  EXPECT_EQ(std::vector<int>(fonts[0].words.begin(), fonts[0].words.begin() + 9),
            (std::vector<int>{14, 0, 0, 0, 400, 0, 0, 0, 0}));
  EXPECT_EQ(std::vector<int>(fonts[1].words.begin(), fonts[1].words.begin() + 9),
            (std::vector<int>{9, 0, 900, 0, 600, 0, 0, 0, 0}));
  EXPECT_STREQ(fonts[0].bytes.c_str() + 18, "Arial");
  const auto texts = read.Of(0x0521);
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(TextOf(texts[0]), "N = 12");
  EXPECT_EQ(TextOf(texts[1]), "\x8E?\xE1r \xB5 ?");
  EXPECT_EQ(texts[1].words[texts[1].words.size() - 2], 40);
  EXPECT_EQ(texts[1].words.back(), 30);
  EXPECT_EQ(read.Of(0x012E).at(0).words[0], CentreBaseline);
  EXPECT_EQ(read.Of(0x0209).at(1).words, (std::vector<int>{0, 0xFF}));
}

TEST(MetafileTest, LikeShapesShareTheirObjectsAndManyReuseTheTable) {
  MetafileTarget like(Window), unlike(Window);
  for (int i = 0; i < 1000; ++i) {
    Pen pen;
    DrawSymbol(like, 3, static_cast<float>(i), 100, 9, Red, pen);
    pen.colour = static_cast<Colour>(i);
    DrawSymbol(unlike, 3, static_cast<float>(i), 100, 9, static_cast<Colour>(i * 7), pen);
    DrawText(unlike, "x", i, 0, {.height = static_cast<std::int16_t>(8 + i % 9)});
  }
  const MetafileReader few(like.Bits());
  EXPECT_EQ(few.Of(0x02FA).size() + few.Of(0x02FC).size(), 2u);
  EXPECT_EQ(few.Of(0x0418).size(), 1000u);
  const MetafileReader many(unlike.Bits());
  EXPECT_EQ(many.Of(0x02FA).size(), 1000u);
  EXPECT_EQ(many.Of(0x01F0).size(), 3000u);
  EXPECT_LE(many.tableSize, 4);
}

TEST(MetafileTest, PlacesBeyondSixteenBitsGoToTheNearestOne) {
  MetafileTarget target(Window);
  const LogicalPoint line[] = {{-70000, 5}, {40000, 2000000000}};
  target.Polyline(line, {});
  target.Ellipse({-100000, 0, 7, 100000}, {}, NoBrush);
  const MetafileReader read(target.Bits());
  EXPECT_EQ(read.Of(0x0325).at(0).words, (std::vector<int>{2, -32768, 5, 32767, 32767}));
  EXPECT_EQ(read.Of(0x0418).at(0).words, (std::vector<int>{32767, 7, 0, -32768}));
}

TEST(MetafileTest, LineTooLongForARecordGoesOnInTheNext) {
  std::vector<LogicalPoint> points(70000);
  for (int i = 0; i < 70000; ++i) points[i] = {i % 1000, i / 1000};
  MetafileTarget target(Window);
  target.Polyline(points, {});
  target.Polyline({points.data(), 1}, {});
  const MetafileReader read(target.Bits());
  const auto lines = read.Of(0x0325);
  ASSERT_EQ(lines.size(), 3u);
  std::vector<LogicalPoint> joined;
  for (const auto& line : lines)
    for (std::size_t i = joined.empty() ? 1 : 3; i + 1 < line.words.size(); i += 2)
      joined.push_back({line.words[i], line.words[i + 1]});
  EXPECT_EQ(joined, points);
}

}  // namespace
}  // namespace velorix
