// Formula evaluation speed: compile once, then evaluate for every row of a
// 1,000,000-row table, as the spreadsheet does for a column. Target: at least 50
// million evaluations per second of a ten-operation formula.
#include <benchmark/benchmark.h>

#include <span>
#include <string>
#include <vector>

#include "formula/function_parser.h"

namespace {

using tidemark::formula::FunctionParser;
constexpr std::size_t kRows = 1000000;
const std::vector<std::string> kColumns = {"N", "Time", "Conc", "SEM", "Reps"};

// Row-major values of the five columns; SEM stays positive so no row divides by 0.
std::vector<double> make_rows() {
  std::vector<double> rows;
  rows.reserve(kRows * kColumns.size());
  for (std::size_t r = 0; r < kRows; ++r) {
    const double n = double(r + 1);
    rows.insert(rows.end(),
                {n, 10 * n, 50 + double(r % 17), 1 + 0.01 * double(r % 13), double(1 + r % 3)});
  }
  return rows;
}

void evaluate_rows(benchmark::State& state, const char* formula) {
  static const std::vector<double> rows = make_rows();
  FunctionParser parser;
  parser.init_functions(1);
  if (!parser.parse_function(1, formula, kColumns)) {
    state.SkipWithError(parser.syntax_message().c_str());
    return;
  }
  const std::span<const double> all(rows);
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t r = 0; r < kRows; ++r) {
      sum += parser.evaluate_function(1, all.subspan(r * kColumns.size(), kColumns.size()));
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kRows));
}

// Ten operators: - * + / - * + * - /
void BM_FormulaTenOperations(benchmark::State& state) {
  evaluate_rows(state, "(Conc-SEM)*2.5+Time/60-N*0.5+Reps*Reps-Conc/SEM");
}
BENCHMARK(BM_FormulaTenOperations)->Unit(benchmark::kMillisecond);

// Library functions dominate: exp, sqrt and log cost more than the dispatch.
void BM_FormulaWithFunctions(benchmark::State& state) {
  evaluate_rows(state, "exp(-Time/3000)*Conc+sqrt(SEM)-log(Reps+1)");
}
BENCHMARK(BM_FormulaWithFunctions)->Unit(benchmark::kMillisecond);

void BM_FormulaCompile(benchmark::State& state) {
  FunctionParser parser;
  parser.init_functions(1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        parser.parse_function(1, "(Conc-SEM)*2.5+Time/60-N*0.5+Reps*Reps-Conc/SEM", kColumns));
  }
}
BENCHMARK(BM_FormulaCompile);

}  // namespace
