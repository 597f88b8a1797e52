#include "stats/xapen.h"

#include <cmath>

namespace tidemark::stats {

XApEn xapen_from_counts(const CrossCounts& counts, int n) {
  XApEn result;
  for (int m = 1; m <= kXApEnLengths; ++m) {
    const double k = n - m + 1;
    double sum = 0;
    for (const int c : counts.counts[m - 1]) sum += std::log((c > 0 ? c : 0.5) / k);
    result.phi[m - 1] = sum / k;
  }
  result.value = {result.phi[0] - result.phi[1], result.phi[1] - result.phi[2]};
  return result;
}

XApEn cross_apen(std::span<const double> a, std::span<const double> b, double r, HitTable* hits,
                 CountMethod method) {
  return xapen_from_counts(method == CountMethod::kDirect ? cross_counts_direct(a, b, r, hits)
                                                          : cross_counts_fast(a, b, r, hits),
                           static_cast<int>(a.size()));
}

Standardised standardise(std::span<const float> x, std::span<const float> s) {
  const std::size_t n = x.size();
  double mean = 0;
  for (const float v : x) mean += v;
  mean /= static_cast<double>(n > 0 ? n : 1);
  double squares = 0;
  for (const float v : x) squares += (v - mean) * (v - mean);
  const double sd = n > 1 ? std::sqrt(squares / static_cast<double>(n - 1)) : 0.0;
  const double scale = sd > 0 ? sd : 1.0;
  Standardised out;
  for (std::size_t i = 0; i < n; ++i) {
    out.x.push_back((x[i] - mean) / scale);
    out.s.push_back(s[i] / scale);
  }
  return out;
}

}  // namespace tidemark::stats
