#include "stats/periodic_gls.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/fortran_format.h"
#include "core/text.h"

namespace tidemark::stats {

namespace {

constexpr int kMaxPeriods = 1000000;

std::string number(double v) {
  return std::string(core::trim(core::format_g15_5(v)));
}

// The message for a period range the sampling cannot resolve, or empty.
std::string range_problem(double shortest, double longest, double span, double interval) {
  if (!(shortest > 0) || !(longest > shortest)) {
    return fmt::format("The period range must satisfy 0 < shortest < longest period "
                       "(shortest {}, longest {}).",
                       number(shortest), number(longest));
  }
  if (longest > span * (1 + 1e-9)) {
    return fmt::format("The longest trial period {} exceeds the time span of the data {}: a "
                       "rhythm longer than the series cannot be resolved.",
                       number(longest), number(span));
  }
  if (shortest < 2 * interval * (1 - 1e-9)) {
    return fmt::format("The shortest trial period {} is below twice the median sampling "
                       "interval {}: shorter rhythms are not resolved by the sampling.",
                       number(shortest), number(interval));
  }
  return {};
}

}  // namespace

int default_period_count(double span, double min_period, double max_period) {
  const double width = span * (1.0 / min_period - 1.0 / max_period);
  const double count = std::ceil(5.0 * width) + 1.0;
  return static_cast<int>(std::clamp(count, 2.0, static_cast<double>(kMaxPeriods)));
}

GlsPeriodogram::GlsPeriodogram(std::span<const double> t, std::span<const double> w,
                               const FrequencyGrid& grid, bool fast)
    : grid_(grid), fast_(fast) {
  const double t0 = t.empty() ? 0.0 : *std::min_element(t.begin(), t.end());
  double total = 0;
  for (double v : w) total += v;
  for (std::size_t i = 0; i < t.size(); ++i) {
    t_.push_back(t[i] - t0);
    w_.push_back(w[i] / total);
  }
  const auto count = static_cast<std::size_t>(grid.count);
  single_.resize(count);
  twice_.resize(count);
  y_sums_.resize(count);
  h_.resize(t_.size());
  for (std::size_t i = 0; i < w_.size(); ++i) h_[i] = w_[i];
  sums(h_, grid_, single_);
  sums(h_, {2 * grid.f0, 2 * grid.df, grid.count}, twice_);
}

void GlsPeriodogram::sums(std::span<const std::complex<double>> h, const FrequencyGrid& grid,
                          std::span<std::complex<double>> out) const {
  if (fast_) {
    trig_sums_fast(t_, h, grid, out);
  } else {
    trig_sums_direct(t_, h, grid, out);
  }
}

void GlsPeriodogram::power(std::span<const double> y, std::span<double> out) {
  const double mean = weighted_mean(y, w_);
  double yy = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double d = y[i] - mean;
    h_[i] = w_[i] * d;
    yy += w_[i] * d * d;
  }
  sums(h_, grid_, y_sums_);
  for (int k = 0; k < grid_.count; ++k) {
    const double c = single_[k].real(), s = single_[k].imag();
    const double c2 = twice_[k].real(), s2 = twice_[k].imag();
    const double yc = y_sums_[k].real(), ys = y_sums_[k].imag();
    const double cc = 0.5 * (1 + c2) - c * c;
    const double ss = 0.5 * (1 - c2) - s * s;
    const double cs = 0.5 * s2 - c * s;
    const double d = cc * ss - cs * cs;
    // A frequency at which cos and sin are (numerically) collinear over the sampling
    // carries no information: power 0.
    const double p = (ss * yc * yc + cc * ys * ys - 2 * cs * yc * ys) / (yy * d);
    out[k] = d > 1e-14 && yy > 0 && std::isfinite(p) ? std::clamp(p, 0.0, 1.0) : 0.0;
  }
}

PeriodogramResult periodogram(const PeriodicSeries& series, const PeriodogramOptions& options) {
  PeriodogramResult r;
  r.points = series.size();
  auto refuse = [&r](PeriodicStatus status, std::string message) {
    r.status = status;
    r.message = std::move(message);
    return r;
  };
  if (series.size() == 0) {
    return refuse(PeriodicStatus::kNoPoints,
                  "No usable points: every concentration is missing or has REPS 0.");
  }
  // Mean (and slope), cosine and sine, and one degree of freedom left for the noise.
  const int needed = null_parameters(options.remove_trend) + 3;
  if (series.size() < needed) {
    return refuse(PeriodicStatus::kTooFewPoints,
                  fmt::format("Too few points: {} usable, the periodogram needs at least {}.",
                              series.size(), needed));
  }
  PeriodicSeries work = series;
  if (options.remove_trend) r.trend = remove_trend(work);
  const double mean = weighted_mean(work.y, work.w);
  double yy = 0, scale = 0;
  for (int i = 0; i < work.size(); ++i) {
    yy += work.w[i] * (work.y[i] - mean) * (work.y[i] - mean);
    scale += work.w[i] * series.y[i] * series.y[i];
  }
  if (!(yy > 1e-24 * scale)) {
    return refuse(PeriodicStatus::kConstantSeries,
                  options.remove_trend
                      ? "The series is a straight line: nothing is left after the trend."
                      : "The series is constant: it has no rhythm to seek.");
  }
  const auto [first, last] = std::minmax_element(work.t.begin(), work.t.end());
  const double span = *last - *first;
  const double interval = median_interval(work.t);
  r.min_period = core::is_unset(options.min_period) ? 2 * interval : options.min_period;
  r.max_period = core::is_unset(options.max_period) ? span : options.max_period;
  if (std::string problem = range_problem(r.min_period, r.max_period, span, interval);
      !problem.empty()) {
    return refuse(PeriodicStatus::kBadPeriodRange, problem);
  }
  const int count = options.periods > 0
                        ? options.periods
                        : default_period_count(span, r.min_period, r.max_period);
  if (count < 2 || count > kMaxPeriods) {
    return refuse(PeriodicStatus::kBadOption,
                  fmt::format("The number of trial periods must lie between 2 and {} (given {}).",
                              kMaxPeriods, count));
  }
  const double f_low = 1.0 / r.max_period, f_high = 1.0 / r.min_period;
  r.grid = {f_low, (f_high - f_low) / (count - 1), count};
  const bool fast = options.method == SumMethod::kFast ||
                    (options.method == SumMethod::kAuto &&
                     static_cast<double>(work.size()) * count > kFastSumsAbove);
  GlsPeriodogram gls(work.t, work.w, r.grid, fast);
  r.power.resize(static_cast<std::size_t>(count));
  gls.power(work.y, r.power);
  for (int k = 0; k < count; ++k) {
    r.frequency.push_back(r.grid.frequency(k));
    r.period.push_back(1.0 / r.frequency.back());
  }
  return r;
}

}  // namespace tidemark::stats
