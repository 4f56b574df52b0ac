#pragma once

namespace velorix::examples {

/// A measured tensor as it was published: order k11, k22, k33, k12, k23, k13, and the standard
/// error of measurement in the same unit, 0 where none was given.
struct PublishedTensor {
  const char* Name;
  double K[6];
  double Sigma;
};

}  // namespace velorix::examples
