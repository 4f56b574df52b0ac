#include "plot/drawing/metafile_target.h"

#include "plot/drawing/drawing.h"
#include "plot/drawing/symbols.h"
#include "tests/plot/metafile_reader.h"

namespace velorix {
namespace {

using Words = std::vector<int>;

template <class Draw>
MetafileReader ReadBack(Draw draw, std::optional<PlaneSize> window = PlaneSize{900, 800}) {
  MetafileTarget target(window);
  draw(target);
  return MetafileReader(target.Bits());
}

TEST(MetafileTest, OnlyAPictureThatTellsItsExtentIsStretchedToIt) {
  const auto nothing = [](Target&) {};
  const MetafileReader read = ReadBack(nothing), host = ReadBack(nothing, std::nullopt);
  ASSERT_EQ(read.records.size(), 5u);
  EXPECT_EQ(read.records[0].function, 0x020C);
  EXPECT_EQ(read.records[0].words, (Words{800, 900}));
  EXPECT_EQ(read.records[1].function, 0x0103);
  EXPECT_EQ(read.records[1].words, Words{8});
  EXPECT_EQ(host.Of(0x020C).at(0).words, (Words{0, 0}));
  EXPECT_TRUE(host.Of(0x0103).empty());
}

TEST(MetafileTest, ShapesKeepPointsPenAndBrush) {
  const MetafileReader read = ReadBack([](Target& target) {
    target.SetTransparent();
    target.SetTransparent();
    DrawCircle(target, 100, 50, 10, {.style = Dashed, .colour = 0x102030, .width = 3}, Green);
    DrawRectangle(target, 1, 2, 30, 40, {.style = NoLine}, 0);
    DrawLine(target, 5, 6, -7, 8, {});
    target.Pixel({9, 10}, Red);
  });
  EXPECT_EQ(read.Of(0x0102).size(), 1u);
  const std::pair<int, std::vector<Words>> expected[] = {
      {0x0418, {{60, 110, 40, 90}}},
      {0x0324, {{4, 1, 2, 30, 2, 30, 40, 1, 40}}},
      {0x0325, {{2, 5, 6, -7, 8}}},
      {0x041F, {{255, 0, 10, 9}}},
      {0x02FA, {{1, 3, 0, 0x2030, 0x10}, {5, 1, 0, 0, 0}, {0, 1, 0, 0, 0}}},
      {0x02FC, {{0, static_cast<std::int16_t>(0xFF00), 0, 0}, {1, 0, 0, 0}}}};  // green, hollow
  for (const auto& [function, words] : expected) {
    std::vector<Words> found;
    for (const auto& record : read.Of(function)) found.push_back(record.words);
    EXPECT_EQ(found, words) << std::hex << function;
  }
}

TEST(MetafileTest, RegionsAreOneRecordOfAllTheirBorders) {
  MetafileTarget target(std::nullopt);
  const std::vector<std::vector<LogicalPoint>> borders = {{{1, 2}, {9, 2}, {5, 8}},
                                                          {{4, 3}, {6, 3}}};
  target.Region(borders, Red);
  const MetafileReader file(target.Bits());
  const auto records = file.Of(0x0538);
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0].words, (std::vector<int>{2, 3, 2, 1, 2, 9, 2, 5, 8, 4, 3, 6, 3}));
}

TEST(MetafileTest, TextsAreSetInArialAndTheCodePage) {
  const MetafileReader read = ReadBack([](Target& target) {
    DrawText(target, "N = 12", 10, 20, {.height = 14, .alignment = CentreBaseline});
    DrawTextVertical(target, "Žďár µ 漢", 30, 40, {.height = 9, .colour = Blue, .weight = 600});
    DrawText(target, "", 0, 0, {.height = 99});
  });
  const struct {
    Words font;
    std::string text;
    int y, x;
  } expected[] = {{{14, 0, 0, 0, 400, 0, 0, 0, 0}, "N = 12", 20, 10},
                  {{9, 0, 900, 0, 600, 0, 0, 0, 0}, "\x8E?\xE1r \xB5 ?", 40, 30}};
  const auto fonts = read.Of(0x02FB), texts = read.Of(0x0521);
  ASSERT_TRUE(fonts.size() == 2 && texts.size() == 2);
  for (std::size_t i = 0; i < 2; ++i) {
    const Words& words = texts[i].words;
    EXPECT_EQ(Words(fonts[i].words.begin(), fonts[i].words.begin() + 9), expected[i].font);
    EXPECT_STREQ(fonts[i].bytes.c_str() + 18, "Arial");
    EXPECT_EQ(texts[i].bytes.substr(2, static_cast<std::size_t>(words[0])), expected[i].text);
    EXPECT_EQ(Words(words.end() - 2, words.end()), (Words{expected[i].y, expected[i].x}));
  }
  EXPECT_EQ(read.Of(0x012E).at(0).words[0], CentreBaseline);
  EXPECT_EQ(read.Of(0x0209).at(1).words, (Words{0, 0xFF}));
}

TEST(MetafileTest, LikeShapesShareTheirObjectsAndManyReuseTheTable) {
  const auto thousand = [](bool alike) {
    return ReadBack([alike](Target& target) {
      for (int i = 0; i < 1000; ++i) {
        Pen pen = {.colour = static_cast<Colour>(alike ? 0 : i)};
        DrawSymbol(target, 3, static_cast<float>(i), 100, 9, 7 * pen.colour, pen);
        if (!alike) DrawText(target, "x", i, 0, {.height = static_cast<std::int16_t>(8 + i % 9)});
      }
    });
  };
  const MetafileReader few = thousand(true), many = thousand(false);
  EXPECT_EQ(few.Of(0x02FA).size() + few.Of(0x02FC).size(), 2u);
  EXPECT_EQ(few.Of(0x0418).size(), 1000u);
  EXPECT_EQ(many.Of(0x02FA).size(), 1000u);
  EXPECT_EQ(many.Of(0x01F0).size(), 3000u);
  EXPECT_LE(many.tableSize, 4);
}

TEST(MetafileTest, LineTooLongForARecordGoesOnInTheNext) {
  std::vector<LogicalPoint> points(70000), joined;
  for (int i = 0; i < 70000; ++i) points[i] = {i % 1000, i / 1000};
  const auto lines = ReadBack([&points](Target& target) {
                       target.Polyline(points, {});
                       target.Polyline({points.data(), 1}, {});
                     }).Of(0x0325);
  ASSERT_EQ(lines.size(), 3u);
  for (const auto& line : lines)
    for (std::size_t i = joined.empty() ? 1 : 3; i + 1 < line.words.size(); i += 2)
      joined.push_back({line.words[i], line.words[i + 1]});
  EXPECT_EQ(joined, points);
}

}  // namespace
}  // namespace velorix
