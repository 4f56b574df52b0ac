#include "plot/drawing/svg_target.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <utility>

#include "base/rounding.h"
#include "plot/drawing/letters.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr int Fine = 100;           // so that a place has two decimals
constexpr char IdMark = '\x01';     // stands for the hash until the content is known
constexpr std::int64_t Small = 64;  // units; a greater shape is hardly ever drawn again

// Arial, and Liberation Sans: parts of the em square.
constexpr double Ascent = 0.905, Descent = 0.212;

/// Hundredths as a decimal number without idle digits.
void AppendFine(std::string& text, std::int64_t hundredths) {
  if (hundredths < 0) text += '-';
  const std::int64_t size = std::abs(hundredths), rest = size % Fine;
  if (size >= Fine || rest == 0) text += std::to_string(size / Fine);
  if (rest == 0) return;
  text += '.';
  text += static_cast<char>('0' + rest / 10);
  if (rest % 10 != 0) text += static_cast<char>('0' + rest % 10);
}

std::string FineText(std::int64_t hundredths) {
  std::string text;
  AppendFine(text, hundredths);
  return text;
}

std::string FineText(double units) {
  return FineText(static_cast<std::int64_t>(ToLong(units * Fine)));
}

void AppendColour(std::string& text, Colour colour) {
  constexpr char Digits[] = "0123456789abcdef";
  text += '#';
  for (const int shift : {0, 8, 16}) {  // red, green, blue
    const Colour channel = colour >> shift & 0xFF;
    text += Digits[channel >> 4];
    text += Digits[channel & 15];
  }
}

void AppendAttribute(std::string& text, const char* name, std::string_view value) {
  text += ' ';
  text += name;
  text += "=\"";
  text += value;
  text += '"';
}

void AppendColour(std::string& text, const char* name, Colour colour) {
  std::string value;
  AppendColour(value, colour);
  AppendAttribute(text, name, value);
}

/// As text or the value of an attribute; XML has no control characters.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  return escaped;
}

/// Dashes and gaps of a pen, in its widths.
std::span<const int> DashesOf(std::int16_t style) {
  static constexpr std::array<int, 2> Dash = {4, 2}, Dot = {1, 2};
  static constexpr std::array<int, 4> DashAndDot = {4, 2, 1, 2};
  static constexpr std::array<int, 6> DashAndDots = {4, 2, 1, 2, 1, 2};
  switch (style) {
    case Dashed:
      return Dash;
    case Dotted:
      return Dot;
    case DashDot:
      return DashAndDot;
    case DashDotDot:
      return DashAndDots;
    default:
      return {};
  }
}

/// The groups' own: solid lines a unit wide, black, of squares at their ends, unfilled.
void AppendPen(std::string& text, const Pen& pen) {
  if (pen.style == NoLine) return AppendAttribute(text, "stroke", "none");
  const int width = std::max<int>(pen.width, 1);
  if (pen.colour != Black) AppendColour(text, "stroke", pen.colour);
  if (width != 1) AppendAttribute(text, "stroke-width", std::to_string(width));
  const std::span<const int> dashes = DashesOf(pen.style);
  if (dashes.empty()) return;
  std::string lengths;
  for (const int dash : dashes)
    lengths += (lengths.empty() ? "" : ",") + std::to_string(dash * width);
  AppendAttribute(text, "stroke-dasharray", lengths);
  AppendAttribute(text, "stroke-linecap", "butt");  // squares would fill the gaps
}

/// The line through `points`, as steps from `origin`; a line of equal points is a dot.
std::string PathFrom(LogicalPoint origin, std::span<const LogicalPoint> points) {
  std::string path;
  LogicalPoint at = origin;
  const auto append = [&](char command, LogicalPoint to) {
    const std::int64_t dx = std::int64_t{to.x} - at.x, dy = std::int64_t{to.y} - at.y;
    if (command != ' ')
      path += command;
    else if (dx >= 0)
      path += ' ';
    AppendFine(path, dx);
    if (dy >= 0) path += ' ';
    AppendFine(path, dy);
    at = to;
  };
  append('M', points[0]);
  char command = 'l';
  for (const LogicalPoint& point : points)
    if (point != at) append(std::exchange(command, ' '), point);
  return command == 'l' ? path + "l0 0" : path;
}

bool IsSmall(std::span<const LogicalPoint> points) {
  constexpr std::size_t MostPoints = 8;
  if (points.size() > MostPoints) return false;
  return std::all_of(points.begin(), points.end(), [&](LogicalPoint p) {
    return std::abs(std::int64_t{p.x} - points[0].x) <= Small * Fine &&
           std::abs(std::int64_t{p.y} - points[0].y) <= Small * Fine;
  });
}

/// A hash of bytes, in letters alone so that an id may begin with it (FNV-1a: G. Fowler, L.C. Noll
/// and K.-P. Vo).
std::string HashOf(std::string_view bytes) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::string letters;
  for (int i = 0; i < 8; ++i, hash >>= 4) letters += static_cast<char>('a' + (hash & 15));
  return letters;
}

/// A name as the end of an id.
std::string IdOf(std::string_view name) {
  std::string id;
  for (const char c : name) {
    const auto u = static_cast<unsigned char>(c);
    id += (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') ? c : '-';
  }
  return id;
}

}  // namespace

SvgTarget::SvgTarget(PlaneSize plane, double scale)
    : Target(Fine), plane_(plane), scale_(scale), groups_{{"picture", {}}} {}

void SvgTarget::Describe(std::string_view title, std::string_view description) {
  title_ = title;
  description_ = description;
}

void SvgTarget::Layer(std::string_view name) {
  if (groups_[group_].name == name) return;
  for (group_ = 0; group_ < groups_.size(); ++group_)
    if (groups_[group_].name == name) return;
  groups_.push_back({std::string(name), {}});
}

void SvgTarget::Put(std::string_view element) { (groups_[group_].body += element) += '\n'; }

/// `shape` is an element without its name's bracket, drawn from the origin.
void SvgTarget::PutShape(LogicalPoint origin, const std::string& shape) {
  const auto [place, isNew] = shapes_.emplace(shape, shapes_.size());
  const std::string id = IdMark + ("-" + std::to_string(place->second));
  if (isNew) {
    const std::size_t name = shape.find(' ');
    (definitions_ += "<" + shape.substr(0, name)) += " id=\"" + id + "\"" + shape.substr(name);
    definitions_ += "/>\n";
  }
  std::string use = "<use xlink:href=\"#" + id + "\" x=\"";
  AppendFine(use, origin.x);
  use += "\" y=\"";
  AppendFine(use, origin.y);
  Put(use += "\"/>");
}

void SvgTarget::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  if (points.size() < 2) return;
  const bool repeats = IsSmall(points);
  std::string shape = "path";
  AppendAttribute(shape, "d", PathFrom(repeats ? points[0] : LogicalPoint{}, points) + "z");
  if (brush) AppendColour(shape, "fill", *brush);
  AppendPen(shape, pen);
  repeats ? PutShape(points[0], shape) : Put("<" + shape + "/>");
}

void SvgTarget::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  std::string outline;
  for (const std::vector<LogicalPoint>& border : borders)
    if (!border.empty()) outline += PathFrom({}, border) + "z";
  std::string shape = "<path";
  AppendAttribute(shape, "d", outline);
  AppendColour(shape, "fill", fill);
  Put(shape += " fill-rule=\"evenodd\" stroke=\"none\"/>");
}

void SvgTarget::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  if (points.size() < 2) return;
  const bool repeats = IsSmall(points);
  std::string shape = "path";
  AppendAttribute(shape, "d", PathFrom(repeats ? points[0] : LogicalPoint{}, points));
  AppendPen(shape, pen);
  if (points.size() > 2) AppendAttribute(shape, "stroke-linejoin", "bevel");
  repeats ? PutShape(points[0], shape) : Put("<" + shape + "/>");
}

void SvgTarget::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  const std::int64_t width = std::abs(std::int64_t{box.right} - box.left),
                     height = std::abs(std::int64_t{box.bottom} - box.top);
  const LogicalPoint corners[] = {{box.left, box.top}, {box.right, box.bottom}};
  const bool repeats = IsSmall(corners);
  const LogicalPoint corner = {std::min(box.left, box.right), std::min(box.top, box.bottom)};
  const double left = repeats ? 0 : corner.x, top = repeats ? 0 : corner.y;
  const auto number = [](double fine) { return FineText(fine / Fine); };
  std::string shape = "ellipse";
  AppendAttribute(shape, "cx", number(left + static_cast<double>(width) / 2));
  AppendAttribute(shape, "cy", number(top + static_cast<double>(height) / 2));
  AppendAttribute(shape, "rx", number(static_cast<double>(width) / 2));
  AppendAttribute(shape, "ry", number(static_cast<double>(height) / 2));
  if (brush) AppendColour(shape, "fill", *brush);
  AppendPen(shape, pen);
  repeats ? PutShape(corner, shape) : Put("<" + shape + "/>");
}

void SvgTarget::Rectangle(LogicalPoint corner, std::int64_t width, std::int64_t height,
                          Colour colour) {
  std::string rectangle = "<rect";
  AppendAttribute(rectangle, "x", FineText(std::int64_t{corner.x}));
  AppendAttribute(rectangle, "y", FineText(std::int64_t{corner.y}));
  AppendAttribute(rectangle, "width", FineText(width));
  AppendAttribute(rectangle, "height", FineText(height));
  AppendColour(rectangle, "fill", colour);
  Put(rectangle += " stroke=\"none\"/>");
}

void SvgTarget::Pixel(LogicalPoint point, Colour colour) { Rectangle(point, Fine, Fine, colour); }

/// A path a colour, of its runs in all rows. Edges stay crisp: smoothed ones would show paper
/// between the rows.
void SvgTarget::Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
  std::map<Colour, std::string> paths;
  const auto columns = static_cast<std::size_t>(width);
  for (std::size_t row = 0; (row + 1) * columns <= pixels.size(); ++row)
    for (std::size_t from = 0, to = 0; from < columns; from = to) {
      const Colour* line = pixels.data() + row * columns;
      while (to < columns && line[to] == line[from]) ++to;
      if (line[from] == NoColour) continue;
      std::string& path = paths[line[from]];
      path += 'M';
      AppendFine(path, corner.x + Fine * static_cast<std::int64_t>(from));
      path += ' ';
      AppendFine(path, corner.y + Fine * static_cast<std::int64_t>(row));
      const std::string length = std::to_string(to - from);
      path.append("h").append(length).append("v1h-").append(length).append("z");
    }
  for (const auto& [colour, path] : paths) {
    std::string element = "<path shape-rendering=\"crispEdges\" stroke=\"none\"";
    AppendColour(element, "fill", colour);
    AppendAttribute(element, "d", path);
    Put(element += "/>");
  }
}

/// Each line reaches down to the one below it, so that no paper shows between them.
void SvgTarget::Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                     std::span<const Colour> colours) {
  const std::size_t bars = sides.size() - 1;
  for (std::size_t n = 0; n < colours.size(); ++n) {
    const std::int32_t left = sides[n % bars], right = sides[n % bars + 1];
    const auto line = static_cast<std::int32_t>(n / bars);
    Rectangle({left - Fine / 2, bottom - Fine * line - Fine / 2}, right - left + Fine,
              line == 0 ? Fine : 3 * Fine / 2, colours[n]);
  }
}

void SvgTarget::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  if (text.empty() || style.height <= 0) return;
  const double em = style.height / CellPerEm;
  std::string element = "<text";
  double below = 0;  // of the baseline from the point
  if ((style.alignment & AlignBaseline) != AlignBaseline)
    below = style.alignment & AlignBottom ? -Descent * em : Ascent * em;
  if (style.rotation == 0) {
    AppendAttribute(element, "x", FineText(std::int64_t{point.x}));
    AppendAttribute(element, "y", FineText(point.y / double{Fine} + below));
  } else {
    AppendAttribute(element, "transform",
                    "translate(" + FineText(std::int64_t{point.x}) + " " +
                        FineText(std::int64_t{point.y}) + ")rotate(" +
                        FineText(-style.rotation / 10.0) + ")");
    if (below != 0) AppendAttribute(element, "y", FineText(below));
  }
  AppendAttribute(element, "font-size", FineText(em));
  if ((style.alignment & AlignCentre) == AlignCentre)
    AppendAttribute(element, "text-anchor", "middle");
  else if (style.alignment & AlignRight)
    AppendAttribute(element, "text-anchor", "end");
  if (style.weight != 400) AppendAttribute(element, "font-weight", std::to_string(style.weight));
  if (style.font != TextStyle().font) AppendAttribute(element, "font-family", Escaped(style.font));
  AppendColour(element, "fill", style.colour);
  Put(element + " stroke=\"none\">" + Escaped(text) + "</text>");
}

std::string SvgTarget::Document() const {
  std::string body = "<title>" + Escaped(title_) + "</title>\n<desc>" + Escaped(description_) +
                     "</desc>\n<defs>\n" + definitions_ + "</defs>\n";
  const std::string width = std::to_string(plane_.width), height = std::to_string(plane_.height);
  body += "<rect width=\"" + width + "\" height=\"" + height +
          "\" fill=\"#ffffff\" stroke=\"none\"/>\n";
  for (const Group& group : groups_) {
    if (group.body.empty()) continue;
    body += "<g id=\"" + (IdMark + ("-" + IdOf(group.name))) +
            "\" inkscape:groupmode=\"layer\" inkscape:label=\"" + Escaped(group.name) + "\">\n" +
            group.body + "</g>\n";
  }
  const std::string hash = HashOf(body);
  const double unitsPerInch = 96 / scale_;
  const auto millimetres = [&](int units) { return PlainText(units * 25.4 / unitsPerInch); };
  std::string document =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
      "xmlns:inkscape=\"http://www.inkscape.org/namespaces/inkscape\" version=\"1.1\" width=\"" +
      millimetres(plane_.width) + "mm\" height=\"" + millimetres(plane_.height) +
      "mm\" viewBox=\"0 0 " + width + " " + height +
      "\" xml:space=\"preserve\" fill=\"none\" stroke=\"#000000\" stroke-width=\"1\" "
      "stroke-linecap=\"square\" stroke-linejoin=\"miter\" stroke-miterlimit=\"10\" "
      "font-family=\"Arial, Liberation Sans, Helvetica, sans-serif\">\n";
  document.reserve(document.size() + body.size() + 8 * shapes_.size() + body.size() / 4);
  for (const char c : body) c == IdMark ? document += hash : document += c;
  return document += "</svg>\n";
}

std::string SvgDocument(PlaneSize plane, double scale, const std::function<void(Target&)>& draw) {
  SvgTarget target(plane, scale);
  draw(target);
  return target.Document();
}

}  // namespace velorix
