#include "stats/cosine.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/missing.h"

namespace tidemark::stats {

double cosine_model(std::span<const double> p, double t, bool& failed) {
  if (p[kPeriod] <= 0) {
    failed = true;
    return 0;
  }
  return p[kAmplitude] * std::cos((t - p[kPhase]) * kCosineTwoPi / p[kPeriod]) + p[kMean] +
         p[kSlope] * t;
}

double cosine_gradient(std::span<const double> p, double t, std::span<double> gradient,
                       bool& failed) {
  std::fill(gradient.begin(), gradient.end(), 0.0);
  if (p[kPeriod] <= 0) {
    failed = true;
    return 0;
  }
  const double theta = (t - p[kPhase]) * kCosineTwoPi / p[kPeriod];
  const double sine = std::sin(theta);
  const double cosine = std::cos(theta);
  gradient[kPeriod] = p[kAmplitude] * sine * theta / p[kPeriod];
  gradient[kAmplitude] = cosine;
  gradient[kPhase] = p[kAmplitude] * sine * kCosineTwoPi / p[kPeriod];
  gradient[kMean] = 1;
  gradient[kSlope] = t;
  return p[kAmplitude] * cosine + p[kMean] + p[kSlope] * t;
}

double cosine_value(const CosineValues& values, double t) {
  bool failed = false;
  return cosine_model(values, t, failed);
}

void normalise_cosine(CosineValues& v) {
  if (v[kAmplitude] < 0) {
    v[kAmplitude] = -v[kAmplitude];
    v[kPhase] += 0.5 * v[kPeriod];
  }
  if (v[kPeriod] <= 0) return;
  v[kPhase] = std::fmod(v[kPhase], v[kPeriod]);
  v[kPhase] = std::fmod(v[kPhase] + v[kPeriod], v[kPeriod]);
}

void subtract_cosine(const CosineValues& values, std::span<const float> t, std::span<float> y) {
  if (values[kPeriod] <= 0) return;
  for (std::size_t i = 0; i < y.size(); ++i) {
    if (core::is_missing(y[i])) continue;
    y[i] = static_cast<float>(y[i] - cosine_value(values, t[i]));
  }
}

double percent_remaining(double variance, double reference_variance) {
  return reference_variance > 0 ? 100 * variance / reference_variance : 100.0;
}

namespace {

Lsfit2Result run_lsfit2(std::span<const double> t, std::span<const double> y,
                        const CosineValues& start, const CosineFlags& flags) {
  Lsfit2Problem problem{cosine_model, t, y, {}, {}, cosine_gradient};
  for (int j = 0; j < kCosineParameters; ++j) {
    problem.parameters.push_back({std::string(kCosineNames[j]), start[j], flags[j]});
  }
  return lsfit2(problem);
}

}  // namespace

CosineFit fit_cosine(std::span<const double> t, std::span<const double> y,
                     const CosineValues& start, const CosineFlags& flags,
                     double reference_variance) {
  CosineFit fit{run_lsfit2(t, y, start, flags), start, 0};
  // With no cosine to start from (Amplitude 0, the default on a constant series) the
  // Phase does not move the model and the normal equations are singular. The Amplitude
  // is then fitted first with the Phase held; a cosine found that way is fitted again
  // with every flagged parameter, and none (the fit explains nothing) is the result.
  if (fit.engine.code == Lsfit2Code::kSingular && start[kAmplitude] == 0 && flags[kAmplitude] &&
      flags[kPhase]) {
    CosineFlags held = flags;
    held[kPhase] = false;
    fit.engine = run_lsfit2(t, y, start, held);
    if (fit.engine.code == Lsfit2Code::kOk && fit.engine.values[kAmplitude] != 0) {
      CosineValues from = start;
      for (int j = 0; j < kCosineParameters; ++j) from[j] = fit.engine.values[j];
      const Lsfit2Result again = run_lsfit2(t, y, from, flags);
      if (again.code == Lsfit2Code::kOk) fit.engine = again;
    }
  }
  if (!fit.engine.ok()) return fit;
  for (int j = 0; j < kCosineParameters; ++j) fit.values[j] = fit.engine.values[j];
  normalise_cosine(fit.values);
  fit.percent = percent_remaining(fit.engine.variance, reference_variance);
  return fit;
}

}  // namespace tidemark::stats
