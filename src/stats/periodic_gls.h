#pragma once
// The generalised Lomb-Scargle periodogram (M. Zechmeister and M. Kuerster, "The
// generalised Lomb-Scargle periodogram", A&A 496, 577, 2009): at each trial frequency f
// the weighted least-squares fit of
//
//   y(t) = c + a cos(2 pi f t) + b sin(2 pi f t)
//
// with a floating mean c and weights w = 1 / SEM^2, and the power
//
//   p(f) = (chi2_0 - chi2(f)) / chi2_0,
//
// the share of the weighted sum of squares about the weighted mean (chi2_0) that the
// sinusoid removes, 0 <= p <= 1. With the weights normalised to sum 1 and y centred on
// its weighted mean, and C, S, C2, S2, YC, YS the weighted sums of cos, sin, cos 2, sin 2,
// y cos and y sin at f:
//
//   CC = (1 + C2) / 2 - C^2,   SS = (1 - C2) / 2 - S^2,   CS = S2 / 2 - C S,
//   p  = (SS YC^2 + CC YS^2 - 2 CS YC YS) / (YY (CC SS - CS^2)),   YY = sum w y^2.
//
// The trial frequencies are evenly spaced from 1 / longest to 1 / shortest period.
// When asked, a weighted least-squares line is taken out of y first.
//
//   stats::PeriodogramResult p = stats::periodogram(series, {.min_period = 60, .max_period = 1440});
//   if (p.ok()) plot(p.period, p.power);
#include <span>
#include <string>
#include <vector>
#include <complex>

#include "core/missing.h"
#include "stats/periodic_series.h"
#include "stats/periodic_status.h"
#include "stats/periodic_trig_sums.h"

namespace tidemark::stats {

enum class SumMethod { kAuto, kDirect, kFast };

// Above this many point-frequency pairs the automatic choice takes the FFT sums.
inline constexpr double kFastSumsAbove = 50000;

struct PeriodogramOptions {
  double min_period = core::kUnset;  // unset: twice the median sampling interval
  double max_period = core::kUnset;  // unset: the time span of the series
  int periods = 0;                   // trial periods; 0: five per peak width (below)
  bool remove_trend = false;
  SumMethod method = SumMethod::kAuto;
};

// The default number of trial frequencies: five per peak width 1 / T over the range,
// ceil(5 T (1/min - 1/max)) + 1, T the time span, at least 2.
int default_period_count(double span, double min_period, double max_period);

struct PeriodogramResult {
  PeriodicStatus status = PeriodicStatus::kOk;
  std::string message;
  FrequencyGrid grid;
  std::vector<double> frequency;  // ascending
  std::vector<double> period;     // 1 / frequency, descending
  std::vector<double> power;
  double min_period = 0, max_period = 0;  // the range used
  std::optional<Trend> trend;             // the line taken out, when asked and fitted
  int points = 0;
  bool ok() const { return status == PeriodicStatus::kOk; }
};

// The periodogram of `series` (its y is not changed: the trend comes out of a copy).
PeriodogramResult periodogram(const PeriodicSeries& series, const PeriodogramOptions& options);

// The parameter count of the null model (mean, and slope with the trend removed).
inline int null_parameters(bool remove_trend) { return remove_trend ? 2 : 1; }

// The power of series with fixed times and weights over one grid, for many y: the sums
// that do not involve y are formed once (the permutation test calls power() per cycle).
class GlsPeriodogram {
 public:
  // `t` and `w` of the series; the times are taken relative to the first, which leaves
  // the power unchanged and keeps the phases accurate.
  GlsPeriodogram(std::span<const double> t, std::span<const double> w, const FrequencyGrid& grid,
                 bool fast);

  // The power at every frequency for `y` (centred on its weighted mean here).
  void power(std::span<const double> y, std::span<double> out);

 private:
  void sums(std::span<const std::complex<double>> h, const FrequencyGrid& grid,
            std::span<std::complex<double>> out) const;

  std::vector<double> t_, w_;
  FrequencyGrid grid_;
  bool fast_;
  std::vector<std::complex<double>> single_, twice_, y_sums_, h_;
};

}  // namespace tidemark::stats
