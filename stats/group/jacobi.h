#pragma once

#include "tensor/kernel.h"

namespace velorix {

/// Eigenvalues and eigenvectors of a symmetric 3 by 3 matrix by the cyclic Jacobi method with a
/// threshold (W. H. Press et al., Numerical Recipes, chapter "Jacobi transformations"). D: the
/// values, descending; of equal ones the later comes first. V: the vectors, columns in the same
/// order, of any sign. A is destroyed. After 50 sweeps without an end the values stand as they are.
void Jacobi(Matrix<3, 3>& A, Vector<3>& D, Matrix<3, 3>& V);

}  // namespace velorix
