// What saving and undoing cost with a full store: the comparison before a save beside the plain
// write, and steps back and forth beside a plain walk over the records.

#include <benchmark/benchmark.h>

#include <filesystem>

#include "app/files/losses.h"
#include "app/state/history.h"
#include "bench/ratio.h"
#include "datafiles/formats/ams_file.h"
#include "platform/host/host.h"
#include "tensor/rotations.h"
#include "text/paths.h"

namespace velorix {
namespace {

const std::string Path = Utf8Of(std::filesystem::temp_directory_path() / "velorix-bench-save.ams");

void FillStore(Session& session) {
  session.Records.Grow(RecordArray::Limit);
  int i = 0;
  for (SpecimenRecord& r : session.Records) {
    r.Name = "SITE-" + std::to_string(++i) + "A1";
    r.Site = "Quarry";
    r.Active = r.HasCoor[1] = r.HasCoor[2] = true;
    r.FoliName[1] = "S0";
    for (int slot = 1; slot <= 6; ++slot)
      r.Tensor[slot] = r.TensorIm[slot] = 1.0f / static_cast<float>(slot + i % 7);
  }
  Renumber(session.Records);
}

void Count(benchmark::State& state, double yardstick, double ours) {
  state.counters["ms"] = ours * 1e-6;
  state.counters["yardstick_ms"] = yardstick * 1e-6;
  state.counters["ratio"] = ours / yardstick;
}

/// To reach: a ratio of at most 1.
void FindLossesBesideTheWrite(benchmark::State& state) {
  SetFlushFile(FlushToDevice);
  Session session;
  FillStore(session);
  const auto write = [&] {
    if (!WriteAmsFile(Path, session.Records, false, true)) std::abort();
  };
  write();
  for (auto _ : state) {
    const auto times = bench::MediansInTurn(11, write, [&] {
      if (FindLosses(session, Path, KindToSave(1), session.Records, true).Any()) std::abort();
    });
    Count(state, times[0], times[1]);
  }
  std::filesystem::remove(PathOf(Path));
}

/// A step taken back and done again, beside a walk that turns a flag of each record.
void UndoAndRedo(benchmark::State& state, HeldValues (*held)(const Session&)) {
  Session session;
  FillStore(session);
  Step step{"", {held(session)}};
  for (auto _ : state) {
    const auto times = bench::MediansInTurn(
        21, [&] { InvertSelection(session.Records); }, [&] { Exchange(session, step); });
    Count(state, times[0], times[1]);
  }
  state.counters["bytes"] = static_cast<double>(
      std::visit([](const auto& values) { return values.Bytes(); }, step.Values[0]));
}
void UndoOfDisregard(benchmark::State& state) {
  UndoAndRedo(state, [](const Session& session) { return HeldValues(FlagsOf(session)); });
}
void UndoOfRotation(benchmark::State& state) {
  UndoAndRedo(state, [](const Session& session) { return HeldValues(TensorsOf(session)); });
}

BENCHMARK(FindLossesBesideTheWrite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoOfDisregard)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(UndoOfRotation)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
