#include "plot/drawing/svg_target.h"

#include <gtest/gtest.h>

#include <regex>

#include "plot/drawing/drawing.h"
#include "plot/drawing/symbols.h"

namespace velorix {
namespace {

constexpr PlaneSize Plane = {100, 80};

std::string Drawn(const std::function<void(Target&)>& draw) { return SvgDocument(Plane, 1, draw); }

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++count;
  return count;
}

/// The document with "ID" for the hash that its ids begin with.
std::string WithoutHash(const std::string& document) {
  return std::regex_replace(document, std::regex("(id=\"|href=\"#)[a-p]{8}-"), "$1ID-");
}

TEST(SvgTarget, WritesShapesAndTextsInTheirPlaces) {
  const std::pair<std::function<void(Target&)>, const char*> rows[] = {
      {[](Target& t) { DrawLine(t, 10, 20, 90.125, 20, {}); }, "<path d=\"M10 20l80.12 0\"/>"},
      {[](Target& t) {
         DrawLine(t, 0, 1, 90, -1.5, {.style = DashDot, .colour = Red, .width = 2});
       },
       "<path d=\"M0 1l90-2.5\" stroke=\"#ff0000\" stroke-width=\"2\" "
       "stroke-dasharray=\"8,4,2,4\" stroke-linecap=\"butt\"/>"},
      {[](Target& t) { DrawCircle(t, 50, 40, 35, {}, 0x0000FE); },
       "<ellipse cx=\"50\" cy=\"40\" rx=\"35\" ry=\"35\" fill=\"#fe0000\"/>"},
      {[](Target& t) { DrawCircle(t, 50, 40, 35, {.style = NoLine}, 0); },
       "<ellipse cx=\"50\" cy=\"40\" rx=\"35\" ry=\"35\" stroke=\"none\"/>"},
      {[](Target& t) { DrawRectangle(t, 0, 0, 90, 70, {}, Blue); },
       "<path d=\"M0 0l90 0 0 70-90 0z\" fill=\"#0000ff\"/>"},
      {[](Target& t) {
         DrawText(t, "a<b\x01& \xCE\xBC", 7, 8, {.height = 14, .alignment = CentreBaseline});
       },
       "<text x=\"7\" y=\"8\" font-size=\"12.53\" text-anchor=\"middle\" fill=\"#000000\" "
       "stroke=\"none\">a&lt;b &amp; \xCE\xBC</text>"},
      {[](Target& t) {
         DrawTextVertical(t, "up", 7, 8, {.height = 20, .alignment = AlignRight, .weight = 700});
       },  // 20 / 1.117 = 17.905, and 0.905 of it below the point
       "<text transform=\"translate(7 8)rotate(-90)\" y=\"16.2\" font-size=\"17.91\" "
       "text-anchor=\"end\" font-weight=\"700\" fill=\"#000000\" stroke=\"none\">up</text>"},
      {[](Target& t) {
         const Colour pixels[] = {Red, Red, NoColour, Blue, Red, Red};
         t.Raster(ToLogical(t, 5, 6), 3, pixels);
       },
       "fill=\"#ff0000\" d=\"M5 6h2v1h-2zM6 7h2v1h-2z\"/>"},
  };
  for (const auto& [draw, element] : rows)
    EXPECT_NE(Drawn(draw).find(element), std::string::npos) << element << "\n" << Drawn(draw);
  const std::string ramp = Drawn([](Target& t) {
    DrawRamp(t, std::vector<double>{10, 20}, 50, std::vector<Colour>{Red, Green});
  });
  // The upper line reaches half a unit into the lower one.
  EXPECT_NE(ramp.find("x=\"9.5\" y=\"48.5\" width=\"11\" height=\"1.5\" fill=\"#00ff00\""),
            std::string::npos)
      << ramp;
}

TEST(SvgTarget, DefinesASymbolOnceWhereverItStands) {
  const std::string document = Drawn([](Target& t) {
    Pen pen;
    for (int i = 0; i < 50; ++i)
      for (const int type : {1, 2, 3})
        DrawSymbol(t, static_cast<std::int16_t>(type), 10 + 1.37F * static_cast<float>(i),
                   40.7F / static_cast<float>(i + 1), 9, Red, pen);
  });
  EXPECT_EQ(Count(document, " id=\""), 4u) << "three symbols and the group";
  EXPECT_EQ(Count(document, "<use "), 150u);
  const std::string text = WithoutHash(document);
  EXPECT_NE(text.find("<path id=\"ID-0\" d=\"M0 0l0 9 9 0 0-9z\" fill=\"#ff0000\"/>"), text.npos);
  // Its upper left corner, half of 9 from 11.37, 20.35.
  EXPECT_NE(text.find("<use xlink:href=\"#ID-0\" x=\"6.87\" y=\"15.85\"/>"), text.npos) << text;
}

TEST(SvgTarget, GathersLayersAndTellsDocumentsApart) {
  const auto draw = [](const char* word) {
    return Drawn([word](Target& t) {
      t.Describe("A & B", "view <1>");
      for (const char* layer : {"net", "Kmax symbols", "net"}) {
        t.Layer(layer);
        DrawText(t, std::string(layer) + word, 1, 2, {});
      }
    });
  };
  const std::string one = draw("1"), other = draw("2");
  EXPECT_EQ(Count(one, "<g "), 2u);
  EXPECT_EQ(Count(one, "<g "), Count(one, "</g>"));
  EXPECT_NE(one.find("<title>A &amp; B</title>\n<desc>view &lt;1&gt;</desc>"), one.npos);
  EXPECT_NE(WithoutHash(one).find("<g id=\"ID-Kmax-symbols\" inkscape:groupmode=\"layer\" "
                                  "inkscape:label=\"Kmax symbols\">"),
            one.npos);
  EXPECT_LT(one.rfind(">net1<"), one.find(">Kmax symbols1<"));
  EXPECT_EQ(one, draw("1"));
  const auto idOf = [](const std::string& text) {
    return text.substr(text.find("<g id=\"") + 7, 8);
  };
  EXPECT_NE(idOf(one), idOf(other));
}

}  // namespace
}  // namespace velorix
