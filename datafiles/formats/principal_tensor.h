#pragma once

#include "tensor/directions.h"
#include "tensor/kernel.h"

namespace velorix {

/// The tensor k11, k22, k33, k12, k23, k13 with the principal values `a`, `b`, `c`, the first and
/// the last of them in the directions (decA, incA) and (decC, incC), degrees. Where these are not
/// at right angles, C stands and A gives way in the plane of both; so the principal values come
/// back. It carries the 32-bit roundings of `Mxabat`. "Division by zero" when A and C are the same
/// direction, "Overflow" when the tensor leaves the 32-bit range.
Vector<6> PrincipalToTensor(double a, double b, double c, double decA, double incA, double decC,
                            double incC);

}  // namespace velorix
