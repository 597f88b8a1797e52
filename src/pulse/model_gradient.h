#pragma once
// The secretion-elimination model with its derivatives with respect to every entry of
// the parameter vector, in closed form, for a fitter's Jacobian.
#include <span>

#include "pulse/model_layout.h"
#include "pulse/secretion_model.h"

namespace tidemark::pulse {

// Writes C(t_i) into values[i] (64-bit, not rounded to 32 bits as evaluate_model does)
// and dC(t_i)/dp_j into jacobian[i * layout.size() + j] for every sample i and entry j.
// The values, guards and failures are those of evaluate_model (same 32-bit fractions,
// heights and initial-concentration exponential). With G the event integral of one
// component (rate k = ln 2 / HL), d = t - P, g(x) = exp(-x^2 / (2 sigma^2)) and
// g0 = g(-P) exp(-k t) (the integrand's ends):
//   dC/dS0 = sum_j f_j HL_j / ln 2          dC/dC0 = sum_j f_j exp(-k_j t)
//   dC/dL_e = ln 10 * 10^L_e * sum_j f_j G_je
//   dG/dP     = k G - g(d) + g0                               (integration by parts)
//   dG/dk     = (k sigma^2 - d) G - sigma^2 (g(d) - g0),      dk/dHL = -k / HL
//   dG/dsigma = (1/sigma + k^2 sigma) G - g(d) (d/sigma + k sigma) - g0 (P/sigma - k sigma)
//   dC/dHL_j also carries f_j (S0 / ln 2 + C0 exp(-k_j t) t ln 2 / HL_j^2)
//   dC/df2 = B_2 - B_1, dC/df3 = B_3 - B_1 with B_j the bracket of component j
// The last three follow from differentiating the closed form through u, x_t and x_0.
// A failure leaves `values` and `jacobian` partly written.
ModelResult evaluate_model_gradient(std::span<const double> params, const ModelLayout& layout,
                                    std::span<const float> times, std::span<double> values,
                                    std::span<double> jacobian);

}  // namespace tidemark::pulse
