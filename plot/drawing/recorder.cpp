#include "plot/drawing/recorder.h"

#include <charconv>
#include <ostream>

namespace velorix {

void Recorder::SetTransparent() { calls.emplace_back(TransparentCall{}); }
void Recorder::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  calls.emplace_back(PolygonCall{{points.begin(), points.end()}, pen, brush});
}
void Recorder::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  calls.emplace_back(RegionCall{{borders.begin(), borders.end()}, fill});
}
void Recorder::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  calls.emplace_back(PolylineCall{{points.begin(), points.end()}, pen});
}
void Recorder::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  calls.emplace_back(EllipseCall{box, pen, brush});
}
void Recorder::Pixel(LogicalPoint point, Colour colour) {
  calls.emplace_back(PixelCall{point, colour});
}
void Recorder::Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
  calls.emplace_back(RasterCall{corner, width, {pixels.begin(), pixels.end()}});
}
void Recorder::Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                    std::span<const Colour> colours) {
  calls.emplace_back(
      RampCall{{sides.begin(), sides.end()}, bottom, {colours.begin(), colours.end()}});
}
void Recorder::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  calls.emplace_back(TextCall{std::string(text), point, style});
}

namespace {

struct Player {
  Target& target;
  void operator()(const TransparentCall&) const { target.SetTransparent(); }
  void operator()(const PolygonCall& c) const { target.Polygon(c.points, c.pen, c.brush); }
  void operator()(const RegionCall& c) const { target.Region(c.borders, c.fill); }
  void operator()(const PolylineCall& c) const { target.Polyline(c.points, c.pen); }
  void operator()(const EllipseCall& c) const { target.Ellipse(c.box, c.pen, c.brush); }
  void operator()(const PixelCall& c) const { target.Pixel(c.point, c.colour); }
  void operator()(const RasterCall& c) const { target.Raster(c.corner, c.width, c.pixels); }
  void operator()(const RampCall& c) const { target.Ramp(c.sides, c.bottom, c.colours); }
  void operator()(const TextCall& c) const { target.Text(c.text, c.point, c.style); }
};

std::string Hex(Colour colour) {
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, colour, 16).ptr;
  std::string text(digits, end);
  for (char& c : text)
    if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

std::string Of(LogicalPoint p) {
  return " (" + std::to_string(p.x) + "," + std::to_string(p.y) + ")";
}
std::string Of(const std::vector<LogicalPoint>& points) {
  std::string text;
  for (const LogicalPoint p : points) text += Of(p);
  return text;
}
std::string Of(const Pen& pen) {
  return " pen " + std::to_string(pen.style) + " " + Hex(pen.colour) + " " +
         std::to_string(pen.width);
}
std::string Of(Brush brush) { return " brush " + (brush ? Hex(*brush) : std::string("none")); }

struct Writer {
  std::string operator()(const TransparentCall&) const { return "transparent"; }
  std::string operator()(const PolygonCall& c) const {
    return "polygon" + Of(c.points) + Of(c.pen) + Of(c.brush);
  }
  std::string operator()(const RegionCall& c) const {
    std::string text = "region";
    for (const std::vector<LogicalPoint>& border : c.borders) text += Of(border) + " /";
    return text + " " + Hex(c.fill);
  }
  std::string operator()(const PolylineCall& c) const {
    return "polyline" + Of(c.points) + Of(c.pen);
  }
  std::string operator()(const EllipseCall& c) const {
    return "ellipse" + Of(LogicalPoint{c.box.left, c.box.top}) +
           Of(LogicalPoint{c.box.right, c.box.bottom}) + Of(c.pen) + Of(c.brush);
  }
  std::string operator()(const PixelCall& c) const {
    return "pixel" + Of(c.point) + " " + Hex(c.colour);
  }
  std::string operator()(const RasterCall& c) const {
    std::string text = "raster" + Of(c.corner) + " width " + std::to_string(c.width) + ":";
    for (std::size_t n = 0, end = 0; n < c.pixels.size(); n = end) {
      while (end < c.pixels.size() && c.pixels[end] == c.pixels[n]) ++end;
      text += " " + std::to_string(end - n) + " " +
              (c.pixels[n] == NoColour ? std::string("none") : Hex(c.pixels[n]));
    }
    return text;
  }
  std::string operator()(const RampCall& c) const {
    Recorder lines;
    lines.Target::Ramp(c.sides, c.bottom, c.colours);
    std::string text = ToText(lines.calls);
    if (!text.empty()) text.pop_back();  // the last line's end
    return text;
  }
  std::string operator()(const TextCall& c) const {
    std::string text = "text \"" + c.text + "\"" + Of(c.point) + " height " +
                       std::to_string(c.style.height) + " " + Hex(c.style.colour) + " align " +
                       std::to_string(c.style.alignment);
    const TextStyle usual;
    if (c.style.weight != usual.weight) text += " weight " + std::to_string(c.style.weight);
    if (c.style.rotation != usual.rotation) text += " rotation " + std::to_string(c.style.rotation);
    if (c.style.font != usual.font) text += " font \"" + c.style.font + "\"";
    return text;
  }
};

}  // namespace

void Replay(const std::vector<DrawCall>& calls, Target& target) {
  for (const DrawCall& call : calls) std::visit(Player{target}, call);
}

std::string ToText(const DrawCall& call) { return std::visit(Writer{}, call); }

std::string ToText(const std::vector<DrawCall>& calls) {
  std::string text;
  for (const DrawCall& call : calls) text += ToText(call) + "\n";
  return text;
}

std::ostream& operator<<(std::ostream& out, const DrawCall& call) { return out << ToText(call); }

}  // namespace velorix
