#pragma once
// The whole correlation analysis of two series sampled at the same times: each series'
// autocorrelation (Moran standard errors) and partial autocorrelation, their
// cross-correlation, and Kendall's tau between them at every lag.
#include <span>
#include <vector>

#include "stats/correlation_acf.h"
#include "stats/correlation_cross.h"
#include "stats/correlation_pacf.h"
#include "stats/kendall_tau.h"

namespace tidemark::stats {

struct SeriesCorrelation {
  AcfResult acf;
  PacfResult pacf;
};

struct CorrelationAnalysis {
  CorrelationStatus status;  // the first refusal of a routine, in the order computed
  int max_lag = 0;
  SeriesCorrelation a, b;
  CrossResult cross;
  // Index max_lag + k holds lag k, k = −max_lag .. +max_lag.
  std::vector<double> cross_standard_error;  // 1 / sqrt(N − |k|)
  std::vector<KendallResult> kendall;        // of the pairs (a(t), b(t+k))
};

// Computes, in this order, A's autocorrelation and partial autocorrelation, B's, the
// cross-correlation, and Kendall's tau by lag; stops at the first routine that refuses
// its arguments. `a` and `b` have the same length.
CorrelationAnalysis correlation_analysis(std::span<const double> a, std::span<const double> b,
                                         int max_lag);

}  // namespace tidemark::stats
