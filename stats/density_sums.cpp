#include "stats/density_sums.h"

#include <cmath>

namespace velorix {

void SumDensity(const UnitVectors& nodes, const UnitVectors& data, float smooth, float* sums) {
  for (std::size_t n = 0; n < nodes.Size; ++n) {
    float sum = 0;
    for (std::size_t d = 0; d < data.Size; ++d) {
      const float c =
          std::fabs(nodes.X[n] * data.X[d] + nodes.Y[n] * data.Y[d] + nodes.Z[n] * data.Z[d]);
      sum = static_cast<float>(sum + std::exp(static_cast<double>(smooth * c * c)));
    }
    sums[n] = sum;
  }
}

}  // namespace velorix
