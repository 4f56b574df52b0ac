// The density count beside the plain loop with exp, beside as many vectorised exponentials alone,
// and on two threads.
//
// Aims, 32,767 data, one thread: at most 1/5 of the plain loop where there are lanes of 256 bits or
// more, 0.6 without; at most 2 times the exponentials. Two idle cores: 1.8 times one. The same
// 32-bit densities everywhere, which is checked in passing.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <random>
#include <stdexcept>

#if defined(__GLIBC__) && defined(__x86_64__)
#ifndef __clang__  // this compiler warns of its own header
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>
#endif

#include "base/rounding.h"
#include "bench/ratio.h"
#include "stats/density/density.h"
#include "stats/density/density_sums.h"

namespace velorix {
namespace {

constexpr float Smooth = 20;

ContourData RandomData(int count) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> uniform(0, 1);
  ContourData data;
  for (int i = 0; i < count; ++i)
    data.Add(360 * uniform(random), std::asin(uniform(random)) * DegPerRad);
  return data;
}

/// The computed nodes of the grid.
ContourData Nodes(const ContourGrid& grid) {
  ContourData nodes;
  for (int j = 0; j <= grid.Last; j += 3)
    for (int i = 0; i <= grid.Last; i += 3) {
      const std::size_t n = static_cast<std::size_t>(grid.Index(i, j));
      if (grid.Inside[n]) nodes.Add(grid.Dec[n], grid.Inc[n]);
    }
  return nodes;
}

UnitVectors VectorsOf(const ContourData& data) {
  return {data.X.data(), data.Y.data(), data.Z.data(), data.X.size()};
}

/// Every way to sum beside the plain one; the argument is the number of data.
void Sums(benchmark::State& state) {
  ContourGrid grid;
  BuildContourGrid(grid);
  const ContourData nodes = Nodes(grid), data = RandomData(static_cast<int>(state.range(0)));
  const auto way = static_cast<SumWay>(state.range(1));
  if (!CanSum(way)) {
    state.SkipWithError("not on this machine");
    return;
  }
  std::vector<float> fast(nodes.X.size()), plain(nodes.X.size());
  for (auto _ : state) {
    const auto [ours, yardstick] = bench::MediansInTurn(
        5, [&] { SumDensity(VectorsOf(nodes), VectorsOf(data), Smooth, fast.data(), way); },
        [&] { PlainSums(VectorsOf(nodes), VectorsOf(data), Smooth, plain.data()); });
    if (std::memcmp(fast.data(), plain.data(), fast.size() * sizeof(float)) != 0)
      throw std::logic_error("densities differ");
    state.counters["ms"] = ours / 1e6;
    state.counters["yardstick_ms"] = yardstick / 1e6;
    state.counters["ratio"] = ours / yardstick;
  }
}

#if defined(__GLIBC__) && defined(__x86_64__)
extern "C" __m256d _ZGVdN4v_exp(__m256d);  // the C library's, four and eight at a time
extern "C" __m512d _ZGVeN8v_exp(__m512d);

[[gnu::target("avx2")]] double FourAtATime(const std::vector<double>& x, std::size_t terms) {
  __m256d sum = _mm256_setzero_pd();
  for (std::size_t i = 0; i < terms; i += 4)
    sum = _mm256_add_pd(sum, _ZGVdN4v_exp(_mm256_loadu_pd(x.data() + i % x.size())));
  return sum[0];
}
[[gnu::target("avx512f")]] double EightAtATime(const std::vector<double>& x, std::size_t terms) {
  __m512d sum = _mm512_setzero_pd();
  for (std::size_t i = 0; i < terms; i += 8)
    sum = _mm512_add_pd(sum, _ZGVeN8v_exp(_mm512_loadu_pd(x.data() + i % x.size())));
  return sum[0];
}

/// The sums beside as many vectorised exponentials alone.
void SumsBesideExponentials(benchmark::State& state) {
  ContourGrid grid;
  BuildContourGrid(grid);
  const ContourData nodes = Nodes(grid), data = RandomData(32767);
  const auto way = static_cast<SumWay>(state.range(0));
  if (!CanSum(way)) {
    state.SkipWithError("not on this machine");
    return;
  }
  std::vector<double> exponents(4096);
  for (std::size_t i = 0; i < exponents.size(); ++i)
    exponents[i] = Smooth * static_cast<double>(i) / static_cast<double>(exponents.size());
  std::vector<float> sums(nodes.X.size());
  const std::size_t terms = sums.size() * data.X.size();
  for (auto _ : state) {
    const auto [ours, yardstick] = bench::MediansInTurn(
        5, [&] { SumDensity(VectorsOf(nodes), VectorsOf(data), Smooth, sums.data(), way); },
        [&] {
          benchmark::DoNotOptimize(way == SumWay::Lanes4 ? FourAtATime(exponents, terms)
                                                         : EightAtATime(exponents, terms));
        });
    state.counters["ms"] = ours / 1e6;
    state.counters["yardstick_ms"] = yardstick / 1e6;
    state.counters["ratio"] = ours / yardstick;
  }
}
BENCHMARK(SumsBesideExponentials)->ArgName("way")->Arg(1)->Arg(2)->Iterations(1);
#endif

/// The whole count on one thread and on two.
void Threads(benchmark::State& state) {
  ContourGrid grid;
  BuildContourGrid(grid);
  const ContourData data = RandomData(32767);
  DensityCount count;
  for (auto _ : state) {
    const auto [one, two] = bench::MediansInTurn(
        7, [&] { CountDensity(grid, data, 20, count, {}, 1); },
        [&] { CountDensity(grid, data, 20, count, {}, 2); });
    state.counters["one_ms"] = one / 1e6;
    state.counters["two_ms"] = two / 1e6;
    state.counters["speed_up"] = one / two;
  }
}

BENCHMARK(Sums)
    ->ArgNames({"data", "way"})
    ->Args({32767, 0})
    ->Args({32767, 1})
    ->Args({32767, 2})
    ->Args({100, 2})
    ->Iterations(1);
BENCHMARK(Threads)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
