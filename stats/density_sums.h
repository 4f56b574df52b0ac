#pragma once

#include <cstddef>

namespace velorix {

/// Unit vectors, each component an array of `Size` numbers.
struct UnitVectors {
  const float *X = nullptr, *Y = nullptr, *Z = nullptr;
  std::size_t Size = 0;
};

/// For each node the sum over the data, in their order, of exp(smooth c c), c the cosine between
/// them whatever its sign. Each product and sum is 32-bit, the exponential alone 64-bit.
void SumDensity(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums);

}  // namespace velorix
