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

std::string Print(const char* format, double value) {
  char text[64];
  const int size = std::snprintf(text, sizeof text, format, value);
  return {text, static_cast<std::size_t>(size)};
}

std::string ToChars(double value) {
  char text[64];
  return {text, std::to_chars(text, std::end(text), value).ptr};
}

void Writing(benchmark::State& state, std::string (*write)(double)) {
  Values();
  for (auto _ : state)
    for (double value : Values()) benchmark::DoNotOptimize(write(value));
  state.SetItemsProcessed(state.iterations() * Count);
}

void Reading(benchmark::State& state, double (*read)(const std::string&)) {
  std::vector<std::string> texts;
  for (double value : Values()) texts.push_back(PlainText(static_cast<float>(value)));
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(read(text));
  state.SetItemsProcessed(state.iterations() * Count);
}

// clang-format off
BENCHMARK_CAPTURE(Writing, snprintf %.3f yardstick,  [](double x) { return Print("%.3f", x); });
BENCHMARK_CAPTURE(Writing, FormatNumber 0.000,       [](double x) { return FormatNumber(x, "0.000"); });
BENCHMARK_CAPTURE(Writing, snprintf %.17g yardstick, [](double x) { return Print("%.17g", x); });
BENCHMARK_CAPTURE(Writing, to_chars yardstick,       ToChars);
BENCHMARK_CAPTURE(Writing, PlainText in 64 bits,     [](double x) { return PlainText(x); });
BENCHMARK_CAPTURE(Writing, snprintf %.9g yardstick,  [](double x) { return Print("%.9g", static_cast<float>(x)); });
BENCHMARK_CAPTURE(Writing, PlainText in 32 bits,     [](double x) { return PlainText(static_cast<float>(x)); });
BENCHMARK_CAPTURE(Writing, snprintf %.3E yardstick,  [](double x) { return Print("%.3E", x); });
BENCHMARK_CAPTURE(Writing, SignificantText of 4,     [](double x) { return SignificantText(x, 4); });
BENCHMARK_CAPTURE(Reading, strtod yardstick, [](const std::string& s) { return std::strtod(s.c_str(), nullptr); });
BENCHMARK_CAPTURE(Reading, NumberOf,         [](const std::string& s) { return NumberOf(s); });
// clang-format on

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
