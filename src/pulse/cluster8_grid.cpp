#include "pulse/cluster8_grid.h"

#include <algorithm>
#include <cmath>

namespace tidemark::pulse {
namespace {

// A replicate count beyond this is taken as this many (keeps NDF in range).
constexpr float kMaxReps = 1.0e6f;

// Sample times closer than this to a grid time count as a sample there.
constexpr float kNearGridTime = 0.25f;

bool finite_sample(const Cluster8Sample& s) {
  return std::isfinite(s.mean) && std::isfinite(s.sd) && std::isfinite(s.time) &&
         std::isfinite(s.reps);
}

// True when some time of the sorted `times` lies closer than 0.25 to `t`.
bool sample_near(const std::vector<float>& times, float t) {
  const auto it = std::lower_bound(times.begin(), times.end(), t - kNearGridTime);
  for (auto k = it == times.begin() ? it : it - 1; k != times.end() && k <= it; ++k) {
    if (std::fabs(*k - t) < kNearGridTime) return true;
  }
  return false;
}

void resize(Cluster8Grid& g) {
  const std::size_t size = static_cast<std::size_t>(g.n) + 1;
  g.times.assign(size, 0.0f);
  g.mean.assign(size, 0.0f);
  g.stdev.assign(size, 0.0f);
  g.ndf.assign(size, 0);
  g.nreps.assign(size, 0);
}

// dt and N from the sample times; a message when they make no grid.
std::string grid_size(std::span<const Cluster8Sample> samples, Cluster8Grid& g) {
  if (!std::all_of(samples.begin(), samples.end(), finite_sample))
    return "A sample value, SD, time or replicate count is not a finite number";
  if (samples.size() < 2) return "At least two samples are needed for a time grid";
  g.dt = 1.0e35f;
  for (std::size_t k = 1; k < samples.size(); ++k)
    g.dt = std::min(g.dt, samples[k].time - samples[k - 1].time);
  if (!(g.dt > 0.0f)) return "Sample times must increase from one sample to the next";
  const float n = samples.back().time / g.dt + 0.5f;
  if (!(n >= 1.0f)) return "The last sample lies before the first grid time";
  if (n > static_cast<float>(kMaxGridPoints)) return "The time grid would be too long";
  g.n = static_cast<int>(n);
  return {};
}

// Places the samples, last first so that an earlier sample wins a shared slot; returns
// the used flags.
std::vector<char> place_samples(std::span<const Cluster8Sample> samples, Cluster8Grid& g) {
  std::vector<char> used(static_cast<std::size_t>(g.n) + 1, 0);
  const float inverse = 1.0f / g.dt;
  for (auto k = samples.size(); k-- > 0;) {
    const float slot = samples[k].time * inverse + 0.5f;
    if (!(slot >= 1.0f) || slot >= static_cast<float>(g.n) + 1.0f) continue;
    const auto s = static_cast<std::size_t>(slot);
    g.mean[s] = samples[k].mean;
    g.stdev[s] = samples[k].sd;
    g.times[s] = samples[k].time;
    g.ndf[s] = sample_ndf(samples[k].reps);
    g.nreps[s] = g.ndf[s] + 1;
    used[s] = 1;
  }
  return used;
}

}  // namespace

int sample_ndf(float reps) {
  return reps >= 1.5f ? static_cast<int>(std::min(reps, kMaxReps) - 1.0f) : 1;
}

GridOutcome build_grid(std::span<const Cluster8Sample> samples, Cluster8Grid& g) {
  g = Cluster8Grid{};
  if (std::string problem = grid_size(samples, g); !problem.empty())
    return {Cluster8Stop::kBadTimes, std::move(problem)};
  resize(g);

  std::vector<float> sorted;
  for (const Cluster8Sample& s : samples) sorted.push_back(s.time);
  std::sort(sorted.begin(), sorted.end());
  for (int j = 1; j <= g.n; ++j) {
    const float t = static_cast<float>(j) * g.dt;
    if (!sample_near(sorted, t)) g.notes.push_back({GridNote::kMissing, j, t});
  }

  std::vector<char> used = place_samples(samples, g);
  const int first = static_cast<int>(std::find(used.begin() + 1, used.end(), 1) - used.begin());
  for (int j = 1; j < first && first <= g.n; ++j) {
    g.mean[j] = g.mean[first];
    g.stdev[j] = g.stdev[first] * 10.0f;
    g.times[j] = static_cast<float>(j) * g.dt;
    g.ndf[j] = g.ndf[first];
    g.nreps[j] = g.ndf[first];
    used[j] = 1;
    g.notes.push_back({GridNote::kAdded, j, g.times[j]});
  }
  for (int j = 1; j <= g.n; ++j) {
    if (used[j]) continue;
    if (j == 1 || j == g.n || !used[j - 1] || !used[j + 1]) {
      g.notes.push_back({GridNote::kTooManyMissing, j, static_cast<float>(j) * g.dt});
      return {Cluster8Stop::kTooManyMissing, "Too many missing points"};
    }
    g.mean[j] = (g.mean[j - 1] + g.mean[j + 1]) * 0.5f;
    g.times[j] = (g.times[j - 1] + g.times[j + 1]) * 0.5f;
    g.stdev[j] = (g.stdev[j - 1] + g.stdev[j + 1]) * 5.0f;
    g.ndf[j] = static_cast<int>(static_cast<float>(g.ndf[j - 1] + g.ndf[j + 1]) * 0.5f);
    g.nreps[j] = g.ndf[j] + 1;
    used[j] = 1;
    g.notes.push_back({GridNote::kAdded, j, g.times[j]});
  }
  return {};
}

}  // namespace tidemark::pulse
