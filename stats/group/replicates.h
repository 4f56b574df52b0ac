#pragma once

#include <span>
#include <vector>

#include "stats/group/bootstrap.h"

namespace velorix {

/// The 95 % point of chi-square with 2 degrees of freedom.
inline constexpr double ChiSquare95 = 5.9914645464;

/// Replicates of a group's mean tensor in the group's mean principal frame, the columns of `Frame`.
struct FramedReplicates {
  Matrix<3, 3> Frame;
  std::vector<Matrix<3, 3>> Tensors;
};

/// The replicates of a bootstrap of two tensors or more by a method other than `None`. They take
/// their numbers from where `numbers` stands.
FramedReplicates ReplicatesInFrame(std::span<const TensorColumn> T, const BootChoice& choice,
                                   NumberSource& numbers);
/// The same in the coordinate system of the tensors.
std::vector<Matrix<3, 3>> MeanReplicates(std::span<const TensorColumn> T, const BootChoice& choice,
                                         NumberSource& numbers);

}  // namespace velorix
