#include "stats/density/density_sums.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "base/fault.h"
#include "stats/density/density_lanes.h"

namespace velorix {
namespace {

/// Whether the terms of such vectors lie where the fast exponential holds: exponents from 0 to 120.
bool AreUnit(const UnitVectors& v) {
  for (std::size_t i = 0; i < v.Size; ++i) {
    const float square = v.X[i] * v.X[i] + v.Y[i] * v.Y[i] + v.Z[i] * v.Z[i];
    if (!(square <= 1.01f)) return false;
  }
  return true;
}

/// Block after block of nodes; the last one is filled up with nodes that are thrown away.
void SumBlocks(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums,
               SumBlock sum, std::size_t lanes) {
  std::size_t n = 0;
  for (; n + lanes <= nodes.Size; n += lanes)
    sum(nodes.X + n, nodes.Y + n, nodes.Z + n, data, smooth, sums + n);
  if (n == nodes.Size) return;
  float x[Lanes8Nodes] = {}, y[Lanes8Nodes] = {}, z[Lanes8Nodes] = {}, last[Lanes8Nodes];
  std::copy(nodes.X + n, nodes.X + nodes.Size, x);
  std::copy(nodes.Y + n, nodes.Y + nodes.Size, y);
  std::copy(nodes.Z + n, nodes.Z + nodes.Size, z);
  sum(x, y, z, data, smooth, last);
  std::copy(last, last + (nodes.Size - n), sums + n);
}

SumWay BestWay() {
  static const SumWay way = CanSum(SumWay::Lanes8)   ? SumWay::Lanes8
                            : CanSum(SumWay::Lanes4) ? SumWay::Lanes4
                                                     : SumWay::Portable;
  return way;
}

}  // namespace

void AddPlain(const float* x, const float* y, const float* z, std::size_t lanes,
              const UnitVectors& data, std::size_t begin, std::size_t end, float smooth,
              float* sums) {
  for (std::size_t n = 0; n < lanes; ++n)
    for (std::size_t d = begin; d < end; ++d) {
      const float c = std::fabs(x[n] * data.X[d] + y[n] * data.Y[d] + z[n] * data.Z[d]);
      sums[n] = static_cast<float>(sums[n] + std::exp(static_cast<double>(smooth * c * c)));
    }
}

void PlainSums(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums) {
  std::fill(sums, sums + nodes.Size, 0.0f);
  AddPlain(nodes.X, nodes.Y, nodes.Z, nodes.Size, data, 0, data.Size, smooth, sums);
}

namespace {

/// exp of exponents from 0 to 120. Written, as what follows, so that compilers find the lanes.
void Exponentials(const float* exponents, double* results, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const double t = static_cast<double>(exponents[i]) * Log2E;
    const double m = t + Whole, f = t - (m - Whole);
    double p = P[8];
    for (int k = 7; k >= 0; --k) p = p * f + P[k];
    p = p * f + 1;
    const std::uint64_t power = std::bit_cast<std::uint64_t>(m) << 52;
    results[i] = std::bit_cast<double>(std::bit_cast<std::uint64_t>(p) + power);
  }
}

}  // namespace

void SumPortable(const float* x, const float* y, const float* z, const UnitVectors& data,
                 float smooth, float* sums) {
  constexpr std::size_t Lanes = PortableLanes;
  double sum[Lanes] = {};
  for (std::size_t begin = 0; begin < data.Size; begin += GroupSize) {
    const std::size_t end = std::min(begin + GroupSize, data.Size);
    float exponents[GroupSize * Lanes];
    for (std::size_t d = begin; d < end; ++d)
      for (std::size_t n = 0; n < Lanes; ++n) {
        const float c = x[n] * data.X[d] + y[n] * data.Y[d] + z[n] * data.Z[d];
        exponents[(d - begin) * Lanes + n] = smooth * c * c;
      }
    double terms[GroupSize * Lanes];
    Exponentials(exponents, terms, (end - begin) * Lanes);

    double before[Lanes];
    std::copy(sum, sum + Lanes, before);
    std::uint64_t near[Lanes] = {};  // negative where a sum was too close to call
    for (std::size_t d = 0; d < end - begin; ++d)
      for (std::size_t n = 0; n < Lanes; ++n) {
        const std::uint64_t up = std::bit_cast<std::uint64_t>(sum[n] + terms[d * Lanes + n]) + Half;
        near[n] |= (up & ~Kept) - 2 * Near;
        sum[n] = std::bit_cast<double>(up & Kept);
      }
    std::uint64_t any = 0;
    for (const std::uint64_t lane : near) any |= lane;
    if (any >> 63 != 0) {
      float again[Lanes];
      for (std::size_t n = 0; n < Lanes; ++n) again[n] = static_cast<float>(before[n]);
      AddPlain(x, y, z, Lanes, data, begin, end, smooth, again);
      std::copy(again, again + Lanes, sum);
    }
  }
  for (std::size_t n = 0; n < Lanes; ++n) sums[n] = static_cast<float>(sum[n]);
}

bool CanSum(SumWay way) {
  switch (way) {
#ifdef VELORIX_LANES
    case SumWay::Lanes4:
      return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    case SumWay::Lanes8:
      return __builtin_cpu_supports("avx512f");
#endif
    default:
      return way == SumWay::Portable;
  }
}

void SumDensity(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums,
                SumWay way) {
  if (!(smooth >= 0 && smooth <= 100) || !AreUnit(nodes) || !AreUnit(data)) {
    PlainSums(nodes, data, smooth, sums);
    return;
  }
  switch (way) {
#ifdef VELORIX_LANES
    case SumWay::Lanes8: {
      // A row of nodes is short: what is left over behind its blocks fills a narrower one better.
      const std::size_t left = nodes.Size % Lanes8Nodes;
      const std::size_t wide =
          left <= Lanes4Nodes && CanSum(SumWay::Lanes4) ? nodes.Size - left : nodes.Size;
      SumBlocks({nodes.X, nodes.Y, nodes.Z, wide}, data, smooth, sums, SumLanes8, Lanes8Nodes);
      SumBlocks({nodes.X + wide, nodes.Y + wide, nodes.Z + wide, nodes.Size - wide}, data, smooth,
                sums + wide, SumLanes4, Lanes4Nodes);
      return;
    }
    case SumWay::Lanes4:
      SumBlocks(nodes, data, smooth, sums, SumLanes4, Lanes4Nodes);
      return;
#endif
    default:
      SumBlocks(nodes, data, smooth, sums, SumPortable, PortableLanes);
  }
}

void SumDensity(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums) {
  SumDensity(nodes, data, smooth, sums, BestWay());
}

}  // namespace velorix
