// What leaves the program: the record grid as text and the page as a metafile, for a full store.
//
// Aims: ExportGrid in at most a quarter of the time of snprintf for the same cells, and at most 3
// times std::to_chars alone, in memory that doesn't grow with the rows; a metafile whose time grows
// as its records do, 32,767 of them. Printing every digit, which gives other cells, is measured
// beside as `to_all_digits`: there to_chars alone takes a fifth.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <random>

#include "app/files/export_grid.h"
#include "app/tables/record_grid.h"
#include "bench/ratio.h"
#include "datafiles/bytes/safe_write.h"
#include "plot/drawing/metafile_target.h"
#include "plot/net/stereo.h"
#include "text/paths.h"

namespace {

// Bytes that are allocated now, and the most since `most` was set.
std::size_t held = 0, most = 0;
constexpr std::size_t Head = alignof(std::max_align_t);  // holds the size of a block before it

}  // namespace

void* operator new(std::size_t size) {
  auto* const block = static_cast<std::size_t*>(std::malloc(Head + size));
  if (!block) throw std::bad_alloc();
  *block = size;
  held += size;
  most = std::max(most, held);
  return reinterpret_cast<char*>(block) + Head;
}

void operator delete(void* at) noexcept {
  if (!at) return;
  void* const block = static_cast<char*>(at) - Head;
  held -= *static_cast<std::size_t*>(block);
  std::free(block);
}

void operator delete(void* at, std::size_t) noexcept { operator delete(at); }

namespace velorix {
namespace {

constexpr int Full = 32767;
const std::string Path =
    Utf8Of(std::filesystem::temp_directory_path() / "velorix-export-bench.csv");

Session MadeSession(int count) {
  Session session;
  session.CoorSys = Geographic;
  session.Records.Grow(count);
  std::mt19937 random(7);
  std::uniform_real_distribution<double> unit(0, 1);
  const auto single = [&](double from, double to) {
    return static_cast<float>(from + (to - from) * unit(random));
  };
  for (SpecimenRecord& r : session.Records) {
    r.Name = "SITE-" + std::to_string(random() % 10000) + "A1";
    r.Active = r.HasCoor[1] = r.HasCoor[2] = true;
    r.CoorLevel = Geographic;
    r.Field = 400.0f;
    r.Frequency = 976.0f;
    r.Km = single(1e-5, 1e-2);
    for (int i = 1; i <= 8; ++i) r.Fac[i] = single(0, 2);
    for (int axis = 1; axis <= 3; ++axis) {
      r.Dec[axis] = 360 * unit(random);
      r.Inc[axis] = 90 * unit(random);
      r.E[axis] = single(0, 10);
    }
    for (int i = 0; i <= 2; ++i) r.FTest[i] = single(0, 500);
  }
  Renumber(session.Records);
  return session;
}

const Session& FullSession() {
  static const Session session = MadeSession(Full);
  return session;
}

/// The numbers of a row as the grid's columns have them, each in its own width.
template <class Visit>
void ForEachNumber(const SpecimenRecord& r, Visit visit) {
  visit(r.Field);
  visit(r.Frequency);
  visit(r.Km);
  for (int i = 1; i <= 8; ++i) visit(r.Fac[i].Shown());
  for (int axis = 1; axis <= 3; ++axis) visit(r.Dec[axis]), visit(r.Inc[axis]);
  for (int i = 0; i <= 2; ++i) visit(r.FTest[i]);
  for (int axis = 1; axis <= 3; ++axis) visit(r.E[axis]);
}

double Wide(const Number& x) { return x; }
double Wide(double x) { return x; }
template <class Float>
bool IsSingle(const Float& x) {
  if constexpr (std::is_same_v<Float, Number>) return x.width() == Number::Width::Single;
  return std::is_same_v<Float, float>;
}

/// The same number by snprintf: with all the digits that its width may need, or the same text as in
/// the grid, which takes as few digits as read back to it.
std::size_t Print(char* text, std::size_t size, double x, bool single, bool shortest) {
  const int most = single ? 9 : 17;
  int digits = shortest ? most - 3 : most;
  for (;; ++digits) {
    const int length = std::snprintf(text, size, "%.*g", digits, x);
    const auto readsBack = [&] {
      return single ? std::strtof(text, nullptr) == static_cast<float>(x)
                    : std::strtod(text, nullptr) == x;
    };
    if (digits == most || readsBack()) return static_cast<std::size_t>(length);
  }
}

/// The whole file by snprintf.
void WriteBySnprintf(const Session& session, bool shortest) {
  SafeWrite(Path, [&](std::ostream& out) {
    std::string line;
    char text[64];
    for (const SpecimenRecord& r : session.Records) {
      line.assign(text, std::snprintf(text, sizeof text, "%d ,%s ,", r.RecordNo, r.Name.c_str()));
      ForEachNumber(r, [&](const auto& x) {
        line.append(text, Print(text, sizeof text, Wide(x), IsSingle(x), shortest)).append(" ,");
      });
      line += "\r\n";
      out.write(line.data(), static_cast<std::streamsize>(line.size()));
    }
  });
}

/// The numbers' texts alone, written nowhere.
void TextsByToChars(const Session& session) {
  char text[64];
  for (const SpecimenRecord& r : session.Records)
    ForEachNumber(r, [&](const auto& x) {
      if (IsSingle(x))
        std::to_chars(text, std::end(text), static_cast<float>(Wide(x)));
      else
        std::to_chars(text, std::end(text), Wide(x));
      benchmark::DoNotOptimize(text);
    });
}

void ExportGridBesideSnprintfAndToChars(benchmark::State& state) {
  const Session& session = FullSession();
  for (auto _ : state) {
    const auto [printed, digits, texts, ours] = bench::MediansInTurn(
        7, [&] { WriteBySnprintf(session, true); }, [&] { WriteBySnprintf(session, false); },
        [&] { TextsByToChars(session); },
        [&] {
          if (!ExportGrid(RecordGridTexts(session), Path, {.Append = false})) std::abort();
        });
    state.counters["ms"] = ours * 1e-6;
    state.counters["to_snprintf"] = ours / printed;
    state.counters["to_all_digits"] = ours / digits;
    state.counters["to_to_chars"] = ours / texts;
  }
  std::filesystem::remove(PathOf(Path));
}

/// The most bytes that an export holds at a time, the stream's own among them.
void MemoryOfExportGrid(benchmark::State& state) {
  const Session session = MadeSession(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const std::size_t before = most = held;
    if (!ExportGrid(RecordGridTexts(session), Path, {.Append = false})) std::abort();
    state.counters["peak_bytes"] = static_cast<double>(most - before);
  }
  std::filesystem::remove(PathOf(Path));
}

/// The stereonet of as many records, drawn into a metafile; `ns_per_record` shall stay the same.
void MetafileOfManyRecords(benchmark::State& state) {
  const Session session = MadeSession(static_cast<int>(state.range(0)));
  std::size_t size = 0;
  for (auto _ : state) {
    MetafileTarget target(PlaneSize{900, 800});
    DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, StereoOptions{},
               InPhase);
    size = target.Bits().size();
  }
  state.counters["bytes_per_record"] = static_cast<double>(size) / session.RecordCount();
  state.counters["s_per_record"] =
      benchmark::Counter(session.RecordCount(), benchmark::Counter::kIsIterationInvariantRate |
                                                    benchmark::Counter::kInvert);
}

BENCHMARK(ExportGridBesideSnprintfAndToChars)->Iterations(1);
BENCHMARK(MemoryOfExportGrid)->Arg(1000)->Arg(Full)->Iterations(1);
BENCHMARK(MetafileOfManyRecords)->Arg(1000)->Arg(8000)->Arg(Full)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
