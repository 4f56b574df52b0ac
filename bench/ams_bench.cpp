// What a user waits for with a full store of AMS records, beside reading the same bytes and beside
// opening the file once a record. `ratio` is the counter to look at.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "bench/ratio.h"
#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/ams_layout.h"
#include "text/paths.h"

namespace velorix {
namespace {

const std::string Path = Utf8Of(std::filesystem::temp_directory_path() / "velorix-bench.ams");

RecordArray FullStore() {
  RecordArray records;
  records.Grow(RecordArray::Limit);
  int i = 0;
  for (SpecimenRecord& r : records) {
    r.Name = "SITE-" + std::to_string(++i) + "A1";
    r.Instrument = "TQB-4";
    r.FreqName = "F1";
    r.Site = "Quarry";
    r.Rock = "Granite";
    r.HasCoor[1] = r.HasCoor[2] = true;
    r.FoliName[1] = "S0";
    r.LineName[1] = "L1";
    for (int slot = 1; slot <= 6; ++slot) {
      r.Tensor[slot] = 1.0f / static_cast<float>(slot + i % 7);
      r.TensorIm[slot] = 0.1f * static_cast<float>(slot);
    }
  }
  return records;
}

void MakeFile() {
  static const bool made = bool(WriteAmsFile(Path, FullStore(), false, true));
  if (!made) std::abort();
}

/// Reading the bytes alone, through a buffer that stays.
void ReadBytes(std::vector<char>& buffer) {
  std::ifstream in(PathOf(Path), std::ios::binary);
  while (in.read(buffer.data(), static_cast<std::streamsize>(buffer.size())))
    benchmark::ClobberMemory();
}

void Compare(benchmark::State& state, const std::array<double, 2>& yardstickAndOurs) {
  const auto [yardstick, ours] = yardstickAndOurs;
  state.counters["ms"] = ours * 1e-6;
  state.counters["yardstick_ms"] = yardstick * 1e-6;
  state.counters["ratio"] = ours / yardstick;
}

/// To reach: a ratio of at most 40.
void FirstRead(benchmark::State& state) {
  MakeFile();
  std::vector<char> buffer(64 * 1024);
  for (auto _ : state)
    Compare(state, bench::MediansInTurn(
                       11, [&] { ReadBytes(buffer); },
                       [] {
                         RecordArray records;
                         if (!ReadAmsFile(Path, records)) std::abort();
                       }));
}

/// To reach: a ratio of at most 6.
void ReadAgainIntoKeptMemory(benchmark::State& state) {
  MakeFile();
  std::vector<char> buffer(static_cast<std::size_t>(state.range(0)));
  RecordArray records;
  for (auto _ : state)
    Compare(state, bench::MediansInTurn(
                       31, [&] { ReadBytes(buffer); },
                       [&] {
                         records.Clear();
                         if (!ReloadAmsFile(Path, records, false)) std::abort();
                       }));
}

void WriteOneByOne() {
  std::filesystem::remove(PathOf(Path));
  const std::byte bytes[AmsRecordSize] = {};
  for (int i = 1; i <= RecordArray::Limit; ++i)
    std::ofstream(PathOf(Path), std::ios::binary | std::ios::app)
        .write(reinterpret_cast<const char*>(bytes), AmsRecordSize);
}

/// To reach: a ratio of at most 0.125.
void Write(benchmark::State& state) {
  const RecordArray records = FullStore();
  for (auto _ : state)
    Compare(state, bench::MediansInTurn(7, WriteOneByOne, [&] {
              if (!WriteAmsFile(Path, records, false, true)) std::abort();
            }));
}

BENCHMARK(FirstRead)->Iterations(1);
BENCHMARK(ReadAgainIntoKeptMemory)->Arg(64 * 1024)->Arg(32 * 1024 * 1024)->Iterations(1);
BENCHMARK(Write)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
