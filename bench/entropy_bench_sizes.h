#pragma once
// The series lengths shared by the ApEn and X-ApEn benchmarks, applied with
// BENCHMARK(...)->Apply(...).
#include <benchmark/benchmark.h>

namespace tidemark::bench {

// One evaluation at N = 1,000, 10,000 and (fast only) 100,000; the direct method at
// N = 100,000 runs once (tens of seconds).
inline void fast_sizes(benchmark::internal::Benchmark* b) {
  b->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
}
inline void direct_sizes(benchmark::internal::Benchmark* b) {
  b->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
}
inline void direct_once(benchmark::internal::Benchmark* b) {
  b->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);
}

// The counting methods alone, N = 256 .. 65,536 by factors of 4, and 100,000.
inline void counting_sizes(benchmark::internal::Benchmark* b) {
  b->RangeMultiplier(4)->Range(256, 65536)->Arg(100000)->Unit(benchmark::kMillisecond);
}

// The whole 1,000-cycle calculation at N = 144 and 1,024, timed on the wall clock
// because its cycles run on all cores.
inline void calculation_sizes(benchmark::internal::Benchmark* b) {
  b->Arg(144)->Arg(1024)->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace tidemark::bench
