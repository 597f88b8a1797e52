// The signal-response model: one prediction, and the two-input fit on 144 points with a
// swarm of 40 for 200 iterations followed by each local method (the argument: threads).
// The fits report process CPU time: the swarm runs on worker threads.
#include <benchmark/benchmark.h>

#include "feedback/response_fit.h"
#include "srquant_scenario.h"

namespace {

using namespace tidemark::feedback;

void BM_SrquantPredictTwoInputs(benchmark::State& state) {
  const bench::Scenario s = bench::lh_driven(3, 2, 0.05).value();
  for (auto _ : state) benchmark::DoNotOptimize(predict(s.model, s.truth, s.data));
}
BENCHMARK(BM_SrquantPredictTwoInputs)->Unit(benchmark::kMicrosecond);

void fit_two_inputs(benchmark::State& state, Optimizer optimizer) {
  const bench::Scenario s = bench::lh_driven(3, 2, 0.05).value();
  ResponseFitOptions options;
  options.optimizer = optimizer;
  options.parallel.threads = static_cast<int>(state.range(0));
  long evaluations = 0;
  for (auto _ : state) {
    const ResponseFitResult r = fit_response(s.model, s.data, options);
    evaluations = r.evaluations;
    benchmark::DoNotOptimize(r);
  }
  state.counters["evaluations"] = static_cast<double>(evaluations);
}

void BM_SrquantFitSwarmThenLm(benchmark::State& state) {
  fit_two_inputs(state, Optimizer::kSwarmThenLevenbergMarquardt);
}
BENCHMARK(BM_SrquantFitSwarmThenLm)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

void BM_SrquantFitSwarmThenNm(benchmark::State& state) {
  fit_two_inputs(state, Optimizer::kSwarmThenNelderMead);
}
BENCHMARK(BM_SrquantFitSwarmThenNm)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

}  // namespace
