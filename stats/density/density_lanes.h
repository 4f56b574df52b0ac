#pragma once

#include <cstddef>
#include <cstdint>

#include "stats/density/density_sums.h"

namespace velorix {

// What the ways of `SumDensity` share; nobody else includes this. A block of nodes runs through the
// data in groups; a group with a sum too close to call is added again by the plain way.

inline constexpr std::size_t GroupSize = 16;

/// 2^f = 1 + f (P0 + f (P1 + ...)) for f from -0.5 to 0.5, to a share of 2^-44.6, and 1 at f = 0.
inline constexpr double Log2E = 0x1.71547652b82fep0;
inline constexpr double P[] = {0x1.62e42fefa39efp-1,  0x1.ebfbdff823cb5p-3,  0x1.c6b08d7047e44p-5,
                               0x1.3b2ab71824365p-7,  0x1.5d87fe8702f22p-10, 0x1.4308ac70a8e77p-13,
                               0x1.ffcb95007c66cp-17, 0x1.63d1523780311p-20, 0x1.b6389cdbfb73fp-24};

/// Adding this to a number leaves its nearest whole number in the last bits.
inline constexpr double Whole = 0x1.8p52;

/// The last 29 bits of a 64-bit sum fall away when it is rounded to 32 bits; at 2^28 they are the
/// middle. `Near` to either side of it is more than the share 2^-43 of any number. With `Half`
/// added the bits that stay are those of the rounded sum, and the bits that fall away are below 2
/// `Near` where the sum is too close to the middle to decide, and only there.
inline constexpr std::uint64_t Near = 1u << 10, Half = (1u << 28) + Near;
inline constexpr std::uint64_t Kept = ~std::uint64_t{(1u << 29) - 1};
/// The bits that fall away, shifted to the top of their 32-bit word, are compared with this.
inline constexpr int NearShift = 3;
inline constexpr std::uint32_t NearRange = (2u << 10) << NearShift;

/// Sums of `Lanes` nodes, whose components and sums follow each other.
using SumBlock = void (*)(const float* x, const float* y, const float* z, const UnitVectors& data,
                          float smooth, float* sums);

/// The plain way for `lanes` nodes and the data from `begin` to `end`, added to `sums`.
void AddPlain(const float* x, const float* y, const float* z, std::size_t lanes,
              const UnitVectors& data, std::size_t begin, std::size_t end, float smooth,
              float* sums);

inline constexpr std::size_t PortableLanes = 8, Lanes4Nodes = 8, Lanes8Nodes = 16;
void SumPortable(const float* x, const float* y, const float* z, const UnitVectors& data,
                 float smooth, float* sums);
#if defined(__GNUC__) && defined(__x86_64__)
#define VELORIX_LANES
void SumLanes4(const float* x, const float* y, const float* z, const UnitVectors& data,
               float smooth, float* sums);
void SumLanes8(const float* x, const float* y, const float* z, const UnitVectors& data,
               float smooth, float* sums);
#endif

}  // namespace velorix
