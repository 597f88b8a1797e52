// Spreadsheet speed on a 1,000,000-row data set: a formula assigned to a whole column
// (compile once, then per row: gather the cells, test for missing operands, evaluate,
// round to single precision) and averaging in bins of 2.
#include <benchmark/benchmark.h>

#include "formula/spreadsheet_formula.h"
#include "formula/spreadsheet_ops.h"

namespace {

using tidemark::formula::Grid;
constexpr int kRows = 1000000;

tidemark::data::DataSet make_series() {
  tidemark::data::DataSet set;
  set.file_name = "bench.dat";
  for (int i = 0; i < kRows; ++i) {
    const auto t = static_cast<float>(i);
    set.push_point({10 * t, 5 + static_cast<float>(i % 17), 0.2f, 2, 0, 0, 0, 0});
  }
  return set;
}

void BM_AssignFormulaToColumn(benchmark::State& state) {
  static const Grid original(make_series());
  tidemark::formula::FunctionParser parser;
  for (auto _ : state) {
    state.PauseTiming();
    Grid grid = original;
    state.ResumeTiming();
    const auto status =
        tidemark::formula::assign_formula(grid, "SEM = 0.05*CONC + sqrt(TIME)/1000 - N*0", parser);
    benchmark::DoNotOptimize(status.ok());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_AssignFormulaToColumn)->Unit(benchmark::kMillisecond);

void BM_AverageInBinsOfTwo(benchmark::State& state) {
  static const Grid original(make_series());
  for (auto _ : state) {
    state.PauseTiming();
    Grid grid = original;
    state.ResumeTiming();
    benchmark::DoNotOptimize(tidemark::formula::average_rows(grid, 2).ok());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_AverageInBinsOfTwo)->Unit(benchmark::kMillisecond);

}  // namespace
