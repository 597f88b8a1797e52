#include "pulse/secretion_model.h"

#include <cfloat>
#include <cmath>

#include "pulse/erf_factor.h"
#include "pulse/model_evaluation.h"

namespace tidemark::pulse {
namespace detail {
namespace {

ModelResult invalid(std::string_view message) {
  return {ModelStatus::kInvalidInput, message, -1};
}

// A positive value whose 32-bit rounding is positive and finite.
bool is_positive_float(double x) {
  return x > 0 && x <= FLT_MAX && static_cast<float>(x) > 0;
}

bool all_finite(std::span<const double> values) {
  for (const double v : values) {
    if (!std::isfinite(v)) return false;
  }
  return true;
}

bool all_finite(std::span<const float> values) {
  for (const float v : values) {
    if (!std::isfinite(v)) return false;
  }
  return true;
}

}  // namespace

ModelResult guard_failure(std::string_view message, int sample) {
  return {ModelStatus::kOutsideRegion, message, sample};
}

ModelResult check_sample_count(std::span<const float> times, std::size_t samples) {
  if (times.size() != samples) return invalid("sample times and concentrations differ in number");
  return {};
}

ModelResult prepare_model(std::span<const double> params, const ModelLayout& layout,
                          std::span<const float> times, ModelConstants& out) {
  if (!layout.valid()) {
    return invalid("the model takes 1 to 3 half-lives and 0 to 96 events");
  }
  if (params.size() != static_cast<std::size_t>(layout.size())) {
    return invalid("parameter vector length does not match the half-lives and events");
  }
  if (!all_finite(params)) return invalid("a model parameter is not a finite number");
  if (!all_finite(times)) return invalid("a sample time is not a finite number");
  const double sigma = params[kSecretionSd];
  if (!(sigma > 0)) return invalid("the secretion SD must be positive");

  out.half_lives = layout.half_lives;
  out.events = layout.events;
  out.c0 = params[kConc0];
  out.sigma = sigma;
  out.sigma_root2 = sigma * 1.41421356;

  const float f2 = layout.half_lives >= 2 ? static_cast<float>(params[kFraction2]) : 0.0f;
  const float f3 = layout.half_lives >= 3 ? static_cast<float>(params[kFraction3]) : 0.0f;
  const float fractions[3] = {1.0f - f2 - f3, f2, f3};
  const int half_life_index[3] = {kHalfLife1, kHalfLife2, kHalfLife3};
  for (int j = 0; j < layout.half_lives; ++j) {
    const double hl = params[half_life_index[j]];
    if (!is_positive_float(hl)) {
      return invalid("a half-life must be positive and within single precision");
    }
    ModelComponent& c = out.components[j];
    c.fraction = fractions[j];
    c.half_life_f = static_cast<float>(hl);
    c.rate = 0.69314718 / hl;
    c.a = sigma * 0.49012907 / hl;
    c.a_squared = c.a * c.a;
    c.basal = c.fraction * params[kBasal] * hl * 1.44269504;
    if (!std::isfinite(c.a_squared)) {
      return invalid("the secretion SD is too large for the half-life");
    }
  }

  for (int e = 0; e < layout.events; ++e) {
    ModelEvent& ev = out.event[e];
    const double log_height = params[layout.log_height_index(e)];
    ev.position = params[layout.position_index(e)];
    ev.onset = ev.position - 6.0 * sigma;
    if (log_height > 35.0) {
      ev.use = EventUse::kTooHigh;
    } else if (log_height <= -35.0) {
      ev.use = EventUse::kSkipped;
    } else {
      ev.use = EventUse::kUsed;
      ev.height = static_cast<float>(std::pow(10.0, log_height));
    }
  }
  return {};
}

}  // namespace detail

ModelResult evaluate_model(std::span<const double> params, const ModelLayout& layout,
                           std::span<const float> times, std::span<float> concentration) {
  return detail::evaluate_model_with<AbramowitzStegunErfFactor>(params, layout, times,
                                                                concentration);
}

}  // namespace tidemark::pulse
