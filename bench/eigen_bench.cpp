// EIGEN_JK beside the symmetric solvers of LAPACK and Eigen, on tensors as specimens have them.

#include <benchmark/benchmark.h>

#include <Eigen/Eigenvalues>
#include <random>
#include <vector>

#include "bench/ratio.h"
#include "tensor/eigen_jk.h"

extern "C" void dsyev_(const char* job, const char* triangle, const int* n, double* a,
                       const int* lda, double* w, double* work, const int* lwork, int* info);

namespace velorix {
namespace {

/// Tensors with mean 1 and an anisotropy of a few per cent, in no particular orientation.
std::vector<Matrix<3, 3>> SpecimenTensors(int count) {
  std::mt19937 random(1978);
  std::normal_distribution<double> part(0, 0.02);
  std::vector<Matrix<3, 3>> tensors(static_cast<std::size_t>(count));
  for (Matrix<3, 3>& tensor : tensors) {
    Vector<6> form;
    for (double& element : form) element = static_cast<float>(part(random));
    for (int i = 1; i <= 3; ++i) form[i] += 1;
    TensorForm<ToMatrix>(tensor, form);
  }
  return tensors;
}

void SolveWithEigenJk(const std::vector<Matrix<3, 3>>& tensors) {
  Matrix<3, 3> D, W;
  for (const Matrix<3, 3>& tensor : tensors) {
    EIGEN_JK(tensor, D, W);
    benchmark::DoNotOptimize(W);
    benchmark::DoNotOptimize(D);
  }
}

void SolveWithLapack(const std::vector<Matrix<3, 3>>& tensors) {
  const int n = 3, room = 102;
  double values[3], work[room];
  int info = 0;
  for (const Matrix<3, 3>& tensor : tensors) {
    Matrix<3, 3> vectors = tensor;
    dsyev_("V", "U", &n, vectors.v, &n, values, work, &room, &info);
    benchmark::DoNotOptimize(vectors);
    benchmark::DoNotOptimize(values);
  }
}

void SolveWithEigen(const std::vector<Matrix<3, 3>>& tensors) {
  Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
  for (const Matrix<3, 3>& tensor : tensors) {
    solver.compute(Eigen::Map<const Eigen::Matrix3d>(tensor.v));
    benchmark::DoNotOptimize(solver);
  }
}

template <auto Solve>
void Solution(benchmark::State& state) {
  const auto tensors = SpecimenTensors(1024);
  for (auto _ : state) Solve(tensors);
  state.SetItemsProcessed(state.iterations() * 1024);
}
BENCHMARK(Solution<SolveWithEigenJk>)->Name("EIGEN_JK/1024");
BENCHMARK(Solution<SolveWithLapack>)->Name("dsyev/1024");
BENCHMARK(Solution<SolveWithEigen>)->Name("SelfAdjointEigenSolver/1024");

/// To reach: of_dsyev at most 0.7, of_eigen at most 1.5.
void Ratios(benchmark::State& state) {
  const auto tensors = SpecimenTensors(1024);
  for (auto _ : state) {
    const auto [ours, lapack, eigen] = bench::MediansInTurn(
        200, [&] { SolveWithEigenJk(tensors); }, [&] { SolveWithLapack(tensors); },
        [&] { SolveWithEigen(tensors); });
    state.counters["EIGEN_JK_ns"] = ours / 1024;
    state.counters["of_dsyev"] = ours / lapack;
    state.counters["of_eigen"] = ours / eigen;
  }
}
BENCHMARK(Ratios)->Name("EIGEN_JK/ratios")->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
