#include "stats/apen.h"

#include <cmath>

namespace tidemark::stats {

double phi(const TemplateCounts& counts) {
  const float examined = static_cast<float>(counts.usable);
  double sum = 0;
  std::int64_t contributing = 0;
  for (std::int32_t matches : counts.matches) {
    if (matches <= 0) continue;
    const float cr = static_cast<float>(matches) / examined;
    sum += std::log(static_cast<double>(cr));
    ++contributing;
  }
  return contributing == 0 ? 0.0 : sum / static_cast<double>(contributing);
}

ApEnValues apen(std::span<const float> x, std::span<const std::uint8_t> usable, float r,
                CountMethod method) {
  ApEnValues values;
  std::array<double, 3> phis{};
  for (int m = 1; m <= 3; ++m) {
    const TemplateCounts counts = method == CountMethod::kDirect
                                      ? count_matches_direct(x, usable, r, m)
                                      : count_matches_fast(x, usable, r, m);
    phis[m - 1] = phi(counts);
    values.usable[m - 1] = counts.usable;
  }
  values.apen1 = static_cast<float>(phis[0] - phis[1]);
  values.apen2 = static_cast<float>(phis[1] - phis[2]);
  return values;
}

}  // namespace tidemark::stats
