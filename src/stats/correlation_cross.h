#pragma once
// Cross-correlation of two series of equal length at lags −max_lag .. +max_lag.
#include <span>
#include <vector>

#include "stats/correlation_status.h"

namespace tidemark::stats {

struct CrossResult {
  CorrelationStatus status;
  double mean_x = 0, mean_y = 0;
  double variance_x = 0, variance_y = 0;  // Σ(v − v̄)² / N
  // Index max_lag + k holds lag k, k = −max_lag .. +max_lag.
  std::vector<double> covariance;
  Correlations correlation;  // all undefined when either variance is 0
};

// With N the common length:
//   covariance(k)  = Σ_t (x(t) − x̄)(y(t+k) − ȳ) / N  over the N − |k| pairs with both
//                    indices in 0 .. N−1 (negative k pairs x with earlier y values)
//   correlation(k) = covariance(k) / sqrt(var x × var y)
// Refuses a lag outside 1 .. N − 1 ("MAXLAG = 0.  MAXLAG must be greater than 0 and
// less than NOBS = 5."); the series must be finite and of equal length.
CrossResult cross_correlation(std::span<const double> x, std::span<const double> y, int max_lag);

}  // namespace tidemark::stats
