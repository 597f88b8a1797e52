#pragma once
// Autocorrelation of one series with the standard errors of its correlations.
//
//   auto acf = stats::autocorrelation(series, {.max_lag = 10});
//   if (acf.status.ok()) use(acf.correlation[3], acf.standard_error[3]);
#include <span>
#include <vector>

#include "stats/correlation_status.h"

namespace tidemark::stats {

// Standard-error option of the autocorrelation routine (its ISEOPT argument).
inline constexpr int kNoStandardErrors = 0;
inline constexpr int kBartlettStandardErrors = 1;
inline constexpr int kMoranStandardErrors = 2;

struct AcfOptions {
  int max_lag = 1;                             // MAXLAG: 1 <= max_lag < N
  int standard_errors = kMoranStandardErrors;  // ISEOPT: 0, 1 or 2
};

// Everything indexed by lag 0 .. max_lag; standard_error[0] is 0, and every entry is
// 0 when no standard errors were asked for.
struct AcfResult {
  CorrelationStatus status;
  double mean = 0;
  double variance = 0;  // autocovariance[0]
  std::vector<double> autocovariance;
  Correlations correlation;  // undefined when the variance is 0 or a quotient overflows
  std::vector<double> standard_error;
};

// With N = x.size() and x̄ = Σx / N:
//   autocovariance(k) = Σ_{t=0}^{N-1-k} (x(t) − x̄)(x(t+k) − x̄) / N   (divisor N at every lag)
//   correlation(k)    = autocovariance(k) / autocovariance(0)
//   Moran (1947):     S.E.(k) = sqrt((N − k) / (N (N + 2)))
//   Bartlett:         S.E.(k) = sqrt((1 + 2 Σ_{j=1}^{k-1} correlation(j)²) / N)
// Refuses, with the message naming the values, N < 2, a lag outside 1 .. N − 1, an
// unknown standard-error option and a value that is not a finite number.
AcfResult autocorrelation(std::span<const double> x, const AcfOptions& options);

}  // namespace tidemark::stats
