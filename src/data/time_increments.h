#pragma once
// Statistics of the sampling interval of a series: the increments between consecutive
// times.
#include <span>

namespace tidemark::data {

// Over the increments d(i) = t(i) - t(i-1) of consecutive times:
//   minimal = min d(i),  largest = max d(i),
//   median  = d(m+1) of the n sorted increments when n = 2m + 1,
//             0.5 * (d(m) + d(m+1)) when n = 2m.
struct IncrementStats {
  double minimal = 0;
  double median = 0;
  double largest = 0;
};

// The increment statistics of `times`, which must hold at least two finite times.
// Increments are taken in double precision: the difference of two single-precision
// times is then exact (short of a 2^29 ratio between them), so a ratio of increments
// depends on the stored times alone and is rounded once.
//   increment_stats({0, 10, 25})  ->  {10, 12.5, 15}
IncrementStats increment_stats(std::span<const float> times);

}  // namespace tidemark::data
