// The orientation editor on stores of growing size: a store of twice the records may cost twice the
// time, and what its memory takes longer to reach.
//
// A record has 1.8 kB and a row of the grid 0.6, so that a full store with as many samples, 140 MB,
// is out of the processor's reach, while an eighth of it is mostly within. The yardstick has that
// too: for each record a look into a hash table of the names and into the sample found, and a copy
// of a row.
//
// Aims: AssignGED of a full store from as many samples in half a second; its time per record grows
// from an eighth of the store to the full one no more than the yardstick's, which is what the
// memory costs. The commit likewise.

#include <benchmark/benchmark.h>

#include <string_view>
#include <unordered_map>

#include "app/edit/assign_ged.h"
#include "bench/ratio.h"

namespace velorix {
namespace {

/// Records "SITE1" and so on. Samples have the same names, backwards, and two slots of codes.
RecordArray Store(int count, bool samples) {
  RecordArray records;
  records.Grow(count);
  for (int i = 1; i <= count; ++i) {
    SpecimenRecord& r = records[i];
    r.Name = "SITE" + std::to_string(samples ? count + 1 - i : i);
    r.RecordNo = static_cast<std::int16_t>(i);
    r.OP = {6, 0, 6, 0};
    if (!samples) continue;
    r.OrientAz = static_cast<float>(i % 360);
    r.OrientInc = 20;
    for (int slot = 1; slot <= 2; ++slot) {
      r.FoliName[slot] = "S";
      r.LineName[slot] = "L";
      r.FoliAz[slot] = r.LineTrend[slot] = 120;
    }
  }
  return records;
}

/// A store with as many samples.
struct Site {
  explicit Site(int count)
      : Records(Store(count, false)),
        Samples(Store(count, true)),
        Bare(RowsOf(Records)),
        Rows(RowsOf(Samples)) {
    FillGrid(Grid, Bare);
  }

  void Assign() {
    FillGrid(Grid, Bare);
    if (AssignGed(Grid, Records, Samples).Count != Records.Count()) std::abort();
  }
  void Commit() { CommitGrid(Grid, Records); }
  void Yardstick() {
    std::unordered_map<std::string_view, int> places;
    for (int i = 1; i <= Samples.Count(); ++i) places.emplace(Samples[i].Name, i);
    std::vector<EditRow> rows;
    for (const SpecimenRecord& record : Records) {
      const int place = places.find(record.Name)->second;
      if (Samples[place].OrientInc != 0) rows.push_back(Rows[static_cast<std::size_t>(place - 1)]);
    }
    benchmark::DoNotOptimize(rows.data());
  }

  RecordArray Records, Samples;
  std::vector<EditRow> Bare, Rows;
  EditGrid Grid;
};

template <void (Site::*Work)()>
void PerRecord(benchmark::State& state) {
  // Eight times the eighth is as many records, and is held up as often when others use the machine.
  constexpr int Parts = 8, Full = RecordArray::Limit;
  Site full(Full), part(Full / Parts);
  (full.Assign(), part.Assign());
  const auto times = [](int count, Site& site, void (Site::*work)()) {
    return [count, &site, work] {
      for (int i = 0; i < count; ++i) (site.*work)();
    };
  };
  for (auto _ : state) {
    const auto [all, some, yardAll, yardSome] = bench::MediansInTurn(
        15, times(1, full, Work), times(Parts, part, Work), times(1, full, &Site::Yardstick),
        times(Parts, part, &Site::Yardstick));
    state.counters["ms"] = all / 1e6;
    state.counters["ns_per_record"] = all / Full;
    state.counters["growth"] = all / some;
    state.counters["growth_of_yardstick"] = yardAll / yardSome;
    state.counters["of_yardstick"] = all / yardAll;
  }
}

BENCHMARK(PerRecord<&Site::Assign>)->Name("AssignGedToAFullStore")->Iterations(1);
BENCHMARK(PerRecord<&Site::Commit>)->Name("CommitGridOfAFullStore")->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
