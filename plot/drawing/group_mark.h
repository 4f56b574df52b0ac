#pragma once

#include <cstddef>
#include <cstdint>

#include "plot/drawing/target.h"

namespace velorix {

/// What distinguishes marks of one colour and shape: full with a black outline; light with a wide
/// outline in its colour; or full with a black dot.
enum class Finish : std::uint8_t { Full, Light, Dotted };

/// The look of one group of records among others.
struct GroupMark {
  velorix::Colour colour = Black;
  std::int16_t symbol = 3;  // of the catalogue of `DrawSymbol`
  velorix::Finish finish = Finish::Full;

  bool operator==(const GroupMark&) const = default;
};

/// So many groups have marks of their own; with more of them the marks begin again.
inline constexpr std::size_t DistinctMarks = 18;

/// The mark of the `group`-th group, from 0. Six colours go with six shapes; after six groups the
/// finish changes. The colours are those of Okabe and Ito (2008, Color Universal Design), which
/// people who cannot tell red from green tell apart, without their black and their yellow, the
/// colour of selected records.
GroupMark MarkOfGroup(std::size_t group);

/// The light tint of a colour, for what `Finish::Light` fills.
Colour LightOf(Colour colour);

/// Symbol `type` filled with `fill` in this finish. A fill that says something of its own, such as
/// a value or the selection, is kept by `keepsFill`: a light mark then has a wide black outline.
void DrawMark(Target& target, std::int16_t type, Finish finish, double x, double y,
              std::int16_t size, Colour fill, bool keepsFill = false);

}  // namespace velorix
