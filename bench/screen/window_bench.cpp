// What the whole window costs with a full store, tables open.
//
// Aims: `RefreshViews` after a selection of one record takes less than one repaint of the plots;
// the data table is sorted with keys made once, in n log n.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <random>

#include "app/commands/display.h"
#include "app/tables/data_table.h"
#include "bench/ratio.h"
#include "platform/qt/main_window/velorix_window.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

/// The main window with `count` records in view and the data table open.
struct FullWindow {
  explicit FullWindow(int count) {
    Program.GaussTable = {0, 1};  // no bootstrap above 100 records
    Window.Load(Program);
    Window.resize(1600, 1000);
    Window.show();
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0, 1);
    for (int i = 1; i <= count; ++i) {
      SpecimenRecord r;
      r.Name = "S" + std::to_string(i);
      r.Active = r.HasCoor[1] = r.HasCoor[2] = true;
      r.OP = {6, 0, 6, 0};
      r.Km = 1e-4 * std::exp(0.3 * noise(random));
      const double tensor[] = {1.05, 1.0, 0.95, 0, 0, 0};
      for (int c = 1; c <= 6; ++c)
        r.Tensor[c] = static_cast<float>(tensor[c - 1] + 0.01 * noise(random));
      Program.Session.Records.Add(r);
    }
    Renumber(Program.Session.Records);
    DisplayData(Program, true);
    Program.Windows.DataTable = true;
    Window.ShowWindows();
    QCoreApplication::processEvents();
  }

  ScriptedDialogs Asked;
  frmVelorix Window;
  Velorix Program{Asked, Window, Window, {}};
};

void RefreshAfterASelection(benchmark::State& state) {
  FullWindow window(static_cast<int>(state.range(0)));
  int next = 0;
  for (auto _ : state) {
    const auto [refresh, repaint] = bench::MediansInTurn(
        5,
        [&] {
          window.Program.Session.Records[++next].Selected = true;
          RefreshViews(window.Program);
        },
        [&] { QCoreApplication::processEvents(); });
    state.counters["refresh_ms"] = refresh / 1e6;
    state.counters["of_repaint"] = refresh / repaint;
  }
}
BENCHMARK(RefreshAfterASelection)->Arg(32'767)->Iterations(1)->Unit(benchmark::kMillisecond);

void SortByAColumn(benchmark::State& state) {
  FullWindow window(static_cast<int>(state.range(0)));
  const Session& session = window.Program.Session;
  constexpr Column MaxDec = Column::KmaxDec;
  for (auto _ : state) {
    const auto [sort, cells] = bench::MediansInTurn(
        5,
        [&] {
          std::vector<int> rows = DataTableRows(session);
          SortDataTable(rows, MaxDec, false, session);
          benchmark::DoNotOptimize(rows.data());
        },
        [&] {
          for (const SpecimenRecord& record : session.Records)
            benchmark::DoNotOptimize(DataTableCell(MaxDec, record, InPhase));
        });
    state.counters["ms"] = sort / 1e6;
    state.counters["of_cells"] = sort / cells;
  }
}
BENCHMARK(SortByAColumn)->Arg(8'192)->Arg(32'767)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velorix

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
