// Graph speed: a three-panel page of 10,000 points in all (symbols, connecting curves
// and error bars in every panel) rendered to PNG at the default page size and
// resolution (1440 x 1080 pixels). Target: under 100 ms per page. Also the reading of
// the same page's source, and the PNG of a page with 10,000 points in each panel.
#include <benchmark/benchmark.h>

#include <string>

#include "graphics/plot_parser.h"
#include "three_panel_source.h"
#include "render/renderer.h"

namespace {

using namespace tidemark;
using bench_support::three_panel_source;

void BM_RenderThreePanelPng(benchmark::State& state) {
  const int per_panel = static_cast<int>(state.range(0));
  const graphics::PlotParseResult parsed = graphics::parse_plot(three_panel_source(per_panel));
  for (auto _ : state) {
    const render::RenderResult r = render::render(parsed.plot, render::Format::kPng, {});
    benchmark::DoNotOptimize(r.bytes.data());
  }
  state.SetItemsProcessed(state.iterations() * 3 * per_panel);
}
// 3,334 points per panel: 10,002 points on the page; then 10,000 in each panel.
BENCHMARK(BM_RenderThreePanelPng)->Arg(3334)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_ParseThreePanelSource(benchmark::State& state) {
  const std::string source = three_panel_source(3334);
  for (auto _ : state) {
    const graphics::PlotParseResult parsed = graphics::parse_plot(source);
    benchmark::DoNotOptimize(parsed.plot.panels.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<long>(source.size()));
}
BENCHMARK(BM_ParseThreePanelSource)->Unit(benchmark::kMillisecond);

}  // namespace
