#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <vector>

namespace velorix::bench {

/// Median nanoseconds of one run of each of the `works`. They are run in turn, so that a machine
/// that slows down or speeds up does so for all of them, and their ratios stand still.
template <class... Works>
std::array<double, sizeof...(Works)> MediansInTurn(int rounds, Works... works) {
  using Clock = std::chrono::steady_clock;
  std::array<std::vector<double>, sizeof...(Works)> times;
  for (int round = 0; round < rounds; ++round) {
    std::size_t which = 0;
    const auto timed = [&](auto& work) {
      const auto start = Clock::now();
      work();
      times[which++].push_back(
          std::chrono::duration<double, std::nano>(Clock::now() - start).count());
    };
    (timed(works), ...);
  }
  std::array<double, sizeof...(Works)> medians;
  for (std::size_t i = 0; i < medians.size(); ++i) {
    const auto middle = times[i].begin() + static_cast<std::ptrdiff_t>(times[i].size() / 2);
    std::nth_element(times[i].begin(), middle, times[i].end());
    medians[i] = *middle;
  }
  return medians;
}

}  // namespace velorix::bench
