#include "datafiles/formats/principal_tensor.h"

#include <cmath>

namespace velorix {
namespace {

Vector<3> Cross(const Vector<3>& a, const Vector<3>& b) {
  Vector<3> c;
  for (int i = 1; i <= 3; ++i) {
    const int j = i % 3 + 1, k = j % 3 + 1;
    c[i] = a[j] * b[k] - a[k] * b[j];
  }
  return c;
}

Vector<3> Normalised(Vector<3> v) {
  const double length = std::sqrt(Vvmpy(v, v));
  if (length == 0) FailDivision();
  for (double& component : v) component /= length;
  return v;
}

}  // namespace

Vector<6> PrincipalToTensor(double a, double b, double c, double decA, double incA, double decC,
                            double incC) {
  const Vector<3> C = DirectionToVector(1, {decC, incC});
  const Vector<3> B = Normalised(Cross(C, DirectionToVector(1, {decA, incA})));
  const Vector<3> A = Normalised(Cross(B, C));
  Matrix<3, 3> axes, diagonal{a, 0, 0, 0, b, 0, 0, 0, c}, matrix;
  for (int i = 1; i <= 3; ++i) {
    axes(i, 1) = A[i];
    axes(i, 2) = B[i];
    axes(i, 3) = C[i];
  }
  Mxabat(axes, diagonal, matrix);
  Vector<6> tensor;
  TensorForm<ToForm>(matrix, tensor);
  for (const double k : tensor)
    if (!std::isfinite(k)) FailOverflow();
  return tensor;
}

}  // namespace velorix
