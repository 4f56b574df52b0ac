#pragma once

#include "tensor/kernel.h"

namespace velorix {

/// Eigenvalues and eigenvectors of the symmetric matrix A by plane rotations with a shrinking
/// threshold (the threshold Jacobi method: Wilkinson J.H., 1965, The Algebraic Eigenvalue Problem).
///
/// D: the eigenvalues on the diagonal, descending, zeros elsewhere. W: the eigenvectors, one a
/// column, in the same order, each with its last component positive. Kept for agreement with
/// published results: a vector whose last component is exactly 0, such as those of an exactly
/// diagonal matrix, becomes the zero vector.
///
/// A matrix with a value that isn't finite, or whose squares overflow, gives NaN in all of D and W
/// at once. More than 32767 rotations fail with "Overflow". D and W may be A itself. 3 by 3
/// allocates nothing. Run-time sizes: all three square and of one size, at least 2, else "Subscript
/// out of range".
void EIGEN_JK(const Matrix<3, 3>& A, Matrix<3, 3>& D, Matrix<3, 3>& W);
void EIGEN_JK(const DynamicMatrix& A, DynamicMatrix& D, DynamicMatrix& W);

/// The eigenvalues alone, descending: bit for bit the diagonal of D, in a little less time.
Vector<3> EigenvaluesJK(const Matrix<3, 3>& A);

}  // namespace velorix
