// What a user waits for with a full store of AMS records, beside reading the same bytes and beside
// opening the file once a record. `ratio` is the counter to look at.

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "datafiles/ams_file.h"
#include "datafiles/ams_layout.h"
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

/// Seconds of the fastest of some runs of `work`.
template <class Work>
double Fastest(Work work, int runs = 15) {
  double best = 1e9;
  for (int run = 0; run < runs; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    best = std::min(
        best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

/// Reading the bytes alone, through a buffer of this size that stays.
double ReadBytes(std::size_t buffer) {
  std::vector<char> bytes(buffer);
  return Fastest([&] {
    std::ifstream in(PathOf(Path), std::ios::binary);
    while (in.read(bytes.data(), static_cast<std::streamsize>(buffer))) {
      benchmark::DoNotOptimize(bytes.data());
      benchmark::ClobberMemory();
    }
  });
}

void Compare(benchmark::State& state, double yardstick, double ours) {
  state.counters["ms"] = ours * 1e3;
  state.counters["yardstick_ms"] = yardstick * 1e3;
  state.counters["ratio"] = ours / yardstick;
}

void FirstRead(benchmark::State& state) {
  MakeFile();
  for (auto _ : state) {
    const double yardstick = ReadBytes(64 * 1024);
    Compare(state, yardstick,
            Fastest(
                [] {
                  RecordArray records;
                  if (!ReadAmsFile(Path, records)) std::abort();
                },
                5));
  }
}

void ReadAgainIntoKeptMemory(benchmark::State& state) {
  MakeFile();
  RecordArray records;
  for (auto _ : state) {
    const double yardstick = ReadBytes(static_cast<std::size_t>(state.range(0)));
    Compare(state, yardstick, Fastest([&] {
              records.Clear();
              if (!ReloadAmsFile(Path, records, false)) std::abort();
            }));
  }
}

void Write(benchmark::State& state) {
  const RecordArray records = FullStore();
  for (auto _ : state) {
    const double yardstick = Fastest(
        [&] {
          std::filesystem::remove(PathOf(Path));
          std::byte bytes[AmsRecordSize] = {};
          for (int i = 1; i <= records.Count(); ++i)
            std::ofstream(PathOf(Path), std::ios::binary | std::ios::app)
                .write(reinterpret_cast<const char*>(bytes), AmsRecordSize);
        },
        3);
    Compare(state, yardstick,
            Fastest(
                [&] {
                  if (!WriteAmsFile(Path, records, false, true)) std::abort();
                },
                5));
  }
}

BENCHMARK(FirstRead)->Iterations(1);
BENCHMARK(ReadAgainIntoKeptMemory)->Arg(64 * 1024)->Arg(32 * 1024 * 1024)->Iterations(1);
BENCHMARK(Write)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
