#pragma once

#include <string>

#include "plot/drawing/target.h"

namespace velorix {

/// What a figure's style changes in each call, wherever it comes from.
struct CallStyle {
  double PenWidth = 1;  // units of the target a unit of a pen's width
  std::string Font = "Arial";
  bool Grey = false;          // every colour as a grey of its lightness
  bool Superscripts = false;  // "10^-3" becomes "10⁻³"
};

/// A target that hands its calls to another one in a style.
class StyledTarget : public Target {
 public:
  StyledTarget(Target& target, CallStyle style)
      : Target(target.Fineness, target.SymbolScale, style.PenWidth),
        target_(target),
        style_(std::move(style)) {}

  void Describe(std::string_view title, std::string_view description) override {
    target_.Describe(title, description);
  }
  void Layer(std::string_view name) override { target_.Layer(name); }
  void SetTransparent() override { target_.SetTransparent(); }
  void Polygon(std::span<const LogicalPoint> points, const Pen& pen, Brush brush) override;
  void Region(std::span<const std::vector<LogicalPoint>> borders, Colour fill) override;
  void Polyline(std::span<const LogicalPoint> points, const Pen& pen) override;
  void Ellipse(const LogicalBox& box, const Pen& pen, Brush brush) override;
  void Pixel(LogicalPoint point, Colour colour) override;
  void Raster(LogicalPoint corner, int width, std::span<const Colour> pixels) override;
  void Ramp(std::span<const std::int32_t> sides, std::int32_t bottom,
            std::span<const Colour> colours) override;
  void Text(std::string_view text, LogicalPoint point, const TextStyle& style) override;

 private:
  Colour Toned(Colour colour) const;
  Brush Toned(Brush brush) const;
  std::vector<Colour> Toned(std::span<const Colour> colours) const;
  Pen Styled(Pen pen) const;

  Target& target_;
  const CallStyle style_;
};

/// `text` with the digits behind "10^" raised.
std::string WithSuperscripts(std::string_view text);

}  // namespace velorix
