#include "stats/correlation_acf.h"

#include <fmt/format.h>

#include <cmath>

namespace tidemark::stats {
namespace {

CorrelationStatus check_arguments(std::span<const double> x, const AcfOptions& o) {
  const auto n = static_cast<int>(x.size());
  if (n < 2)
    return CorrelationStatus::refused(
        fmt::format("NOBS = {}.  NOBS must be greater than or equal to 2.", n));
  if (o.max_lag < 1 || o.max_lag >= n)
    return CorrelationStatus::refused(fmt::format(
        "MAXLAG = {}.  MAXLAG must be greater than 1 and less than NOBS = {}.", o.max_lag, n));
  if (o.standard_errors < kNoStandardErrors || o.standard_errors > kMoranStandardErrors)
    return CorrelationStatus::refused(
        fmt::format("NOBS = {}, MAXLAG = {}, and ISEOPT = {}.  NOBS must be 2 or more and MAXLAG "
                    "must be greater than or equal to 1 and less than NOBS.  ISEOPT must be 0, "
                    "1, or 2.",
                    n, o.max_lag, o.standard_errors));
  for (std::size_t t = 0; t < x.size(); ++t)
    if (!std::isfinite(x[t]))
      return CorrelationStatus::refused(
          fmt::format("X({}) is not a number.  Every observation must be a finite number.", t + 1));
  return {};
}

std::vector<double> standard_errors(int option, int n, const Correlations& r) {
  std::vector<double> se(r.size(), 0.0);
  const double dn = n;
  double sum_squares = 0;
  for (std::size_t k = 1; k < r.size(); ++k) {
    if (option == kMoranStandardErrors) {
      se[k] = std::sqrt((dn - static_cast<double>(k)) / (dn * (dn + 2)));
    } else if (option == kBartlettStandardErrors) {
      se[k] = std::sqrt((1 + 2 * sum_squares) / dn);
      sum_squares += r[k] ? *r[k] * *r[k] : 0.0;
    }
  }
  return se;
}

}  // namespace

AcfResult autocorrelation(std::span<const double> x, const AcfOptions& options) {
  AcfResult out;
  out.status = check_arguments(x, options);
  if (!out.status.ok()) return out;
  const std::size_t n = x.size();
  double sum = 0;
  for (double v : x) sum += v;
  out.mean = sum / static_cast<double>(n);
  const auto lags = static_cast<std::size_t>(options.max_lag) + 1;
  out.autocovariance.assign(lags, 0.0);
  for (std::size_t k = 0; k < lags; ++k) {
    double s = 0;
    for (std::size_t t = 0; t + k < n; ++t) s += (x[t] - out.mean) * (x[t + k] - out.mean);
    out.autocovariance[k] = s / static_cast<double>(n);
  }
  out.variance = out.autocovariance[0];
  out.correlation.assign(lags, std::nullopt);
  for (std::size_t k = 0; k < lags; ++k)
    out.correlation[k] = correlation_of(out.autocovariance[k], out.variance);
  out.standard_error =
      standard_errors(options.standard_errors, static_cast<int>(n), out.correlation);
  return out;
}

}  // namespace tidemark::stats
