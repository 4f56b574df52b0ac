#pragma once

#include <cstdint>

#include "plot/drawing/target.h"

namespace velorix {

/// Symbol `type` of the catalogue with its centre at (x, y). Fill 0 is black here. A pen of width 0
/// counts as one of width 1. An unknown type draws nothing.
///
/// -1 one pixel; 0 diamond; 1 square, 11 with dot, 12 plus, 13 diagonal cross, 14 vertical, 15
/// horizontal bar; 2 triangle, 21 with dot; 3 circle, 31 to 35 as 11 to 15; 4 horizontal tick, 41
/// its left, 42 its right half; 6 vertical tick, 61 its lower, 62 its upper half; 7 plus; 8
/// diagonal cross; -11 triangle on its tip; -12 cross of two bars; 91 to 96 X, Y, Z, N, E, D on a
/// white tile; 97 to 99 the digits 1, 2, 3; 1000 and above a stick that points `type` - 1000
/// degrees clockwise from up.
void DrawSymbol(Target& target, std::int16_t type, float x, float y, std::int16_t size, Colour fill,
                Pen pen);

}  // namespace velorix
