// The groups of a full store beside one pass over the whole of it, and their bootstraps beside the
// bootstraps alone.
//
// Aims: without bootstraps at most 3 times the pass; with them at most 1.2 times the bootstraps
// alone on one thread, and 1.8 times as fast on two.

#include <benchmark/benchmark.h>

#include <random>

#include "bench/ratio.h"
#include "stats/study/study.h"

namespace velorix {
namespace {

constexpr int Groups = 1000;

Session FullStore() {
  Session session;
  session.CoorSys = Geographic;
  std::mt19937 random(1);
  std::uniform_real_distribution<double> noise(-0.02, 0.02);
  session.Records.Grow(RecordArray::Limit);
  for (int i = 1; i <= session.RecordCount(); ++i) {
    SpecimenRecord& record = session.Records[i];
    record.RecordNo = static_cast<std::int16_t>(i);
    record.Site = std::to_string(i % Groups);
    record.Active = true;
    record.CoorLevel = Geographic;
    record.HasCoor = {true, true, false, false};
    record.Km = 1e-3;
    const double mean[] = {1.05, 1.0, 0.95, 0.01, -0.02, 0.01};
    for (int c = 1; c <= 6; ++c)
      record.TensorRot[c] = static_cast<float>(mean[c - 1] + noise(random));
    for (Factor& factor : record.Fac) factor = Factor(1.1f);
  }
  return session;
}

/// The tensors of each group, as the bootstrap gets them.
std::vector<std::vector<TensorColumn>> TensorsOf(const Session& session,
                                                 const std::vector<RecordGroup>& groups) {
  std::vector<std::vector<TensorColumn>> tensors;
  for (const RecordGroup& group : groups) {
    auto& T = tensors.emplace_back();
    for (const int record : group.Records) {
      TensorColumn& t = T.emplace_back();
      for (int c = 1; c <= 6; ++c) t[c] = session.Records[record].TensorRot[c];
    }
  }
  return tensors;
}

void Report(benchmark::State& state, double ours, double yardstick) {
  state.counters["ms"] = ours / 1e6;
  state.counters["yardstick_ms"] = yardstick / 1e6;
  state.counters["ratio"] = ours / yardstick;
}

void Study(const Session& session, const std::vector<RecordGroup>& groups, const BootChoice& boot,
           std::span<const float> table, int threads) {
  std::size_t rows = 0;
  StudyStatistics(
      session, groups, boot, table, [&rows](const GroupRow&) { ++rows; }, {}, threads);
  benchmark::DoNotOptimize(rows);
}

void GroupsBesideOnePass(benchmark::State& state) {
  const Session session = FullStore();
  const BootChoice none{BootMethod::None, BootReplicates, {}};
  for (auto _ : state) {
    const auto [ours, pass] = bench::MediansInTurn(
        21, [&] { Study(session, PartRecords(session, *ParseGroupBy("site")), none, {}, 1); },
        [&] { benchmark::DoNotOptimize(AllRow(session, none, {}).Stats.GroupN); });
    Report(state, ours, pass);
  }
}

void GroupsBesideTheirBootstraps(benchmark::State& state) {
  const Session session = FullStore();
  const auto groups = PartRecords(session, *ParseGroupBy("site"));
  const auto tensors = TensorsOf(session, groups);
  std::vector<float> table;
  FillGaussTable(table, [] {});
  for (auto _ : state) {
    const auto [one, two, alone] = bench::MediansInTurn(
        5, [&] { Study(session, groups, {}, table, 1); },
        [&] { Study(session, groups, {}, table, 2); },
        [&] {
          for (const auto& T : tensors)
            benchmark::DoNotOptimize(BootStrap(T, {}, BootContourPoints, table).Eig.data());
        });
    Report(state, one, alone);
    state.counters["two_threads_faster"] = one / two;
  }
}

BENCHMARK(GroupsBesideOnePass)->Iterations(1);
BENCHMARK(GroupsBesideTheirBootstraps)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
