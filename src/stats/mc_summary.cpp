#include "stats/mc_summary.h"

#include <cmath>

namespace tidemark::stats {

McSummary summarize(std::span<const float> values) {
  const std::size_t n = values.size();
  if (n == 0) return {};
  double sum = 0;
  for (float v : values) sum += v;
  const double mean = sum / static_cast<double>(n);
  if (n < 2) return {mean, 0};
  double squares = 0;
  for (float v : values) squares += (v - mean) * (v - mean);
  return {mean, std::sqrt(std::fabs(squares / static_cast<double>(n - 1)))};
}

double p_at_or_below(std::span<const float> sorted, double observed) {
  const std::size_t n = sorted.size();
  if (n == 0) return 0;
  std::size_t k = 0;
  while (k < n && observed >= sorted[k]) ++k;
  const double nc = static_cast<double>(n);
  return 1.0 - (nc - static_cast<double>(k)) / nc;
}

}  // namespace tidemark::stats
