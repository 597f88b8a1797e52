#pragma once
// Partial autocorrelation from the autocorrelations, by the Durbin–Levinson recursion.
#include "stats/correlation_status.h"

namespace tidemark::stats {

struct PacfResult {
  CorrelationStatus status;
  Correlations partial;  // index k - 1 holds lag k, k = 1 .. max_lag
};

// With r(k) the autocorrelations (r[0] = 1) and φ(k, j) the coefficients of the best
// linear predictor of order k:
//   φ(1, 1) = r(1)
//   φ(k, k) = (r(k) − Σ_{j=1}^{k-1} φ(k-1, j) r(k−j)) / (1 − Σ_{j=1}^{k-1} φ(k-1, j) r(j))
//   φ(k, j) = φ(k-1, j) − φ(k, k) φ(k-1, k−j),  j = 1 .. k−1
// and PACF(k) = φ(k, k). From the first lag whose denominator is not positive, or whose
// autocorrelations are undefined, the partial autocorrelations are undefined.
// Refuses max_lag < 1 ("MAXLAG = 0.  MAXLAG must be greater than or equal to 1.");
// `r` must hold lags 0 .. max_lag.
PacfResult partial_autocorrelation(const Correlations& r, int max_lag);

}  // namespace tidemark::stats
