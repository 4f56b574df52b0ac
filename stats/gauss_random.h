#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <vector>

namespace velorix {

inline constexpr std::uint32_t GaussSeed = 19991231;  // a constant: every session draws the same
inline constexpr int GaussTableSize = 2'000'000;

/// Uniform 32-bit floats in [0, 1), multiples of 2^-24, from a generator that the C++ standard
/// defines to the bit.
class UniformSource {
 public:
  float operator()() { return static_cast<float>(engine_() >> 8) * 0x1p-24f; }

 private:
  std::mt19937 engine_{GaussSeed};
};

/// The natural logarithm of a positive, normal, finite `x`, within 2 units in the last place of a
/// 64-bit float. It uses only operations that IEEE 754 rounds exactly, so that every machine gives
/// the same bits, which the C library's logarithm does not promise.
double NaturalLog(double x);

/// One standard normal number by Marsaglia's polar method (G. Marsaglia and T. A. Bray, SIAM Review
/// 6, 1964, 260-264). The second value that the method offers isn't used.
double GaussRandom(UniformSource& uniform);

/// Fills `table` with `GaussTableSize` standard normal numbers, the same on every machine and in
/// every session. `yield` is called now and then.
void FillGaussTable(std::vector<float>& table, const std::function<void()>& yield);

}  // namespace velorix
