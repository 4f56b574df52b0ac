// Group statistics beside the same sums written plainly, and the bootstrap beside its eigen
// solutions alone.
//
// Aims: TensorStatistics at most 1/4 of the plain loop, the same bits; BootStrap at most twice its
// 1,000 solutions.

#include <benchmark/benchmark.h>

#include <random>

#include "bench/ratio.h"
#include "stats/group/bootstrap.h"
#include "stats/group/gauss_random.h"
#include "stats/group/jacobi.h"

namespace velorix {
namespace {

std::vector<TensorColumn> Tensors(int count) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> noise(-0.02, 0.02);
  std::vector<TensorColumn> tensors;
  for (int i = 0; i < count; ++i) {
    TensorColumn t = {1.05, 1.0, 0.95, 0.01, -0.02, 0.01};
    for (double& c : t) c += noise(random);
    tensors.push_back(t);
  }
  return tensors;
}

/// Sums and product sums as the formula has them: every tensor through a matrix, the turn by the
/// identity, and back.
void PlainSums(const std::vector<TensorColumn>& T, Vector<6>& sum, Matrix<6, 6>& products) {
  Matrix<3, 3> identity;
  for (int i = 1; i <= 3; ++i) identity(i, i) = 1;
  for (TensorColumn t : T) {
    Matrix<3, 3> M;
    TensorForm<ToMatrix>(M, t);
    Mxabat(identity, M, M);
    TensorForm<ToForm>(M, t);
    for (int a = 1; a <= 6; ++a) {
      sum[a] += t[a];
      for (int b = 1; b <= 6; ++b) products(a, b) += t[a] * t[b];
    }
  }
}

void Report(benchmark::State& state, double ours, double yardstick) {
  state.counters["us"] = ours / 1e3;
  state.counters["yardstick_us"] = yardstick / 1e3;
  state.counters["ratio"] = ours / yardstick;
}

void TensorStatisticsOfAFullStore(benchmark::State& state) {
  const auto tensors = Tensors(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto [ours, plain] = bench::MediansInTurn(
        51,
        [&] {
          TensorStats stats;
          TensorStatistics(tensors, stats);
          benchmark::DoNotOptimize(stats);
        },
        [&] {
          Vector<6> sum;
          Matrix<6, 6> products;
          PlainSums(tensors, sum, products);
          benchmark::DoNotOptimize(sum);
          benchmark::DoNotOptimize(products);
        });
    Report(state, ours, plain);
  }
}

void BootStrapOfAHundred(benchmark::State& state) {
  const auto tensors = Tensors(100);
  std::vector<float> table;
  FillGaussTable(table, [] {});
  for (auto _ : state) {
    const auto [ours, jacobi] = bench::MediansInTurn(
        51,
        [&] {
          const BootResult result = BootStrap(tensors, {}, 200, table);
          benchmark::DoNotOptimize(result.Eig.data());
        },
        [&] {
          for (int i = 0; i < 1000; ++i) {
            Matrix<3, 3> A, V;
            Vector<3> D;
            TensorForm<ToMatrix>(A, tensors[static_cast<std::size_t>(i % 100)]);
            Jacobi(A, D, V);
            benchmark::DoNotOptimize(V);
          }
        });
    Report(state, ours, jacobi);
  }
}

BENCHMARK(TensorStatisticsOfAFullStore)->Arg(32767)->Iterations(1);
BENCHMARK(BootStrapOfAHundred)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
