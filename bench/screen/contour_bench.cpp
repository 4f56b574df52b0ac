// The contour picture on an image: all nodes by one call beside one painter call a node, and the
// whole composition, colours and lines of the levels with it.
//
// Aims: at most 1/10 of one call a node.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "bench/ratio.h"
#include "platform/painting/painter_target.h"
#include "plot/plots/contour.h"
#include "store/session.h"

namespace velorix {
namespace {

struct Counted {
  ContourGrid grid;
  ContourData data;
  DensityCount count;

  Counted() {
    BuildContourGrid(grid);
    for (int i = 0; i < 100; ++i) data.Add(40 + 0.7 * i, 20 + 0.5 * i);
    CountDensity(grid, data, 20, count);
  }
};

/// Only the nodes, as they come out of the composition.
struct Nodes : Target {
  LogicalPoint corner;
  int width = 0;
  std::vector<Colour> pixels;

  void SetTransparent() override {}
  void Region(std::span<const std::vector<LogicalPoint>>, Colour) override {}
  void Polygon(std::span<const LogicalPoint>, const Pen&, Brush) override {}
  void Polyline(std::span<const LogicalPoint>, const Pen&) override {}
  void Ellipse(const LogicalBox&, const Pen&, Brush) override {}
  void Pixel(LogicalPoint, Colour) override {}
  void Raster(LogicalPoint at, int w, std::span<const Colour> p) override {
    if (width != 0) return;  // the ramp of the legend comes later
    corner = at;
    width = w;
    pixels.assign(p.begin(), p.end());
  }
  void Text(std::string_view, LogicalPoint, const TextStyle&) override {}
};

/// The argument is the number of pixels of a node.
void ContourNodes(benchmark::State& state) {
  Counted counted;
  ContourOptions options;
  options.discrete = false;
  Nodes nodes;
  DrawContour(nodes, counted.grid, counted.data, counted.count, Geographic, options);
  const int scale = static_cast<int>(state.range(0));
  QImage image(ContourPlane.width * scale, ContourPlane.height * scale, QImage::Format_RGB32);
  QPainter painter(&image);
  PainterTarget target(painter, FitPlane(ContourPlane, image.size()));
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (auto _ : state) {
    const auto [ours, perNode, whole] = bench::MediansInTurn(
        21, [&] { target.Raster(nodes.corner, nodes.width, nodes.pixels); },
        [&] {
          for (std::size_t n = 0; n < nodes.pixels.size(); ++n) {
            const Colour c = nodes.pixels[n];
            if (c == NoColour) continue;
            painter.setPen(QPen(QColor(c & 255, c >> 8 & 255, c >> 16 & 255), scale));
            painter.drawPoint(static_cast<int>(30 + n % 301) * scale,
                              static_cast<int>(30 + n / 301) * scale);
          }
        },
        [&] {
          DrawContour(target, counted.grid, counted.data, counted.count, Geographic, options);
        });
    state.counters["ms"] = ours / 1e6;
    state.counters["yardstick_ms"] = perNode / 1e6;
    state.counters["ratio"] = ours / perNode;
    state.counters["whole_ms"] = whole / 1e6;
  }
}
BENCHMARK(ContourNodes)->ArgName("scale")->Arg(1)->Arg(2)->Arg(4)->Iterations(1);

}  // namespace
}  // namespace velorix

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
