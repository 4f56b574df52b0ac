#pragma once

#include <vector>

#include "stats/group/gauss_random.h"

namespace velorix {

/// The table of Gaussian numbers, made once for all tests of a program.
inline const std::vector<float>& GaussNumbers() {
  static const std::vector<float> table = [] {
    std::vector<float> numbers;
    FillGaussTable(numbers, [] {});
    return numbers;
  }();
  return table;
}

}  // namespace velorix
