// Desktop program speed, on Qt's offscreen platform. Targets: the main window shown,
// with the shell started and waiting for the first command, in under 1 s; the graph
// view redrawn after a resize, for a three-panel page of 10,000 points, in under 100 ms.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <filesystem>
#include <fstream>

#include "app/components.h"
#include "graphics/plot_parser.h"
#include "gui/desktop.h"
#include "gui/graph_view.h"
#include "gui/main_window.h"
#include "three_panel_source.h"

namespace {

using namespace tidemark;

QApplication& application() {
  static int argc = 1;
  static char name[] = "tidemark_bench";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication app(argc, argv);
  return app;
}

void BM_WindowShown(benchmark::State& state) {
  application();
  const auto home = std::filesystem::temp_directory_path() /
                    ("tidemark_gui_bench_" + std::to_string(getpid()));
  std::filesystem::create_directories(home / "system");
  {
    std::ofstream(home / "system" / "registry.ini")
        << "Default_Folder=" << std::filesystem::current_path().string() << "\n";
  }
  setenv("TIDEMARK_HOME", home.c_str(), 1);
  static const shell::Components parts = app::registered_components();
  for (auto _ : state) {
    gui::Desktop desktop({"Tidemark", "0.1.0"}, parts, {}, {});
    desktop.window().show();
    desktop.start();
    while (!desktop.idle()) QApplication::processEvents(QEventLoop::AllEvents, 1);
    QApplication::processEvents();
    desktop.window().repaint();
    state.PauseTiming();
    desktop.finish();
    state.ResumeTiming();
  }
  std::filesystem::remove_all(home);
}
BENCHMARK(BM_WindowShown)->Unit(benchmark::kMillisecond)->UseRealTime();

// Each iteration resizes the view to the other of two window sizes and paints it (grab
// paints the widget as the screen would).
void BM_GraphViewResize(benchmark::State& state) {
  application();
  graphics::PlotParseResult parsed =
      graphics::parse_plot(bench_support::three_panel_source(static_cast<int>(state.range(0))));
  gui::GraphCanvas canvas;
  canvas.set_plot(std::move(parsed.plot));
  canvas.resize(1000, 750);
  canvas.show();
  bool wide = false;
  for (auto _ : state) {
    wide = !wide;
    canvas.resize(wide ? 1200 : 1000, wide ? 900 : 750);
    benchmark::DoNotOptimize(canvas.grab());
  }
}
// 3,334 points per panel: 10,002 points on the page.
BENCHMARK(BM_GraphViewResize)->Arg(3334)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
