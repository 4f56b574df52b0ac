// The page of panels of 40 groups beside the symbols of their records alone, as a metafile: the
// store full, and sites of 25 and of 8 specimens.
//
// Aim: at most twice the symbols, for sites of any size. Pages are drawn layer by layer and axis by
// axis, so that colours seldom change; at 8 specimens a site the ellipses of some 20 points each,
// frames, means and texts cost nearly as much as the symbols.

#include <benchmark/benchmark.h>

#include <random>

#include "bench/ratio.h"
#include "plot/axes/axes.h"
#include "plot/drawing/metafile_target.h"
#include "plot/net/net.h"
#include "plot/net/panels.h"
#include "stats/study/study.h"
#include "tensor/derivation.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

constexpr int Groups = 40;
constexpr PlaneSize Page = {900, 800};

Session StudyOf(int records) {
  Session session;
  session.CoorSys = Geographic;
  std::mt19937 random(3);
  std::uniform_real_distribution<float> noise(-0.02f, 0.02f);
  for (int i = 0; i < records; ++i) {
    SpecimenRecord r;
    r.Active = r.HasCoor[2] = true;
    r.OP = {6, 0, 6, 0};
    r.Site = std::to_string(i % Groups);
    const float tensor[] = {1.05f, 1.0f, 0.95f, 0.01f, 0.02f, -0.01f};
    for (int c = 1; c <= 6; ++c) r.Tensor[c] = tensor[c - 1] + noise(random);
    DeriveFactors(r, session.Settings.FacIndex, InPhase);
    RotateRecord(r, {});
    session.Records.Add(r);
  }
  return session;
}

void PanelsOfGroups(benchmark::State& state) {
  const Session session = StudyOf(static_cast<int>(state.range(0)));
  const auto groups = PartRecords(session, *ParseGroupBy("site"));
  std::vector<GroupRow> rows;
  StudyStatistics(session, groups, {BootMethod::None, BootReplicates, {}}, {},
                  [&](GroupRow row) { rows.push_back(std::move(row)); });
  std::vector<Panel> panels;
  for (std::size_t i = 0; i < groups.size(); ++i)
    panels.push_back({groups[i].Name, groups[i].Records, &rows[i].Stats});
  for (auto _ : state) {
    const auto [ours, symbols] = bench::MediansInTurn(
        15,
        [&] {
          MetafileTarget target(Page);
          DrawPanels(session, panels, ErrorLevel::Confidence95, {"Ellipses"}, target, Page, 1);
          benchmark::DoNotOptimize(target.Bits());
        },
        [&] {
          MetafileTarget target(Page);
          for (const SpecimenRecord& record : session.Records)
            for (int k = 1; k <= 3; ++k)
              DrawNetSymbol(target, {100, 100, 94}, Projection::EqualArea,
                            {record.Dec[k], record.Inc[k]}, Axes[k].symbol, 4, Axes[k].colour, {});
          benchmark::DoNotOptimize(target.Bits());
        });
    state.counters["groups"] = static_cast<double>(groups.size());
    state.counters["ms"] = ours / 1e6;
    state.counters["yardstick_ms"] = symbols / 1e6;
    state.counters["ratio"] = ours / symbols;
  }
}

BENCHMARK(PanelsOfGroups)->Arg(32767)->Arg(1000)->Arg(320)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
