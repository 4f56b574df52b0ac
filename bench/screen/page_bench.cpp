// The graphics page of 1,000 records with all layers, as PNG.
//
// Aim: under twice its drawing and its encoding alone.

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <filesystem>

#include "app/commands/picture_commands.h"
#include "bench/ratio.h"
#include "platform/painting/painter_target.h"
#include "platform/painting/picture_file.h"
#include "plot/drawing/recorder.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

struct Page {
  ScriptedDialogs Asked;
  RecordedViews Seen;
  Velorix Program{Asked, Seen, Seen, Host()};

  Page() {
    FillGaussTable(Program.GaussTable, [] {});
    Program.Host.WritePicture = WritePicture;
    RecordArray& records = Program.Session.Records;
    for (int i = 0; i < 1000; ++i) {
      SpecimenRecord r;
      r.Active = r.HasCoor[1] = r.HasCoor[2] = true;
      r.OP = {6, 0, 6, 0};
      const float tensor[] = {1.05f, 1.0f, 0.95f, 0.01f, 0.02f, -0.01f};
      for (int k = 1; k <= 6; ++k) r.Tensor[k] = tensor[k - 1];
      r.OrientAz = static_cast<float>(i * 37 % 360);
      r.OrientInc = static_cast<float>(i * 11 % 90);
      r.Km = 1e-4 * (1 + i % 17);
      r.FoliName[1] = "S";
      r.LineName[1] = "L";
      r.FoliAz[1] = static_cast<float>(i % 360);
      r.FoliDip[1] = 40;
      for (int axis = 1; axis <= 3; ++axis) r.E[axis] = 5.0f;
      records.Add(r);
    }
    Renumber(records);
    StereoOptions& o = Program.Plots.Stereo;
    o.showDataLines = o.showDataEllipses = o.showBootstrapCloud = o.showBootstrapContours = true;
    o.colourByValue = true;
    for (int axis = 1; axis <= 3; ++axis) o.showGreatCircle[axis] = true;
    o.showPlanes = o.planesAsCircles = o.planesAsPoles = o.planesAsStrikes = o.showLines = true;
    ChooseFirstPlots(Program);
    DisplayData(Program, true);
  }
};

void PageBesideDrawingAndEncoding(benchmark::State& state) {
  Page page;
  Velorix& velorix = page.Program;
  const std::string file =
      Utf8Of(std::filesystem::temp_directory_path() / "velorix-page-bench.png");
  Recorder recorder;
  DrawGraphicsPage(PageOf(velorix), recorder, BitmapScale);
  QImage image(1440, 1280, QImage::Format_RGB32);
  for (auto _ : state) {
    const auto [drawing, encoding, ours] = bench::MediansInTurn(
        7,
        [&] {
          image.fill(Qt::white);
          QPainter painter(&image);
          PainterTarget target(painter, {});
          Replay(recorder.calls, target);
        },
        [&] {
          QBuffer buffer;
          QImageWriter(&buffer, "png").write(image);
        },
        [&] {
          if (!ExportGraphics(velorix, {file, true})) std::abort();
        });
    state.counters["ms"] = ours * 1e-6;
    state.counters["ms_drawing"] = drawing * 1e-6;
    state.counters["ms_encoding"] = encoding * 1e-6;
    state.counters["ratio"] = ours / (drawing + encoding);
  }
  std::filesystem::remove(PathOf(file));
}

BENCHMARK(PageBesideDrawingAndEncoding)->Iterations(1);

}  // namespace
}  // namespace velorix

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
