#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>
#include <span>
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
/// 6, 1964, 260-264) from uniform 32-bit floats in [0, 1). The second value that the method offers
/// isn't used.
template <class Uniform>
double GaussRandom(Uniform& uniform) {
  for (;;) {
    const float u = 2 * uniform() - 1, v = 2 * uniform() - 1;
    const double s = double{u} * u + double{v} * v;
    if (s < 1 && s != 0) return u * std::sqrt(-2 * NaturalLog(s) / s);
  }
}

/// Fills `table` with `GaussTableSize` standard normal numbers, the same on every machine and in
/// every session. `yield` is called now and then.
void FillGaussTable(std::vector<float>& table, const std::function<void()>& yield);

/// Uniform 64-bit integers by xoshiro256** (D. Blackman and S. Vigna, 2021, ACM Transactions on
/// Mathematical Software 47, 36), its state from the seed by splitmix64 (G. L. Steele et al., 2014,
/// OOPSLA). Integer operations alone: the same bits on every machine.
class SeededBits {
 public:
  explicit SeededBits(std::uint64_t seed);
  std::uint64_t operator()();

 private:
  std::array<std::uint64_t, 4> state_;
};

/// The numbers of a bootstrap, one after the other from the first: standard normal ones as 32-bit
/// floats, and places in a sample. With a seed all of them have the same bits on every machine.
/// From the table the normal numbers have, too; places there come from the normal distribution
/// function by the C library, whose last bit could move a place only at the very edge of two.
class NumberSource {
 public:
  /// Reads the table, which must outlive it, and at its end goes on from its start. "Subscript out
  /// of range" for an empty table.
  explicit NumberSource(std::span<const float> table);
  explicit NumberSource(std::uint32_t seed) : bits_(seed) {}

  void FillGauss(std::span<float> numbers);
  /// A place from 0 to n - 1, each as probable; n is at least 1.
  std::size_t Place(std::size_t n);

 private:
  float NextOfTable();

  std::span<const float> table_;  // empty: numbers from the seed
  std::size_t next_ = 0;
  SeededBits bits_;
};

}  // namespace velorix
