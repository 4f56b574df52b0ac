#include "plot/figure/styled_target.h"

#include <algorithm>
#include <cmath>

#include "base/rounding.h"
#include "plot/drawing/colour_scales.h"

namespace velorix {

std::string WithSuperscripts(std::string_view text) {
  static constexpr const char* Raised[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  constexpr std::string_view Power = "10^";
  std::string raised;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t power = std::min(text.find(Power, at), text.size());
    raised += text.substr(at, power - at);
    at = power;
    if (at == text.size()) break;
    raised += "10";
    at += Power.size();
    if (at < text.size() && text[at] == '-') raised += "⁻", ++at;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
      raised += Raised[text[at] - '0'];
  }
  return raised;
}

/// The grey as light to the eye, by the weights of ITU-R BT.709 on linear light.
Colour StyledTarget::Toned(Colour colour) const {
  if (!style_.Grey || colour == NoColour) return colour;
  const auto linear = [](std::int16_t channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  const Channels channels = SplitColor(colour);
  if (channels.Red == channels.Green && channels.Green == channels.Blue) return colour;
  const double light = 0.2126 * linear(channels.Red) + 0.7152 * linear(channels.Green) +
                       0.0722 * linear(channels.Blue);
  const double grey = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
  const auto channel = static_cast<Colour>(std::lround(255 * grey));
  return channel << 16 | channel << 8 | channel;
}

Brush StyledTarget::Toned(Brush brush) const { return brush ? Brush(Toned(*brush)) : brush; }

std::vector<Colour> StyledTarget::Toned(std::span<const Colour> colours) const {
  std::vector<Colour> toned;
  for (const Colour colour : colours) toned.push_back(Toned(colour));
  return toned;
}

Pen StyledTarget::Styled(Pen pen) const {
  pen.colour = Toned(pen.colour);
  pen.width = std::max<std::int16_t>(1, ToShort(pen.width * PenUnit));
  return pen;
}

void StyledTarget::Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) {
  target_.Polygon(points, Styled(pen), Toned(brush));
}

void StyledTarget::Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) {
  target_.Region(borders, Toned(fill));
}

void StyledTarget::Polyline(std::span<const LogicalPoint> points, const Pen& pen) {
  target_.Polyline(points, Styled(pen));
}

void StyledTarget::Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) {
  target_.Ellipse(box, Styled(pen), Toned(brush));
}

void StyledTarget::Pixel(LogicalPoint point, Colour colour) { target_.Pixel(point, Toned(colour)); }

void StyledTarget::Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) {
  target_.Raster(corner, width, Toned(pixels));
}

void StyledTarget::Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
                        std::span<const Colour> colours) {
  target_.Ramp(sides, bottom, Toned(colours));
}

void StyledTarget::Text(std::string_view text, LogicalPoint point, const TextStyle& style) {
  TextStyle styled = style;
  styled.colour = Toned(style.colour);
  styled.font = style_.Font;
  if (style_.Superscripts)
    target_.Text(WithSuperscripts(text), point, styled);
  else
    target_.Text(text, point, styled);
}

}  // namespace velorix
