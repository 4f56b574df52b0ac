// The points of 10,000 confidence ellipses beside the same with all trigonometry at every point,
// and the whole stereo view by the number of records.
//
// Aims: at most 1/8 of the plain way, the same pixels; the view linear in its records.

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

#include "bench/ratio.h"
#include "plot/net/net_curves.h"
#include "plot/net/stereo.h"
#include "tensor/derivation.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

constexpr Net Screen;

/// Draws nothing, so that the making of the calls is what is measured.
struct NullTarget : Target {
  std::size_t points = 0;

  void SetTransparent() override {}
  void Region(std::span<const std::vector<LogicalPoint>>, Colour) override {}
  void Polygon(std::span<const LogicalPoint> p, const Pen&, Brush) override { points += p.size(); }
  void Polyline(std::span<const LogicalPoint> p, const Pen&) override { points += p.size(); }
  void Ellipse(const LogicalBox&, const Pen&, Brush) override { ++points; }
  void Pixel(LogicalPoint, Colour) override { ++points; }
  void Text(std::string_view, LogicalPoint, const TextStyle&) override { ++points; }
};

std::vector<ConfidenceEllipse> Ellipses(int count) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> uniform(0, 1);
  std::vector<ConfidenceEllipse> ellipses;
  for (int i = 0; i < count; ++i) {
    ConfidenceEllipse e;
    e.axis = 1 + i % 3;
    Mxmpy(VerticalRotation(360 * uniform(random)),
          AxisRotation({0, 1, 0}, 180 * uniform(random) - 90), e.vectors);
    e.E1 = 2 + 20 * uniform(random);
    e.E2 = 1 + 10 * uniform(random);
    e.rotation = 360 * uniform(random);
    ellipses.push_back(e);
  }
  return ellipses;
}

/// The formula with its trigonometry at every point.
LogicalPoint PlainPoint(const ConfidenceEllipse& e, int degrees) {
  const auto rad = [](double d) { return d / DegPerRad; };
  const int i2 = e.axis % 3 + 1, i3 = i2 % 3 + 1;
  const double a = rad(degrees), r = rad(-e.rotation);
  const double rho =
      std::sqrt(e.E1 * e.E1 * std::cos(a) * std::cos(a) + e.E2 * e.E2 * std::sin(a) * std::sin(a));
  Vector<3> v, w;
  v[e.axis] = std::cos(rad(rho));
  v[i3] = std::sin(rad(e.E1)) * std::cos(a) * std::cos(r) -
          std::sin(a) * std::sin(rad(e.E2)) * std::sin(r);
  v[i2] = std::sin(rad(e.E1)) * std::cos(a) * std::sin(r) +
          std::sin(a) * std::sin(rad(e.E2)) * std::cos(r);
  Mvmpy(e.vectors, v, w);
  const DirectionAndLength d = VectorToDirection(w);
  const Point unit = ProjectDirection(Projection::EqualArea, LowerHemisphere({d.Dec, d.Inc}));
  const Point p = OnNet(Screen, unit.x, unit.y);
  return {ToLong(p.x), ToLong(p.y)};
}

void PointsOfEllipses(benchmark::State& state) {
  const auto ellipses = Ellipses(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto [ours, plain] = bench::MediansInTurn(
        11,
        [&] {
          NullTarget target;
          for (const ConfidenceEllipse& e : ellipses)
            DrawConfidenceEllipse(target, Screen, Projection::EqualArea, false, e, {});
          benchmark::DoNotOptimize(target.points);
        },
        [&] {
          for (const ConfidenceEllipse& e : ellipses)
            for (int a = -1; a <= 360; ++a) {
              LogicalPoint p = PlainPoint(e, std::max(a, 0));
              benchmark::DoNotOptimize(p);
            }
        });
    state.counters["ms"] = ours / 1e6;
    state.counters["yardstick_ms"] = plain / 1e6;
    state.counters["ratio"] = ours / plain;
  }
}

/// Every layer of records, on a target that draws nothing.
void StereoView(benchmark::State& state) {
  RecordArray records;
  std::mt19937 random(3);
  std::uniform_real_distribution<float> noise(-0.02f, 0.02f);
  for (int i = 0; i < state.range(0); ++i) {
    SpecimenRecord r;
    r.Active = r.HasCoor[2] = true;
    r.OP = {6, 0, 6, 0};
    const float tensor[] = {1.05f, 1.0f, 0.95f, 0.01f, 0.02f, -0.01f};
    for (int c = 1; c <= 6; ++c) r.Tensor[c] = tensor[c - 1] + noise(random);
    for (int k = 1; k <= 3; ++k) r.E[k] = r.E2[k] = 5.0f;
    DeriveFactors(r, Settings().FacIndex, InPhase);
    RotateRecord(r, {});
    records.Add(r);
  }
  StereoOptions options;
  options.showDataEllipses = options.showDataLines = options.colourByValue = true;
  options.showGreatCircle = {true, true, true};
  for (auto _ : state) {
    NullTarget target;
    DrawStereo(records, Geographic, target, {}, options, InPhase);
    benchmark::DoNotOptimize(target.points);
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(PointsOfEllipses)->Arg(10000)->Iterations(1);
BENCHMARK(StereoView)
    ->RangeMultiplier(8)
    ->Range(64, 32767)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace
}  // namespace velorix

BENCHMARK_MAIN();
