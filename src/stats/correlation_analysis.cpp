#include "stats/correlation_analysis.h"

#include <cmath>

namespace tidemark::stats {
namespace {

// The autocorrelation and partial autocorrelation of one series; false when a routine
// refused, with its status in `status`.
bool correlate_series(std::span<const double> x, int max_lag, SeriesCorrelation& out,
                      CorrelationStatus& status) {
  out.acf = autocorrelation(x, {.max_lag = max_lag, .standard_errors = kMoranStandardErrors});
  if (!out.acf.status.ok()) {
    status = out.acf.status;
    return false;
  }
  out.pacf = partial_autocorrelation(out.acf.correlation, max_lag);
  status = out.pacf.status;
  return status.ok();
}

}  // namespace

CorrelationAnalysis correlation_analysis(std::span<const double> a, std::span<const double> b,
                                         int max_lag) {
  CorrelationAnalysis out;
  out.max_lag = max_lag;
  if (!correlate_series(a, max_lag, out.a, out.status)) return out;
  if (!correlate_series(b, max_lag, out.b, out.status)) return out;
  out.cross = cross_correlation(a, b, max_lag);
  out.status = out.cross.status;
  if (!out.status.ok()) return out;
  const auto n = static_cast<long>(a.size());
  for (long k = -max_lag; k <= max_lag; ++k) {
    const long pairs = n - std::abs(k);
    out.cross_standard_error.push_back(1 / std::sqrt(static_cast<double>(pairs)));
    const auto from = static_cast<std::size_t>(std::max(0L, -k));
    const auto to = static_cast<std::size_t>(std::max(0L, k));
    out.kendall.push_back(kendall_tau(a.subspan(from, static_cast<std::size_t>(pairs)),
                                      b.subspan(to, static_cast<std::size_t>(pairs))));
  }
  return out;
}

}  // namespace tidemark::stats
