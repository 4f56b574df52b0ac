// What drawing on the screen's target costs, on an image of 900 x 915 pixels.
//
// Aims: 10,000 confidence ellipses in at most 0.7 of smooth polylines with all their points through
// the painter; 100,000 symbols at least 8 times as fast as smooth ones with own pen and brush each;
// an XY plot of 32,767 coloured points in at most 1.5 times their stamps alone.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <random>

#include "bench/ratio.h"
#include "platform/painting/painter_target.h"
#include "platform/qt/plots/picture_changes.h"
#include "plot/drawing/colour_scales.h"
#include "plot/drawing/recorder.h"
#include "plot/drawing/symbols.h"
#include "plot/net/net_curves.h"
#include "plot/net/stereo.h"
#include "plot/plots/xy_plot.h"
#include "tensor/derivation.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

constexpr PlaneSize Plane = {360, 366};
constexpr Net Screen;

/// Runs `draw` on a fresh white image.
template <class Draw>
void OnScreen(Draw draw) {
  QImage image(900, 915, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  draw(painter, FitPlane(Plane, image.size()));
}

/// Smooth drawing with a new pen and brush for every shape, as it comes.
struct PlainTarget : Target {
  QPainter& painter;
  double scale;

  PlainTarget(QPainter& p, const PlaneFit& fit) : painter(p), scale(fit.scale) {
    painter.setRenderHint(QPainter::Antialiasing);
  }
  static QColor Of(Colour c) {
    return QColor(static_cast<int>(c & 255), static_cast<int>(c >> 8 & 255),
                  static_cast<int>(c >> 16 & 255));
  }
  void Use(const Pen& pen, Brush brush) {
    painter.setPen(QPen(Of(pen.colour), std::max(1.0, pen.width * scale)));
    painter.setBrush(brush ? QBrush(Of(*brush)) : QBrush());
  }
  QPolygonF Points(std::span<const LogicalPoint> points) const {
    QPolygonF polygon;
    for (const LogicalPoint p : points) polygon << QPointF(p.x * scale, p.y * scale);
    return polygon;
  }
  void SetTransparent() override {}
  void Region(std::span<const std::vector<LogicalPoint>>, Colour) override {}
  void Polygon(std::span<const LogicalPoint> p, const Pen& pen, Brush brush) override {
    Use(pen, brush);
    painter.drawPolygon(Points(p));
  }
  void Polyline(std::span<const LogicalPoint> p, const Pen& pen) override {
    Use(pen, NoBrush);
    painter.drawPolyline(Points(p));
  }
  void Ellipse(const LogicalBox& b, const Pen& pen, Brush brush) override {
    Use(pen, brush);
    painter.drawEllipse(QRectF(QPointF(b.left, b.top) * scale, QPointF(b.right, b.bottom) * scale));
  }
  void Pixel(LogicalPoint, Colour) override {}
  void Text(std::string_view, LogicalPoint, const TextStyle&) override {}
};

/// Reports the time of the recorded calls on the screen's target and its ratio to the plain way.
void BesidePlain(benchmark::State& state, const std::vector<DrawCall>& calls) {
  for (auto _ : state) {
    const auto [ours, plain] = bench::MediansInTurn(
        3,
        [&] {
          OnScreen([&](QPainter& painter, const PlaneFit& fit) {
            PainterTarget target(painter, fit);
            Replay(calls, target);
          });
        },
        [&] {
          OnScreen([&](QPainter& painter, const PlaneFit& fit) {
            PlainTarget target(painter, fit);
            Replay(calls, target);
          });
        });
    state.counters["ms"] = ours / 1e6;
    state.counters["ratio"] = ours / plain;
  }
}

void Ellipses(benchmark::State& state) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> uniform(0, 1);
  Recorder recorder;
  for (int i = 0; i < 10'000; ++i) {
    ConfidenceEllipse e;
    e.axis = 1 + i % 3;
    Mxmpy(VerticalRotation(360 * uniform(random)),
          AxisRotation({0, 1, 0}, 180 * uniform(random) - 90), e.vectors);
    e.E1 = 2 + 20 * uniform(random);
    e.E2 = 1 + 10 * uniform(random);
    e.rotation = 360 * uniform(random);
    DrawConfidenceEllipse(recorder, Screen, Projection::EqualArea, false, e, {.colour = Red});
  }
  BesidePlain(state, recorder.calls);
}
BENCHMARK(Ellipses)->Iterations(1)->Unit(benchmark::kMillisecond);

void Symbols(benchmark::State& state) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> x(20, 340);
  Recorder recorder;
  for (int i = 0; i < 100'000; ++i) {
    Pen pen;
    DrawSymbol(recorder, static_cast<std::int16_t>(1 + i % 3), x(random), x(random), 9,
               i % 3 == 0   ? Red
               : i % 3 == 1 ? Green
                            : Blue,
               pen);
  }
  BesidePlain(state, recorder.calls);
}
BENCHMARK(Symbols)->Iterations(1)->Unit(benchmark::kMillisecond);

Session Site(int count) {
  std::mt19937 random(5);
  std::normal_distribution<double> noise(0, 1);
  Session session;
  session.CoorSys = Specimen;
  for (int i = 1; i <= count; ++i) {
    SpecimenRecord r;
    r.Active = r.HasCoor[1] = true;
    r.Km = 1e-4 * std::exp(0.3 * noise(random));
    const double tensor[] = {1.05, 1.0, 0.95, 0, 0, 0};
    for (int c = 1; c <= 6; ++c)
      r.Tensor[c] = static_cast<float>(tensor[c - 1] + 0.01 * noise(random));
    for (int k = 1; k <= 3; ++k) r.E[k] = 4.0 + k, r.E2[k] = 2.0 + k;
    DeriveFactors(r, session.Settings.FacIndex, InPhase);
    RotateRecord(r, ViewOf(session));
    session.Records.Add(r);
  }
  Renumber(session.Records);
  return session;
}

void ColouredXYPlot(benchmark::State& state) {
  const Session session = Site(static_cast<int>(state.range(0)));
  const XYPlotOptions options = {
      .x = Column::Fac3, .y = Column::Fac5, .colour = Column::Km, .coding = true};
  Recorder recorder;
  DrawXYPlot(session, recorder, PlotGeometry(), options);
  std::erase_if(recorder.calls,
                [](const DrawCall& call) { return !std::get_if<EllipseCall>(&call); });
  for (auto _ : state) {
    const auto [plot, stamps] = bench::MediansInTurn(
        9,
        [&] {
          OnScreen([&](QPainter& painter, const PlaneFit& fit) {
            PainterTarget target(painter, fit);
            DrawXYPlot(session, target, PlotGeometry(), options);
          });
        },
        [&] {
          OnScreen([&](QPainter& painter, const PlaneFit& fit) {
            PainterTarget target(painter, fit);
            Replay(recorder.calls, target);
          });
        });
    state.counters["ms"] = plot / 1e6;
    state.counters["of_stamps"] = plot / stamps;
  }
}
BENCHMARK(ColouredXYPlot)
    ->Arg(8'192)
    ->Arg(16'384)
    ->Arg(32'767)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

/// The stereonet with its ellipses (0) or with every layer (1); then one record is selected, and
/// only the tiles that changed are drawn again. Great circles of a clustered site leave few tiles.
void SelectOne(benchmark::State& state) {
  Session session = Site(static_cast<int>(state.range(0)));
  StereoOptions options;
  options.showDataEllipses = true;
  if (state.range(1) == 1) {
    options.showDataLines = options.colourByValue = true;
    options.showGreatCircle = {true, true, true};
  }
  const auto draw = [&](Target& target) {
    DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, options, InPhase);
  };
  QImage image(900, 915, QImage::Format_RGB32);
  image.fill(Qt::white);
  const PlaneFit fit = FitPlane(Plane, image.size());
  CallMarks before(Plane);
  draw(before);
  session.Records[session.RecordCount() / 2].Selected = true;
  for (auto _ : state) {
    const auto [changes, whole] = bench::MediansInTurn(
        3,
        [&] {
          Recorder now;
          draw(now);
          CallMarks after(Plane);
          Replay(now.calls, after);
          const auto tiles = ChangedTiles(before.Marks, after.Marks, Plane);
          QPainter painter(&image);
          painter.setClipRegion(tiles->OnDevice(fit, image.size()));
          painter.fillRect(image.rect(), Qt::white);
          PainterTarget target(painter, fit);
          TileTarget changed(target, *tiles);
          Replay(now.calls, changed);
        },
        [&] {
          QPainter painter(&image);
          PainterTarget target(painter, fit);
          draw(target);
        });
    state.counters["ms"] = changes / 1e6;
    state.counters["of_whole"] = changes / whole;
  }
}
BENCHMARK(SelectOne)
    ->Args({100, 0})
    ->Args({1'000, 0})
    ->Args({1'000, 1})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velorix

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
