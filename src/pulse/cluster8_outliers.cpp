#include "pulse/cluster8_outliers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tidemark::pulse {
namespace {

int degrees(int reps) {
  return reps > 1 ? reps - 1 : reps;
}

}  // namespace

float drop_t(const Cluster8Grid& g, int a, int b, float half_life) {
  const float dfa = static_cast<float>(degrees(g.nreps[a]));
  const float dfb = static_cast<float>(degrees(g.nreps[b]));
  const float s2 = std::fabs((dfb * g.stdev[b] * g.stdev[b] + dfa * g.stdev[a] * g.stdev[a]) /
                             std::max(dfa + dfb, 1.0f));
  const float e = std::exp(-(g.times[b] - g.times[a]) * 0.6931472f / half_life);
  const float drop = e * g.mean[a] - g.mean[b];
  if (s2 > 0.0f) return drop / std::sqrt(s2);
  if (drop == 0.0f || std::isnan(drop)) return 0.0f;
  return std::copysign(std::numeric_limits<float>::infinity(), drop);
}

Cluster8Outliers find_outliers(const Cluster8Grid& g, float half_life, float critical) {
  Cluster8Outliers out;
  for (int i = 2; i <= g.n; ++i) {
    if (drop_t(g, i - 1, i, half_life) > critical) out.questionable.push_back(i);
  }
  const auto& c = g.mean;
  for (int& q : out.questionable) {
    if (q >= g.n) continue;
    if (drop_t(g, q - 1, q + 1, half_life) > critical || (c[q + 1] + c[q - 1]) * 0.5f <= c[q]) {
      if (q != 2 && drop_t(g, q - 2, q, half_life) <= critical &&
          (c[q] + c[q - 2]) * 0.5f < c[q - 1]) {
        q -= 1;
        out.probable.push_back(q);
      }
    } else {
      out.probable.push_back(q);
    }
  }
  return out;
}

}  // namespace tidemark::pulse
