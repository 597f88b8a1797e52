#include "stats/periodic_series.h"

#include <algorithm>
#include <cmath>

#include "core/missing.h"

namespace tidemark::stats {

PeriodicSeries periodic_series(std::span<const float> x, std::span<const float> y,
                               std::span<const float> dy, std::span<const float> reps) {
  PeriodicSeries s;
  bool all_sem = true;
  std::vector<double> sem;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (core::is_missing(y[i]) || core::is_missing(x[i])) {
      ++s.missing;
      continue;
    }
    if (reps[i] == 0) {
      ++s.unreplicated;
      continue;
    }
    s.t.push_back(x[i]);
    s.y.push_back(y[i]);
    s.index.push_back(static_cast<int>(i));
    const double e = dy[i];
    sem.push_back(e);
    if (!(e > 0) || core::is_missing(e) || !std::isfinite(1.0 / (e * e))) all_sem = false;
  }
  s.sem_weights = all_sem && !sem.empty();
  s.w.assign(s.t.size(), 1.0);
  if (s.sem_weights) {
    for (std::size_t i = 0; i < sem.size(); ++i) s.w[i] = 1.0 / (sem[i] * sem[i]);
  }
  return s;
}

PeriodicSeries periodic_series(std::span<const double> t, std::span<const double> y,
                               std::span<const double> w) {
  PeriodicSeries s;
  s.t.assign(t.begin(), t.end());
  s.y.assign(y.begin(), y.end());
  s.w.assign(w.begin(), w.end());
  s.index.resize(t.size());
  for (std::size_t i = 0; i < t.size(); ++i) s.index[i] = static_cast<int>(i);
  s.sem_weights = true;
  return s;
}

double weighted_mean(std::span<const double> y, std::span<const double> w) {
  double sw = 0, swy = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    sw += w[i];
    swy += w[i] * y[i];
  }
  return sw > 0 ? swy / sw : 0.0;
}

std::optional<Trend> fit_trend(std::span<const double> t, std::span<const double> y,
                               std::span<const double> w) {
  // Centred sums keep the normal equations well conditioned for times far from 0.
  const double tm = weighted_mean(t, w);
  const double ym = weighted_mean(y, w);
  double stt = 0, sty = 0;
  for (std::size_t i = 0; i < t.size(); ++i) {
    stt += w[i] * (t[i] - tm) * (t[i] - tm);
    sty += w[i] * (t[i] - tm) * (y[i] - ym);
  }
  if (!(stt > 0)) return std::nullopt;
  Trend line;
  line.slope = sty / stt;
  line.intercept = ym - line.slope * tm;
  return line;
}

std::optional<Trend> remove_trend(PeriodicSeries& series) {
  const std::optional<Trend> line = fit_trend(series.t, series.y, series.w);
  if (!line) return line;
  for (std::size_t i = 0; i < series.t.size(); ++i)
    series.y[i] -= line->intercept + line->slope * series.t[i];
  return line;
}

double median_interval(std::span<const double> t) {
  std::vector<double> d;
  for (std::size_t i = 1; i < t.size(); ++i)
    if (t[i] > t[i - 1]) d.push_back(t[i] - t[i - 1]);
  if (d.empty()) return 0;
  const std::size_t mid = d.size() / 2;
  std::nth_element(d.begin(), d.begin() + static_cast<std::ptrdiff_t>(mid), d.end());
  if (d.size() % 2 == 1) return d[mid];
  const double upper = d[mid];
  return 0.5 * (upper + *std::max_element(d.begin(), d.begin() + static_cast<std::ptrdiff_t>(mid)));
}

}  // namespace tidemark::stats
