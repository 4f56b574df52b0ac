// A full RAN file beside the AMS reader on as many records, per record. `ratio` is the counter to
// look at, and 2 what it must not pass.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

#include "bench/ratio.h"
#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ran_file.h"
#include "text/paths.h"

namespace velorix {
namespace {

const std::string Folder = Utf8Of(std::filesystem::temp_directory_path());
const std::string AmsPath = Folder + "/velorix-ran-bench.ams";
const std::string RanPath = Folder + "/velorix-ran-bench.ran";
constexpr int Count = 32765;  // and the header: the most that the writer puts in a file

RecordArray FullStore() {
  RecordArray records;
  records.Grow(Count);
  int i = 0;
  for (SpecimenRecord& r : records) {
    r.Name = "SITE-" + std::to_string(++i) + "A1";
    r.Instrument = "TQB-4";
    r.FreqName = "F1";
    r.Site = "Quarry";
    r.Rock = "Granite";
    r.Field = 400;
    r.Km = 1e-3;
    r.OP = {6, 0, 6, 0};
    r.HasCoor[1] = r.HasCoor[2] = true;
    r.OrientAz = static_cast<float>(i % 360);
    r.OrientInc = static_cast<float>(i % 90);
    r.FoliName[1] = "S";
    r.LineName[1] = "L";
    r.FoliAz[1] = r.LineTrend[1] = 120;
    for (int slot = 1; slot <= 6; ++slot) r.Tensor[slot] = 1.0f / static_cast<float>(slot + i % 7);
  }
  return records;
}

void Hold(const Outcome& outcome) {
  if (!outcome) std::abort();
}

const RecordArray& MadeFiles() {
  static const RecordArray records = [] {
    RecordArray full = FullStore();
    Hold(WriteAmsFile(AmsPath, full, false, true));
    Hold(WriteRanFile(RanPath, full, false, true));
    return full;
  }();
  return records;
}

void Compare(benchmark::State& state, const std::array<double, 2>& yardstickAndOurs) {
  const auto [yardstick, ours] = yardstickAndOurs;
  state.counters["us_per_record"] = ours * 1e-3 / Count;
  state.counters["yardstick_us"] = yardstick * 1e-3 / Count;
  state.counters["ratio"] = ours / yardstick;
}

void FirstRead(benchmark::State& state) {
  MadeFiles();
  for (auto _ : state)
    Compare(state, bench::MediansInTurn(
                       11,
                       [] {
                         RecordArray records;
                         Hold(ReadAmsFile(AmsPath, records));
                       },
                       [] {
                         RecordArray records;
                         Hold(ReadRanFile(RanPath, records, {}));
                       }));
}

void ReadAgainIntoKeptMemory(benchmark::State& state) {
  MadeFiles();
  RecordArray ams, ran;
  for (auto _ : state)
    Compare(state, bench::MediansInTurn(
                       31,
                       [&] {
                         ams.Clear();
                         Hold(ReadAmsFile(AmsPath, ams));
                       },
                       [&] {
                         ran.Clear();
                         Hold(ReadRanFile(RanPath, ran, {}));
                       }));
}

/// Every record is turned on its way out.
void WriteBesideReading(benchmark::State& state) {
  const RecordArray& records = MadeFiles();
  RecordArray ams;
  for (auto _ : state)
    Compare(state, bench::MediansInTurn(
                       31,
                       [&] {
                         ams.Clear();
                         Hold(ReadAmsFile(AmsPath, ams));
                       },
                       [&] { Hold(WriteRanFile(RanPath, records, false, true)); }));
}

BENCHMARK(FirstRead)->Iterations(1);
BENCHMARK(ReadAgainIntoKeptMemory)->Iterations(1);
BENCHMARK(WriteBesideReading)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
