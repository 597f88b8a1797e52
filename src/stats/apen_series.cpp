#include "stats/apen_series.h"

#include <cmath>

namespace tidemark::stats {

void difference(WorkingSeries& series) {
  const std::size_t n = series.size();
  if (n < 2) {
    series = {};
    return;
  }
  for (std::size_t i = 0; i + 1 < n; ++i) {
    series.x[i] = series.x[i + 1] - series.x[i];
    const double a = series.s[i];
    const double b = series.s[i + 1];
    series.s[i] = static_cast<float>(std::sqrt(a * a + b * b));
    series.usable[i] = (series.usable[i] != 0 && series.usable[i + 1] != 0) ? 1 : 0;
  }
  series.x.pop_back();
  series.s.pop_back();
  series.usable.pop_back();
}

bool to_z_scores(WorkingSeries& series) {
  double sum = 0;
  std::size_t n = 0;
  for (std::size_t i = 0; i < series.size(); ++i) {
    if (series.usable[i] == 0) continue;
    sum += series.x[i];
    ++n;
  }
  const double mean = n == 0 ? 0.0 : sum / static_cast<double>(n);
  double squares = 0;
  for (std::size_t i = 0; i < series.size(); ++i) {
    if (series.usable[i] != 0) squares += (series.x[i] - mean) * (series.x[i] - mean);
  }
  const double sd = n < 2 ? 0.0 : std::sqrt(std::fabs(squares / static_cast<double>(n - 1)));
  const bool scaled = std::isfinite(sd) && sd > 0;
  for (float& v : series.x) v = static_cast<float>(scaled ? (v - mean) / sd : v - mean);
  return scaled;
}

}  // namespace tidemark::stats
