#include "pulse/model_gradient.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <numbers>

#include "pulse/erf_factor.h"
#include "pulse/model_evaluation.h"

namespace tidemark::pulse {

namespace {

constexpr std::array<int, 3> kHalfLifeIndex = {kHalfLife1, kHalfLife2, kHalfLife3};

// exp(-z) for z above this lies below the smallest normal double (about 2.2e-308): it adds
// nothing to a derivative, and the library's subnormal and underflow path is slow. The
// Gaussian terms of samples far from an event, and the term of the event's tail before
// time 0 for nearly every event, fall here.
constexpr double kNegligibleExponent = 708.0;

}  // namespace

ModelResult evaluate_model_gradient(std::span<const double> params, const ModelLayout& layout,
                                    std::span<const float> times, std::span<double> values,
                                    std::span<double> jacobian) {
  using namespace detail;
  if (ModelResult r = check_sample_count(times, values.size()); !r.ok()) return r;
  ModelConstants m;
  if (ModelResult r = prepare_model(params, layout, times, m); !r.ok()) return r;
  const auto width = static_cast<std::size_t>(layout.size());
  if (jacobian.size() != times.size() * width) {
    return {ModelStatus::kInvalidInput, "the Jacobian does not hold one row per sample", -1};
  }

  const AbramowitzStegunErfFactor factor;
  std::array<std::array<double, kMaxEvents>, 3> e_at_zero;
  for (int j = 0; j < m.half_lives; ++j) {
    for (int e = 0; e < m.events; ++e) {
      e_at_zero[j][e] = factor((-m.event[e].position) / m.sigma_root2 - m.components[j].a);
    }
  }
  const double sigma = m.sigma;
  const double sigma2 = sigma * sigma;
  const double s0 = params[kBasal];

  for (std::size_t i = 0; i < times.size(); ++i) {
    const float t_f = times[i];
    const double t = t_f;
    const int sample = static_cast<int>(i);
    std::span<double> row = jacobian.subspan(i * width, width);
    std::fill(row.begin(), row.end(), 0.0);
    std::array<double, 3> bracket = {0, 0, 0};
    double sum = 0;
    for (int j = 0; j < m.half_lives; ++j) {
      const ModelComponent& c = m.components[j];
      const double f = c.fraction;
      const double hl = params[kHalfLifeIndex[j]];
      const double k = c.rate;
      const float v = -(t_f * 0.69314718f / c.half_life_f);
      if (v > 40.0f) return guard_failure(kInitialExponentFailure, sample);
      double b = s0 * hl * 1.44269504;
      double d_hl = s0 * 1.44269504;
      row[kBasal] += f * hl * 1.44269504;
      if (v > -40.0f) {
        const double e0 = std::exp(v);
        b += m.c0 * e0;
        row[kConc0] += f * e0;
        d_hl += m.c0 * e0 * t * 0.69314718 / (hl * hl);
      }
      for (int e = 0; e < m.events; ++e) {
        const ModelEvent& ev = m.event[e];
        if (ev.use == EventUse::kTooHigh) return guard_failure(kLogHeightFailure, sample);
        if (ev.use == EventUse::kSkipped || t <= 0 || t < ev.onset) continue;
        const double d = t - ev.position;
        const double u = -(d * k - c.a_squared);
        if (u > 40.0) return guard_failure(kConvolutionExponentFailure, sample);
        if (u < -40.0) continue;
        const double x_t = d / m.sigma_root2 - c.a;
        const double g = (factor(x_t) - e_at_zero[j][e]) * std::exp(u) * sigma * 1.41421356;
        const double p = ev.position;
        const double z_d = d * d / (2 * sigma2);
        const double z_0 = p * p / (2 * sigma2) + k * t;
        const double g_d = z_d < kNegligibleExponent ? std::exp(-z_d) : 0.0;
        const double g_0 = z_0 < kNegligibleExponent ? std::exp(-z_0) : 0.0;
        const double h = ev.height;
        b += h * g;
        row[layout.position_index(e)] += f * h * (k * g - g_d + g_0);
        row[layout.log_height_index(e)] += f * h * g * std::numbers::ln10;
        row[kSecretionSd] += f * h *
                             ((1 / sigma + k * k * sigma) * g - g_d * (d / sigma + k * sigma) -
                              g_0 * (p / sigma - k * sigma));
        const double dg_dk = (k * sigma2 - d) * g - sigma2 * (g_d - g_0);
        d_hl += h * dg_dk * (-k / hl);
      }
      row[kHalfLifeIndex[j]] += f * d_hl;
      bracket[j] = b;
      sum += f * b;
    }
    if (m.half_lives >= 2) row[kFraction2] = bracket[1] - bracket[0];
    if (m.half_lives >= 3) row[kFraction3] = bracket[2] - bracket[0];
    if (!(std::fabs(sum) <= FLT_MAX)) return guard_failure(kConcentrationRangeFailure, sample);
    values[i] = sum;
  }
  return {};
}

}  // namespace tidemark::pulse
