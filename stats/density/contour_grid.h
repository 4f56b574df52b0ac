#pragma once

#include <cstdint>
#include <vector>

namespace velorix {

/// The square grid of nodes over the net's circle on which the density of directions is counted.
/// Each property of the nodes is an array of its own, since a count runs across many nodes at once;
/// node (i, j), column i to the right and row j downward, stands at `Index(i, j)`.
struct ContourGrid {
  int First = 0, Last = -1;  // of columns and of rows

  std::vector<std::uint8_t> Inside;  // 1: the node lies within the circle
  std::vector<float> Dec, Inc;       // direction under the node, degrees; 0 outside the circle
  std::vector<float> X, Y, Z;        // its unit vector: north, east, down
  std::vector<float> Density;        // in multiples of a uniform density, once counted

  int InsideCount = 0;    // nodes within the circle
  int ComputedCount = 0;  // those of them at the spacing of a count

  int Side() const { return Last - First + 1; }
  int Index(int i, int j) const { return (j - First) * Side() + (i - First); }
};

/// Lays the nodes `first` to `last` in both directions over the circle with centre (`last` / 2,
/// `last` / 2) and radius `last` / 2, gives those within it their direction in the equal-area net
/// (up is declination 0), and counts them, all and at the spacing `step`. "Invalid procedure call
/// or argument" when `last` < `first` or `step` < 1.
void BuildContourGrid(ContourGrid& grid, int first, int last, int step);

/// The shape of the program's grid: its last node in both directions, from 0, and the spacing of
/// the nodes that a count computes.
inline constexpr int ContourLast = 300, ContourSpacing = 3;

/// The grid of that shape.
inline void BuildContourGrid(ContourGrid& grid) {
  BuildContourGrid(grid, 0, ContourLast, ContourSpacing);
}

}  // namespace velorix
