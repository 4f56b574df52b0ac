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
void PlainSums(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums);

/// The same sums, bit for bit, with many exponentials at a time.
///
/// These have their own, good to a share of 2^-43. That is enough for the 32-bit sum unless the
/// 64-bit one lies that close to the middle between two 32-bit numbers; where one does, once in
/// some 100,000 terms, the last few terms are added again by the plain way. Lanes are nodes, so
/// every node adds its data one after the other.
void SumDensity(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums);

/// The ways in which `SumDensity` may run; each works only where `CanSum` says so.
enum class SumWay { Portable, Lanes4, Lanes8 };
bool CanSum(SumWay way);
void SumDensity(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums,
                SumWay way);

}  // namespace velorix
