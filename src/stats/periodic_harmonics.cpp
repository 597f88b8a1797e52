#include "stats/periodic_harmonics.h"

#include <fmt/format.h>

#include <Eigen/Dense>
#include <unsupported/Eigen/SpecialFunctions>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "stats/lsfit2_t_quantile.h"

namespace tidemark::stats {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
// The curve's extremes: a grid over one period, then Newton steps on its derivative.
constexpr int kExtremeGrid = 4096;
constexpr int kNewtonSteps = 4;

double wrap(double t, double period) {
  const double r = std::fmod(t, period);
  return r < 0 ? r + period : r;
}

// The derivatives of order 1 and 2 of the harmonics at t.
std::pair<double, double> rhythm_slopes(const HarmonicFitResult& fit, double t) {
  const double w = kTwoPi / fit.period;
  double d1 = 0, d2 = 0;
  for (int h = 1; h <= fit.harmonics; ++h) {
    const HarmonicTerm& term = fit.terms[h - 1];
    const double hw = h * w, c = std::cos(hw * t), s = std::sin(hw * t);
    d1 += hw * (-term.cos_coefficient * s + term.sin_coefficient * c);
    d2 += -hw * hw * (term.cos_coefficient * c + term.sin_coefficient * s);
  }
  return {d1, d2};
}

// The time of the highest (sign 1) or lowest (sign -1) value of the curve.
double extreme_time(const HarmonicFitResult& fit, double sign) {
  int best = 0;
  double best_value = -INFINITY;
  for (int i = 0; i < kExtremeGrid; ++i) {
    const double v = sign * harmonic_rhythm(fit, fit.period * i / kExtremeGrid);
    if (v > best_value) {
      best_value = v;
      best = i;
    }
  }
  const double step = fit.period / kExtremeGrid;
  double t = fit.period * best / kExtremeGrid;
  for (int i = 0; i < kNewtonSteps; ++i) {
    const auto [d1, d2] = rhythm_slopes(fit, t);
    if (d2 == 0) break;
    const double next = t - d1 / d2;
    if (std::abs(next - t) > step) break;  // stay on the grid's peak
    t = next;
  }
  return wrap(t, fit.period);
}

std::string number(double v) {
  return std::string(core::trim(core::format_g15_5(v)));
}

}  // namespace

double f_upper_tail(double f, int df1, int df2) {
  if (!(f > 0)) return 1.0;
  const double x = df2 / (df2 + df1 * f);
  Eigen::Array<double, 1, 1> a, b, xs;
  a << 0.5 * df2;
  b << 0.5 * df1;
  xs << x;
  return Eigen::betainc(a, b, xs)(0);
}

double harmonic_rhythm(const HarmonicFitResult& fit, double t) {
  const double w = kTwoPi / fit.period;
  double v = 0;
  for (int h = 1; h <= fit.harmonics; ++h) {
    const HarmonicTerm& term = fit.terms[h - 1];
    v += term.cos_coefficient * std::cos(h * w * t) + term.sin_coefficient * std::sin(h * w * t);
  }
  return v;
}

double harmonic_value(const HarmonicFitResult& fit, double t) {
  return fit.mesor + fit.slope * t + harmonic_rhythm(fit, t);
}

void subtract_rhythm(const HarmonicFitResult& fit, std::span<const float> x, std::span<float> y) {
  for (std::size_t i = 0; i < y.size(); ++i) {
    if (core::is_missing(y[i])) continue;
    y[i] = static_cast<float>(static_cast<double>(y[i]) - harmonic_rhythm(fit, x[i]));
  }
}

HarmonicFitResult fit_harmonics(const PeriodicSeries& series, const HarmonicOptions& options) {
  HarmonicFitResult r;
  r.period = options.period;
  r.harmonics = options.harmonics;
  r.trend = options.trend;
  r.points = series.size();
  auto refuse = [&r](PeriodicStatus status, std::string message) {
    r.status = status;
    r.message = std::move(message);
    return r;
  };
  if (!(options.period > 0) || !std::isfinite(options.period)) {
    return refuse(PeriodicStatus::kBadOption,
                  fmt::format("The period of the fit must be positive (given {}).",
                              number(options.period)));
  }
  if (options.harmonics < 1 || options.harmonics > kMaxHarmonics) {
    return refuse(PeriodicStatus::kBadOption,
                  fmt::format("The number of harmonics must lie between 1 and {} (given {}).",
                              kMaxHarmonics, options.harmonics));
  }
  if (series.size() == 0) {
    return refuse(PeriodicStatus::kNoPoints,
                  "No usable points: every concentration is missing or has REPS 0.");
  }
  const int base = options.trend ? 2 : 1;
  const int p = base + 2 * options.harmonics;
  r.parameters = p;
  const int n = series.size();
  if (n <= p) {
    return refuse(PeriodicStatus::kTooFewPoints,
                  fmt::format("Too few points: {} usable, a fit of {} harmonic(s){} has {} "
                              "parameters and needs at least {} points.",
                              n, options.harmonics, options.trend ? " with a trend" : "", p,
                              p + 1));
  }
  const auto [low, high] = std::minmax_element(series.y.begin(), series.y.end());
  if (*low == *high) {
    return refuse(PeriodicStatus::kConstantSeries,
                  "The series is constant: it has no rhythm to fit.");
  }
  const double w = kTwoPi / options.period;
  Eigen::MatrixXd x(n, p);
  Eigen::VectorXd y(n), root(n);
  for (int i = 0; i < n; ++i) {
    root(i) = std::sqrt(series.w[i]);
    const double t = series.t[i];
    x(i, 0) = 1;
    if (options.trend) x(i, 1) = t;
    for (int h = 1; h <= options.harmonics; ++h) {
      x(i, base + 2 * (h - 1)) = std::cos(h * w * t);
      x(i, base + 2 * (h - 1) + 1) = std::sin(h * w * t);
    }
    y(i) = series.y[i];
  }
  const Eigen::MatrixXd xw = root.asDiagonal() * x;
  const Eigen::VectorXd yw = root.cwiseProduct(y);
  const Eigen::ColPivHouseholderQR<Eigen::MatrixXd> qr(xw);
  if (qr.rank() < p) {
    return refuse(PeriodicStatus::kBadPeriodRange,
                  fmt::format("At the period {} the sampling cannot separate the {} harmonic(s): "
                              "the cosine and sine terms are collinear at the sampling times.",
                              number(options.period), options.harmonics));
  }
  const Eigen::VectorXd beta = qr.solve(yw);
  const Eigen::VectorXd residual = yw - xw * beta;
  const double rss = residual.squaredNorm();
  // The model without harmonics, the same way.
  const Eigen::MatrixXd x0 = xw.leftCols(base);
  const Eigen::VectorXd beta0 = x0.colPivHouseholderQr().solve(yw);
  const double rss0 = (yw - x0 * beta0).squaredNorm();

  r.df1 = 2 * options.harmonics;
  r.df2 = n - p;
  const double s2 = rss / r.df2;
  r.residual_sd = std::sqrt(s2);
  const Eigen::MatrixXd cov = s2 * (xw.transpose() * xw).inverse();
  const double t975 = t_quantile_975(r.df2);
  r.mesor = beta(0);
  r.mesor_se = std::sqrt(cov(0, 0));
  r.mesor_lower = r.mesor - t975 * r.mesor_se;
  r.mesor_upper = r.mesor + t975 * r.mesor_se;
  if (options.trend) {
    r.slope = beta(1);
    r.slope_se = std::sqrt(cov(1, 1));
  }
  for (int h = 1; h <= options.harmonics; ++h) {
    const int j = base + 2 * (h - 1);
    HarmonicTerm term;
    const double a = beta(j), b = beta(j + 1);
    const double va = cov(j, j), vb = cov(j + 1, j + 1), cab = cov(j, j + 1);
    const double hw = h * w;
    term.cos_coefficient = a;
    term.sin_coefficient = b;
    term.amplitude = std::hypot(a, b);
    term.acrophase = wrap(std::atan2(b, a) / hw, options.period / h);
    const double a2 = term.amplitude * term.amplitude;
    if (a2 > 0) {
      term.amplitude_se = std::sqrt(std::max(0.0, (a * a * va + b * b * vb + 2 * a * b * cab) / a2));
      term.acrophase_se =
          std::sqrt(std::max(0.0, (b * b * va + a * a * vb - 2 * a * b * cab) / (a2 * a2))) / hw;
    }
    term.amplitude_lower = term.amplitude - t975 * term.amplitude_se;
    term.amplitude_upper = term.amplitude + t975 * term.amplitude_se;
    term.acrophase_lower = term.acrophase - t975 * term.acrophase_se;
    term.acrophase_upper = term.acrophase + t975 * term.acrophase_se;
    r.terms.push_back(term);
  }
  r.percent_rhythm = rss0 > 0 ? 100.0 * (rss0 - rss) / rss0 : 0.0;
  r.f_statistic = rss > 0 ? ((rss0 - rss) / r.df1) / s2 : INFINITY;
  r.p_value = rss > 0 ? f_upper_tail(r.f_statistic, r.df1, r.df2) : 0.0;
  const double peak = extreme_time(r, 1), trough = extreme_time(r, -1);
  r.acrophase = peak;
  r.nadir = trough;
  r.amplitude = 0.5 * (harmonic_rhythm(r, peak) - harmonic_rhythm(r, trough));
  const Eigen::VectorXd fitted = x * beta;
  r.fitted.assign(fitted.data(), fitted.data() + n);
  return r;
}

}  // namespace tidemark::stats
