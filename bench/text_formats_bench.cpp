// Reading the text formats from memory beside reading their lines with the standard library alone.
//
// Aims: ASC of 10,000 blocks and AMSSpin of 32,767 lines at 50 MB/s, or at the rate of the lines
// alone if that is lower; a geological file of 10,000 samples under 2 times one pass of splitting
// its lines into tokens with the standard library.

#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>

#include "bench/ratio.h"
#include "datafiles/formats/asc_file.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/formats/si2b_file.h"
#include "datafiles/formats/spin_file.h"

namespace velorix {
namespace {

/// Nanoseconds of `read` and of std::getline over the same text, as rates.
template <class Read>
void BesideLines(benchmark::State& state, const std::string& text, Read read) {
  for (auto _ : state) {
    const auto [ours, lines] = bench::MediansInTurn(7, read, [&] {
      std::istringstream in(text);
      std::string line;
      while (std::getline(in, line)) benchmark::DoNotOptimize(line.data());
    });
    state.counters["MB_per_s"] = 1e3 * static_cast<double>(text.size()) / ours;
    state.counters["of_lines"] = ours / lines;
  }
}

std::string Times(const std::string& block, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += block;
  return text;
}

void Asc(benchmark::State& state) {
  std::string block =
      "GR1-1A           ANISOTROPY OF SUSCEPTIBILITY\r\n1\r\n\r\n"
      "Azi  120.5   Orient.par. :   6   0   6   90   Dem.fac. :  17.25\r\n\r\n"
      "Dip  35   Demag factor  : YES  Holder -5.5  T1 T2 3.75\r\n7\r\n8\r\n9\r\n10\r\n"
      "sl  130/45  40/5.5   B0  310/20  220/70\r\n12\r\n\r\n"
      "Field  Freq  Mean  Standard   Tests for anisotropy\r\n[A/m]\r\na\r\nb\r\n"
      "400  F2  1.5E-03  0.25   101.5  12.5  13.5\r\nc\r\nd\r\nMean\r\ne\r\nf\r\ng\r\n"
      "1.05 1.01 0.94   11.5 22.5 33.5\r\n\r\n+-  0.001 0.002 0.003   4.5 5.5 6.5\r\n";
  for (int i = 1; i <= 11; ++i) block += "line " + std::to_string(i) + "\r\n";
  block +=
      "Specimen  D  1 2 3   1.02 0.99 0.98999\r\nsystem  I  1 2 3   -0.01 0.02 0.03\r\n\r\n\f\r\n";
  const std::string text = Times(block, 10'000);
  RecordArray records;
  BesideLines(state, text, [&] {
    records.Clear();
    if (!ReadAscText(text, "x.asc", records) || records.Count() != 10'000)
      state.SkipWithError("not read");
  });
}
BENCHMARK(Asc)->Iterations(1);

void Spin(benchmark::State& state) {
  const std::string text = Times(
      "SP1001 0.34012 0.33311 0.32677 0.00123 -0.00045 0.00211 1.5E-07 2.345E-04 0 0 200 1 2 3\r\n",
      32'767);
  RecordArray records;
  BesideLines(state, text, [&] {
    records.Clear();
    if (!ReadSpinText(text, "x.txt", records, Settings()) || records.Count() != 32'767)
      state.SkipWithError("not read");
  });
}
BENCHMARK(Spin)->Iterations(1);

void Ged(benchmark::State& state) {
  RecordArray samples, records;
  for (int i = 1; i <= 10'000; ++i) {
    SpecimenRecord r;
    r.Name = "S" + std::to_string(i);
    r.OP = {6, 0, 6, 0};
    r.OrientAz = static_cast<float>(i % 360);
    r.OrientInc = 45;
    r.FoliName[1] = r.LineName[1] = "A";
    r.FoliAz[1] = r.LineTrend[1] = 120;
    r.FoliDip[1] = r.LinePlunge[1] = 30;
    samples.Add(r);
  }
  const std::string text = GedText(samples);
  for (auto _ : state) {
    const auto [read, split] = bench::MediansInTurn(
        7,
        [&] {
          records.Clear();
          if (!ReadGedText("x.ged", text, records)) state.SkipWithError("not read");
        },
        [&] {
          std::istringstream in(text);
          std::string line, token;
          while (std::getline(in, line))
            for (std::istringstream tokens(line); tokens >> token;)
              benchmark::DoNotOptimize(token.data());
        });
    state.counters["MB_per_s"] = 1e3 * static_cast<double>(text.size()) / read;
    state.counters["of_splitting"] = read / split;
  }
}
BENCHMARK(Ged)->Iterations(1);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
