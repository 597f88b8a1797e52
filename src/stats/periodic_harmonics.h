#pragma once
// The rhythm at a chosen period P with K harmonics (K = 1 .. 4), fitted by weighted
// linear least squares (weights 1 / SEM^2, or all 1):
//
//   y(t) = MESOR [+ slope t] + sum_{h=1..K} (a_h cos(h w t) + b_h sin(h w t)),  w = 2 pi / P,
//
// and each harmonic written as A_h cos(h w (t - phi_h)), with amplitude
// A_h = sqrt(a_h^2 + b_h^2) and acrophase phi_h = atan2(b_h, a_h) / (h w) in [0, P / h),
// the time of the harmonic's first peak from the time origin. Standard errors follow the
// weighted least-squares covariance s^2 (X'WX)^-1 with s^2 = sum w r^2 / (n - p), as R's
// lm() gives them; those of A_h and phi_h by the delta method:
//
//   var A   = (a^2 var a + b^2 var b + 2 a b cov(a, b)) / A^2,
//   var phi = (b^2 var a + a^2 var b - 2 a b cov(a, b)) / (A^4 (h w)^2),
//
// and the 95 % intervals are the value -/+ t(0.975, n - p) times the standard error.
// The curve's overall amplitude is half the distance from its lowest to its highest
// value over one period; its acrophase and nadir are the times in [0, P) of those two
// values. Percent rhythm is 100 (RSS_0 - RSS) / RSS_0, RSS_0 the weighted residual sum
// of the model without the harmonics; the zero-amplitude F test compares the two:
//
//   F = ((RSS_0 - RSS) / (2K)) / (RSS / (n - p)),  on (2K, n - p) degrees of freedom.
//
//   stats::HarmonicFitResult fit = stats::fit_harmonics(series, {.period = 1440, .harmonics = 2});
#include <span>
#include <string>
#include <vector>

#include "stats/periodic_series.h"
#include "stats/periodic_status.h"

namespace tidemark::stats {

inline constexpr int kMaxHarmonics = 4;

struct HarmonicOptions {
  double period = 0;
  int harmonics = 1;
  bool trend = false;  // a slope term in the model (and in the model without harmonics)
};

struct HarmonicTerm {
  double cos_coefficient = 0, sin_coefficient = 0;  // a_h, b_h
  double amplitude = 0, amplitude_se = 0, amplitude_lower = 0, amplitude_upper = 0;
  double acrophase = 0, acrophase_se = 0, acrophase_lower = 0, acrophase_upper = 0;
};

struct HarmonicFitResult {
  PeriodicStatus status = PeriodicStatus::kOk;
  std::string message;
  double period = 0;
  int harmonics = 0;
  bool trend = false;
  int points = 0;
  int parameters = 0;  // p = 1 (+1 with the trend) + 2K
  double mesor = 0, mesor_se = 0, mesor_lower = 0, mesor_upper = 0;
  double slope = 0, slope_se = 0;
  std::vector<HarmonicTerm> terms;
  double amplitude = 0, acrophase = 0, nadir = 0;  // of the fitted curve
  double percent_rhythm = 0;
  double f_statistic = 0, p_value = 1;
  int df1 = 0, df2 = 0;
  double residual_sd = 0;      // s, the scale of the weighted residuals (in SEMs with 1/SEM^2 weights)
  std::vector<double> fitted;  // at the series' points
  bool ok() const { return status == PeriodicStatus::kOk; }
};

HarmonicFitResult fit_harmonics(const PeriodicSeries& series, const HarmonicOptions& options);

// The harmonics alone at time t (the curve about the MESOR and trend).
double harmonic_rhythm(const HarmonicFitResult& fit, double t);
// The whole fitted model at time t: MESOR + slope t + the harmonics.
double harmonic_value(const HarmonicFitResult& fit, double t);

// Replaces every concentration y(i) by y(i) - rhythm(x(i)): the harmonics come out, the
// MESOR and trend stay, so the residual series keeps its level (and positive values for
// a pulse analysis). Missing concentrations stay missing.
void subtract_rhythm(const HarmonicFitResult& fit, std::span<const float> x, std::span<float> y);

// The upper tail P(F > f) of the F distribution on (df1, df2) degrees of freedom.
double f_upper_tail(double f, int df1, int df2);

}  // namespace tidemark::stats
