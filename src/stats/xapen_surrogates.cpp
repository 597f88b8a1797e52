#include "stats/xapen_surrogates.h"

#include <algorithm>

namespace tidemark::stats {

void noise_surrogate(std::span<const double> x, std::span<const double> s, core::Random& random,
                     std::vector<double>& out) {
  out.resize(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) out[i] = x[i] + random.gaussian12() * s[i];
}

void random_surrogate(std::span<const double> x, std::span<const double> s, core::Random& random,
                      std::vector<double>& work, std::vector<double>& out) {
  const std::size_t n = x.size();
  const double scale = static_cast<double>(n);
  // The work copy holds the values with the mark's range kept free, so that a value
  // above kTakenThreshold in x can never pass for a taken slot and stall the draws.
  work.resize(n);
  for (std::size_t i = 0; i < n; ++i) work[i] = std::min(x[i], kTakenThreshold);
  out.resize(n);
  for (std::size_t i = 0; i < n; ++i) {
    std::size_t j = 0;
    do {
      // uniform() < 1, so the product stays below n; the guard keeps rounding honest.
      j = static_cast<std::size_t>(random.uniform() * scale);
    } while (j >= n || work[j] > kTakenThreshold);
    work[j] = kTakenMark;
    out[i] = x[j] + random.gaussian12() * s[j];
  }
}

}  // namespace tidemark::stats
