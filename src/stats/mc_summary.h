#pragma once
// Summaries of Monte-Carlo results: the mean and SD of the values of the cycles, and the
// fraction of them at or below an observed value.
#include <span>

namespace tidemark::stats {

// Mean and standard deviation of NC cycle values, in double precision:
//   mean = Σ v / NC,   SD = sqrt(|Σ (v − mean)² / (NC − 1)|).
// With fewer than two values the SD is 0 (and the mean 0 for none).
struct McSummary {
  double mean = 0;
  double sd = 0;
};
McSummary summarize(std::span<const float> values);

// The fraction of `sorted` (ascending) not above `observed`: k counts the values from
// the smallest while observed ≥ value, and P = 1 − (NC − k) / NC. 0 for an empty array.
//   p_at_or_below({0.1, 0.2, 0.3}, 0.2)  ->  2/3
double p_at_or_below(std::span<const float> sorted, double observed);

}  // namespace tidemark::stats
