#include "pulse/cluster8_steps.h"

#include <cmath>
#include <limits>

namespace tidemark::pulse {
namespace {

// a / b where b may be zero: +-infinity for a nonzero numerator, 0 for a zero one.
float ratio(float a, float b) {
  if (b > 0.0f && std::isfinite(b)) return a / b;
  if (a == 0.0f || std::isnan(b)) return 0.0f;
  if (std::isinf(b)) return 0.0f;
  return std::copysign(std::numeric_limits<float>::infinity(), a);
}

int weight(const Cluster8Grid& g, int first, int count) {
  int w = 0;
  for (int k = first; k < first + count; ++k) w += g.nreps[k];
  return w;
}

float squares(const Cluster8Grid& g, int first, int count) {
  float ss = 0.0f;
  for (int k = first; k < first + count; ++k)
    ss += static_cast<float>(g.ndf[k]) * g.stdev[k] * g.stdev[k];
  return ss;
}

// Flags i = before+1..n-after+1 where the step is significant in its direction: t >
// |threshold| (upward) or -t > |threshold| (downward), with the mean of the high-side
// cluster (after an upward step, before a downward one) above min_peak.
std::vector<char> significant_steps(const Cluster8Grid& g, int before, int after, float threshold,
                                    float min_peak, bool upward) {
  std::vector<char> flags(static_cast<std::size_t>(g.n) + 1, 0);
  for (int i = before + 1; i <= g.n - after + 1; ++i) {
    const ClusterStep s = cluster_step(g, i, before, after);
    const float t = upward ? s.t : -s.t;
    const float high = upward ? s.mean_after : s.mean_before;
    flags[i] = t > std::fabs(threshold) && high > min_peak;
  }
  return flags;
}

}  // namespace

float weighted_mean(const Cluster8Grid& g, int first, int count) {
  float sum = 0.0f;
  for (int k = first; k < first + count; ++k) sum += static_cast<float>(g.nreps[k]) * g.mean[k];
  return ratio(sum, static_cast<float>(weight(g, first, count)));
}

ClusterStep cluster_step(const Cluster8Grid& g, int i, int before, int after) {
  const float wb = static_cast<float>(weight(g, i - before, before));
  const float wa = static_cast<float>(weight(g, i, after));
  ClusterStep step{0.0f, weighted_mean(g, i - before, before), weighted_mean(g, i, after)};
  const float ss = squares(g, i - before, before) + squares(g, i, after);
  const float sd = std::sqrt(ratio(ss, wb + wa - 2.0f));
  const float spread = sd * std::sqrt(ratio(1.0f, wb) + ratio(1.0f, wa));
  step.t = ratio(step.mean_after - step.mean_before, spread);
  return step;
}

std::vector<char> upward_steps(const Cluster8Grid& g, int peak, int nadir, float t_up,
                               float min_peak) {
  return significant_steps(g, nadir, peak, t_up, min_peak, true);
}

std::vector<char> downward_steps(const Cluster8Grid& g, int peak, int nadir, float t_down,
                                 float min_peak) {
  return significant_steps(g, peak, nadir, t_down, min_peak, false);
}

std::vector<char> assemble_pulses(const std::vector<char>& up, const std::vector<char>& down, int n,
                                  int peak, int nadir) {
  std::vector<char> pulse(static_cast<std::size_t>(n) + 1, 0);
  for (int i = 1; i <= n; ++i) {
    if (up[i] || down[i]) {
      pulse[1] = down[i] ? 1 : 0;
      break;
    }
  }
  for (int i = 2; i <= n - peak; ++i) {
    if (!up[i]) continue;
    for (int k = i; k < i + peak; ++k) pulse[k] = 1;
  }
  for (int i = 2; i <= n; ++i) {
    if (!pulse[i] && !down[i]) pulse[i] = pulse[i - 1];
  }
  bool open = true;
  for (int i = n - 1; i >= 2; --i) {
    if (pulse[i]) open = false;
    if (open) {
      pulse[i] = down[i] ? 1 : pulse[i + 1];
    } else if (pulse[i] && !pulse[i - 1]) {
      i -= nadir;
      open = true;
    }
  }
  return pulse;
}

}  // namespace tidemark::pulse
