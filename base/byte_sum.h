#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace velorix {

/// A sum by which the same bytes are known: FNV-1a of 64 bits (Fowler, Noll and Vo), taken of words
/// in four lanes, which a processor computes side by side. Not against bytes made to deceive.
class ByteSum {
 public:
  static constexpr std::size_t Lanes = 4;

  /// Whole rounds of the lanes.
  void Add(std::span<const std::uint64_t> words) {
    for (std::size_t i = 0; i + Lanes <= words.size(); i += Lanes)
      for (std::size_t lane = 0; lane < Lanes; ++lane)
        lanes_[lane] = (lanes_[lane] ^ words[i + lane]) * Prime;
  }
  std::uint64_t Value() const {
    std::uint64_t sum = Basis;
    for (const std::uint64_t lane : lanes_) sum = (sum ^ lane ^ lane >> 32) * Prime;
    return sum;
  }

 private:
  static constexpr std::uint64_t Prime = 1099511628211u, Basis = 14695981039346656037u;

  std::uint64_t lanes_[Lanes] = {Basis, Basis + 1, Basis + 2, Basis + 3};
};

}  // namespace velorix
