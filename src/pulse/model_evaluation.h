#pragma once
// The closed-form evaluation behind evaluate_model(), templated on the factor
// E(x) = (sqrt(pi) / 2) * (1 + erf(x)) so that a test can put an exact erf in the place of
// the program's approximation and compare the closed form itself with quadrature.
#include <array>
#include <cfloat>
#include <cmath>
#include <span>

#include "pulse/model_layout.h"
#include "pulse/secretion_model.h"

namespace tidemark::pulse::detail {

// Per elimination component j: the values that do not depend on the sample.
struct ModelComponent {
  float fraction = 0;     // f_j in 32 bits
  float half_life_f = 0;  // HL_j in 32 bits, for the initial-concentration exponent
  double rate = 0;        // 0.69314718 / HL_j
  double a = 0;           // sigma * 0.49012907 / HL_j
  double a_squared = 0;   // a * a
  double basal = 0;       // f_j * S0 * HL_j * 1.44269504
};

enum class EventUse { kUsed, kSkipped, kTooHigh };

// Per secretion event: where it acts and its height.
struct ModelEvent {
  EventUse use = EventUse::kUsed;
  double position = 0;  // P_e
  double onset = 0;     // P_e - 6.0 * sigma: earlier samples get nothing from the event
  float height = 0;     // 10^L_e in 32 bits
};

// The vector unpacked once per evaluation.
struct ModelConstants {
  int half_lives = 0;
  int events = 0;
  double c0 = 0;
  double sigma = 0;
  double sigma_root2 = 0;  // sigma * 1.41421356
  std::array<ModelComponent, 3> components;
  std::array<ModelEvent, kMaxEvents> event;
};

// Checks the vector against the layout and unpacks it into `out`. Fails with
// kInvalidInput when they do not fit or a value cannot be evaluated (see ModelStatus).
ModelResult prepare_model(std::span<const double> params, const ModelLayout& layout,
                          std::span<const float> times, ModelConstants& out);

// kInvalidInput when `samples` output values are not one per sample time.
ModelResult check_sample_count(std::span<const float> times, std::size_t samples);

// The failure of the guard that fired at sample i.
ModelResult guard_failure(std::string_view message, int sample);

inline constexpr std::string_view kInitialExponentFailure =
    "initial-concentration exponent above 40";
inline constexpr std::string_view kLogHeightFailure = "LogHeight above 35";
inline constexpr std::string_view kConvolutionExponentFailure = "convolution exponent above 40";
inline constexpr std::string_view kConcentrationRangeFailure =
    "model concentration beyond single precision";

// evaluate_model() with `factor` as E(x); see secretion_model.h for the formulas.
template <typename ErfFactor>
ModelResult evaluate_model_with(std::span<const double> params, const ModelLayout& layout,
                                std::span<const float> times, std::span<float> concentration,
                                ErfFactor factor = {}) {
  ModelConstants m;
  if (ModelResult r = check_sample_count(times, concentration.size()); !r.ok()) return r;
  if (ModelResult r = prepare_model(params, layout, times, m); !r.ok()) return r;

  // E(x_0) does not depend on the sample.
  std::array<std::array<double, kMaxEvents>, 3> e_at_zero;
  for (int j = 0; j < m.half_lives; ++j) {
    for (int e = 0; e < m.events; ++e) {
      e_at_zero[j][e] = factor((-m.event[e].position) / m.sigma_root2 - m.components[j].a);
    }
  }

  for (std::size_t i = 0; i < times.size(); ++i) {
    const float t_f = times[i];
    const double t = t_f;
    const int sample = static_cast<int>(i);
    double sum = 0;
    for (int j = 0; j < m.half_lives; ++j) {
      const ModelComponent& c = m.components[j];
      const float v = -(t_f * 0.69314718f / c.half_life_f);
      if (v > 40.0f) return guard_failure(kInitialExponentFailure, sample);
      sum += c.basal;
      if (v > -40.0f) sum += m.c0 * c.fraction * std::exp(v);
      for (int e = 0; e < m.events; ++e) {
        const ModelEvent& ev = m.event[e];
        if (ev.use == EventUse::kTooHigh) return guard_failure(kLogHeightFailure, sample);
        if (ev.use == EventUse::kSkipped || t <= 0 || t < ev.onset) continue;
        const double d = t - ev.position;
        const double u = -(d * c.rate - c.a_squared);
        if (u > 40.0) return guard_failure(kConvolutionExponentFailure, sample);
        if (u < -40.0) continue;
        const double x_t = d / m.sigma_root2 - c.a;
        const double g = (factor(x_t) - e_at_zero[j][e]) * std::exp(u) * m.sigma * 1.41421356;
        sum += double(c.fraction) * double(ev.height) * g;
      }
    }
    if (!(std::fabs(sum) <= FLT_MAX)) return guard_failure(kConcentrationRangeFailure, sample);
    concentration[i] = static_cast<float>(sum);
  }
  return {};
}

}  // namespace tidemark::pulse::detail
