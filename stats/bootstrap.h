#pragma once

#include <span>
#include <vector>

#include "stats/tensor_statistics.h"

namespace velorix {

/// The 2.5 % and 97.5 % points of the three principal values over the replicates.
struct BootLimits {
  Array1<double, 3> Lower, Upper;
};

/// What a bootstrap gives. `BootVec`: the principal vectors of each replicate, columns in
/// descending order of value, of any sign. `BootEllipse`: for each contour point a matrix whose
/// column k is the point of direction k. Both in the coordinate system of the tensors; empty for
/// fewer than two.
struct BootResult {
  std::vector<Vector<3>> Eig;
  std::vector<Matrix<3, 3>> BootVec, BootEllipse;
  BootLimits Limits;
};

/// A parametric bootstrap of the mean tensor: components drawn from independent normal
/// distributions with the moments of the sample in its mean principal frame (the parametric scheme
/// of C. Constable and L. Tauxe, 1990, Journal of Geophysical Research 95, 8383-8395). `B`
/// replicates of `T.size()` tensors take their noise from the start of `gaussTable`, so that two
/// runs are identical; `P`, a multiple of 4, is the number of contour points. "Division by zero"
/// for tensors without scatter; "Subscript out of range" when the table is too short.
BootResult BootStrap(std::span<const TensorColumn> T, int B, int P,
                     std::span<const float> gaussTable);

/// Each matrix becomes F transposed times it times F, in 32-bit working values.
void SampleFrameTurn(std::span<Matrix<3, 3>> A, const Matrix<3, 3>& F);
/// Each matrix becomes F transposed times it, in 32-bit working values.
void VectorFrameTurn(std::span<Matrix<3, 3>> A, const Matrix<3, 3>& F);

/// The points at 2.5 % and 97.5 % of each column of `Eig`: the next value above p B, or the mean of
/// the two neighbours where p B is whole.
BootLimits BootQuantiles(std::span<const Vector<3>> Eig);

/// `P` points of the 95 % contour round each direction, in the frame of the mean directions. The
/// axis ends stand at the points 1, P/4 + 1, P/2 + 1, 3P/4 + 1. The replicates' component along a
/// direction loses its sign on the way, alone.
std::vector<Matrix<3, 3>> BootEllipses(std::span<Matrix<3, 3>> BootVec, int P);

}  // namespace velorix
