#include "stats/group/replicates.h"

#include <cmath>

#include "stats/group/jacobi.h"

namespace velorix {
namespace {

/// The matrix of a tensor's six numbers, (1,3) from the sixth.
Matrix<3, 3> MatrixOf(const TensorColumn& t) {
  Matrix<3, 3> M;
  TensorForm<ToMatrix>(M, t);
  return M;
}

TensorColumn FormOf(const Matrix<3, 3>& M) {
  return {M(1, 1), M(2, 2), M(3, 3), M(1, 2), M(2, 3), M(1, 3)};
}

/// The mean principal frame of the samples, made right-handed.
Matrix<3, 3> FrameOf(std::span<const Matrix<3, 3>> samples) {
  Matrix<3, 3> mean, V;
  for (const Matrix<3, 3>& sample : samples)
    for (int i = 0; i < 9; ++i) mean.v[i] += sample.v[i];
  for (double& m : mean.v) m /= static_cast<double>(samples.size());
  Vector<3> D;
  Jacobi(mean, D, V);
  for (int i = 1; i <= 3; ++i) {
    const int j = i % 3 + 1, k = j % 3 + 1;
    V(i, 3) = V(j, 1) * V(k, 2) - V(k, 1) * V(j, 2);
  }
  return V;
}

/// Means and deviations of the six components.
struct Moments {
  TensorColumn Mean6, Sd6;
};
Moments MomentsOf(std::span<const Matrix<3, 3>> samples) {
  const double n = static_cast<double>(samples.size());
  Moments m;
  for (const Matrix<3, 3>& sample : samples) {
    const TensorColumn x = FormOf(sample);
    for (int c = 1; c <= 6; ++c) m.Mean6[c] += x[c];
  }
  for (double& mean : m.Mean6) mean /= n;
  for (const Matrix<3, 3>& sample : samples) {
    const TensorColumn x = FormOf(sample);
    for (int c = 1; c <= 6; ++c) m.Sd6[c] += (x[c] - m.Mean6[c]) * (x[c] - m.Mean6[c]);
  }
  for (double& sd : m.Sd6) sd = std::sqrt(sd / (n - 1));
  return m;
}

/// The sum of `n` tensors drawn from the normal distributions of `m`.
TensorColumn SumOfNormal(const Moments& m, std::size_t n, NumberSource& numbers,
                         std::vector<float>& room) {
  room.resize(6 * n);
  numbers.FillGauss(room);
  TensorColumn y;
  const float* g = room.data();
  for (std::size_t s = 0; s < n; ++s)
    for (int c = 0; c < 6; ++c) y.v[c] += m.Mean6.v[c] + m.Sd6.v[c] * double(*g++);
  return y;
}

/// The sum of as many tensors as there are samples, drawn from them with replacement.
TensorColumn SumOfDrawn(std::span<const TensorColumn> samples, NumberSource& numbers) {
  TensorColumn y;
  for (std::size_t s = 0; s < samples.size(); ++s) {
    const TensorColumn& drawn = samples[numbers.Place(samples.size())];
    for (int c = 0; c < 6; ++c) y.v[c] += drawn.v[c];
  }
  return y;
}

/// Replicates of the mean of the samples, in their frame.
std::vector<Matrix<3, 3>> Replicates(std::span<const Matrix<3, 3>> samples,
                                     const BootChoice& choice, NumberSource& numbers) {
  const std::size_t n = samples.size();
  const Moments moments = MomentsOf(samples);
  std::vector<TensorColumn> columns;
  for (const Matrix<3, 3>& sample : samples) columns.push_back(FormOf(sample));
  std::vector<float> room;
  std::vector<Matrix<3, 3>> rep;
  rep.reserve(static_cast<std::size_t>(choice.Replicates));
  for (int k = 0; k < choice.Replicates; ++k) {
    TensorColumn y = choice.Method == BootMethod::Simple ? SumOfDrawn(columns, numbers)
                                                         : SumOfNormal(moments, n, numbers, room);
    for (double& component : y) component /= static_cast<double>(n);
    rep.push_back(MatrixOf(y));
  }
  return rep;
}

}  // namespace

FramedReplicates ReplicatesInFrame(std::span<const TensorColumn> T, const BootChoice& choice,
                                   NumberSource& numbers) {
  std::vector<Matrix<3, 3>> samples;
  for (const TensorColumn& t : T) samples.push_back(MatrixOf(t));
  const Matrix<3, 3> frame = FrameOf(samples);
  SampleFrameTurn(samples, frame);
  return {frame, Replicates(samples, choice, numbers)};
}

std::vector<Matrix<3, 3>> MeanReplicates(std::span<const TensorColumn> T, const BootChoice& choice,
                                         NumberSource& numbers) {
  auto [frame, tensors] = ReplicatesInFrame(T, choice, numbers);
  Matrix<3, 3> back;
  Transpose(frame, back);
  SampleFrameTurn(tensors, back);
  return tensors;
}

}  // namespace velorix
