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
  const std::array<TemplateCounts, 3> counts =
      method == CountMethod::kDirect
          ? std::array<TemplateCounts, 3>{count_matches_direct(x, usable, r, 1),
                                          count_matches_direct(x, usable, r, 2),
                                          count_matches_direct(x, usable, r, 3)}
          : count_matches_fast_all(x, usable, r);
  std::array<double, 3> phis{};
  for (std::size_t m = 0; m < 3; ++m) {
    phis[m] = phi(counts[m]);
    values.usable[m] = counts[m].usable;
  }
  values.apen1 = static_cast<float>(phis[0] - phis[1]);
  values.apen2 = static_cast<float>(phis[1] - phis[2]);
  return values;
}

}  // namespace tidemark::stats
