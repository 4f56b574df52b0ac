#pragma once

namespace velorix {

/// The height of a whole character cell in sizes of its font: ascent and descent of Arial, and of
/// Liberation Sans.
inline constexpr double CellPerEm = 1.117;

}  // namespace velorix
