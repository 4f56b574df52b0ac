#include "plot/figure/figure_style.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "plot/drawing/recorder.h"
#include "plot/figure/styled_target.h"

namespace velorix {
namespace {

TEST(FigureStyle, AStyleFileHoldsTheStyle) {
  FigureStyle style;
  ASSERT_TRUE(ReadStyle("", style));
  EXPECT_EQ(style, FigureStyle());
  ASSERT_TRUE(
      ReadStyle("\xEF\xBB\xBF# a comment\r\n\r\nlayout=fill\r\n  width =85\r\ncolumns = 2\n"
                "panel-letters = yes\nresolution = 600\nfont = Liberation Sans\n"
                "font-size = 7.5\nline-width = 0.25\nsymbol-size = 1.5\ncolours = own\n"
                "kmax-colour = #102030\nhalo = yes\nticks = fewer\nsuperscripts = yes\n"
                "captions = outside\nmore-codes = yes\nname-line = yes\n"
                "axis.Kmean = 1e-6 auto auto log\naxis.my%20%3D = auto 2 auto reversed",
                style));
  EXPECT_EQ(style.Layout, FigureLayout::Fill);
  EXPECT_EQ(style.Width, 85);
  EXPECT_EQ(style.Columns, 2);
  EXPECT_EQ(style.Resolution, 600);
  EXPECT_EQ(style.Font, "Liberation Sans");
  EXPECT_EQ(style.FontSize, 7.5);
  EXPECT_EQ(style.KmaxColour, Colour{0x302010});  // red is the low byte
  EXPECT_EQ(PaletteOf(style).axes[1], Colour{0x302010});
  EXPECT_EQ(PaletteOf(style).axes[2], Palette().axes[2]);
  EXPECT_EQ(style.Ticks, TickDensity::Fewer);
  EXPECT_EQ(style.Captions, CaptionPlace::Outside);
  EXPECT_TRUE(style.PanelLetters && style.Halo && style.Superscripts && style.MoreCodes &&
              style.NameLine);
  EXPECT_EQ(style.Axes, (HandAxes{{"Kmean", *HandAxisOfText("1e-6 auto auto log")},
                                  {"my =", *HandAxisOfText("auto 2 auto reversed")}}));
  FigureStyle again;
  ASSERT_TRUE(ReadStyle(StyleText(style), again));
  EXPECT_EQ(again, style);
}

TEST(FigureStyle, AWrongLineIsRefusedAndTheStyleStays) {
  const struct {
    const char *Text, *Complaint;
  } cases[] = {
      {"width = 0", "Line 1: width is a number from 30 to 600."},
      {"\nwidth = 6000", "Line 2: width is a number from 30 to 600."},
      {"width = nan", "Line 1: width is a number from 30 to 600."},
      {"width = 8E1", "Line 1: width is a number from 30 to 600."},
      {"resolution = 10000", "Line 1: resolution is now or a whole number from 50 to 2400."},
      {"resolution = 96.5", "Line 1: resolution is now or a whole number from 50 to 2400."},
      {"columns = 99999999999999999999", "Line 1: columns is now or a whole number from 1 to 4."},
      {"colours = red", "Line 1: colours is now, grey, safe or own."},
      {"kmin-colour = #12345g", "Line 1: kmin-colour is now or a colour as #rrggbb."},
      {"halo = 1", "Line 1: halo is yes or no."},
      {"font =", "Line 1: font is a name of 1 to 64 letters."},
      {"margin = 3", "Line 1: there is no key \"margin\"."},
      {"axis.P = 2 1 auto",
       "Line 1: an axis is lower end, upper end and step, each a number or auto, and then log and "
       "reversed where it is so; ends and step fit each other."},
      {"axis. = 1 2 auto", "Line 1: the name of a column stands behind \"axis.\"."},
      {"axis.%2 = 1 2 auto", "Line 1: the name of a column stands behind \"axis.\"."},
      {"width = 85\nhalo", "Line 2: no \"key = value\" stands here."},
  };
  for (const auto& [text, complaint] : cases) {
    FigureStyle style;
    style.Width = 100;
    const Outcome outcome = ReadStyle(text, style);
    EXPECT_FALSE(outcome) << text;
    EXPECT_EQ(outcome.Text, complaint);
    EXPECT_EQ(style.Width, 100) << text;
  }
}

using Light = std::array<double, 3>;  // linear red, green and blue

Light LightOf(Colour colour) {
  Light light;
  for (int i = 0; i < 3; ++i) {
    const double c = (colour >> (8 * i) & 0xFF) / 255.0;
    light[static_cast<std::size_t>(i)] =
        c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  }
  return light;
}

/// The ratio of the lightnesses of two colours, by the definition of WCAG 2.
double Contrast(Colour a, Colour b) {
  const auto sum = [](const Light& l) {
    return 0.2126 * l[0] + 0.7152 * l[1] + 0.0722 * l[2] + 0.05;
  };
  const double x = sum(LightOf(a)), y = sum(LightOf(b));
  return std::max(x, y) / std::min(x, y);
}

/// What is seen without one kind of cones: the matrices of G. M. Machado, M. M. Oliveira and L. A.
/// F. Fernandes (2009), severity 1.
using Vision = std::array<Light, 3>;
constexpr Vision Protanopia = {{{0.152286, 1.052583, -0.204868},
                                {0.114503, 0.786281, 0.099216},
                                {-0.003882, -0.048116, 1.051998}}};
constexpr Vision Deuteranopia = {{{0.367322, 0.860646, -0.227968},
                                  {0.280085, 0.672501, 0.047413},
                                  {-0.011820, 0.042940, 0.968881}}};
constexpr Vision Tritanopia = {{{1.255528, -0.076749, -0.178779},
                                {-0.078411, 0.930809, 0.147602},
                                {0.004733, 0.691367, 0.303900}}};

/// CIE Lab of a colour as it is seen.
Light SeenLab(Colour colour, const Vision& vision) {
  const Light light = LightOf(colour);
  Light seen;
  for (std::size_t i = 0; i < 3; ++i)
    seen[i] = std::clamp(
        vision[i][0] * light[0] + vision[i][1] * light[1] + vision[i][2] * light[2], 0.0, 1.0);
  const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16 / 116.0; };
  const double x = f((0.4124 * seen[0] + 0.3576 * seen[1] + 0.1805 * seen[2]) / 0.9505);
  const double y = f(0.2126 * seen[0] + 0.7152 * seen[1] + 0.0722 * seen[2]);
  const double z = f((0.0193 * seen[0] + 0.1192 * seen[1] + 0.9505 * seen[2]) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

TEST(FigureStyle, SafeColoursOfTheAxesAreToldApartByEveryEye) {
  FigureStyle style;
  style.Colours = FigureColours::Safe;
  const Palette safe = PaletteOf(style);
  const std::pair<Vision, double> visions[] = {
      {Protanopia, 37}, {Deuteranopia, 53}, {Tritanopia, 16}};
  for (int k = 1; k <= 3; ++k) {
    EXPECT_GE(Contrast(safe.axes[k], White), 3) << k;
    for (const auto& [vision, least] : visions) {
      const Light a = SeenLab(safe.axes[k], vision), b = SeenLab(safe.axes[k % 3 + 1], vision);
      EXPECT_GE(std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), least) << k;
    }
  }
  EXPECT_GE(Contrast(safe.planes, White), 3);
}

TEST(FigureStyle, GreysOfTheAxesAreToldApartAndSeenOnPaper) {
  FigureStyle style;
  style.Colours = FigureColours::Grey;
  const Palette grey = PaletteOf(style);
  EXPECT_GE(Contrast(grey.axes[1], grey.axes[2]), 2.2);
  EXPECT_GE(Contrast(grey.axes[2], grey.axes[3]), 2.2);
  for (const Colour colour : grey.axes) EXPECT_GE(Contrast(colour, White), 3) << colour;
  float lightest = 0;
  for (int i = 0; i <= 20; ++i) {  // the ramp darkens all the way
    const auto contrast =
        static_cast<float>(Contrast(grey.ramp(static_cast<float>(i) / 20), White));
    EXPECT_GT(contrast, lightest);
    lightest = contrast;
  }
}

TEST(StyledTarget, ChangesColoursLinesAndTexts) {
  Recorder recorder;
  StyledTarget target(recorder, {10, "Times", true, true});
  const LogicalPoint line[] = {{0, 0}, {5, 5}};
  target.Polyline(line, {.colour = Red, .width = 2});
  target.Text("K [10^-12 SI], 10^5, 5^2", {1, 2}, {.height = 20, .colour = Blue});
  const auto& calls = recorder.calls;
  // Red has 0.2126 of the light of white, blue 0.0722: the greys 127 and 76.
  const auto& drawn = std::get<PolylineCall>(calls[0]);
  EXPECT_EQ(drawn.pen, (Pen{.colour = 0x7F7F7F, .width = 20}));
  const auto& text = std::get<TextCall>(calls[1]);
  EXPECT_EQ(text.text, "K [10⁻¹² SI], 10⁵, 5^2");
  EXPECT_EQ(text.style.font, "Times");
  EXPECT_EQ(text.style.colour, Colour{0x4C4C4C});
}

}  // namespace
}  // namespace velorix
