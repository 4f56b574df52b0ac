// The orientation editor on stores of growing size: a store of twice the records may cost twice the
// time.
//
// Aims: AssignGED of a full store from as many samples in half a second, the filling of the grid
// with it; its time per record at most three times that of an eighth of the store, whose rows are
// nearer to the processor. The commit likewise.

#include <benchmark/benchmark.h>

#include "app/assign_ged.h"
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

double AssignTime(int count) {
  const RecordArray records = Store(count, false), samples = Store(count, true);
  EditGrid grid;
  FillGrid(grid, RowsOf(records));
  const std::vector<EditRow> rows = grid.Rows;
  return bench::MediansInTurn(11, [&] {
    FillGrid(grid, rows);
    const GedMatches matches = AssignGed(grid, records, samples);
    if (matches.Count != count) std::abort();
  })[0];
}

double CommitTime(int count) {
  RecordArray records = Store(count, true);
  EditGrid grid;
  FillGrid(grid, RowsOf(records));
  return bench::MediansInTurn(11, [&] { CommitGrid(grid, records); })[0];
}

template <double (*Time)(int)>
void PerRecord(benchmark::State& state) {
  for (auto _ : state) {
    const int full = RecordArray::Limit, part = full / 8;
    const double atFull = Time(full), atPart = Time(part);
    state.counters["ms"] = atFull / 1e6;
    state.counters["ns_per_record"] = atFull / full;
    state.counters["growth"] = atFull / full / (atPart / part);
  }
}

BENCHMARK(PerRecord<AssignTime>)->Name("AssignGedToAFullStore")->Iterations(1);
BENCHMARK(PerRecord<CommitTime>)->Name("CommitGridOfAFullStore")->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
