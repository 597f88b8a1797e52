#include "pulse/cluster8_tables.h"

#include <cmath>

#include "pulse/cluster8_steps.h"

namespace tidemark::pulse {
namespace {

// The first e in s+1..last that ends a run of points whose flag is `inside`, or 0.
int run_end(const std::vector<char>& pulse, bool inside, int s, int last) {
  for (int e = s + 1; e <= last; ++e) {
    if (static_cast<bool>(pulse[e - 1]) == inside && static_cast<bool>(pulse[e]) != inside)
      return e;
  }
  return 0;
}

bool run_starts(const std::vector<char>& pulse, bool inside, int s) {
  return static_cast<bool>(pulse[s]) == inside && static_cast<bool>(pulse[s - 1]) != inside;
}

float plain_mean(const Cluster8Grid& g, int s, int e) {
  float sum = 0.0f;
  for (int k = s; k <= e; ++k) sum += g.mean[k];
  return sum / static_cast<float>(e - s + 1);
}

// a / b * 100, or -1 ("none") when b is zero.
float percent(float a, float b) {
  return b != 0.0f ? a / b * 100.0f : -1.0f;
}

Cluster8Peak make_peak(const Cluster8Grid& g, int s, int e, int nadir) {
  Cluster8Peak p;
  p.start = s;
  p.end = e;
  p.position = s;
  p.largest = 0.0f;
  for (int k = s; k <= e; ++k) {
    if (g.mean[k] > p.largest) {
      p.largest = g.mean[k];
      p.position = k;
    }
  }
  p.width = static_cast<float>(e - s) * g.dt;
  const float pre = weighted_mean(g, s - nadir, nadir);
  const float post = weighted_mean(g, e, nadir);
  const float mean = plain_mean(g, s, e);
  p.pre_nadir_mean = pre;
  p.largest_percent = percent(p.largest, pre);
  p.mean_percent = percent(mean, (post + pre) * 0.5f);
  p.area = (mean - std::min(post, pre)) * p.width;
  p.increase = p.largest - pre;
  return p;
}

Cluster8Valley make_valley(const Cluster8Grid& g, int s, int e) {
  Cluster8Valley v;
  v.start = s;
  v.end = e;
  v.nadir = 1.0e20f;
  for (int k = s; k <= e; ++k) {
    if (g.mean[k] <= v.nadir) {
      v.nadir = g.mean[k];
      v.position = k;
    }
  }
  v.width = static_cast<float>(e - s) * g.dt;
  v.mean = plain_mean(g, s, e);
  return v;
}

template <typename Row, typename Field>
OptionalSummary column(std::span<const Row> rows, Field field) {
  std::vector<float> values;
  for (const Row& r : rows) values.push_back(r.*field);
  return summarise(values);
}

}  // namespace

std::vector<Cluster8Peak> find_peaks(const Cluster8Grid& g, const std::vector<char>& pulse,
                                     int nadir) {
  std::vector<Cluster8Peak> peaks;
  for (int s = nadir + 1; s <= g.n; ++s) {
    if (!run_starts(pulse, true, s)) continue;
    const int e = run_end(pulse, true, s, g.n - nadir);
    if (e == 0) break;
    peaks.push_back(make_peak(g, s, e, nadir));
    s = e;
  }
  return peaks;
}

std::vector<Cluster8Valley> find_valleys(const Cluster8Grid& g, const std::vector<char>& pulse) {
  std::vector<Cluster8Valley> valleys;
  for (int s = 2; s <= g.n; ++s) {
    if (!run_starts(pulse, false, s)) continue;
    const int e = run_end(pulse, false, s, g.n);
    if (e == 0) break;
    valleys.push_back(make_valley(g, s, e));
    s = e;
  }
  return valleys;
}

OptionalSummary summarise(std::span<const float> values) {
  float sum = 0.0f;
  int n = 0;
  for (float v : values) {
    if (std::fabs(1.0f + v) < 1.0e-8f) continue;
    sum += v;
    ++n;
  }
  if (n == 0) return std::nullopt;
  Cluster8Summary s{sum / static_cast<float>(n), 0.0f};
  if (n < 2) return s;
  float squares = 0.0f;
  for (float v : values) {
    if (std::fabs(1.0f + v) >= 1.0e-8f) squares += (v - s.mean) * (v - s.mean);
  }
  s.sd = std::sqrt(squares / static_cast<float>(n - 1));
  return s;
}

std::optional<Cluster8PeakSummary> summarise_peaks(std::span<const Cluster8Peak> peaks, float dt) {
  if (peaks.size() < 2) return std::nullopt;
  std::vector<float> intervals;
  for (std::size_t k = 1; k < peaks.size(); ++k)
    intervals.push_back(static_cast<float>(peaks[k].position - peaks[k - 1].position));
  Cluster8PeakSummary s;
  s.interval = summarise(intervals);
  if (s.interval) {
    s.interval->mean *= dt;
    s.interval->sd *= dt;
  }
  s.width = column(peaks, &Cluster8Peak::width);
  s.height = column(peaks, &Cluster8Peak::largest);
  s.height_percent = column(peaks, &Cluster8Peak::largest_percent);
  s.mean_percent = column(peaks, &Cluster8Peak::mean_percent);
  s.area = column(peaks, &Cluster8Peak::area);
  s.increase = column(peaks, &Cluster8Peak::increase);
  return s;
}

std::optional<Cluster8ValleySummary> summarise_valleys(std::span<const Cluster8Valley> valleys) {
  if (valleys.size() < 2) return std::nullopt;
  return Cluster8ValleySummary{column(valleys, &Cluster8Valley::width),
                               column(valleys, &Cluster8Valley::mean),
                               column(valleys, &Cluster8Valley::nadir)};
}

}  // namespace tidemark::pulse
