// Numbers to text and back. Yardsticks: snprintf, which knows a locale, and the bare std::to_chars.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "text/numbers.h"

namespace velorix {
namespace {

constexpr int Count = 1'000'000;

/// Values as the tables show them: angles, susceptibilities, normalised tensors.
const std::vector<double>& Values() {
  static const std::vector<double> values = [] {
    std::mt19937_64 random(1);
    std::vector<double> v;
    for (int i = 0; i < Count; ++i) {
      const double unit = std::ldexp(static_cast<double>(random() >> 11), -53);
      v.push_back(i % 3 == 0 ? 360 * unit : i % 3 == 1 ? 2 * unit - 1 : 1e-3 * unit);
    }
    return v;
  }();
  return values;
}

template <class Write>
void Run(benchmark::State& state, Write write) {
  Values();
  for (auto _ : state)
    for (double value : Values()) benchmark::DoNotOptimize(write(value));
  state.SetItemsProcessed(state.iterations() * Count);
}

std::string Print(const char* format, double value) {
  char text[64];
  const int size = std::snprintf(text, sizeof text, format, value);
  return {text, static_cast<std::size_t>(size)};
}

std::string ToChars(double value) {
  char text[64];
  return {text, std::to_chars(text, std::end(text), value).ptr};
}

const bool registered = [] {
  const auto add = [](const char* name, auto write) {
    benchmark::RegisterBenchmark(name, [write](benchmark::State& state) {
      Run(state, write);
    })->Unit(benchmark::kMillisecond);
  };
  add("yardstick snprintf %.3f", [](double x) { return Print("%.3f", x); });
  add("FormatNumber 0.000", [](double x) { return FormatNumber(x, "0.000"); });
  add("yardstick snprintf %.17g", [](double x) { return Print("%.17g", x); });
  add("yardstick to_chars", ToChars);
  add("PlainText 64-bit", [](double x) { return PlainText(x); });
  add("yardstick snprintf %.9g", [](double x) { return Print("%.9g", static_cast<float>(x)); });
  add("PlainText 32-bit", [](double x) { return PlainText(static_cast<float>(x)); });
  add("yardstick snprintf %.3E", [](double x) { return Print("%.3E", x); });
  add("SignificantText 4", [](double x) { return SignificantText(x, 4); });
  return true;
}();

void Reading(benchmark::State& state, double (*read)(const std::string&)) {
  std::vector<std::string> texts;
  for (double value : Values()) texts.push_back(PlainText(static_cast<float>(value)));
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(read(text));
  state.SetItemsProcessed(state.iterations() * Count);
}

BENCHMARK_CAPTURE(Reading, yardstick strtod, [](const std::string& text) {
  return std::strtod(text.c_str(), nullptr);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Reading, NumberOf, [](const std::string& text) {
  return NumberOf(text);
})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
