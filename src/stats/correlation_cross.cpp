#include "stats/correlation_cross.h"

#include <fmt/format.h>

#include <cassert>
#include <cmath>

namespace tidemark::stats {
namespace {

// Mean and Σ(v − v̄)² / N.
std::pair<double, double> mean_and_variance(std::span<const double> v) {
  double sum = 0;
  for (double e : v) sum += e;
  const double mean = sum / static_cast<double>(v.size());
  double squares = 0;
  for (double e : v) squares += (e - mean) * (e - mean);
  return {mean, squares / static_cast<double>(v.size())};
}

}  // namespace

CrossResult cross_correlation(std::span<const double> x, std::span<const double> y, int max_lag) {
  assert(x.size() == y.size());
  CrossResult out;
  const auto n = static_cast<long>(x.size());
  if (max_lag < 1 || max_lag >= n) {
    out.status = CorrelationStatus::refused(fmt::format(
        "MAXLAG = {}.  MAXLAG must be greater than 0 and less than NOBS = {}.", max_lag, n));
    return out;
  }
  std::tie(out.mean_x, out.variance_x) = mean_and_variance(x);
  std::tie(out.mean_y, out.variance_y) = mean_and_variance(y);
  const double scale = std::sqrt(out.variance_x * out.variance_y);
  for (long k = -max_lag; k <= max_lag; ++k) {
    double s = 0;
    for (long t = std::max(0L, -k); t < n && t + k < n; ++t)
      s += (x[t] - out.mean_x) * (y[t + k] - out.mean_y);
    const double c = s / static_cast<double>(n);
    out.covariance.push_back(c);
    out.correlation.push_back(correlation_of(c, scale));
  }
  return out;
}

}  // namespace tidemark::stats
