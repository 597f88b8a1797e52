#pragma once
// The secretion-elimination model: the concentration at each sample time produced by a
// basal secretion, an initial concentration and Gaussian secretion events, eliminated by
// one to three exponential processes.
#include <span>
#include <string_view>

#include "pulse/model_layout.h"

namespace tidemark::pulse {

enum class ModelStatus {
  kOk,
  // The arrays or the layout do not fit together, or a parameter or time cannot be
  // evaluated (not finite, secretion SD or half-life not positive). Nothing is written.
  kInvalidInput,
  // A guard fired: an exponent above 40 or a LogHeight above 35, or a concentration
  // beyond single precision. The vector lies outside the region where the model can be
  // evaluated; a fitter treats it as a failed step.
  kOutsideRegion,
};

struct ModelResult {
  ModelStatus status = ModelStatus::kOk;
  std::string_view message;  // static text; empty on success
  int failed_sample = -1;    // 0-based sample at which a guard fired, else -1

  bool ok() const { return status == ModelStatus::kOk; }
  // The model's error flag: 1 for any failure, 0 on success.
  int error_flag() const { return ok() ? 0 : 1; }
};

// Evaluates the model at every sample time t = times[i] into concentration[i]:
//
//   C(t) = sum_j f_j * ( S0 * HL_j * 1.44269504 + C0 * exp(v_j) + sum_e 10^L_e * G_je(t) )
//
// with j over the layout's half-lives, f1 = 1 - f2 - f3 (f3 = 0 with two half-lives),
// v_j = -(t * 0.69314718 / HL_j), and G_je(t) the integral from 0 to t of
// exp(-(tau - P_e)^2 / (2 sigma^2)) * exp(-k_j (t - tau)) dtau, k_j = ln 2 / HL_j, in
// closed form:
//   G = 0 when t <= 0 or t < P_e - 6 sigma; otherwise, with a = sigma * 0.49012907 / HL_j,
//   u = -((t - P_e) * (0.69314718 / HL_j) - a^2),  G = 0 when u < -40, else
//   G = (E(x_t) - E(x_0)) * exp(u) * sigma * 1.41421356,
//   x_t = (t - P_e) / (sigma * 1.41421356) - a,  x_0 = (-P_e) / (sigma * 1.41421356) - a,
// E from AbramowitzStegunErfFactor.
//
// Precision: the fractions f_j, v_j and exp(v_j), and the heights 10^L_e are 32-bit
// values; everything else is 64-bit and each sample is summed in 64 bits, then stored as
// a 32-bit value.
//
// Guards, in the order met per sample, component, event: v_j > 40 fails; v_j <= -40
// drops the initial-concentration term; L_e > 35 fails; L_e <= -35 skips the event;
// u > 40 fails; a sum whose magnitude exceeds single precision fails. A failure returns
// at once: samples before failed_sample hold their new values, the others are untouched.
//
// No allocation: fit drivers may call it at every trial vector.
ModelResult evaluate_model(std::span<const double> params, const ModelLayout& layout,
                           std::span<const float> times, std::span<float> concentration);

}  // namespace tidemark::pulse
