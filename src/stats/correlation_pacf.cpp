#include "stats/correlation_pacf.h"

#include <fmt/format.h>

#include <cassert>

namespace tidemark::stats {

PacfResult partial_autocorrelation(const Correlations& r, int max_lag) {
  PacfResult out;
  if (max_lag < 1) {
    out.status = CorrelationStatus::refused(
        fmt::format("MAXLAG = {}.  MAXLAG must be greater than or equal to 1.", max_lag));
    return out;
  }
  const auto lags = static_cast<std::size_t>(max_lag);
  assert(r.size() > lags);
  out.partial.assign(lags, std::nullopt);
  std::vector<double> phi;  // φ(k-1, 1 .. k-1) at indices 0 .. k-2
  for (std::size_t k = 1; k <= lags; ++k) {
    if (!r[k]) return out;
    double numerator = *r[k];
    double denominator = 1;
    for (std::size_t j = 1; j < k; ++j) {
      numerator -= phi[j - 1] * *r[k - j];
      denominator -= phi[j - 1] * *r[j];
    }
    if (!(denominator > 0)) return out;
    const double pkk = numerator / denominator;
    std::vector<double> next(k);
    for (std::size_t j = 1; j < k; ++j) next[j - 1] = phi[j - 1] - pkk * phi[k - j - 1];
    next[k - 1] = pkk;
    phi = std::move(next);
    out.partial[k - 1] = pkk;
  }
  return out;
}

}  // namespace tidemark::stats
