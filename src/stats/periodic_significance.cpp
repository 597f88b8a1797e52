#include "stats/periodic_significance.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

#include "core/missing.h"

namespace tidemark::stats {

namespace {

constexpr int kMaxCycles = 1000000;
constexpr int kMaxPeaks = 100;

// The highest power over `grid` of series (t, y, w), the trend removed first when asked.
double highest_power(GlsPeriodogram& gls, const PeriodicSeries& s, bool remove_trend,
                     std::vector<double>& y, std::vector<double>& power) {
  if (remove_trend) {
    const Trend line = fit_trend(s.t, y, s.w).value_or(Trend{});  // none: nothing taken out
    for (std::size_t i = 0; i < y.size(); ++i) y[i] -= line.intercept + line.slope * s.t[i];
  }
  gls.power(y, power);
  return *std::max_element(power.begin(), power.end());
}

}  // namespace

BaluevInputs baluev_inputs(const PeriodicSeries& series, const PeriodogramResult& periodogram,
                           bool remove_trend) {
  BaluevInputs in;
  in.points = series.size();
  in.null_parameters = null_parameters(remove_trend);
  in.max_frequency = 1.0 / periodogram.min_period;
  const double mean = weighted_mean(series.t, series.w);
  double sw = 0, v = 0;
  for (int i = 0; i < series.size(); ++i) {
    sw += series.w[i];
    v += series.w[i] * (series.t[i] - mean) * (series.t[i] - mean);
  }
  in.time_variance = sw > 0 ? v / sw : 0;
  return in;
}

double baluev_fap(double z, const BaluevInputs& in) {
  if (!(z > 0)) return 1.0;
  if (z >= 1) return 0.0;
  const double nh = in.points - in.null_parameters;
  const double nk = nh - 2;
  const double single = std::pow(1 - z, 0.5 * nk);
  const double gamma =
      std::sqrt(2 / nh) * std::exp(std::lgamma(0.5 * nh) - std::lgamma(0.5 * (nh - 1)));
  const double w = in.max_frequency * std::sqrt(4 * std::numbers::pi * in.time_variance);
  const double tau = gamma * w * std::pow(1 - z, 0.5 * (nk - 1)) * std::sqrt(0.5 * nh * z);
  // 1 - (1 - single) exp(-tau), written so that small probabilities keep their digits.
  return std::clamp(-std::expm1(-tau) + single * std::exp(-tau), 0.0, 1.0);
}

double baluev_level(double fap, const BaluevInputs& in) {
  double low = 0, high = 1;
  for (int i = 0; i < 200 && high - low > 1e-15; ++i) {
    const double mid = 0.5 * (low + high);
    (baluev_fap(mid, in) > fap ? low : high) = mid;
  }
  return 0.5 * (low + high);
}

std::vector<int> top_peaks(std::span<const double> power, int count) {
  std::vector<int> maxima;
  const int n = static_cast<int>(power.size());
  for (int k = 0; k < n; ++k) {
    const bool above_left = k == 0 || power[k] > power[k - 1];
    const bool not_below_right = k == n - 1 || power[k] >= power[k + 1];
    if (above_left && not_below_right && n > 1) maxima.push_back(k);
  }
  std::stable_sort(maxima.begin(), maxima.end(),
                   [&](int a, int b) { return power[a] > power[b]; });
  if (static_cast<int>(maxima.size()) > count) maxima.resize(static_cast<std::size_t>(count));
  return maxima;
}

std::optional<std::vector<double>> permutation_maxima(const PeriodicSeries& series,
                                                      const PeriodogramResult& periodogram,
                                                      bool remove_trend, int cycles,
                                                      core::Random& random,
                                                      const core::ParallelOptions& parallel) {
  const bool fast = static_cast<double>(series.size()) * periodogram.grid.count > kFastSumsAbove;
  const GlsPeriodogram gls(series.t, series.w, periodogram.grid, fast);
  // One seed per cycle, drawn before any cycle runs: a cycle's shuffle depends only on
  // its own seed, whichever worker runs it and in whatever order.
  std::vector<std::uint64_t> seeds(static_cast<std::size_t>(std::max(cycles, 0)));
  for (auto& s : seeds) s = random.next();
  std::vector<double> maxima(seeds.size());
  // With the trend removed, the residuals about the line are what the null hypothesis
  // makes exchangeable; each shuffled series is detrended again.
  PeriodicSeries base = series;
  if (remove_trend) stats::remove_trend(base);
  // Each worker sums with its own copy of the periodogram (it keeps scratch sums) into
  // its own buffers, and writes only the maxima of its cycles.
  struct Worker {
    std::optional<GlsPeriodogram> gls;
    std::vector<double> y, power;
  };
  const long count = static_cast<long>(seeds.size());
  std::vector<Worker> workers(static_cast<std::size_t>(core::parallel_workers(count, parallel)));
  const bool complete =
      core::parallel_for(count, parallel, [&](int worker, long first, long last) {
        Worker& w = workers[static_cast<std::size_t>(worker)];
        if (!w.gls) {
          w.gls.emplace(gls);
          w.power.resize(static_cast<std::size_t>(periodogram.grid.count));
        }
        for (auto c = static_cast<std::size_t>(first); c < static_cast<std::size_t>(last); ++c) {
          core::Random cycle(seeds[c]);
          w.y = base.y;
          for (std::size_t i = w.y.size() - 1; i > 0; --i) {
            const auto j = static_cast<std::size_t>(cycle.uniform() * static_cast<double>(i + 1));
            std::swap(w.y[i], w.y[j]);
          }
          maxima[c] = highest_power(*w.gls, series, remove_trend, w.y, w.power);
        }
      });
  if (!complete) return std::nullopt;
  std::sort(maxima.begin(), maxima.end());
  return maxima;
}

double permutation_fap(std::span<const double> maxima, double z) {
  const auto first = std::lower_bound(maxima.begin(), maxima.end(), z);
  const double at_least = static_cast<double>(maxima.end() - first);
  return (1 + at_least) / (1 + static_cast<double>(maxima.size()));
}

PeaksResult periodic_peaks(const PeriodicSeries& series, const PeriodogramResult& periodogram,
                           const PeakOptions& options, core::Random& random) {
  PeaksResult r;
  if (!periodogram.ok()) {
    r.status = periodogram.status;
    r.message = periodogram.message;
    return r;
  }
  if (options.peaks < 1 || options.peaks > kMaxPeaks) {
    r.status = PeriodicStatus::kBadOption;
    r.message = fmt::format("The number of peaks must lie between 1 and {} (given {}).",
                            kMaxPeaks, options.peaks);
    return r;
  }
  if (options.cycles < 0 || options.cycles > kMaxCycles) {
    r.status = PeriodicStatus::kBadOption;
    r.message = fmt::format("The number of permutation cycles must lie between 0 and {} "
                            "(given {}).",
                            kMaxCycles, options.cycles);
    return r;
  }
  r.baluev = baluev_inputs(series, periodogram, options.remove_trend);
  if (options.cycles > 0) {
    auto maxima = permutation_maxima(series, periodogram, options.remove_trend, options.cycles,
                                     random, options.parallel);
    if (!maxima) {
      r.status = PeriodicStatus::kCancelled;
      r.message = "Periodic calculation cancelled.";
      return r;
    }
    r.permutation_maxima = std::move(*maxima);
  }
  for (int k : top_peaks(periodogram.power, options.peaks)) {
    PeriodicPeak peak;
    peak.index = k;
    peak.period = periodogram.period[k];
    peak.power = periodogram.power[k];
    peak.fap = baluev_fap(peak.power, r.baluev);
    peak.permutation_fap = options.cycles > 0 ? permutation_fap(r.permutation_maxima, peak.power)
                                              : core::kMissing;
    r.peaks.push_back(peak);
  }
  return r;
}

}  // namespace tidemark::stats
